#include "csg/stabbing_counts.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "geometry/plane.h"

namespace zando {
namespace {

constexpr std::int32_t kOut = std::numeric_limits<std::int32_t>::max();

/// Both as ClassifyPoint decides for a plane square to the axis, bit for bit.
bool IsBeyond(double coordinate, double position) { return coordinate - position > PLANE_EPSILON; }
bool IsBefore(double coordinate, double position) { return coordinate - position < -PLANE_EPSILON; }

}  // namespace

CStabbingCounts::CStabbingCounts(std::vector<Point> points) : points_(std::move(points)) {
  if (points_.empty()) return;
  std::sort(points_.begin(), points_.end(), [](const Point& a, const Point& b) {
    return a.position != b.position ? a.position < b.position : a.slot < b.slot;
  });
  leaves_ = std::bit_ceil(points_.size());
  tree_.resize(2 * leaves_);
  for (std::size_t i = 0; i < points_.size(); ++i) tree_[leaves_ + i].least = {0, points_[i].slot};
  for (std::size_t node = leaves_ - 1; node > 0; --node) Refresh(node);
}

CStabbingCounts::Range CStabbingCounts::CutBy(double low, double high) const {
  const auto begin = std::partition_point(
      points_.begin(), points_.end(), [low](const Point& p) { return !IsBefore(low, p.position); });
  const auto end = std::partition_point(
      begin, points_.end(), [high](const Point& p) { return IsBeyond(high, p.position); });
  return {static_cast<std::uint32_t>(begin - points_.begin()),
          static_cast<std::uint32_t>(end - points_.begin())};
}

void CStabbingCounts::Apply(std::size_t node, std::int32_t change) {
  Node& changed = tree_[node];
  if (changed.least.count == kOut) return;
  changed.least.count += change;
  changed.added += change;
}

void CStabbingCounts::Refresh(std::size_t node) {
  Least least = std::min(tree_[2 * node].least, tree_[2 * node + 1].least);
  if (least.count != kOut) least.count += tree_[node].added;
  tree_[node].least = least;
}

void CStabbingCounts::RefreshAbove(std::size_t node) {
  for (node /= 2; node > 0; node /= 2) Refresh(node);
}

void CStabbingCounts::Add(Range range, std::int32_t change) {
  if (range.begin >= range.end) return;
  std::size_t low = leaves_ + range.begin;
  std::size_t high = leaves_ + range.end;
  const std::size_t first = low;
  const std::size_t last = high - 1;
  for (; low < high; low /= 2, high /= 2) {
    if (low % 2 == 1) Apply(low++, change);
    if (high % 2 == 1) Apply(--high, change);
  }
  RefreshAbove(first);
  RefreshAbove(last);
}

std::uint32_t CStabbingCounts::PlaceOf(const Point& point) const {
  const auto found =
      std::lower_bound(points_.begin(), points_.end(), point, [](const Point& a, const Point& b) {
        return a.position != b.position ? a.position < b.position : a.slot < b.slot;
      });
  return static_cast<std::uint32_t>(found - points_.begin());
}

void CStabbingCounts::Erase(std::uint32_t place) {
  tree_[leaves_ + place] = Node();
  RefreshAbove(leaves_ + place);
}

}  // namespace zando
