#include "csg/csg_world.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <vector>

#include "support/csg_testing.h"

namespace zando::testing {
namespace {

struct BoxCase {
  std::vector<BoxBrush> boxes;
  std::vector<double> areas;  ///< what can be seen of each brush
};

constexpr GridBox kBox{{0, 0, 0}, {8, 8, 8}};
constexpr GridBox kInner{{2, 2, 2}, {4, 4, 4}};
constexpr GridBox kCorner{{4, 4, 4}, {12, 12, 12}};
constexpr GridBox kRock{{-8, -8, -8}, {16, 16, 24}};
constexpr double kRockArea = 2 * 24 * 24 + 4 * 24 * 32;

// Faces in one plane. `kBox` ends at z = 8. `kWithin` ends there too, inside of it: same facing.
// `kOn` stands on it: opposite facing. Their share of the plane is 16 of the 64 of `kBox`.
constexpr GridBox kWithin{{2, 2, 4}, {6, 6, 8}};
constexpr GridBox kOn{{2, 2, 8}, {6, 6, 12}};

const BoxCase kCases[] = {
    {{Solid(kBox), Carve(kInner)}, {384, 24}},
    {{Solid(kBox), Carve(kCorner)}, {336, 48}},
    {{Carve(kCorner), Solid(kBox)}, {0, 384}},
    {{Solid(kBox), Carve({{-1, -1, -1}, {9, 9, 9}})}, {0, 0}},
    {{Carve(kBox)}, {0}},
    // Two solids that end in the same plane both keep their faces: they are the same surface. A
    // carver that stands on a solid takes the face over.
    {{Solid(kBox), Solid(kWithin)}, {384, 16}},
    {{Solid(kWithin), Solid(kBox)}, {16, 384}},
    {{Solid(kBox), Carve(kWithin)}, {368, 80}},
    {{Solid(kWithin), Carve(kBox)}, {0, 0}},
    {{Carve(kWithin), Solid(kBox)}, {0, 384}},
    {{Carve(kBox), Solid(kWithin)}, {0, 96}},
    {{Carve(kBox), Carve(kWithin)}, {0, 0}},
    {{Solid(kBox), Solid(kOn)}, {368, 80}},
    {{Solid(kOn), Solid(kBox)}, {80, 368}},
    {{Solid(kBox), Carve(kOn)}, {368, 16}},
    {{Solid(kOn), Carve(kBox)}, {80, 16}},
    {{Carve(kOn), Solid(kBox)}, {0, 384}},
    {{Carve(kBox), Solid(kOn)}, {0, 96}},
    {{Carve(kBox), Carve(kOn)}, {0, 0}},
    {{Solid({{0, 0, 0}, {40, 20, 2}}), Carve({{16, 0, 0}, {24, 12, 2}})},
     {2 * (40 * 20 - 8 * 12) + 2 * (20 + 20 + 40 + (40 - 8)), 2 * (12 + 12 + 8)}},
    // Carvers in one rock. Of two that end in the same plane the earlier one gives up the share. A
    // wall without thickness between two caves is no wall. A later solid closes what it covers, and
    // keeps its face where it ends flush with the rock.
    {{Solid(kRock), Carve(kBox), Carve(kWithin)}, {kRockArea, 368, 16}},
    {{Solid(kRock), Carve(kWithin), Carve(kBox)}, {kRockArea, 0, 384}},
    {{Solid(kRock), Carve(kBox), Carve(kOn)}, {kRockArea, 368, 80}},
    {{Solid(kRock), Carve(kOn), Carve(kBox)}, {kRockArea, 80, 368}},
    {{Solid(kRock), Carve(kBox), Solid(kWithin)}, {kRockArea, 368, 80}},
    {{Solid(kRock), Carve(kBox), Solid(kOn)}, {kRockArea, 384, 16}},
    {{Solid(kRock), Carve(kOn), Solid(kBox)}, {kRockArea, 96, 16}},
};

TEST(CsgWorld, ShowsTheFacesThatBoundTheResultHoweverItIsBuilt) {
  for (std::size_t i = 0; i < std::size(kCases); ++i) {
    const auto& [boxes, expected] = kCases[i];
    for (const Build build : {Build::StepByStep, Build::Quick, Build::Optimal}) {
      const CBrushList level = LevelOfBoxes(boxes);
      CConstructiveBsp world;
      BuildWorld(world, level, build);
      std::vector<double> areas(expected.size());
      for (const CBspNode* node : VisiblePolygons(world)) {
        areas.at(static_cast<std::size_t>(node->nBid)) += Area(node->polygon);
      }
      EXPECT_EQ(areas, expected) << "case " << i << ", build " << static_cast<int>(build);
    }
  }
}

/// The face that zigzags is refused a cut by the top of its own brush, in the world and in the
/// brush's tree, and by the tops of two solids far from it. An optimal rebuild makes the brush's
/// tree once for each carver, and its faces in two planes of the last solid.
TEST(CsgWorld, EverySplitThatIsRefusedIsCountedHoweverTheWorldIsBuilt) {
  CBrushList level =
      LevelOfBoxes({Solid({{-20, -20, 0}, {20, 0, 10}}), Solid({{-20, -20, -60}, {20, 0, -50}}),
                    Solid({{-20, -20, -90}, {20, 0, -80}}), Carve({{-15, -5, 2}, {-12, 5, 8}}),
                    Carve({{12, -5, 2}, {15, 5, 8}}), Solid({{0, -19, 2}, {5, -15, 8}})});
  AddZigzag(level[0]);
  for (const Build build : {Build::StepByStep, Build::Quick, Build::Optimal}) {
    CConstructiveBsp world;
    BuildWorld(world, level, build);
    EXPECT_EQ(world.refused, 4) << "build " << static_cast<int>(build);
  }
}

}  // namespace
}  // namespace zando::testing
