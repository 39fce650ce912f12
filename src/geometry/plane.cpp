#include "geometry/plane.h"

namespace zando {

Vector IntersectEdge(const Plane& plane, const Vector& a, const Vector& b) {
  const Vector direction = Normalised(b - a);
  const double t = -SignedDistance(plane, a) / Dot(plane.normal, direction);
  return a + direction * t;
}

}  // namespace zando
