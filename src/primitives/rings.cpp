#include "primitives/rings.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "geometry/transform.h"

namespace zando {

namespace {

/// How far from the x axis an ellipse of half size `halfZ` is, where this share of it is left.
double DepthOf(double left, double halfZ) {
  const double squared = left * (halfZ * halfZ);
  return std::isfinite(squared) ? std::sqrt(squared) : std::sqrt(left) * std::fabs(halfZ);
}

}  // namespace

double SquaredShare(double part, double whole) {
  const double squared = part * part / (whole * whole);
  if (std::isfinite(squared)) return squared;
  const double share = part / whole;
  return share * share;
}

void AppendRing(std::vector<Vector>& points, const Ellipse& ellipse, std::int32_t count) {
  constexpr auto kTurn = static_cast<std::int32_t>(kRotationUnitsPerTurn);
  const std::int32_t units = kTurn / count;
  Transform step = Transform::Identity();
  step.RotateY(units);
  Vector turned{ellipse.halfX, 0.0, 0.0};
  for (std::int32_t k = 0; k < count; ++k) {
    double z = 0.0;
    if (ellipse.halfX != 0.0) {
      // At the far end of the ellipse rounding may leave a little less than nothing.
      z = DepthOf(std::max(1.0 - SquaredShare(turned.x, ellipse.halfX), 0.0), ellipse.halfZ);
    }
    if (k > count / 2) z = -z;
    points.push_back(ellipse.centre + Vector{turned.x, 0.0, z});
    step.TransformPoint(turned);
  }
}

void WritePolygon(CZandoBrush& brush, std::size_t polygon, std::span<const Vector> points,
                  std::span<const std::size_t> corners) {
  CZandoPoly& written = brush.EditPoly(polygon);
  written.count = 0;
  for (const std::size_t corner : corners) written.Append(points[corner]);
}

}  // namespace zando
