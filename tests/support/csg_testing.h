#pragma once

#include <cstdint>
#include <vector>

#include "csg/bsp_tree.h"
#include "document/brush_list.h"
#include "support/random_level.h"

namespace zando::testing {

/// One box of a level, and what it does.
struct BoxBrush {
  GridBox box;
  std::int32_t operation = kAddToWorld;
};

[[nodiscard]] inline BoxBrush Solid(const GridBox& box) { return {box, kAddToWorld}; }
[[nodiscard]] inline BoxBrush Carve(const GridBox& box) { return {box, kSubtractFromWorld}; }

/// A level of boxes; their ids are their positions.
[[nodiscard]] CBrushList LevelOfBoxes(const std::vector<BoxBrush>& boxes);

/// The ways to make a world from a list of brushes.
enum class Build { StepByStep, Quick, Optimal };

/// Makes the world anew, water included, and counts its statistics.
void BuildWorld(CConstructiveBsp& world, const CBrushList& brushes, Build build);

/// Every visible polygon of the tree, chain members included.
[[nodiscard]] std::vector<const CBspNode*> VisiblePolygons(const CConstructiveBsp& tree);

/// Whether a point of the polygon's plane lies within the polygon.
[[nodiscard]] bool Contains(const CBspNode& node, const Vector& point);

[[nodiscard]] double Area(const CZandoPoly& polygon);

/// Gives a box one more face, 100 beyond its last side: it goes to and fro through the plane of the
/// top, which is refused to cut it.
void AddZigzag(CZandoBrush& box);

/// Makes a box that is not turned into an upright prism with `sides` sides, up to MAX_POLY_VERTS.
void MakeDrum(CZandoBrush& box, std::int32_t sides);

}  // namespace zando::testing
