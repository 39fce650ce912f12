#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
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

/// The same numbers for the same seed on every machine.
class CTestRandom {
 public:
  explicit CTestRandom(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
  }
  std::int32_t Whole(std::int32_t low, std::int32_t high) {
    return low + static_cast<std::int32_t>(Next() % static_cast<std::uint64_t>(high - low + 1));
  }
  double Real(double low, double high) {
    return low + (high - low) * static_cast<double>(Next() >> 11U) * 0x1p-53;
  }
  Vector Point(double reach) {
    const double x = Real(-reach, reach);
    const double y = Real(-reach, reach);
    return {x, y, Real(-reach, reach)};
  }

 private:
  std::uint64_t state_;
};

}  // namespace zando
