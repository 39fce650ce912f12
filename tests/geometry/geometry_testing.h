#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <ostream>

#include "geometry/polygon.h"

namespace zando {

inline void PrintTo(const Vector& v, std::ostream* out) {
  *out << '(' << v.x << ", " << v.y << ", " << v.z << ')';
}

/// For EXPECT_PRED2: equal but for rounding.
inline bool Near(const Vector& a, const Vector& b) {
  const double size = 1.0 + Length(a) + Length(b);
  return Length(a - b) <= 1e-12 * size;
}

inline CZandoPoly MakePolygon(std::initializer_list<Vector> vertices) {
  CZandoPoly polygon;
  for (const Vector& vertex : vertices) polygon.Append(vertex);
  return polygon;
}

inline bool SameVertices(const CZandoPoly& a, const CZandoPoly& b) {
  return std::equal(a.Vertices().begin(), a.Vertices().end(), b.Vertices().begin(),
                    b.Vertices().end());
}

}  // namespace zando
