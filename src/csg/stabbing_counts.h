#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace zando {

/// Candidate planes square to one axis, each at a position, and how many polygons it cuts; a
/// polygon enters as its extent along the axis. Tells at any time the candidate with the least
/// count, the lowest slot of equals. Counts are exact: a plane cuts an extent when ClassifyPolygon
/// says so.
class CStabbingCounts {
 public:
  using Slot = std::uint32_t;

  struct Point {
    double position;
    Slot slot;
  };
  explicit CStabbingCounts(std::vector<Point> points);

  /// The candidates that an extent has on both sides, by their place along the axis.
  struct Range {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
  };
  [[nodiscard]] Range CutBy(double low, double high) const;

  /// Adds `change` to the count of every candidate of the range.
  void Add(Range range, std::int32_t change);

  /// The place of a candidate along the axis, for Erase.
  [[nodiscard]] std::uint32_t PlaceOf(const Point& point) const;

  /// The candidate at a place takes part no more.
  void Erase(std::uint32_t place);

  struct Least {
    std::int32_t count = std::numeric_limits<std::int32_t>::max();
    Slot slot = std::numeric_limits<Slot>::max();

    friend bool operator<(const Least& a, const Least& b) {
      return a.count != b.count ? a.count < b.count : a.slot < b.slot;
    }
  };
  /// The greatest possible value when no candidate takes part.
  [[nodiscard]] Least First() const { return tree_.empty() ? Least() : tree_[1].least; }

 private:
  /// A node of a segment tree over the places; `least` includes `added`, of this node and below.
  struct Node {
    Least least;
    std::int32_t added = 0;
  };

  void Apply(std::size_t node, std::int32_t change);
  void Refresh(std::size_t node);
  void RefreshAbove(std::size_t node);

  std::vector<Point> points_;  ///< by position, then slot
  std::vector<Node> tree_;     ///< root at 1, the children of i at 2i and 2i + 1
  std::size_t leaves_ = 0;     ///< a power of two
};

}  // namespace zando
