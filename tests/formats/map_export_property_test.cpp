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
#include "support/solid_points.h"

namespace zando::testing {
namespace {

using Layout = LevelOptions::Layout;

/// The cells that a solid brush was carved into, and their volume in the file.
struct Cells {
  std::vector<Planes> planes;
  double volume = 0.0;
};

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
    const MapSolid solid = SolidOf(cell);
    if (!solid.closed) return std::nullopt;
    Cells& own = cells[std::stoul(cell[0].texture)];
    own.planes.push_back(PlanesOf(cell));
    own.volume += solid.volume;
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
      if (planes.size() >= 4) cells.back().planes.push_back(planes);
    });
  }
  return cells;
}

/// Whether a point is in the brush and in none of the carvers that follow.
bool IsLeft(const CZandoBrush& brush, const Vector& point) {
  return Holds(brush, point) &&
         std::ranges::none_of(LaterCarvers(brush),
                              [&](const CZandoBrush* carver) { return Holds(*carver, point); });
}

/// Points of the bounds of a solid brush that lie in the wrong number of its cells: one where the
/// brush is left, none where a later carver was. Points near a face of anything tell nothing.
int CountMisplacedPoints(const CZandoBrush& brush, const Cells& cells, CRandom& random) {
  constexpr double kNear = 0.05;
  const auto& [low, high] = brush.WorldBounds();
  int misplaced = 0;
  for (int i = 0; i < 300; ++i) {
    const Vector point{random.Real(low.x, high.x), random.Real(low.y, high.y),
                       random.Real(low.z, high.z)};
    const bool left = IsLeft(brush, point);
    const auto holders = std::ranges::count_if(
        cells.planes, [&](const Planes& cell) { return DistanceOutside(cell, point) < 0.0; });
    if (holders == (left ? 1 : 0)) continue;
    bool isNearFace = false;
    for (const Vector& aside : {Vector{kNear, 0, 0}, {0, kNear, 0}, {0, 0, kNear}}) {
      isNearFace |= IsLeft(brush, point + aside) != left || IsLeft(brush, point - aside) != left;
    }
    for (const Planes& cell : cells.planes) {
      isNearFace |= std::abs(DistanceOutside(cell, point)) < kNear;
    }
    if (!isNearFace) ++misplaced;
  }
  return misplaced;
}

/// What is left of a brush whose faces all lie on a grid and look along its axes.
double VolumeOfVoxels(const CZandoBrush& brush, double grid) {
  const auto& [low, high] = brush.WorldBounds();
  double volume = 0.0;
  for (double x = low.x + grid / 2.0; x < high.x; x += grid) {
    for (double y = low.y + grid / 2.0; y < high.y; y += grid) {
      for (double z = low.z + grid / 2.0; z < high.z; z += grid) {
        if (IsLeft(brush, {x, y, z})) volume += grid * grid * grid;
      }
    }
  }
  return volume;
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
    {"SquareShapesOnGrid",
     ExportedCells,
     {.layout = Layout::CoarseGrid, .shaped = 60, .shapes = LevelOptions::Shapes::Square}},
    {"Shapes", CarvedCells, {.extent = 160, .shaped = 70}},
    {"ShapesOnGrid", CarvedCells, {.layout = Layout::CoarseGrid, .extent = 160, .shaped = 70}},
    {"ShapesTurned", CarvedCells, {.extent = 160, .turned = 50, .shaped = 70}, 1},
    {"Tapered", CarvedCells, {.extent = 128, .carving = 70, .tapered = 60}},
    {"Turned", CarvedCells, {.extent = 128, .carving = 70, .tapered = 60, .turned = 40}},
    {"TurnedOnGrid",
     CarvedCells,
     {.layout = Layout::CoarseGrid, .extent = 128, .carving = 70, .tapered = 60, .turned = 40},
     1},
};

class MapExport : public ::testing::TestWithParam<Kind> {};

TEST_P(MapExport, CellsFillWhatCarversLeaveWithoutOverlap) {
  const auto& [name, cellsOf, given, mostSpoiled] = GetParam();
  const bool hasVoxels = cellsOf == ExportedCells && given.layout == Layout::CoarseGrid;
  std::vector<std::uint64_t> spoiled;
  for (std::uint64_t seed = 0; seed < 60; ++seed) {
    CRandom random(seed);
    LevelOptions options = given;
    options.brushes = random.Between(5, cellsOf == ExportedCells ? 30 : 16);
    const CBrushList level = RandomLevel(seed, options);
    const auto cells = cellsOf(level);
    int wrong = cells ? 0 : 1;
    for (const CZandoBrush& brush : level) {
      if (!cells || brush.TranT != kAddToWorld) continue;
      const Cells& own = cells->at(static_cast<std::size_t>(brush.BBid));
      wrong += CountMisplacedPoints(brush, own, random);
      if (hasVoxels) wrong += std::abs(own.volume - VolumeOfVoxels(brush, 8.0)) < 1.0 ? 0 : 1;
    }
    if (wrong > 0) spoiled.push_back(seed);
  }
  EXPECT_LE(spoiled.size(), static_cast<std::size_t>(mostSpoiled))
      << ::testing::PrintToString(spoiled);
}

/// The cells of the level with its brushes moved to a place, moved back: as the file has them when
/// the points in it are `exact`, otherwise as they are carved, for the last bit of a coordinate may
/// decide how it is rounded.
std::vector<Planes> CellsFrom(const Vector& place, const CBrushList& brushes, bool exact) {
  Level level;
  for (const CZandoBrush& brush : brushes) {
    CZandoBrush& moved = level.BrushList[level.AddBrush(brush)];
    moved.MoveTo(moved.Own().Pos + place);
  }
  std::vector<Planes> cells;
  if (exact) {
    const auto entities = ParseMap(WriteMap(level, "")).value();
    for (const MapBrush& cell : entities.front().brushes) {
      cells.push_back(PlanesOf(cell));
    }
  } else {
    const auto carved = CarvedCells(level.BrushList).value();
    for (const Cells& own : carved) {
      cells.insert(cells.end(), own.planes.begin(), own.planes.end());
    }
  }
  for (Planes& cell : cells) {
    for (Plane& plane : cell) plane.d += Dot(plane.normal, place);
  }
  return cells;
}

bool SamePlanes(const Planes& a, const Planes& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Plane& p, const Plane& q) {
    return Length(p.normal - q.normal) < 1e-6 && std::abs(p.d - q.d) < 1e-4;
  });
}

TEST_P(MapExport, CellsAreTheSameFarFromTheOrigin) {
  const bool exact = GetParam().cellsOf == ExportedCells;
  for (std::uint64_t seed = 0; seed < 30; ++seed) {
    LevelOptions options = GetParam().options;
    options.brushes = 12;
    const CBrushList level = RandomLevel(seed, options);
    const auto near = CellsFrom({0, 0, 0}, level, exact);
    const auto far = CellsFrom({1e6, 0, 1e6}, level, exact);
    EXPECT_TRUE(std::equal(near.begin(), near.end(), far.begin(), far.end(), SamePlanes)) << seed;
  }
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
