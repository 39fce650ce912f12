#pragma once

#include <array>

#include "geometry/vector.h"

namespace zando {

/// Rotation units to a full turn. Every stored angle is in these units; people see degrees.
inline constexpr double kRotationUnitsPerTurn = 8192.0;

/// The angle in radians. The factors are multiplied in this order so that every machine gets the
/// same bits.
[[nodiscard]] constexpr double UnitsToRadians(double units) {
  return units * 3.141592653589793 * 0.000244140625;
}

[[nodiscard]] constexpr double UnitsToDegrees(double units) {
  return units * 0.0001220703125 * 360.0;
}

[[nodiscard]] constexpr double DegreesToUnits(double degrees) {
  return degrees * 0.002777777777777778 * 8192.0;
}

/// A 4x4 matrix that maps points of one space into another. m[row][column]; points are column
/// vectors and the translation stands in column 3. Every builder multiplies its matrix on the
/// left, so a sequence of calls applies to points in the order of the calls.
struct Transform {
  std::array<std::array<double, 4>, 4> m;

  [[nodiscard]] static Transform Identity();

  void SetIdentity();

  /// This becomes other x this. `other` may be this transform itself.
  void Multiply(const Transform& other);

  /// Maps the point by the upper three rows; row 3 is not read.
  void TransformPoint(Vector& point) const;

  void Translate(double tx, double ty, double tz);
  void Translate(const Vector& offset) { Translate(offset.x, offset.y, offset.z); }
  void Scale(double sx, double sy, double sz);

  /// x' = x + a z, y' = y + b z, z' = z + c y.
  void Shear(double a, double b, double c);

  /// Angles in rotation units.
  void RotateX(double angle);
  void RotateY(double angle);
  void RotateZ(double angle);

  /// RotateY(yaw), then RotateX(pitch), then RotateZ(roll).
  void Rotate(double yaw, double pitch, double roll);

  friend bool operator==(const Transform&, const Transform&) = default;
};

}  // namespace zando
