#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entities/entity.h"
#include "geometry/vector.h"

namespace zando::testing {

/// One plane line of a `.map` brush. Points are in the level's axes: y is up.
struct MapPlane {
  std::array<Vector, 3> points{};
  std::string texture;
};

using MapBrush = std::vector<MapPlane>;

struct MapEntity {
  std::vector<EntityPair> pairs;
  std::vector<MapBrush> brushes;
};

/// The entities of a `.map`, the first being worldspawn. Nothing when the text is not of exactly
/// the form that the exporter writes.
[[nodiscard]] std::optional<std::vector<MapEntity>> ParseMap(std::string_view text);

/// The solid behind all planes of a brush, found by meeting every three of them.
struct MapSolid {
  double volume = 0.0;
  bool closed = false;  ///< bounded, with an inside
  std::vector<Vector> vertices;
};
[[nodiscard]] MapSolid SolidOf(const MapBrush& brush);

/// The distance before the nearest plane of the brush, negative inside.
[[nodiscard]] double DistanceOutside(const MapBrush& brush, const Vector& point);

}  // namespace zando::testing
