#include "csg/splitter_search.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "csg/coplanar_table.h"
#include "csg/node_sides.h"

namespace zando {
namespace {

/// How many witnesses a candidate is looked for at first, and more of them the more it has: few are
/// enough to pass over one that cuts much, and asking for more saves asking again.
constexpr std::uint32_t kFirstWitnesses = 4;
constexpr std::uint32_t kMoreWitnesses = 2;

bool IsUnit(double value) { return value == 1.0 || value == -1.0; }

/// The axis that a plane is square to, or the number of axes.
std::uint32_t SquareAxis(const Vector& normal) {
  if (IsUnit(normal.x) && normal.y == 0.0 && normal.z == 0.0) return 0;
  if (normal.x == 0.0 && IsUnit(normal.y) && normal.z == 0.0) return 1;
  if (normal.x == 0.0 && normal.y == 0.0 && IsUnit(normal.z)) return 2;
  return 3;
}

/// Where the plane, square to an axis, stands along it; exact.
double Position(const Plane& plane, std::uint32_t axis) {
  return Coordinate(plane.normal, axis) > 0.0 ? -plane.d : plane.d;
}

/// Whether a vertex has a distance from planes square to the axis: the other coordinates enter it
/// too, and 0 times infinity is not a number.
bool IsFiniteAcross(const Vector& vertex, std::uint32_t axis) {
  return (axis == 0 || std::isfinite(vertex.x)) && (axis == 1 || std::isfinite(vertex.y)) &&
         (axis == 2 || std::isfinite(vertex.z));
}

/// Of a polygon that is not quite flat. A candidate does not count itself, but an axis would.
bool IsCutByItself(const CBspNode& node) {
  return ClassifyPolygon(node.plane, node.polygon) == PolygonClass::Spanning;
}

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
      extents_(members.size()),
      bounds_(members.size()),
      watchers_(members.size()) {
  for (Slot slot = 0; slot < members.size(); ++slot) {
    candidates_[slot].head = members[slot].head;
    candidates_[slot].alive = members[slot].isHead;
  }
  std::array<std::vector<CStabbingCounts::Point>, kAxes> points;
  for (Slot slot = 0; slot < members.size(); ++slot) {
    Candidate& candidate = candidates_[slot];
    if (!candidate.alive) continue;
    candidate.axis = CountableAxis(slot);
    if (candidate.axis == kNoAxis) {
      bounds_.Set(slot, 0);
    } else {
      const double position = Position(members[slot].node->plane, candidate.axis);
      points[candidate.axis].push_back({position, slot});
    }
  }
  for (std::vector<CStabbingCounts::Point>& axis : points) alongAxis_.emplace_back(std::move(axis));
  for (Slot slot = 0; slot < members.size(); ++slot) {
    extents_[slot] = ExtentsOf(members[slot].node);
    AddExtents(extents_[slot], 1);
  }
}

std::uint32_t CSplitterSearch::CountableAxis(Slot slot) const {
  const CBspNode* node = bvh_.At(slot);
  if (HasChain(slot) || !std::isfinite(node->plane.d)) return kNoAxis;
  if (IsCutByItself(*node)) return kNoAxis;
  return SquareAxis(node->plane.normal);
}

bool CSplitterSearch::HasChain(Slot slot) const {
  const std::size_t next = std::size_t{slot} + 1;
  return next < candidates_.size() && candidates_[next].head == candidates_[slot].head;
}

CSplitterSearch::Extents CSplitterSearch::ExtentsOf(const CBspNode* node) const {
  Extents extents;
  if (node->nValid == 0) return extents;
  for (std::uint32_t axis = 0; axis < kAxes; ++axis) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    // A polygon without vertices counts as cut by every plane.
    if (node->polygon.count == 0) std::swap(low, high);
    for (const Vector& vertex : node->polygon.Vertices()) {
      const double coordinate = Coordinate(vertex, axis);
      if (!IsFiniteAcross(vertex, axis)) continue;
      if (coordinate < low) low = coordinate;
      if (coordinate > high) high = coordinate;
    }
    if (low <= high) extents[axis] = alongAxis_[axis].CutBy(low, high);
  }
  return extents;
}

void CSplitterSearch::AddExtents(const Extents& extents, std::int32_t change) {
  for (std::size_t axis = 0; axis < kAxes; ++axis) alongAxis_[axis].Add(extents[axis], change);
}

void CSplitterSearch::StopCountingAlongAxis(Slot slot) {
  Candidate& candidate = candidates_[slot];
  if (candidate.axis == kNoAxis) return;
  const double position = Position(bvh_.At(slot)->plane, candidate.axis);
  CStabbingCounts& counts = alongAxis_[candidate.axis];
  counts.Erase(counts.PlaceOf({position, slot}));
  candidate.axis = kNoAxis;
}

CStabbingCounts::Least CSplitterSearch::FirstAlongAxes() const {
  CStabbingCounts::Least first;
  for (const CStabbingCounts& counts : alongAxis_) first = std::min(first, counts.First());
  return first;
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
  const CStabbingCounts::Least square = FirstAlongAxes();
  const auto squareCount = static_cast<std::uint32_t>(square.count);
  // Once a candidate has more witnesses than this, the square one wins.
  const std::uint32_t enoughForSquare = square.slot < candidates_.size() ? squareCount * 3 / 2 : 0;
  while (true) {
    const Slot slot = bounds_.First();
    if (std::pair(squareCount, square.slot) < std::pair(bounds_[slot], slot)) return square.slot;
    const Candidate& candidate = candidates_[slot];
    // Splitting moves vertices by a rounding error: what hangs on it is counted every time.
    const bool current = !candidate.borderline || candidate.countedAt == taken_;
    if (candidate.complete && current) return slot;
    Count(slot, std::max(kFirstWitnesses + kMoreWitnesses * bounds_[slot], enoughForSquare));
  }
}

bool CSplitterSearch::IsWatching(const Watcher& watcher) const {
  const Candidate& candidate = candidates_[watcher.candidate];
  return candidate.alive && candidate.count == watcher.count;
}

void CSplitterSearch::Leave(Slot slot) {
  StopCountingAlongAxis(slot);
  AddExtents(extents_[slot], -1);
  candidates_[slot].alive = false;
  bounds_.Set(slot, CLeastBound::kNone);
  bvh_.Remove(slot);
  for (const Watcher& watcher : watchers_[slot]) {
    if (IsWatching(watcher)) bounds_.Decrease(watcher.candidate);
  }
  watchers_[slot] = {};
}

void CSplitterSearch::Shrink(Slot slot, CBspNode* part) {
  const CBspNode* whole = bvh_.At(slot);
  // The back piece of a hidden polygon is visible: no candidate has counted it.
  if (whole->nValid == 0 && part->nValid != 0) {
    for (Candidate& candidate : candidates_) candidate.complete = false;
  }
  // A back piece computes its own plane, which may differ from the whole's: in its last bits, or
  // altogether when the polygon is not quite flat.
  const bool samePlane =
      whole->plane.normal == part->plane.normal && whole->plane.d == part->plane.d;
  if (candidates_[slot].alive && !samePlane) {
    StopCountingAlongAxis(slot);
    Restart(slot);
  }
  bvh_.Replace(slot, part);
  AddExtents(extents_[slot], -1);
  extents_[slot] = ExtentsOf(part);
  AddExtents(extents_[slot], 1);
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
}

void CSplitterSearch::SortUnclear(CConstructiveBsp& tree, const Plane& plane) {
  for (const Slot slot : sides_.unclear) {
    const auto [side, backPiece] = SortNode(tree, plane, bvh_.At(slot));
    if (backPiece != nullptr) {
      backPieces_.emplace_back(slot, backPiece);
    } else {
      (GoesToFront(side, kCoplanarTable.partition) ? front_ : back_).push_back(slot);
    }
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

  // It goes first: what is left of a polygon that is not quite flat may lie beside its own plane.
  Leave(splitter);
  const Plane plane = taken.splitter->plane;
  bvh_.SortSides(plane, sides_);
  SortUnclear(tree, plane);
  taken.smallerIsFront = sides_.frontCount + front_.size() <= sides_.backCount + back_.size();

  std::vector<Slot>& leaving = taken.smallerIsFront ? front_ : back_;
  for (const std::uint32_t box : taken.smallerIsFront ? sides_.frontBoxes : sides_.backBoxes) {
    bvh_.Collect(box, leaving);
  }
  std::vector<std::pair<Slot, CBspNode*>> smaller;
  smaller.reserve(leaving.size() + backPieces_.size());
  for (const Slot slot : leaving) smaller.emplace_back(slot, bvh_.At(slot));
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
