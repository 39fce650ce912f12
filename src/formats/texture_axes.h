#pragma once

#include "geometry/vector.h"

namespace zando {

/// The two directions that a texture runs along on a face, in the map's axes: z is up.
struct TextureAxes {
  Vector u;
  Vector v;
};

/// Those of a face whose plane line gives a rotation only: the face is seen along the axis of the
/// map that its normal is nearest to, and the texture is turned there. Degrees.
[[nodiscard]] TextureAxes PlainTextureAxes(const Vector& normal, double rotation);

/// Whether they are the same but for rounding.
[[nodiscard]] bool SameDirections(const TextureAxes& a, const TextureAxes& b);

}  // namespace zando
