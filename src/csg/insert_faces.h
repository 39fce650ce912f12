#pragma once

#include <cstdint>
#include <vector>

#include "csg/csg_world.h"

namespace zando {

/// What the faces of a brush that is being inserted do with older polygons in their planes.
[[nodiscard]] CoplanarRule OlderFaceRule(const CZandoBrush& clipper);

/// Inserts all faces of a brush whose world polygons are current: the first half of InsertBrush.
/// Pieces that the tree keeps are also added to `kept`, when given.
void InsertFaces(CConstructiveBsp& world, const CZandoBrush& brush, std::int32_t id,
                 std::vector<CBspNode*>* kept);

}  // namespace zando
