#pragma once

#include <algorithm>
#include <limits>

#include "geometry/vector.h"

namespace zando {

/// The least box, square to the axes, around what has been included; nothing at first. A
/// coordinate that is not a number is passed over.
struct Bounds {
  static constexpr double kInfinity = std::numeric_limits<double>::infinity();

  Vector low{kInfinity, kInfinity, kInfinity};
  Vector high{-kInfinity, -kInfinity, -kInfinity};

  constexpr void Include(const Vector& point) {
    low = {std::min(low.x, point.x), std::min(low.y, point.y), std::min(low.z, point.z)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y), std::max(high.z, point.z)};
  }

  constexpr void Include(const Bounds& other) {
    low = {std::min(low.x, other.low.x), std::min(low.y, other.low.y),
           std::min(low.z, other.low.z)};
    high = {std::max(high.x, other.high.x), std::max(high.y, other.high.y),
            std::max(high.z, other.high.z)};
  }

  /// Whether nothing has been included.
  [[nodiscard]] constexpr bool IsEmpty() const { return low.x > high.x; }

  friend constexpr bool operator==(const Bounds&, const Bounds&) = default;
};

/// Whether two boxes overlap; touching counts.
[[nodiscard]] constexpr bool Overlap(const Bounds& a, const Bounds& b) {
  return b.high.x >= a.low.x && b.low.x <= a.high.x && b.high.y >= a.low.y && b.low.y <= a.high.y &&
         b.high.z >= a.low.z && b.low.z <= a.high.z;
}

}  // namespace zando
