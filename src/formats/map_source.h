#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "geometry/vector.h"
#include "platform/result.h"

namespace zando {

/// More planes than these make no brush of ours.
inline constexpr std::size_t kMostPlanes = 100;

/// A line of a brush: three points of a plane that faces outward, and how the face is covered.
struct MapPlane {
  std::array<Vector, 3> points{};                          ///< in the level's axes: y is up
  std::string_view texture;                                ///< empty when the file ends before it
  std::array<double, 5> numbers{0.0, 0.0, 0.0, 1.0, 1.0};  ///< offsets, rotation, scales
  std::int32_t line = 0;
};

struct MapBrush {
  std::vector<MapPlane> planes;  ///< no more than kMostPlanes; what follows is only counted
  std::size_t planeCount = 0;
  std::int32_t line = 0;  ///< of its opening brace, from 1
};

struct MapPair {
  std::string_view key;
  std::string_view value;
};

struct MapEntity {
  std::vector<MapPair> pairs;
  std::vector<MapBrush> brushes;
};

/// What stands in a `.map`. Its texts are parts of the bytes that it was read from.
struct MapSource {
  MapEntity world;
  std::vector<MapEntity> entities;
  std::int64_t emptyEntities = 0;  ///< blocks with nothing in them, left out
  /// Places that do not have the form that the game's tools first read. What follows one of them is
  /// rarely read as it was meant.
  std::int64_t oddPlaces = 0;
  std::int32_t firstOddLine = 0;  ///< 0 without any
};

/// Reads the bytes of a `.map`: blocks in braces, the first being worldspawn, of quoted pairs and
/// of brushes. Nothing is validated; what a file that is cut holds up to there is read. A file that
/// begins with something else than a block is refused.
[[nodiscard]] CResult<MapSource> ReadMapSource(std::string_view bytes);

}  // namespace zando
