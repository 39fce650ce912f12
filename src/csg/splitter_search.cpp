#include "csg/splitter_search.h"

#include <algorithm>

namespace zando {
namespace {

/// How many witnesses a candidate is looked for at first, and more of them the more it has: few are
/// enough to pass over one that cuts much, and asking for more saves asking again.
constexpr std::uint32_t kFirstWitnesses = 4;
constexpr std::uint32_t kMoreWitnesses = 2;

std::vector<CBspNode*> Nodes(const std::vector<CSplitterSearch::Member>& members) {
  std::vector<CBspNode*> nodes;
  nodes.reserve(members.size());
  for (const CSplitterSearch::Member& member : members) nodes.push_back(member.node);
  return nodes;
}

}  // namespace

CSplitterSearch::CSplitterSearch(const std::vector<Member>& members)
    : bvh_(Nodes(members)),
      candidates_(members.size()),
      bounds_(members.size()),
      watchers_(members.size()) {
  for (Slot slot = 0; slot < members.size(); ++slot) {
    candidates_[slot].head = members[slot].head;
    candidates_[slot].alive = members[slot].isHead;
    if (members[slot].isHead) bounds_.Set(slot, 0);
  }
}

void CSplitterSearch::Restart(Slot slot) {
  Candidate& candidate = candidates_[slot];
  ++candidate.count;
  candidate.complete = false;
  candidate.borderline = false;
  bounds_.Set(slot, 0);
}

void CSplitterSearch::Count(Slot slot, std::uint32_t enough) {
  Candidate& candidate = candidates_[slot];
  ++candidate.count;
  candidate.countedAt = taken_;
  candidate.complete = true;
  candidate.borderline = false;
  std::uint32_t found = 0;
  bvh_.VisitCut(bvh_.At(slot)->plane, [&](Slot other, CPolygonBvh::Cut cut) {
    if (candidates_[other].head == candidate.head) return true;
    if (cut == CPolygonBvh::Cut::Borderline) {
      candidate.borderline = true;
      return true;
    }
    watchers_[other].push_back({slot, candidate.count});
    candidate.complete = ++found < enough;
    return candidate.complete;
  });
  bounds_.Set(slot, found);
}

CSplitterSearch::Slot CSplitterSearch::Choose() {
  while (true) {
    const Slot slot = bounds_.First();
    const Candidate& candidate = candidates_[slot];
    // Splitting moves vertices by a rounding error: what hangs on it is counted every time.
    const bool current = !candidate.borderline || candidate.countedAt == taken_;
    if (candidate.complete && current) return slot;
    Count(slot, kFirstWitnesses + kMoreWitnesses * bounds_[slot]);
  }
}

bool CSplitterSearch::IsWatching(const Watcher& watcher) const {
  const Candidate& candidate = candidates_[watcher.candidate];
  return candidate.alive && candidate.count == watcher.count;
}

void CSplitterSearch::Leave(Slot slot) {
  candidates_[slot].alive = false;
  bounds_.Set(slot, CLeastBound::kNone);
  bvh_.Remove(slot);
  for (const Watcher& watcher : watchers_[slot]) {
    if (IsWatching(watcher)) bounds_.Decrease(watcher.candidate);
  }
  watchers_[slot] = {};
}

void CSplitterSearch::Shrink(Slot slot, CBspNode* part) {
  const bool sameNode = bvh_.At(slot) == part;
  // The back piece of a hidden polygon is visible: no candidate has counted it.
  if (bvh_.At(slot)->nValid == 0 && part->nValid != 0) {
    for (Candidate& candidate : candidates_) candidate.complete = false;
  }
  bvh_.Replace(slot, part);
  std::vector<Watcher>& watchers = watchers_[slot];
  std::size_t kept = 0;
  for (const Watcher& watcher : watchers) {
    if (!IsWatching(watcher)) continue;
    const Plane& plane = bvh_.At(watcher.candidate)->plane;
    if (ClassifyPolygon(plane, part->polygon) == PolygonClass::Spanning) {
      watchers[kept++] = watcher;
    } else {
      bounds_.Decrease(watcher.candidate);
    }
  }
  watchers.resize(kept);
  // A back piece has a plane of its own, in its last bits another one than the whole.
  if (!sameNode && candidates_[slot].alive) Restart(slot);
}

void CSplitterSearch::SortUnclear(CConstructiveBsp& tree, const Plane& plane, Slot splitter) {
  for (const Slot slot : sides_.unclear) {
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
  ++taken_;

  const Plane plane = taken.splitter->plane;
  bvh_.SortSides(plane, sides_);
  SortUnclear(tree, plane, splitter);
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
