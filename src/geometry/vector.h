#pragma once

#include <cmath>
#include <cstddef>

namespace zando {

/// A point or direction of the level, in map units. Y is the vertical axis. A plain value: a
/// default-initialised Vector holds no defined coordinates.
struct Vector {
  double x;
  double y;
  double z;

  friend constexpr bool operator==(const Vector&, const Vector&) = default;
};

[[nodiscard]] constexpr Vector operator+(const Vector& a, const Vector& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

[[nodiscard]] constexpr Vector operator-(const Vector& a, const Vector& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

[[nodiscard]] constexpr Vector operator-(const Vector& a) { return {-a.x, -a.y, -a.z}; }

[[nodiscard]] constexpr Vector operator*(const Vector& a, double factor) {
  return {a.x * factor, a.y * factor, a.z * factor};
}

[[nodiscard]] constexpr double Dot(const Vector& a, const Vector& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

[[nodiscard]] constexpr Vector Cross(const Vector& a, const Vector& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

[[nodiscard]] inline double Length(const Vector& a) {
  return std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
}

/// The vector divided by its length. A zero vector gives coordinates that are not numbers.
[[nodiscard]] inline Vector Normalised(const Vector& a) {
  const double length = Length(a);
  return {a.x / length, a.y / length, a.z / length};
}

/// The coordinate along an axis: 0 is x, 1 is y, 2 is z.
[[nodiscard]] constexpr double Coordinate(const Vector& v, std::size_t axis) {
  if (axis == 0) return v.x;
  return axis == 1 ? v.y : v.z;
}

[[nodiscard]] inline bool IsFinite(const Vector& v) {
  return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

}  // namespace zando
