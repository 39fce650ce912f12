#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "document/level.h"
#include "formats/brush_carver.h"
#include "formats/map_writer.h"
#include "support/csg_testing.h"
#include "support/map_solids.h"
#include "support/random_level.h"

namespace zando::testing {
namespace {

using Layout = LevelOptions::Layout;

/// The cells that a solid brush was carved into.
using Cells = std::vector<Planes>;

std::vector<const CZandoBrush*> LaterCarvers(const CZandoBrush& brush) {
  std::vector<const CZandoBrush*> carvers;
  for (const CZandoBrush* next = brush.Next; next != nullptr; next = next->Next) {
    if (next->TranT == kSubtractFromWorld) carvers.push_back(next);
  }
  return carvers;
}

/// The cells of each brush in the exported file, where the brushes are named by their positions.
/// Nothing when the file is no map of closed solids.
std::optional<std::vector<Cells>> ExportedCells(const CBrushList& level) {
  std::vector<Cells> cells(static_cast<std::size_t>(level.BrushCount()));
  Level named;
  for (const CZandoBrush& brush : level) {
    named.BrushList[named.AddBrush(brush)].Name = std::to_string(brush.BBid);
  }
  const auto entities = ParseMap(WriteMap(named, ""));
  if (!entities) return std::nullopt;
  for (const MapBrush& cell : entities->front().brushes) {
    if (!SolidOf(cell).closed) return std::nullopt;
    cells[std::stoul(cell[0].texture)].push_back(PlanesOf(cell));
  }
  return cells;
}

/// The cells of each brush before their points become whole numbers: what the visible polygons of
/// a cell name as their faces.
std::optional<std::vector<Cells>> CarvedCells(const CBrushList& level) {
  std::vector<Cells> cells;
  for (const CZandoBrush& brush : level) {
    CConstructiveBsp tree;
    cells.emplace_back();
    if (brush.TranT == kAddToWorld) CarveBrush(tree, brush, LaterCarvers(brush));
    WalkCells(tree.root, [&](const CBspNode* cell) {
      if (IsStrayCell(cell, brush)) return;
      Planes planes;
      for (; cell != nullptr; cell = cell->link) {
        if (cell->nValid == 0) continue;
        const Plane plane = PlanesOf(*cell->pBrush)[static_cast<std::size_t>(cell->nPolNum)];
        const bool reversed = (cell->nSide != 0) != (cell->pBrush->TranT == kSubtractFromWorld);
        planes.push_back(reversed ? Plane{-plane.normal, -plane.d} : plane);
      }
      if (planes.size() >= 4) cells.back().push_back(planes);
    });
  }
  return cells;
}

/// Points of the bounds of a solid brush that lie in the wrong number of its cells: one where the
/// brush is left, none where a later carver was. Points near a face of anything tell nothing.
int CountMisplacedPoints(const CZandoBrush& brush, const Cells& cells, CRandom& random) {
  const Planes own = PlanesOf(brush);
  Cells carvers;
  for (const CZandoBrush* carver : LaterCarvers(brush)) carvers.push_back(PlanesOf(*carver));
  const auto& [low, high] = brush.WorldBounds();
  int misplaced = 0;
  for (int i = 0; i < 300; ++i) {
    const Vector point{random.Real(low.x, high.x), random.Real(low.y, high.y),
                       random.Real(low.z, high.z)};
    double outside = DistanceOutside(own, point);
    for (const Planes& carver : carvers)
      outside = std::max(outside, -DistanceOutside(carver, point));
    if (std::abs(outside) < 0.05) continue;
    const auto holders = std::count_if(cells.begin(), cells.end(), [&](const Planes& cell) {
      return DistanceOutside(cell, point) < 0.0;
    });
    if (holders != (outside < 0.0 ? 1 : 0)) ++misplaced;
  }
  return misplaced;
}

struct Kind {
  const char* name;
  std::optional<std::vector<Cells>> (*cellsOf)(const CBrushList& level);
  LevelOptions options;
  int spoiled = 0;  ///< levels that carvers which swallow a region of the tree whole may spoil
};

// Boxes keep whole coordinates in the file. In the dense levels carvers swallow whole what earlier
// ones left, again and again.
const Kind kKinds[] = {
    {"Boxes", ExportedCells, {}},
    {"BoxesOnGrid", ExportedCells, {.layout = Layout::CoarseGrid}},
    {"DenseBoxes", ExportedCells, {.extent = 128, .carving = 80}, 5},
    {"DenseBoxesOnGrid",
     ExportedCells,
     {.layout = Layout::CoarseGrid, .extent = 128, .carving = 80},
     5},
    {"Tapered", CarvedCells, {.extent = 128, .carving = 70, .tapered = 60}},
    {"Turned", CarvedCells, {.extent = 128, .carving = 70, .tapered = 60, .turned = 40}},
    {"TurnedOnGrid",
     CarvedCells,
     {.layout = Layout::CoarseGrid, .extent = 128, .carving = 70, .tapered = 60, .turned = 40},
     1},
};

class MapExport : public ::testing::TestWithParam<Kind> {};

TEST_P(MapExport, CellsFillWhatCarversLeaveWithoutOverlap) {
  std::vector<std::uint64_t> spoiled;
  for (std::uint64_t seed = 0; seed < 60; ++seed) {
    CRandom random(seed);
    LevelOptions options = GetParam().options;
    options.brushes = random.Between(5, options.tapered > 0 ? 16 : 30);
    const CBrushList level = RandomLevel(seed, options);
    const auto cells = GetParam().cellsOf(level);
    int misplaced = cells ? 0 : 1;
    for (const CZandoBrush& brush : level) {
      if (!cells || brush.TranT != kAddToWorld) continue;
      const Cells& own = cells->at(static_cast<std::size_t>(brush.BBid));
      misplaced += CountMisplacedPoints(brush, own, random);
    }
    if (misplaced > 0) spoiled.push_back(seed);
  }
  EXPECT_LE(spoiled.size(), static_cast<std::size_t>(GetParam().spoiled))
      << ::testing::PrintToString(spoiled);
}

/// The map of the level with its brushes moved, and moved back.
std::vector<MapBrush> ExportFrom(const Vector& place, const CBrushList& brushes) {
  Level level;
  for (const CZandoBrush& brush : brushes) {
    CZandoBrush& moved = level.BrushList[level.AddBrush(brush)];
    moved.MoveTo(moved.Own().Pos + place);
  }
  std::vector<MapBrush> cells = ParseMap(WriteMap(level, "")).value().front().brushes;
  for (MapBrush& cell : cells) {
    for (MapPlane& plane : cell) {
      for (Vector& point : plane.points) point = point - place;
    }
  }
  return cells;
}

TEST_P(MapExport, CellsAreTheSameFarFromTheOrigin) {
  int strange = 0;
  for (std::uint64_t seed = 0; seed < 30; ++seed) {
    LevelOptions options = GetParam().options;
    options.brushes = 12;
    const CBrushList level = RandomLevel(seed, options);
    const auto near = ExportFrom({0, 0, 0}, level);
    const auto far = ExportFrom({1e6, 0, 1e6}, level);
    ASSERT_EQ(near.size(), far.size()) << seed;
    for (std::size_t cell = 0; cell < near.size(); ++cell) {
      ASSERT_EQ(near[cell].size(), far[cell].size()) << seed;
      for (std::size_t plane = 0; plane < near[cell].size(); ++plane) {
        for (std::size_t i = 0; i < 3; ++i) {
          strange +=
              Length(near[cell][plane].points[i] - far[cell][plane].points[i]) < 1e-6 ? 0 : 1;
        }
      }
    }
  }
  EXPECT_EQ(strange, 0);
}

TEST(MapExportOfAWideBrush, CellsFillWhatIsLeftOfIt) {
  const CBrushList level = LevelOfBoxes({Solid({{-30000, -30000, -30000}, {30000, 30000, 30000}}),
                                         Carve({{9000, 9000, 9000}, {29000, 29000, 29000}})});
  CRandom random(1);
  EXPECT_EQ(CountMisplacedPoints(level[0], CarvedCells(level)->front(), random), 0);
}

INSTANTIATE_TEST_SUITE_P(Levels, MapExport, ::testing::ValuesIn(kKinds),
                         [](const auto& testInfo) { return std::string(testInfo.param.name); });

}  // namespace
}  // namespace zando::testing
