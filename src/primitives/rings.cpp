#include "primitives/rings.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "geometry/transform.h"

namespace zando {

double SquaredRatio(double part, double whole) {
  const double square = whole * whole;
  if (std::isnormal(square)) return part * part / square;
  const double ratio = part / whole;
  return ratio * ratio;
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
      const double left = 1.0 - SquaredRatio(turned.x, ellipse.halfX);
      const double square = ellipse.halfZ * ellipse.halfZ;
      // At the far end of the ellipse rounding may leave a little less than nothing.
      z = std::isnormal(square) ? std::sqrt(std::max(left * square, 0.0))
                                : std::fabs(ellipse.halfZ) * std::sqrt(std::max(left, 0.0));
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
