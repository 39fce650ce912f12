#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "geometry/vector.h"

namespace zando {

/// Bits of an axis mask: a set bit allows edits along or about that axis.
inline constexpr std::uint32_t kAxisX = 1;
inline constexpr std::uint32_t kAxisY = 2;
inline constexpr std::uint32_t kAxisZ = 4;

inline constexpr std::array<std::uint32_t, 3> kAxes{kAxisX, kAxisY, kAxisZ};
inline constexpr std::array<double Vector::*, 3> kCoordinates{&Vector::x, &Vector::y, &Vector::z};

/// Angles are kept as (yaw, pitch, roll), which turn about y, x and z: the same angles with each in
/// the place of its axis, and back.
[[nodiscard]] constexpr Vector ByAxis(const Vector& angles) {
  return {angles.y, angles.x, angles.z};
}

/// The change where the mask allows it, 0 elsewhere.
[[nodiscard]] constexpr Vector Masked(const Vector& change, std::uint32_t axisMask) {
  return {(axisMask & kAxisX) != 0 ? change.x : 0.0, (axisMask & kAxisY) != 0 ? change.y : 0.0,
          (axisMask & kAxisZ) != 0 ? change.z : 0.0};
}

/// The axes of a view along the axes of the world: those it shows from left to right and from
/// bottom to top, and the one it looks along.
struct ViewAxes {
  double Vector::*across;
  double Vector::*up;
  double Vector::*depth;

  friend constexpr bool operator==(const ViewAxes&, const ViewAxes&) = default;
};
inline constexpr ViewAxes kTopAxes{&Vector::x, &Vector::z, &Vector::y};
inline constexpr ViewAxes kSideAxes{&Vector::z, &Vector::y, &Vector::x};
inline constexpr ViewAxes kFrontAxes{&Vector::x, &Vector::y, &Vector::z};

/// A rectangle of a view, between its least and its greatest corner.
struct ViewRect {
  Vector low;
  Vector high;
  ViewAxes axes;

  /// Whether the point lies in it, borders included; its depth does not matter.
  [[nodiscard]] constexpr bool Holds(const Vector& point) const {
    return low.*axes.across <= point.*axes.across && point.*axes.across <= high.*axes.across &&
           low.*axes.up <= point.*axes.up && point.*axes.up <= high.*axes.up;
  }
};

/// The axis of the largest displacement; z wins ties, then y.
[[nodiscard]] inline double Vector::*DominantAxis(const Vector& displacement) {
  const double dx = std::abs(displacement.x);
  const double dy = std::abs(displacement.y);
  const double dz = std::abs(displacement.z);
  if (dy < dx && dz < dx) return &Vector::x;
  if (dy >= dx && dz < dy) return &Vector::y;
  return &Vector::z;
}

/// The value along each axis of the mask as the nearest multiple of `step`, which is above 0;
/// halves go up.
[[nodiscard]] inline Vector Snapped(Vector value, double step, std::uint32_t axisMask) {
  for (std::size_t i = 0; i < kAxes.size(); ++i) {
    if ((axisMask & kAxes[i]) == 0) continue;
    double& coordinate = value.*kCoordinates[i];
    coordinate = std::floor(coordinate / step + 0.5) * step;
  }
  return value;
}

/// Which axes a finished drag commits.
enum class Commit { AllAxes, DominantAxis };

/// What a drag from `committed` to `working` leaves behind.
[[nodiscard]] inline Vector Committed(const Vector& working, const Vector& committed,
                                      Commit commit) {
  if (commit == Commit::AllAxes) return working;
  Vector result = committed;
  const auto axis = DominantAxis(working - committed);
  result.*axis = working.*axis;
  return result;
}

}  // namespace zando
