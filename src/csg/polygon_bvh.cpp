#include "csg/polygon_bvh.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace zando {
namespace {

constexpr std::uint32_t kLeafSize = 4;

/// Within this reach a cut is exact enough for its pieces to lie within the polygon, but for a
/// rounding error.
constexpr double kTameReach = 1e9;

/// Rounding of a distance, relative to the coordinates that enter it; a generous bound.
constexpr double kRelativeSlack = 1e-14;
constexpr double kLeastSlack = 1e-9;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The largest coordinate of the vertices; infinite when the parts of the polygon may lie anywhere.
double Reach(const CZandoPoly& polygon) {
  if (polygon.count == 0) return kInfinity;
  double reach = 0.0;
  for (const Vector& v : polygon.Vertices()) {
    if (!IsFinite(v)) return kInfinity;
    reach = std::max({reach, std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)});
  }
  if (reach > kTameReach) return kInfinity;
  return reach;
}

}  // namespace

CPolygonBvh::CPolygonBvh(std::vector<CBspNode*> polygons) : polygons_(std::move(polygons)) {
  std::vector<Box> leaves(polygons_.size());
  for (std::size_t slot = 0; slot < polygons_.size(); ++slot) {
    const CZandoPoly& polygon = polygons_[slot]->polygon;
    Bounds bounds{{-kInfinity, -kInfinity, -kInfinity}, {kInfinity, kInfinity, kInfinity}};
    if (const double reach = Reach(polygon); reach < kInfinity) {
      bounds = Bounds();
      for (const Vector& vertex : polygon.Vertices()) bounds.Include(vertex);
      reach_ = std::max(reach_, reach);
    }
    leaves[slot] = BoxAround(bounds);
  }
  Build(leaves);
}

double CPolygonBvh::Slack(const Plane& plane) const {
  return kLeastSlack + kRelativeSlack * (reach_ + std::fabs(plane.d));
}

CPolygonBvh::Box CPolygonBvh::BoxAround(const Bounds& bounds) {
  Box box;
  box.centre = (bounds.low + bounds.high) * 0.5;
  box.extent = (bounds.high - bounds.low) * 0.5;
  // An unbounded box keeps a centre that can be compared.
  if (!IsFinite(box.centre)) box.centre = {0.0, 0.0, 0.0};
  if (!IsFinite(box.extent)) box.extent = {kInfinity, kInfinity, kInfinity};
  return box;
}

void CPolygonBvh::FitBox(Box& box, const std::vector<Slot>& order, const std::vector<Box>& leaves) {
  Bounds bounds;
  for (std::uint32_t i = box.begin; i < box.end; ++i) {
    const Box& leaf = leaves[order[i]];
    bounds.Include(Bounds{leaf.centre - leaf.extent, leaf.centre + leaf.extent});
  }
  const Box around = BoxAround(bounds);
  box.centre = around.centre;
  box.extent = around.extent;
}

void CPolygonBvh::Build(const std::vector<Box>& leaves) {
  entries_.resize(leaves.size());
  for (Slot slot = 0; slot < entries_.size(); ++slot) entries_[slot].slot = slot;
  entryOf_.resize(leaves.size());
  leafOf_.resize(leaves.size());
  if (leaves.empty()) return;
  std::vector<Slot> order(leaves.size());
  std::iota(order.begin(), order.end(), 0U);
  boxes_.reserve(leaves.size());
  Box root;
  root.end = static_cast<std::uint32_t>(leaves.size());
  boxes_.push_back(root);
  // Children are appended behind their parents, so one pass in order reaches every box.
  for (std::uint32_t index = 0; index < boxes_.size(); ++index) {
    Box box = boxes_[index];
    FitBox(box, order, leaves);
    box.live = box.end - box.begin;
    if (box.live > kLeafSize) {
      const std::uint32_t middle = Halve(box, order, leaves);
      box.left = static_cast<std::uint32_t>(boxes_.size());
      box.right = box.left + 1;
      boxes_.push_back(Box{{}, {}, index, kNone, kNone, box.begin, middle, 0});
      boxes_.push_back(Box{{}, {}, index, kNone, kNone, middle, box.end, 0});
    } else {
      for (std::uint32_t i = box.begin; i < box.end; ++i) leafOf_[order[i]] = index;
    }
    boxes_[index] = box;
  }
  for (std::uint32_t i = 0; i < entries_.size(); ++i) {
    entries_[i].slot = order[i];
    entries_[i].wild = !IsFinite(leaves[order[i]].extent);
    entryOf_[order[i]] = i;
    FillEntry(entries_[i]);
  }
  for (Box& box : boxes_) OrderChildren(box);
}

std::uint32_t CPolygonBvh::Halve(const Box& box, std::vector<Slot>& order,
                                 const std::vector<Box>& leaves) {
  const Vector& e = box.extent;
  const std::size_t axis = e.x >= e.y && e.x >= e.z ? 0 : (e.y >= e.z ? 1 : 2);
  const std::uint32_t middle = box.begin + (box.end - box.begin) / 2;
  std::nth_element(order.begin() + box.begin, order.begin() + middle, order.begin() + box.end,
                   [&](Slot a, Slot b) {
                     const double ca = Coordinate(leaves[a].centre, axis);
                     const double cb = Coordinate(leaves[b].centre, axis);
                     return ca != cb ? ca < cb : a < b;
                   });
  return middle;
}

void CPolygonBvh::OrderChildren(Box& box) const {
  if (box.left == kNone) return;
  const Vector& middle = boxes_[0].centre;
  const double left = Length(boxes_[box.left].centre - middle);
  const double right = Length(boxes_[box.right].centre - middle);
  if (right < left) std::swap(box.left, box.right);
}

void CPolygonBvh::FillEntry(Entry& entry) const {
  const CBspNode* node = polygons_[entry.slot];
  entry.counts = node != nullptr && node->nValid != 0;
  if (!entry.counts) return;
  entry.count = node->polygon.count;
  if (entry.count > kInlineVertices) return;
  std::copy_n(node->polygon.verts.begin(), entry.count, entry.vertices.begin());
}

void CPolygonBvh::Remove(Slot slot) {
  polygons_[slot] = nullptr;
  entries_[entryOf_[slot]].counts = false;
  for (std::uint32_t box = leafOf_[slot]; box != kNone; box = boxes_[box].parent) {
    --boxes_[box].live;
  }
}

void CPolygonBvh::Replace(Slot slot, CBspNode* part) {
  polygons_[slot] = part;
  FillEntry(entries_[entryOf_[slot]]);
}

CPolygonBvh::Range CPolygonBvh::DistanceRange(const Plane& plane, const Entry& entry) const {
  if (entry.count == 0) return {-kInfinity, kInfinity};
  const bool fits = entry.count <= kInlineVertices;
  const Vector* vertices =
      fits ? entry.vertices.data() : polygons_[entry.slot]->polygon.verts.data();
  Range range{kInfinity, -kInfinity};
  for (std::int32_t i = 0; i < entry.count; ++i) {
    const double distance = SignedDistance(plane, vertices[i]);
    if (distance < range.low) range.low = distance;
    if (distance > range.high) range.high = distance;
  }
  return range;
}

CPolygonBvh::Range CPolygonBvh::DistanceRange(const Plane& plane, const Box& box) {
  const double centre = SignedDistance(plane, box.centre);
  const double reach = std::fabs(plane.normal.x) * box.extent.x +
                       std::fabs(plane.normal.y) * box.extent.y +
                       std::fabs(plane.normal.z) * box.extent.z;
  return {centre - reach, centre + reach};
}

void CPolygonBvh::SortSides(const Plane& plane, Sides& sides) const {
  const double slack = Slack(plane);
  std::vector<std::uint32_t> pending;
  if (!boxes_.empty()) pending.push_back(0);
  while (!pending.empty()) {
    const std::uint32_t index = pending.back();
    const Box& box = boxes_[index];
    pending.pop_back();
    if (box.live == 0) continue;
    const Range range = DistanceRange(plane, box);
    if (range.low - slack > PLANE_EPSILON) {
      sides.frontBoxes.push_back(index);
      sides.frontCount += box.live;
    } else if (range.high + slack < -PLANE_EPSILON) {
      sides.backBoxes.push_back(index);
      sides.backCount += box.live;
    } else if (box.left != kNone) {
      pending.push_back(box.right);
      pending.push_back(box.left);
    } else {
      for (std::uint32_t i = box.begin; i < box.end; ++i) {
        if (IsLive(entries_[i].slot)) sides.unclear.push_back(entries_[i].slot);
      }
    }
  }
}

void CPolygonBvh::Collect(std::uint32_t box, std::vector<Slot>& slots) const {
  for (std::uint32_t i = boxes_[box].begin; i < boxes_[box].end; ++i) {
    if (IsLive(entries_[i].slot)) slots.push_back(entries_[i].slot);
  }
}

}  // namespace zando
