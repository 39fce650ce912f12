#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "geometry/brush.h"
#include "geometry/vector.h"

namespace zando {

/// An upright ellipse that is level: where it lies, and its half sizes.
struct Ellipse {
  Vector centre;
  double halfX;
  double halfZ;
};

/// `count` points around the ellipse, which is symmetric about its x axis: from its +x end on, each
/// a turn of (one turn div `count`) whole rotation units further, its z from the equation of the
/// ellipse, negated in the second half. A collapsed ellipse, with a half size of zero along x,
/// gives points on its axis. Appended to `points`.
void AppendRing(std::vector<Vector>& points, const Ellipse& ellipse, std::int32_t count);

/// The square of part / whole, which is not zero. Squares that a double cannot hold do no harm.
[[nodiscard]] double SquaredRatio(double part, double whole);

/// Writes one polygon of a brush: these points, by their indices.
void WritePolygon(CZandoBrush& brush, std::size_t polygon, std::span<const Vector> points,
                  std::span<const std::size_t> corners);

}  // namespace zando
