#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "csg/brush_sequence.h"
#include "csg/clipper.h"
#include "csg/csg_world.h"
#include "csg/node_tree_builder.h"
#include "geometry/shown_brushes.h"

namespace zando {
namespace {

/// One brush of the shown-brush walk with what the rebuild knows of it.
struct Participant {
  const CZandoBrush* brush;
  bool takesPart;                       ///< shown, and no water brush that is left out
  std::vector<std::size_t> neighbours;  ///< others that take part and overlap, in list order
};

bool Builds(const CZandoBrush& brush, WaterBrushes water) {
  return brush.HasVolume() && (water == WaterBrushes::Build || !brush.IsWater());
}

ClippingBrush AsClipper(const CZandoBrush& brush, bool isEarlier) {
  if (brush.TranT == kAddToWorld) {
    return isEarlier ? ClippingBrush::EarlierSolid : ClippingBrush::LaterSolid;
  }
  return isEarlier ? ClippingBrush::EarlierCarver : ClippingBrush::LaterCarver;
}

/// Lists for each participant the others whose bounds overlap its own: a sweep along x.
void FindNeighbours(std::vector<Participant>& participants) {
  std::vector<std::size_t> byLow;
  for (std::size_t i = 0; i < participants.size(); ++i) {
    if (participants[i].takesPart) byLow.push_back(i);
  }
  std::sort(byLow.begin(), byLow.end(), [&](std::size_t a, std::size_t b) {
    const double lowA = participants[a].brush->WorldBounds().low.x;
    const double lowB = participants[b].brush->WorldBounds().low.x;
    return lowA != lowB ? lowA < lowB : a < b;
  });
  for (std::size_t s = 0; s < byLow.size(); ++s) {
    Participant& first = participants[byLow[s]];
    for (std::size_t t = s + 1; t < byLow.size(); ++t) {
      Participant& second = participants[byLow[t]];
      if (second.brush->WorldBounds().low.x > first.brush->WorldBounds().high.x) break;
      if (!BoundsOverlap(*first.brush, *second.brush)) continue;
      first.neighbours.push_back(byLow[t]);
      second.neighbours.push_back(byLow[s]);
    }
  }
  for (Participant& participant : participants) {
    std::sort(participant.neighbours.begin(), participant.neighbours.end());
  }
}

/// Clips the faces of all brushes against each other and keeps what can be seen.
class COptimalRebuild {
 public:
  COptimalRebuild(CConstructiveBsp& tree, std::vector<Participant> participants,
                  CProgress* progress)
      : tree_(tree), participants_(std::move(participants)), progress_(progress), clipper_(tree) {}

  CNodeList Run() {
    for (std::size_t i = 0; i < participants_.size(); ++i) {
      Step();
      const Participant& own = participants_[i];
      if (own.takesPart && own.brush->TranT == kAddToWorld) ClipSolidFaces(i);
    }
    for (std::size_t i = 0; i < participants_.size(); ++i) {
      Step();
      const Participant& own = participants_[i];
      if (own.takesPart && own.brush->TranT == kSubtractFromWorld) ClipCarvingFaces(i);
    }
    tree_.refused += brushTree_.refused;
    return PruneHidden(tree_, result_);
  }

 private:
  void Step() {
    if (progress_ != nullptr) progress_->StepIt();
  }

  CBspNode* NewFace(const CZandoBrush& brush, std::size_t face, const CZandoPoly& polygon) {
    CBspNode* node = tree_.NewNode();
    node->TakePolygon(polygon);
    node->nBid = brush.BBid;
    node->nPolNum = static_cast<std::int32_t>(face);
    node->pBrush = &brush;
    result_.Append(node);
    return node;
  }

  /// Runs `clip` on the members that the node's chain has now, not on those that it adds.
  template <typename Clip>
  static void ForChain(CBspNode* node, Clip&& clip) {
    CBspNode* member = node;
    for (std::int32_t left = ChainLength(node); left > 0; --left, member = member->chain) {
      clip(member);
    }
  }

  void ClipSolidFaces(std::size_t i) {
    const CZandoBrush& own = *participants_[i].brush;
    for (std::size_t face = 0; face < own.WorldPolys().size(); ++face) {
      if (own.WorldPolys()[face].count == 0) continue;
      CBspNode* node = NewFace(own, face, own.WorldPolys()[face]);
      for (const std::size_t j : participants_[i].neighbours) {
        const CZandoBrush& other = *participants_[j].brush;
        ForChain(node, [&](CBspNode* member) { ClipSolidFace(member, other, i > j); });
      }
    }
  }

  /// Earlier carvers show what they bound of a later solid; all others hide.
  void ClipSolidFace(CBspNode* member, const CZandoBrush& other, bool otherIsEarlier) {
    const ClippingBrush clipper = AsClipper(other, otherIsEarlier);
    const bool shows = clipper == ClippingBrush::EarlierCarver;
    if (!shows && member->nValid == 0) return;
    BuildCountedClipTree(other, member->plane);
    ClipMember(member, shows, SolidFaceRule(clipper));
  }

  void BuildCountedClipTree(const CZandoBrush& brush, const Plane& plane) {
    tree_.refused += brushTree_.refused;
    BuildClipTree(brushTree_, brush, plane);
  }

  void ClipCarvingFaces(std::size_t i) {
    const CZandoBrush& own = *participants_[i].brush;
    std::vector<CBspNode*> faces;
    for (std::size_t face = 0; face < own.WorldPolys().size(); ++face) {
      if (own.WorldPolys()[face].count == 0) continue;
      faces.push_back(NewFace(own, face, ReverseCopy(own.WorldPolys()[face]).polygon));
      faces.back()->nValid = 0;
    }
    // Faces do not meet each other here, so each neighbour's tree serves all of them.
    for (const std::size_t j : participants_[i].neighbours) {
      const CZandoBrush& other = *participants_[j].brush;
      tree_.refused += brushTree_.refused;
      BuildBrushTree(brushTree_, other);
      for (CBspNode* face : faces) {
        ForChain(face, [&](CBspNode* member) { ClipCarvingFace(member, other, i > j); });
      }
    }
  }

  /// Earlier solids show the hidden face where it cuts into them; all others hide what is shown.
  void ClipCarvingFace(CBspNode* member, const CZandoBrush& other, bool otherIsEarlier) {
    const ClippingBrush clipper = AsClipper(other, otherIsEarlier);
    const bool shows = clipper == ClippingBrush::EarlierSolid;
    if (shows == (member->nValid == 0)) ClipMember(member, shows, CarvingFaceRule(clipper));
  }

  void ClipMember(CBspNode* member, bool shows, CoplanarRule rule) {
    if (shows) {
      clipper_.ClipSubtract(brushTree_, member, rule);
    } else {
      clipper_.ClipAdd(brushTree_, member, rule);
    }
  }

  CConstructiveBsp& tree_;
  std::vector<Participant> participants_;
  CProgress* progress_;
  CClipper clipper_;
  CConstructiveBsp brushTree_;  ///< of the brush that clips at the moment
  CNodeList result_;
};

}  // namespace

CNodeList PruneHidden(CConstructiveBsp& tree, CNodeList list) {
  CNodeList visible;
  CBspNode* next = nullptr;
  for (CBspNode* head = list.head; head != nullptr; head = next) {
    next = head->link;
    CBspNode* kept = nullptr;
    CBspNode* last = nullptr;
    CBspNode* following = nullptr;
    for (CBspNode* member = head; member != nullptr; member = following) {
      following = member->chain;
      member->chain = nullptr;
      if (member->nValid == 0) {
        tree.FreeNode(member);
        continue;
      }
      if (kept == nullptr) {
        kept = member;
      } else {
        last->chain = member;
      }
      last = member;
    }
    if (kept != nullptr) visible.Append(kept);
  }
  return visible;
}

void RebuildQuick(CConstructiveBsp& world, CProgress* progress, WaterBrushes water) {
  world.Clear();
  CBrushSequence sequence(world);
  const std::vector<const CZandoBrush*> shown = ShownBrushes(world.brushList);
  if (progress != nullptr) progress->Expect(std::ssize(shown));
  for (const CZandoBrush* brush : shown) {
    if (progress != nullptr) progress->StepIt();
    if (Builds(*brush, water)) sequence.Insert(*brush, brush->BBid);
  }
}

void RebuildOptimal(CConstructiveBsp& world, CProgress* progress, WaterBrushes water) {
  std::vector<Participant> participants;
  std::int64_t faces = 0;
  for (const CZandoBrush* brush : ShownBrushes(world.brushList)) {
    participants.push_back({brush, Builds(*brush, water), {}});
    faces += brush->PolyCount();
  }
  // Both passes over the brushes; after that each partition of the tree, about one a face.
  if (progress != nullptr) progress->Expect(2 * std::ssize(participants) + faces);
  FindNeighbours(participants);
  world.Clear();
  const CNodeList visible = COptimalRebuild(world, std::move(participants), progress).Run();
  BuildNodeTree(world, visible, progress);
}

}  // namespace zando
