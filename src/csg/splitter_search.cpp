#include "csg/splitter_search.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace zando {
namespace {

std::vector<CBspNode*> Nodes(const std::vector<CSplitterSearch::Member>& members) {
  std::vector<CBspNode*> nodes;
  nodes.reserve(members.size());
  for (const CSplitterSearch::Member& member : members) nodes.push_back(member.node);
  return nodes;
}

}  // namespace

CSplitterSearch::CSplitterSearch(const std::vector<Member>& members)
    : bvh_(Nodes(members)), candidates_(members.size()), watchers_(members.size()) {
  std::vector<Entry> entries;
  for (Slot slot = 0; slot < members.size(); ++slot) {
    candidates_[slot].head = members[slot].head;
    candidates_[slot].alive = members[slot].isHead;
    if (members[slot].isHead) entries.emplace_back(0U, slot);
  }
  queue_ = decltype(queue_)(std::greater<>(), std::move(entries));
}

CSplitterSearch::Cut CSplitterSearch::Cuts(const Plane& plane, const CZandoPoly& polygon,
                                           double slack) {
  if (polygon.count == 0) return Cut::Yes;
  double low = std::numeric_limits<double>::infinity();
  double high = -low;
  for (const Vector& vertex : polygon.Vertices()) {
    const double distance = SignedDistance(plane, vertex);
    if (distance < low) low = distance;
    if (distance > high) high = distance;
  }
  if (high > PLANE_EPSILON && low < -PLANE_EPSILON) return Cut::Yes;
  const bool nearly = high > PLANE_EPSILON - slack && low < -PLANE_EPSILON + slack;
  return nearly ? Cut::Borderline : Cut::No;
}

void CSplitterSearch::Push(Slot slot) {
  queue_.emplace(static_cast<std::uint32_t>(candidates_[slot].witnesses.size()), slot);
}

void CSplitterSearch::Forget(Slot slot) {
  candidates_[slot].witnesses.clear();
  candidates_[slot].complete = false;
  candidates_[slot].borderline = false;
}

void CSplitterSearch::Count(Slot slot, std::size_t enough) {
  Forget(slot);
  Candidate& candidate = candidates_[slot];
  const Plane& plane = bvh_.At(slot)->plane;
  const double slack = bvh_.Slack(plane) * 0.5;
  candidate.complete = true;
  candidate.counted = now_;
  bvh_.VisitNear(plane, [&](Slot other) {
    const CBspNode* node = bvh_.At(other);
    if (candidates_[other].head == candidate.head || node->nValid == 0) return true;
    switch (Cuts(plane, node->polygon, slack)) {
      case Cut::No:
        return true;
      case Cut::Borderline:
        candidate.borderline = true;
        return true;
      case Cut::Yes:
        break;
    }
    candidate.witnesses.push_back(other);
    watchers_[other].push_back(slot);
    candidate.complete = candidate.witnesses.size() < enough;
    return candidate.complete;
  });
}

CSplitterSearch::Slot CSplitterSearch::Choose() {
  while (true) {
    const auto [bound, slot] = queue_.top();
    queue_.pop();
    const Candidate& candidate = candidates_[slot];
    if (!candidate.alive || candidate.witnesses.size() != bound) continue;
    const bool current = !candidate.borderline || candidate.counted == now_;
    if (candidate.complete && current) return slot;
    // One witness is enough to pass a candidate over while others may have none.
    Count(slot, bound == 0 ? 1 : std::size_t{2} * bound + 2);
    Push(slot);
  }
}

void CSplitterSearch::LoseWitness(Slot slot, Slot witness) {
  Candidate& candidate = candidates_[slot];
  if (!candidate.alive) return;
  std::vector<Slot>& witnesses = candidate.witnesses;
  const auto found = std::find(witnesses.begin(), witnesses.end(), witness);
  if (found == witnesses.end()) return;
  *found = witnesses.back();
  witnesses.pop_back();
  Push(slot);
}

void CSplitterSearch::Leave(Slot slot) {
  candidates_[slot].alive = false;
  candidates_[slot].witnesses = {};
  bvh_.Remove(slot);
  for (const Slot watcher : watchers_[slot]) LoseWitness(watcher, slot);
  watchers_[slot] = {};
}

void CSplitterSearch::Shrink(Slot slot, CBspNode* part) {
  const bool sameNode = bvh_.At(slot) == part;
  bvh_.Replace(slot, part);
  std::vector<Slot> watchers = std::move(watchers_[slot]);
  watchers_[slot].clear();
  for (const Slot watcher : watchers) {
    if (!candidates_[watcher].alive) continue;
    const Plane& plane = bvh_.At(watcher)->plane;
    if (ClassifyPolygon(plane, part->polygon) == PolygonClass::Spanning) {
      watchers_[slot].push_back(watcher);
    } else {
      LoseWitness(watcher, slot);
    }
  }
  // A back piece has a plane of its own, in its last bits another one than the whole.
  if (!sameNode && candidates_[slot].alive) {
    Forget(slot);
    Push(slot);
  }
}

void CSplitterSearch::SortUnclear(CConstructiveBsp& tree, const Plane& plane,
                                  const std::vector<Slot>& unclear, Slot splitter) {
  for (const Slot slot : unclear) {
    if (slot == splitter) continue;
    CBspNode* node = bvh_.At(slot);
    PolygonClass side = ClassifyPolygon(plane, node->polygon);
    if (side == PolygonClass::Spanning) {
      if (CBspNode* backPiece = CutOffBack(tree, plane, node); backPiece != nullptr) {
        backPieces_.emplace_back(slot, backPiece);
        continue;
      }
      side = SideOfMean(plane, node->polygon);
    }
    const bool front = side == PolygonClass::Front || side == PolygonClass::CoplanarSame;
    (front ? front_ : back_).push_back(slot);
  }
}

CSplitterSearch::Taken CSplitterSearch::Take(CConstructiveBsp& tree, Slot splitter) {
  Taken taken;
  taken.splitter = bvh_.At(splitter);
  sides_.frontBoxes.clear();
  sides_.backBoxes.clear();
  sides_.unclear.clear();
  sides_.frontCount = 0;
  sides_.backCount = 0;
  front_.clear();
  back_.clear();
  backPieces_.clear();
  ++now_;

  const Plane plane = taken.splitter->plane;
  bvh_.SortSides(plane, sides_);
  SortUnclear(tree, plane, sides_.unclear, splitter);
  taken.smallerIsFront = sides_.frontCount + front_.size() <= sides_.backCount + back_.size();

  std::vector<Slot>& leaving = taken.smallerIsFront ? front_ : back_;
  for (const std::uint32_t box : taken.smallerIsFront ? sides_.frontBoxes : sides_.backBoxes) {
    bvh_.Collect(box, leaving);
  }
  std::vector<std::pair<Slot, CBspNode*>> smaller;
  for (const Slot slot : leaving) smaller.emplace_back(slot, bvh_.At(slot));
  Leave(splitter);
  for (const Slot slot : leaving) Leave(slot);
  for (const auto& [slot, backPiece] : backPieces_) {
    CBspNode* frontPiece = bvh_.At(slot);
    smaller.emplace_back(slot, taken.smallerIsFront ? frontPiece : backPiece);
    Shrink(slot, taken.smallerIsFront ? backPiece : frontPiece);
  }
  std::sort(smaller.begin(), smaller.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& [slot, node] : smaller) taken.smaller.push_back(node);
  return taken;
}

std::vector<CBspNode*> CSplitterSearch::Remaining() const {
  std::vector<CBspNode*> nodes;
  for (Slot slot = 0; slot < bvh_.SlotCount(); ++slot) {
    if (bvh_.IsLive(slot)) nodes.push_back(bvh_.At(slot));
  }
  return nodes;
}

}  // namespace zando
