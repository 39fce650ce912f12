#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "document/zando_doc.h"
#include "formats/map_writer.h"
#include "support/map_solids.h"
#include "support/random_level.h"

namespace zando::testing {
namespace {

/// The brushes of a level of boxes, and what the export made of each.
struct ExportedLevel {
  std::vector<GridBox> boxes;
  std::vector<bool> carves;
  std::vector<std::vector<MapBrush>> cells;  ///< by brush
  std::string trouble;
};

/// Names every brush by its position, so that the cells in the file tell where they come from.
ExportedLevel ExportLevel(std::uint64_t seed, const LevelOptions& options) {
  CZANDODoc document;
  ExportedLevel level;
  const CBrushList brushes = RandomLevel(seed, options);
  for (const auto& brush : brushes.Brushes()) {
    brush->Name = std::to_string(level.boxes.size());
    document.AddBrush(*brush);
    level.boxes.push_back(BoxOfBrush(*brush));
    level.carves.push_back(brush->TranT == kSubtractFromWorld);
  }
  level.cells.resize(level.boxes.size());
  const auto entities = ParseMap(WriteMap(document, ""));
  if (!entities) {
    level.trouble = "not a map";
    return level;
  }
  for (const MapBrush& cell : entities->front().brushes) {
    if (cell.empty()) {
      level.trouble = "a brush without planes";
      continue;
    }
    level.cells[std::stoul(cell.front().texture)].push_back(cell);
  }
  return level;
}

bool Contains(const GridBox& box, const Vector& p) {
  return box.low[0] < p.x && p.x < box.high[0] && box.low[1] < p.y && p.y < box.high[1] &&
         box.low[2] < p.z && p.z < box.high[2];
}

/// Walks the box in blocks that no face of any box cuts, and visits the centre and volume of each.
template <typename Visitor>
void ForEachBlock(const GridBox& box, const std::vector<GridBox>& all, Visitor&& visit) {
  std::array<std::vector<double>, 3> cuts;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    std::set<double> coordinates;
    for (const GridBox& other : all) {
      for (const int c : {other.low[axis], other.high[axis]}) {
        if (c >= box.low[axis] && c <= box.high[axis]) coordinates.insert(c);
      }
    }
    cuts[axis].assign(coordinates.begin(), coordinates.end());
  }
  const auto& [xs, ys, zs] = cuts;
  for (std::size_t x = 1; x < xs.size(); ++x) {
    for (std::size_t y = 1; y < ys.size(); ++y) {
      for (std::size_t z = 1; z < zs.size(); ++z) {
        const Vector low{xs[x - 1], ys[y - 1], zs[z - 1]};
        const Vector high{xs[x], ys[y], zs[z]};
        const Vector size = high - low;
        visit((low + high) * 0.5, size.x * size.y * size.z);
      }
    }
  }
}

/// Compares the cells of one solid brush with what the later carvers leave of it; empty when they
/// are the same, block by block.
std::string CompareBrush(const ExportedLevel& level, std::size_t brush) {
  const std::vector<MapBrush>& cells = level.cells[brush];
  double exported = 0.0;
  for (const MapBrush& cell : cells) {
    const MapSolid solid = SolidOf(cell);
    for (std::size_t i = 0; i < cell.size(); ++i) {
      const auto same = [&](const MapPlane& line) { return line.points == cell[i].points; };
      if (std::count_if(cell.begin(), cell.end(), same) > 1) return "a plane written twice";
    }
    if (cell.size() < 4) return "a cell of fewer than four planes";
    if (!solid.closed) return "a cell that encloses nothing";
    exported += solid.volume;
  }

  double expected = 0.0;
  std::string trouble;
  ForEachBlock(level.boxes[brush], level.boxes, [&](const Vector& centre, double volume) {
    bool solid = true;
    for (std::size_t i = brush + 1; i < level.boxes.size(); ++i) {
      solid = solid && !(level.carves[i] && Contains(level.boxes[i], centre));
    }
    const auto holders = std::count_if(cells.begin(), cells.end(), [&](const MapBrush& cell) {
      return DistanceOutside(cell, centre) < 0.0;
    });
    if (solid) expected += volume;
    if (solid && holders == 0) trouble = "a hole";
    if (solid && holders > 1) trouble = "cells that overlap";
    if (!solid && holders > 0) trouble = "a carved part that is solid";
  });
  if (!trouble.empty()) return trouble;
  if (std::fabs(exported - expected) > 1e-3) {
    return "volume " + std::to_string(exported) + ", not " + std::to_string(expected);
  }
  return {};
}

std::string CompareLevel(std::uint64_t seed, const LevelOptions& options) {
  const ExportedLevel level = ExportLevel(seed, options);
  if (!level.trouble.empty()) return level.trouble;
  for (std::size_t i = 0; i < level.boxes.size(); ++i) {
    if (level.carves[i]) continue;
    const std::string trouble = CompareBrush(level, i);
    if (!trouble.empty()) return "brush " + std::to_string(i) + ": " + trouble;
  }
  return {};
}

struct Crowd {
  const char* name;
  LevelOptions::Layout layout;
  std::int32_t extent;
  std::int32_t carving;
  int spoiled;  ///< levels that carvers which swallow a region of the tree whole may spoil
};

class MapExportOfBoxes : public ::testing::TestWithParam<Crowd> {};

TEST_P(MapExportOfBoxes, CellsFillWhatCarversLeaveBlockByBlock) {
  LevelOptions options;
  options.layout = GetParam().layout;
  options.extent = GetParam().extent;
  options.carving = GetParam().carving;
  std::vector<std::string> troubles;
  for (std::uint64_t seed = 0; seed < 100; ++seed) {
    options.brushes = 5 + static_cast<std::int32_t>(seed % 26);
    const std::string trouble = CompareLevel(seed, options);
    if (!trouble.empty()) troubles.push_back("seed " + std::to_string(seed) + ": " + trouble);
  }
  EXPECT_LE(troubles.size(), static_cast<std::size_t>(GetParam().spoiled))
      << ::testing::PrintToString(troubles);
}

// In the dense levels carvers swallow whole what earlier ones left, again and again.
INSTANTIATE_TEST_SUITE_P(
    Levels, MapExportOfBoxes,
    ::testing::Values(Crowd{"General", LevelOptions::Layout::General, 256, 40, 0},
                      Crowd{"CoarseGrid", LevelOptions::Layout::CoarseGrid, 256, 40, 0},
                      Crowd{"DenseGeneral", LevelOptions::Layout::General, 128, 80, 5},
                      Crowd{"DenseCoarseGrid", LevelOptions::Layout::CoarseGrid, 128, 80, 5}),
    [](const auto& crowd) { return std::string(crowd.param.name); });

}  // namespace
}  // namespace zando::testing
