#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "geometry/brush.h"
#include "geometry/plane.h"

namespace zando::testing {

/// One plane line of a `.map` brush. Points are in the level's axes: y is up.
struct MapPlane {
  std::array<Vector, 3> points{};
  std::string texture;
};

using MapBrush = std::vector<MapPlane>;

struct MapEntity {
  std::vector<MapBrush> brushes;
};

/// The entities of a `.map`, the first being worldspawn. Nothing when the text is not of the form
/// that the exporter writes.
[[nodiscard]] std::optional<std::vector<MapEntity>> ParseMap(const std::string& text);

/// The planes of a convex solid, facing outwards.
using Planes = std::vector<Plane>;
[[nodiscard]] Planes PlanesOf(const MapBrush& brush);

/// World polygons must be current.
[[nodiscard]] Planes PlanesOf(const CZandoBrush& brush);

/// The distance before the farthest of the planes, negative inside the solid.
[[nodiscard]] double DistanceOutside(const Planes& planes, const Vector& point);

/// The solid behind all planes of a brush.
struct MapSolid {
  double volume = 0.0;
  bool closed = false;  ///< bounded, with an inside
};
[[nodiscard]] MapSolid SolidOf(const MapBrush& brush);

}  // namespace zando::testing
