#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "csg/csg_world.h"
#include "support/csg_testing.h"

namespace zando::testing {
namespace {

using Layout = LevelOptions::Layout;
using Boxes = std::vector<BoxBrush>;

Boxes BoxesOf(const CBrushList& level) {
  Boxes boxes;
  for (const auto& brush : level.Brushes()) boxes.push_back({BoxOfBrush(*brush), brush->TranT});
  return boxes;
}

std::string Describe(const Boxes& boxes) {
  std::ostringstream text;
  for (const BoxBrush& b : boxes) {
    text << (b.operation == kAddToWorld ? "\n  solid" : "\n  carve");
    for (const auto& corner : {b.box.low, b.box.high}) {
      text << " (" << corner[0] << ", " << corner[1] << ", " << corner[2] << ")";
    }
  }
  return text.str();
}

/// The surface of a level of boxes, told by volume alone: space is cut into cells by the planes of
/// all boxes, and the last box that holds a cell decides whether it is solid.
class CCellSurface {
 public:
  explicit CCellSurface(const Boxes& boxes) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
      std::vector<std::int32_t>& cuts = cuts_[axis];
      for (const BoxBrush& b : boxes) cuts.insert(cuts.end(), {b.box.low[axis], b.box.high[axis]});
      std::sort(cuts.begin(), cuts.end());
      cuts.erase(std::unique(cuts.begin(), cuts.end()), cuts.end());
    }
    ForEachSquare([&boxes, this](const Square& square) {
      const bool before = SolidAt(boxes, Beside(square, -1));
      const bool behind = SolidAt(boxes, Beside(square, +1));
      if (before != behind) facing_[square] = before ? 1 : -1;
    });
  }

  /// What is wrong with these polygons as the picture of the surface; empty when nothing is.
  [[nodiscard]] std::string Fault(const std::vector<const CBspNode*>& polygons) const {
    std::set<Square> covered;
    for (const CBspNode* node : polygons) {
      const std::string fault = Cover(*node, covered);
      if (!fault.empty()) return fault;
    }
    for (const auto& [square, facing] : facing_) {
      if (covered.count(square) == 0) return "a hole in the surface " + Text(square);
    }
    return {};
  }

 private:
  /// One square between two cells: its axis, and its lower corner as indices of cuts.
  using Square = std::array<std::size_t, 4>;

  template <typename Visit>
  void ForEachSquare(Visit visit) const {
    for (std::size_t axis = 0; axis < 3; ++axis) {
      std::array<std::size_t, 3> end{cuts_[0].size() - 1, cuts_[1].size() - 1, cuts_[2].size() - 1};
      ++end[axis];
      for (std::size_t x = 0; x < end[0]; ++x) {
        for (std::size_t y = 0; y < end[1]; ++y) {
          for (std::size_t z = 0; z < end[2]; ++z) visit({axis, x, y, z});
        }
      }
    }
  }

  [[nodiscard]] std::array<double, 3> Beside(const Square& square, int side) const {
    std::array<double, 3> point{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const std::int32_t low = cuts_[axis][square[axis + 1]];
      point[axis] =
          axis == square[0] ? low + 0.25 * side : (low + cuts_[axis][square[axis + 1] + 1]) / 2.0;
    }
    return point;
  }

  [[nodiscard]] static bool SolidAt(const Boxes& boxes, const std::array<double, 3>& point) {
    const auto holds = [&point](const BoxBrush& b) {
      for (std::size_t axis = 0; axis < 3; ++axis) {
        if (point[axis] < b.box.low[axis] || point[axis] > b.box.high[axis]) return false;
      }
      return true;
    };
    const auto last = std::find_if(boxes.rbegin(), boxes.rend(), holds);
    return last != boxes.rend() && last->operation == kAddToWorld;
  }

  /// The index of the cut at a coordinate, or none.
  [[nodiscard]] std::size_t CutAt(std::size_t axis, double coordinate) const {
    const std::vector<std::int32_t>& cuts = cuts_[axis];
    const auto found = std::find(cuts.begin(), cuts.end(), std::lround(coordinate));
    const bool exact = std::abs(coordinate - std::round(coordinate)) < 1e-6;
    return exact ? static_cast<std::size_t>(found - cuts.begin()) : cuts.size();
  }

  /// Marks the squares under a polygon, which must be a rectangle of surface squares that face its
  /// way.
  [[nodiscard]] std::string Cover(const CBspNode& node, std::set<Square>& covered) const {
    const std::string name =
        "face " + std::to_string(node.nPolNum) + " of brush " + std::to_string(node.nBid);
    std::array<std::size_t, 3> low{};
    std::array<std::size_t, 3> high{};
    double area = 1.0;
    std::size_t normalAxis = 3;
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const auto less = [axis](const Vector& a, const Vector& b) {
        return Coordinate(a, axis) < Coordinate(b, axis);
      };
      const auto vertices = node.polygon.Vertices();
      const auto [a, b] = std::minmax_element(vertices.begin(), vertices.end(), less);
      low[axis] = CutAt(axis, Coordinate(*a, axis));
      high[axis] = CutAt(axis, Coordinate(*b, axis));
      if (std::max(low[axis], high[axis]) == cuts_[axis].size()) return name + " off the grid";
      if (std::abs(Coordinate(node.plane.normal, axis)) > 0.999) {
        normalAxis = axis;
        ++high[axis];
      } else {
        area *= Coordinate(*b, axis) - Coordinate(*a, axis);
      }
    }
    if (normalAxis == 3 || area < 0.5 || std::abs(Area(node.polygon) - area) > 1e-6 * area) {
      return name + " is no rectangle";
    }
    const int facing = Coordinate(node.plane.normal, normalAxis) > 0 ? 1 : -1;
    for (std::size_t x = low[0]; x < high[0]; ++x) {
      for (std::size_t y = low[1]; y < high[1]; ++y) {
        for (std::size_t z = low[2]; z < high[2]; ++z) {
          const Square square{normalAxis, x, y, z};
          const auto found = facing_.find(square);
          if (found == facing_.end()) return name + " shows in nothing " + Text(square);
          if (found->second != facing) return name + " faces into the solid " + Text(square);
          covered.insert(square);
        }
      }
    }
    return {};
  }

  [[nodiscard]] std::string Text(const Square& square) const {
    std::ostringstream text;
    text << "across axis " << square[0] << " at";
    for (std::size_t axis = 0; axis < 3; ++axis) text << ' ' << cuts_[axis][square[axis + 1]];
    return text.str();
  }

  std::array<std::vector<std::int32_t>, 3> cuts_;
  std::map<Square, int> facing_;  ///< the squares of the surface: +1 facing up their axis, -1 down
};

std::string OptimalFault(const Boxes& boxes) {
  if (boxes.empty()) return {};
  BoxLevel level(boxes);
  BuildWorld(level.world, level.brushes, Build::Optimal);
  return CCellSurface(boxes).Fault(VisiblePolygons(level.world));
}

/// Leaves out boxes one by one as long as the level stays faulty.
Boxes Shrunk(Boxes boxes) {
  for (std::size_t i = 0; i < boxes.size();) {
    Boxes fewer = boxes;
    fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
    if (OptimalFault(fewer).empty()) {
      ++i;
    } else {
      boxes = fewer;
      i = 0;
    }
  }
  return boxes;
}

void ExpectSurfaceOnly(std::uint64_t seed, const LevelOptions& options) {
  const Boxes boxes = BoxesOf(RandomLevel(seed, options));
  if (OptimalFault(boxes).empty()) return;
  const Boxes shrunk = Shrunk(boxes);
  ADD_FAILURE() << "seed " << seed << ": " << OptimalFault(shrunk) << Describe(shrunk);
}

TEST(CsgProperties, OptimalRebuildShowsExactlyTheSurfaceOfBoxesThatTouchEverywhere) {
  for (std::uint64_t seed = 1; seed <= 300; ++seed) {
    LevelOptions options{.layout = Layout::CoarseGrid,
                         .brushes = 2 + static_cast<std::int32_t>(seed % 29),
                         .carving = 20 + static_cast<std::int32_t>(seed % 5) * 15};
    options.extent = seed % 2 == 0 ? 256 : 128;
    ExpectSurfaceOnly(seed, options);
  }
}

TEST(CsgProperties, OptimalRebuildShowsExactlyTheSurfaceOfBoxesInGeneralPosition) {
  for (std::uint64_t seed = 1; seed <= 100; ++seed) {
    ExpectSurfaceOnly(seed, {.brushes = 2 + static_cast<std::int32_t>(seed % 20), .extent = 128});
  }
}

struct TreeKind {
  const char* name;
  LevelOptions options;
  bool closed = true;  ///< no two flush faces, which are both shown, lie on each other
};

class CsgTrees : public ::testing::TestWithParam<TreeKind> {};

/// The visible polygons of turned brushes bound a volume: their areas, as vectors, add up to
/// nothing. A polygon missing or too many would leave its own area.
TEST_P(CsgTrees, OptimalRebuildKeepsAClosedSurfaceOfVisibleNodesWithoutChains) {
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE(seed);
    const CBrushList level = RandomLevel(seed, GetParam().options);
    CConstructiveBsp world;
    BuildWorld(world, level, Build::Optimal);
    EXPECT_EQ(world.visible, world.nodes);
    EXPECT_EQ(world.coplanar, 0);
    if (!GetParam().closed) continue;
    Vector sum{0.0, 0.0, 0.0};
    for (const CBspNode* node : VisiblePolygons(world)) {
      sum = sum + node->plane.normal * Area(node->polygon);
    }
    EXPECT_LT(Length(sum), 1e-4 * VisibleArea(world));
  }
}

TEST_P(CsgTrees, ReplayingTheBrushesShowsWhatInsertingThemOneByOneShows) {
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    const CBrushList level = RandomLevel(seed, GetParam().options);
    CConstructiveBsp quick;
    CConstructiveBsp stepped;
    BuildWorld(quick, level, Build::Quick);
    BuildWorld(stepped, level, Build::StepByStep);
    const double area = VisibleArea(stepped);
    EXPECT_GT(area, 0.0);
    EXPECT_NEAR(VisibleArea(quick), area, 1e-6 * area) << "seed " << seed;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Levels, CsgTrees,
    ::testing::Values(
        TreeKind{"General", {.brushes = 25, .extent = 160, .tapered = 30}},
        TreeKind{"Turned", {.brushes = 15, .extent = 160, .turned = 80}},
        TreeKind{"Touching", {.layout = Layout::CoarseGrid, .brushes = 25, .water = 20}, false}),
    [](const auto& testInfo) { return std::string(testInfo.param.name); });

}  // namespace
}  // namespace zando::testing
