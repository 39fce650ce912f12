#include "csg/literal_csg.h"

#include <cstddef>

#include "geometry/brush.h"

namespace zando::literal {
namespace {

/// Where a polygon in the plane of a brush face goes.
struct Rule {
  bool sameIsFront;
  bool oppositeIsFront;
};
constexpr Rule kAsGiven{true, false};     // by a solid; by a carver as the first pass sees it
constexpr Rule kAllInside{false, false};  // by a carver: its own face takes over
constexpr Rule kReversed{false, true};    // a carving face, seen from the other side

struct Counts {
  int outside = 0;
  int inside = 0;
};

enum class Way { Front, Back, Both };

/// The way of the polygon past a plane. For Both it is cut: `polygon` is the front piece then.
Way Sort(Tree& owner, const Plane& plane, CZandoPoly& polygon, CZandoPoly& back, Rule rule) {
  switch (ClassifyPolygon(plane, polygon)) {
    case PolygonClass::Front:
      return Way::Front;
    case PolygonClass::Back:
      return Way::Back;
    case PolygonClass::CoplanarSame:
      return rule.sameIsFront ? Way::Front : Way::Back;
    case PolygonClass::CoplanarOpposite:
      return rule.oppositeIsFront ? Way::Front : Way::Back;
    case PolygonClass::Spanning:
      break;
  }
  if (SplitPolygon(plane, polygon, back) == SplitResult::Done) return Way::Both;
  ++owner.refused;
  return SideOfMean(plane, polygon) == PolygonClass::Front ? Way::Front : Way::Back;
}

/// The members that a chain has now; pieces that join it later are not among them.
List ChainMembers(CBspNode* head) {
  List members;
  for (CBspNode* m = head; m != nullptr; m = m->chain) members.push_back(m);
  return members;
}

/// Walks a node down from `at`. Pieces that reach an empty child are kept there, or dropped where
/// the tree is older than the insertion and the side is not the one that keeps.
void Insert(Tree& tree, CBspNode* at, CBspNode* piece, Rule rule, bool keepInFront) {
  CZandoPoly back;
  const Way way = Sort(tree, at->plane, piece->polygon, back, rule);
  CBspNode* backPiece = piece;
  if (way == Way::Both) {
    backPiece = tree.NewNode();
    *backPiece = *piece;
    backPiece->TakePolygon(back);
  }
  if (way != Way::Back) {
    if (at->front != nullptr) {
      Insert(tree, at->front, piece, rule, keepInFront);
    } else if (keepInFront || at->nFresh == 1) {
      at->front = piece;
    }
  }
  if (way != Way::Front) {
    if (at->back != nullptr) {
      Insert(tree, at->back, backPiece, rule, keepInFront);
    } else if (!keepInFront || at->nFresh == 1) {
      at->back = backPiece;
    }
  }
}

/// A carver finds nothing to carve where there is no world yet.
void InsertFace(Tree& tree, CBspNode* node, bool adds) {
  if (tree.root == nullptr && !adds) return;
  ++tree.inserted;
  if (tree.root == nullptr) {
    tree.root = node;
  } else {
    Insert(tree, tree.root, node, {adds, !adds}, adds);
  }
}

void InsertCopy(Tree& tree, const CZandoPoly& face) {
  if (face.count == 0) return;
  CBspNode* node = tree.NewNode();
  node->TakePolygon(face);
  InsertFace(tree, node, true);
}

/// Hide: what is inside a brush is hidden and the rest is shown. Show: what is inside is shown.
enum class Mode { Hide, Show };

Counts Clip(Tree& owner, const CBspNode* at, CBspNode* piece, Rule rule, Mode mode) {
  const auto goOn = [&](const CBspNode* child, CBspNode* part, bool front) -> Counts {
    if (child != nullptr) return Clip(owner, child, part, rule, mode);
    if (front && mode == Mode::Hide) part->nValid = 1;
    if (!front) part->nValid = mode == Mode::Show ? 1 : 0;
    return front ? Counts{1, 0} : Counts{0, 1};
  };
  const CZandoPoly whole = piece->polygon;
  CZandoPoly back;
  const Way way = Sort(owner, at->plane, piece->polygon, back, rule);
  if (way == Way::Front) return goOn(at->front, piece, true);
  if (way == Way::Back) return goOn(at->back, piece, false);

  CBspNode* rest = owner.NewNode();
  rest->TakePolygon(back);
  rest->TakeOwner(*piece);
  rest->nValid = piece->nValid;
  const Counts before = goOn(at->front, piece, true);
  const Counts behind = goOn(at->back, rest, false);
  const Counts all{before.outside + behind.outside, before.inside + behind.inside};
  if ((mode == Mode::Hide ? all.inside : all.outside) == 0) {
    piece->TakePolygon(whole);
    return {1, 0};
  }
  ChainEnd(piece)->chain = rest;
  return all;
}

void ClipBy(const Tree& brush, Tree& owner, CBspNode* piece, Rule rule, Mode mode) {
  if (brush.root != nullptr) Clip(owner, brush.root, piece, rule, mode);
}

void ClearFresh(CBspNode* node) {
  if (node == nullptr) return;
  node->nFresh = 0;
  ClearFresh(node->front);
  ClearFresh(node->back);
}

void ClipWorldByBrush(Tree& world, CBspNode* node, const Tree& clipper, Rule rule) {
  if (node == nullptr || node->nFresh == 1) return;
  ClipWorldByBrush(world, node->back, clipper, rule);
  ClipWorldByBrush(world, node->front, clipper, rule);
  for (CBspNode* member : ChainMembers(node)) {
    if (member->nValid == 1) ClipBy(clipper, world, member, rule, Mode::Hide);
  }
}

void BuildFullTree(Tree& tree, const CZandoBrush& brush) {
  for (const CZandoPoly& face : brush.WorldPolys()) InsertCopy(tree, face);
}

/// The faces that bound the brush within a plane. One that merely touches it bounds nothing there.
void BuildClipTree(Tree& tree, const CZandoBrush& brush, const Plane& plane) {
  bool before = false;
  bool behind = false;
  bool faceInPlane = false;
  for (const CZandoPoly& face : brush.WorldPolys()) {
    const PolygonClass kind = ClassifyPolygon(plane, face);
    faceInPlane |= kind == PolygonClass::CoplanarSame || kind == PolygonClass::CoplanarOpposite;
    for (const Vector& vertex : face.Vertices()) {
      before |= ClassifyPoint(plane, vertex) == PointClass::Front;
      behind |= ClassifyPoint(plane, vertex) == PointClass::Back;
    }
  }
  if (!faceInPlane && !(before && behind)) return;
  for (const CZandoPoly& face : brush.WorldPolys()) {
    const PolygonClass kind = ClassifyPolygon(plane, face);
    int on = 0;
    for (const Vector& vertex : face.Vertices()) {
      if (ClassifyPoint(plane, vertex) == PointClass::On) ++on;
    }
    const bool aside = kind == PolygonClass::Front || kind == PolygonClass::Back;
    if (!aside || on >= 2) InsertCopy(tree, face);
  }
}

List PruneHidden(const List& list) {
  List kept;
  for (CBspNode* head : list) {
    CBspNode* last = nullptr;
    for (CBspNode* member : ChainMembers(head)) {
      member->chain = nullptr;
      if (member->nValid == 0) continue;
      if (last == nullptr) {
        kept.push_back(member);
      } else {
        last->chain = member;
      }
      last = member;
    }
  }
  return kept;
}

bool TakesPart(const CZandoBrush& brush, bool water) {
  return brush.HasVolume() && (water || !brush.IsWater());
}

std::vector<const CZandoBrush*> ShownBrushes(const CZandoBrush* head) {
  std::vector<const CZandoBrush*> shown;
  for (const CZandoBrush* b = head; b != nullptr; b = b->Next) {
    const bool begins = !shown.empty() || (b->BFlags & BF_ENTITY) == 0;
    if (begins && (b->BFlags & BF_SHOWN) != 0) shown.push_back(b);
  }
  return shown;
}

CBspNode* FaceNode(Tree& tree, const CZandoBrush& brush, std::size_t face, std::int32_t id) {
  CBspNode* node = tree.NewNode();
  const CZandoPoly& polygon = brush.WorldPolys()[face];
  node->TakePolygon(brush.TranT == kAddToWorld ? polygon : ReverseCopy(polygon).polygon);
  node->nBid = id;
  node->nPolNum = static_cast<std::int32_t>(face);
  node->pBrush = &brush;
  return node;
}

/// A solid brush's new face against another brush.
void ClipSolidFace(Tree& world, CBspNode* f, const CZandoBrush& other, bool otherIsEarlier) {
  const bool carves = other.TranT != kAddToWorld;
  const bool shows = carves && otherIsEarlier;
  if (f->nValid == 0 && !shows) return;
  Tree clip;
  BuildClipTree(clip, other, f->plane);
  world.refused += clip.refused;
  const Rule rule = carves && !shows ? kAllInside : kAsGiven;
  ClipBy(clip, world, f, rule, shows ? Mode::Show : Mode::Hide);
}

/// A carver's new face against the full tree of another brush.
void ClipCarvingFace(Tree& world, CBspNode* f, const CZandoBrush& other, bool otherIsEarlier,
                     const Tree& full) {
  if (other.TranT != kAddToWorld) {
    if (f->nValid == 0) return;
    ClipBy(full, world, f, otherIsEarlier ? kReversed : kAllInside, Mode::Hide);
  } else if (otherIsEarlier) {
    if (f->nValid == 0) ClipBy(full, world, f, kReversed, Mode::Show);
  } else if (f->nValid == 1) {
    ClipBy(full, world, f, kAsGiven, Mode::Hide);
  }
}

struct Sides {
  List front;
  List back;
};

CBspNode* ChooseSplitter(const List& list) {
  CBspNode* best = nullptr;
  int bestScore = 5555555;
  for (CBspNode* candidate : list) {
    int spans = 0;
    for (CBspNode* head : list) {
      if (head == candidate) continue;
      for (const CBspNode* m = head; m != nullptr; m = m->chain) {
        if (m->nValid != 0 &&
            ClassifyPolygon(candidate->plane, m->polygon) == PolygonClass::Spanning) {
          ++spans;
        }
      }
    }
    if (100 * spans < bestScore) {
      best = candidate;
      bestScore = 100 * spans;
    }
  }
  return best;
}

Sides Partition(Tree& tree, const CBspNode* splitter, const List& list, std::int32_t& steps) {
  ++steps;
  Sides sides;
  for (CBspNode* head : list) {
    for (CBspNode* m : ChainMembers(head)) {
      m->chain = nullptr;
      if (m == splitter) continue;
      CZandoPoly back;
      const Way way = Sort(tree, splitter->plane, m->polygon, back, kAsGiven);
      if (way != Way::Back) sides.front.push_back(m);
      if (way == Way::Back) sides.back.push_back(m);
      if (way != Way::Both) continue;
      CBspNode* rest = tree.NewNode();
      rest->TakePolygon(back);
      rest->TakeOwner(*m);
      sides.back.push_back(rest);
    }
  }
  return sides;
}

void BuildSubtree(Tree& tree, CBspNode*& place, const List& list, std::int32_t& steps) {
  place = ChooseSplitter(list);
  if (place == nullptr) return;
  const Sides sides = Partition(tree, place, list, steps);
  BuildSubtree(tree, place->front, sides.front, steps);
  BuildSubtree(tree, place->back, sides.back, steps);
}

}  // namespace

std::int32_t BuildNodeTree(Tree& tree, const List& list) {
  std::int32_t steps = 0;
  BuildSubtree(tree, tree.root, list, steps);
  return steps;
}

void InsertBrush(Tree& world, const CZandoBrush& brush, std::int32_t id) {
  ClearFresh(world.root);
  if (brush.TranT != kAddToWorld && brush.TranT != kSubtractFromWorld) return;
  if (!brush.HasVolume()) return;
  for (std::size_t k = 0; k < brush.WorldPolys().size(); ++k) {
    if (brush.WorldPolys()[k].count == 0) continue;
    InsertFace(world, FaceNode(world, brush, k, id), brush.TranT == kAddToWorld);
  }
  Tree own;
  BuildFullTree(own, brush);
  ClipWorldByBrush(world, world.root, own, brush.TranT == kAddToWorld ? kAsGiven : kAllInside);
  world.refused += own.refused;
}

std::int32_t RebuildQuick(Tree& world, const CZandoBrush* head, bool water) {
  world.Clear();
  std::int32_t steps = 0;
  for (const CZandoBrush* brush : ShownBrushes(head)) {
    ++steps;
    if (TakesPart(*brush, water)) InsertBrush(world, *brush, brush->BBid);
  }
  return steps;
}

std::int32_t RebuildOptimal(Tree& world, const CZandoBrush* head, bool water) {
  world.Clear();
  std::int32_t steps = 0;
  List result;
  const std::vector<const CZandoBrush*> a = ShownBrushes(head);
  std::vector<Tree> full(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    BuildFullTree(full[i], *a[i]);
  }
  const auto meets = [&](std::size_t i, std::size_t j) {
    return j != i && TakesPart(*a[j], water) && BoundsOverlap(*a[i], *a[j]);
  };
  const auto clipFace = [&](CBspNode* face, std::size_t i) {
    for (std::size_t j = 0; j < a.size(); ++j) {
      if (!meets(i, j)) continue;
      for (CBspNode* f : ChainMembers(face)) {
        if (a[i]->TranT == kAddToWorld) {
          ClipSolidFace(world, f, *a[j], i > j);
        } else {
          ClipCarvingFace(world, f, *a[j], i > j, full[j]);
        }
      }
    }
  };
  for (const std::int32_t operation : {kAddToWorld, kSubtractFromWorld}) {
    for (std::size_t i = 0; i < a.size(); ++i) {
      ++steps;
      if (a[i]->TranT != operation || !TakesPart(*a[i], water)) continue;
      for (std::size_t j = 0; operation == kSubtractFromWorld && j < a.size(); ++j) {
        if (meets(i, j)) world.refused += full[j].refused;
      }
      for (std::size_t k = 0; k < a[i]->WorldPolys().size(); ++k) {
        if (a[i]->WorldPolys()[k].count == 0) continue;
        result.push_back(FaceNode(world, *a[i], k, a[i]->BBid));
        result.back()->nValid = operation == kAddToWorld ? 1 : 0;
        clipFace(result.back(), i);
      }
    }
  }
  return steps + BuildNodeTree(world, PruneHidden(result));
}

}  // namespace zando::literal
