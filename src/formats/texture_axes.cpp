#include "formats/texture_axes.h"

#include <cmath>
#include <numbers>

namespace zando {
namespace {

/// Axes are written with few digits.
constexpr double kSameDirection = 1e-3;

/// The side that a face is seen from, and the axes of a texture that is not turned.
struct Side {
  Vector towards;
  TextureAxes axes;
};

// Of sides that are equally near the first counts.
constexpr Side kSides[] = {
    {{0, 0, 1}, {{1, 0, 0}, {0, -1, 0}}}, {{0, 0, -1}, {{1, 0, 0}, {0, -1, 0}}},
    {{1, 0, 0}, {{0, 1, 0}, {0, 0, -1}}}, {{-1, 0, 0}, {{0, 1, 0}, {0, 0, -1}}},
    {{0, 1, 0}, {{1, 0, 0}, {0, 0, -1}}}, {{0, -1, 0}, {{1, 0, 0}, {0, 0, -1}}}};

/// Turned within the plane of the two axes of the map that the texture lies in.
Vector Turned(const Vector& v, const TextureAxes& plain, double cosine, double sine) {
  const Vector across{std::fabs(plain.u.x), std::fabs(plain.u.y), std::fabs(plain.u.z)};
  const Vector up{std::fabs(plain.v.x), std::fabs(plain.v.y), std::fabs(plain.v.z)};
  const double x = Dot(v, across);
  const double y = Dot(v, up);
  return across * (cosine * x - sine * y) + up * (sine * x + cosine * y);
}

}  // namespace

TextureAxes PlainTextureAxes(const Vector& normal, double rotation) {
  const Side* nearest = &kSides[0];
  for (const Side& side : kSides) {
    if (Dot(normal, side.towards) > Dot(normal, nearest->towards)) nearest = &side;
  }
  const double angle = rotation * std::numbers::pi / 180.0;
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  return {Turned(nearest->axes.u, nearest->axes, cosine, sine),
          Turned(nearest->axes.v, nearest->axes, cosine, sine)};
}

bool SameDirections(const TextureAxes& a, const TextureAxes& b) {
  return Length(a.u - b.u) < kSameDirection && Length(a.v - b.v) < kSameDirection;
}

}  // namespace zando
