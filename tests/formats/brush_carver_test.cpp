#include "formats/brush_carver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "geometry/plane.h"
#include "support/random_level.h"

namespace zando::testing {
namespace {

/// The distance of the point before the nearest of the planes, negative inside.
double Outside(const std::vector<Plane>& planes, const Vector& point) {
  double farthest = SignedDistance(planes.front(), point);
  for (const Plane& plane : planes) farthest = std::max(farthest, SignedDistance(plane, point));
  return farthest;
}

std::vector<Plane> PlanesOf(const CZandoBrush& brush) {
  std::vector<Plane> planes;
  for (const CZandoPoly& face : brush.WorldPolys) planes.push_back(ComputePlane(face));
  return planes;
}

/// The planes that the visible polygons of a cell name by their source faces.
std::vector<Plane> PlanesOf(const CBspNode* cell) {
  std::vector<Plane> planes;
  for (; cell != nullptr; cell = cell->link) {
    if (cell->nValid == 0) continue;
    const Plane plane = PlanesOf(*cell->pBrush)[static_cast<std::size_t>(cell->nPolNum)];
    const bool reversed = (cell->nSide != 0) != (cell->pBrush->TranT == kSubtractFromWorld);
    planes.push_back(reversed ? Plane{-plane.normal, -plane.d} : plane);
  }
  return planes;
}

/// Points of the bounds of a carved brush that lie in the wrong number of cells: one where the
/// brush is left, none where a carver was. Points near a face of anything tell nothing.
int CountMisplacedPoints(CZandoBrush& brush, const std::vector<CZandoBrush*>& carvers,
                         CRandom& random) {
  CConstructiveBsp tree;
  CarveBrush(tree, brush, carvers);
  std::vector<std::vector<Plane>> cells;
  WalkCells(tree.root, [&](const CBspNode* cell) {
    std::vector<Plane> planes = PlanesOf(cell);
    if (planes.size() >= 4 && !IsStrayCell(cell, brush)) cells.push_back(std::move(planes));
  });

  constexpr double margin = 0.05;
  const Vector& low = brush.BoundsMin;
  const Vector& high = brush.BoundsMax;
  int misplaced = 0;
  for (int i = 0; i < 300; ++i) {
    const Vector point{random.Real(low.x, high.x), random.Real(low.y, high.y),
                       random.Real(low.z, high.z)};
    double solid = Outside(PlanesOf(brush), point);
    for (const CZandoBrush* carver : carvers) {
      solid = std::max(solid, -Outside(PlanesOf(*carver), point));
    }
    const auto holders = std::count_if(cells.begin(), cells.end(), [&](const auto& planes) {
      return Outside(planes, point) < 0.0;
    });
    if (std::fabs(solid) > margin && holders != (solid < 0.0 ? 1 : 0)) ++misplaced;
  }
  return misplaced;
}

int CountMisplacedPoints(const CBrushList& level, std::uint64_t seed) {
  CRandom random(seed);
  for (const auto& brush : level.Brushes()) brush->UpdateWorld();
  int misplaced = 0;
  for (const auto& brush : level.Brushes()) {
    if (brush->TranT != kAddToWorld) continue;
    std::vector<CZandoBrush*> carvers;
    for (CZandoBrush* next = brush->Next; next != nullptr; next = next->Next) {
      if (next->TranT == kSubtractFromWorld) carvers.push_back(next);
    }
    misplaced += CountMisplacedPoints(*brush, carvers, random);
  }
  return misplaced;
}

TEST(BrushCarver, CellsOfSlopedAndTurnedBrushesFillWhatCarversLeaveWithoutOverlap) {
  LevelOptions options;
  options.brushes = 14;
  options.extent = 128;
  options.carving = 70;
  options.tapered = 60;
  for (const auto layout : {LevelOptions::Layout::General, LevelOptions::Layout::CoarseGrid}) {
    for (const std::int32_t turned : {0, 40}) {
      options.layout = layout;
      options.turned = turned;
      for (std::uint64_t seed = 0; seed < 25; ++seed) {
        EXPECT_EQ(CountMisplacedPoints(RandomLevel(seed, options), seed), 0)
            << "seed " << seed << ", turned " << turned;
      }
    }
  }
}

}  // namespace
}  // namespace zando::testing
