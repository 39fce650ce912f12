#pragma once

#include <cmath>
#include <numbers>
#include <span>

#include "document/brush_list.h"
#include "geometry/brush.h"

namespace zando::testing {

/// How often closed shells of polygons that look outward go around a point: 1 inside, 0 outside
/// and in a cavity, whose polygons look into it. The sum of the solid angles that a point sees; no
/// whole number when a shell is open.
[[nodiscard]] inline double Winding(std::span<const CZandoPoly> polygons, const Vector& point) {
  double angle = 0.0;
  for (const CZandoPoly& polygon : polygons) {
    for (std::int32_t i = 2; i < polygon.count; ++i) {
      const Vector a = polygon[0] - point;
      const Vector b = polygon[i - 1] - point;
      const Vector c = polygon[i] - point;
      const double around = Length(a) * Length(b) * Length(c) + Dot(a, b) * Length(c) +
                            Dot(b, c) * Length(a) + Dot(c, a) * Length(b);
      angle += 2.0 * std::atan2(Dot(a, Cross(b, c)), around);
    }
  }
  return angle / (4.0 * std::numbers::pi);
}

[[nodiscard]] inline bool Holds(const CZandoBrush& brush, const Vector& point) {
  const auto& [low, high] = brush.WorldBounds();
  const bool isNear = low.x < point.x && point.x < high.x && low.y < point.y && point.y < high.y &&
                      low.z < point.z && point.z < high.z;
  return isNear && Winding(brush.WorldPolys(), point) > 0.5;
}

/// What the last brush that holds the point makes of it: an empty place where none does.
[[nodiscard]] inline bool IsSolidAt(const CBrushList& level, const Vector& point) {
  bool solid = false;
  for (const CZandoBrush& brush : level) {
    if (Holds(brush, point)) solid = brush.TranT == kAddToWorld;
  }
  return solid;
}

}  // namespace zando::testing
