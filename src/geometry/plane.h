#pragma once

#include "geometry/vector.h"

namespace zando {

/// A point this near a plane lies on it. Map units. Used by every classification.
inline constexpr double PLANE_EPSILON = 0.001;

/// The plane of a polygon: a point p lies on it when normal . p + d = 0. The normal is a unit
/// vector and points to the front.
struct Plane {
  Vector normal;
  double d;

  friend constexpr bool operator==(const Plane&, const Plane&) = default;
};

enum class PointClass { Front = 0, Back = 1, On = 2 };

/// normal . p + d, summed in this order.
[[nodiscard]] inline double SignedDistance(const Plane& plane, const Vector& point) {
  return plane.normal.x * point.x + plane.normal.y * point.y + plane.normal.z * point.z + plane.d;
}

/// The side of the point; both tolerance limits, and a distance that is not a number, count as On.
[[nodiscard]] inline PointClass ClassifyPoint(const Plane& plane, const Vector& point) {
  const double distance = SignedDistance(plane, point);
  if (distance > PLANE_EPSILON) return PointClass::Front;
  if (distance < -PLANE_EPSILON) return PointClass::Back;
  return PointClass::On;
}

/// The point where the line through a and b meets the plane. Meant for ends that lie strictly on
/// opposite sides; a line parallel to the plane gives coordinates that are not numbers.
[[nodiscard]] Vector IntersectEdge(const Plane& plane, const Vector& a, const Vector& b);

}  // namespace zando
