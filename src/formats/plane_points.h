#pragma once

#include <array>
#include <cstdint>

#include "geometry/polygon.h"
#include "geometry/vector.h"

namespace zando {

/// Where the points of a plane line come from.
enum class PlaneOrigin {
  FirstVertices,  ///< the first three vertices, rounded: the ordinary case
  OtherVertices,  ///< three others, rounded
  Decimals,       ///< three vertices as they are
  Moved           ///< the first three, rounded, though they do not give the face's plane
};

/// Three points in the order of the face's vertices, as its plane is written with.
struct PlanePoints {
  std::array<Vector, 3> points{};
  PlaneOrigin origin = PlaneOrigin::FirstVertices;
};

/// The whole number next to a coordinate; halves go away from zero. Numbers out of range end at its
/// limits, what is no number gives 0.
[[nodiscard]] std::int32_t RoundHalfAway(double value);

/// Vertices of a face, which must have three, that give its plane within half a unit everywhere on
/// the face: the first three in whole numbers, else the three that do best in whole numbers, else
/// the same with all their digits. A face without a plane, as one without area, is Moved.
[[nodiscard]] PlanePoints ChoosePlanePoints(const CZandoPoly& face);

}  // namespace zando
