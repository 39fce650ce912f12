#include "geometry/transform.h"

#include <cmath>
#include <cstddef>

namespace zando {
namespace {

/// The turn in the plane of two axes that takes the second axis towards the first.
Transform RotationInPlane(double angle, std::size_t first, std::size_t second) {
  const double radians = UnitsToRadians(angle);
  const double c = std::cos(radians);
  const double s = std::sin(radians);
  Transform r = Transform::Identity();
  r.m[first][first] = c;
  r.m[first][second] = s;
  r.m[second][first] = -s;
  r.m[second][second] = c;
  return r;
}

}  // namespace

Transform Transform::Identity() {
  Transform result;
  result.SetIdentity();
  return result;
}

void Transform::SetIdentity() {
  m = {{{1.0, 0.0, 0.0, 0.0}, {0.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 1.0, 0.0}, {0.0, 0.0, 0.0, 1.0}}};
}

void Transform::Multiply(const Transform& other) {
  const Transform left = other;
  const Transform right = *this;
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t j = 0; j < 4; ++j) {
      double sum = 0.0;
      for (std::size_t k = 0; k < 4; ++k) sum += left.m[i][k] * right.m[k][j];
      m[i][j] = sum;
    }
  }
}

void Transform::TransformPoint(Vector& point) const {
  const Vector p = point;
  point.x = m[0][0] * p.x + m[0][1] * p.y + m[0][2] * p.z + m[0][3];
  point.y = m[1][0] * p.x + m[1][1] * p.y + m[1][2] * p.z + m[1][3];
  point.z = m[2][0] * p.x + m[2][1] * p.y + m[2][2] * p.z + m[2][3];
}

void Transform::Translate(double tx, double ty, double tz) {
  Transform t = Identity();
  t.m[0][3] = tx;
  t.m[1][3] = ty;
  t.m[2][3] = tz;
  Multiply(t);
}

void Transform::Scale(double sx, double sy, double sz) {
  Transform s = Identity();
  s.m[0][0] = sx;
  s.m[1][1] = sy;
  s.m[2][2] = sz;
  Multiply(s);
}

void Transform::Shear(double a, double b, double c) {
  Transform h = Identity();
  h.m[0][2] = a;
  h.m[1][2] = b;
  h.m[2][1] = c;
  Multiply(h);
}

void Transform::RotateX(double angle) { Multiply(RotationInPlane(angle, 1, 2)); }

void Transform::RotateY(double angle) { Multiply(RotationInPlane(angle, 2, 0)); }

void Transform::RotateZ(double angle) { Multiply(RotationInPlane(angle, 0, 1)); }

void Transform::Rotate(double yaw, double pitch, double roll) {
  RotateY(yaw);
  RotateX(pitch);
  RotateZ(roll);
}

}  // namespace zando
