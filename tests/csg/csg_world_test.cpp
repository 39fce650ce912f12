#include "csg/csg_world.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/csg_testing.h"

namespace zando::testing {
namespace {

struct BoxCase {
  std::string name;
  std::vector<BoxBrush> boxes;
  std::vector<double> areas;  ///< what can be seen of each brush
};

constexpr GridBox kBox{{0, 0, 0}, {8, 8, 8}};
constexpr GridBox kInner{{2, 2, 2}, {4, 4, 4}};
constexpr GridBox kCorner{{4, 4, 4}, {12, 12, 12}};

const BoxCase kCases[] = {
    {"One", {Solid(kBox)}, {384}},
    {"Apart", {Solid(kBox), Solid({{10, 2, 2}, {12, 4, 4}})}, {384, 24}},
    {"BuriedInOlderSolid", {Solid(kBox), Solid(kInner)}, {384, 0}},
    {"BuriedInNewerSolid", {Solid(kInner), Solid(kBox)}, {0, 384}},
    {"SideBySide", {Solid(kBox), Solid({{8, 0, 0}, {16, 8, 8}})}, {320, 320}},
    {"CornerOverlap", {Solid(kBox), Solid(kCorner)}, {336, 336}},
    {"HoleInTheMiddle", {Solid(kBox), Carve(kInner)}, {384, 24}},
    {"CarvedCorner", {Solid(kBox), Carve(kCorner)}, {336, 48}},
    {"CarverFirst", {Carve(kCorner), Solid(kBox)}, {0, 384}},
    {"CarvedWhole", {Solid(kBox), Carve({{-1, -1, -1}, {9, 9, 9}})}, {0, 0}},
    {"CarvedEmptyWorld", {Carve(kBox)}, {0}},
    {"FilledHole",
     {Solid(kBox), Carve({{2, 2, 2}, {6, 6, 6}}), Solid({{3, 3, 3}, {4, 4, 4}})},
     {384, 96, 6}},
};

// Faces in one plane. `kBox` ends at z = 8. `kWithin` ends there too, inside of it: same facing.
// `kOn` stands on it: opposite facing. Their share of the plane is 16 of the 64 of `kBox`.
constexpr GridBox kWithin{{2, 2, 4}, {6, 6, 8}};
constexpr GridBox kOn{{2, 2, 8}, {6, 6, 12}};

// Two solids that end in the same plane both keep their faces: they are the same surface. A carver
// that stands on a solid takes the face over.
const BoxCase kPairs[] = {
    {"SolidThenSolidSameFacing", {Solid(kBox), Solid(kWithin)}, {384, 16}},
    {"SmallThenWideSolidSameFacing", {Solid(kWithin), Solid(kBox)}, {16, 384}},
    {"FlushPitIsOpen", {Solid(kBox), Carve(kWithin)}, {368, 80}},
    {"CarverOverWholeSolidSameFacing", {Solid(kWithin), Carve(kBox)}, {0, 0}},
    {"EarlierCarverLeavesWideSolid", {Carve(kWithin), Solid(kBox)}, {0, 384}},
    {"EarlierWideCarverLeavesSolid", {Carve(kBox), Solid(kWithin)}, {0, 96}},
    {"CarversAloneSameFacing", {Carve(kBox), Carve(kWithin)}, {0, 0}},
    {"SolidOnSolidHidesTheShare", {Solid(kBox), Solid(kOn)}, {368, 80}},
    {"SolidUnderSolidHidesTheShare", {Solid(kOn), Solid(kBox)}, {80, 368}},
    {"CarverOnSolidTakesTheShareOver", {Solid(kBox), Carve(kOn)}, {368, 16}},
    {"CarverUnderSolidTakesTheShareOver", {Solid(kOn), Carve(kBox)}, {80, 16}},
    {"EarlierCarverOnSolidTakesNothing", {Carve(kOn), Solid(kBox)}, {0, 384}},
    {"EarlierCarverUnderSolidTakesNothing", {Carve(kBox), Solid(kOn)}, {0, 96}},
    {"CarversAloneOppositeFacing", {Carve(kBox), Carve(kOn)}, {0, 0}},
    {"FlushDoorIsOpenOnBothSides",
     {Solid({{0, 0, 0}, {40, 20, 2}}), Carve({{16, 0, 0}, {24, 12, 2}})},
     {2 * (40 * 20 - 8 * 12) + 2 * (20 + 20 + 40 + (40 - 8)), 2 * (12 + 12 + 8)}},
};

// Carvers in one rock. Of two that end in the same plane the earlier one gives up the share. A wall
// without thickness between two caves is no wall. A later solid closes what it covers, and keeps
// its face where it ends flush with the rock.
constexpr GridBox kRock{{-8, -8, -8}, {16, 16, 24}};
constexpr double kRockArea = 2 * 24 * 24 + 4 * 24 * 32;
const BoxCase kCaves[] = {
    {"CaveWithinCave", {Solid(kRock), Carve(kBox), Carve(kWithin)}, {kRockArea, 368, 16}},
    {"CaveAroundCave", {Solid(kRock), Carve(kWithin), Carve(kBox)}, {kRockArea, 0, 384}},
    {"CaveOnCaveIsOpen", {Solid(kRock), Carve(kBox), Carve(kOn)}, {kRockArea, 368, 80}},
    {"CaveUnderCaveIsOpen", {Solid(kRock), Carve(kOn), Carve(kBox)}, {kRockArea, 80, 368}},
    {"PillarToTheCeiling", {Solid(kRock), Carve(kBox), Solid(kWithin)}, {kRockArea, 368, 80}},
    {"SolidFlushAboveTheCeiling", {Solid(kRock), Carve(kBox), Solid(kOn)}, {kRockArea, 384, 16}},
    {"SolidFlushUnderTheFloor", {Solid(kRock), Carve(kOn), Solid(kBox)}, {kRockArea, 96, 16}},
};

class BoxWorld : public ::testing::TestWithParam<BoxCase> {};

TEST_P(BoxWorld, ShowsTheFacesThatBoundTheResultHoweverItIsBuilt) {
  for (const Build build : {Build::StepByStep, Build::Quick, Build::Optimal}) {
    const CBrushList level = LevelOfBoxes(GetParam().boxes);
    CConstructiveBsp world;
    BuildWorld(world, level, build);
    std::vector<double> areas(GetParam().areas.size(), 0.0);
    for (const CBspNode* node : VisiblePolygons(world)) {
      areas.at(static_cast<std::size_t>(node->nBid)) += Area(node->polygon);
    }
    EXPECT_EQ(areas, GetParam().areas) << "build " << static_cast<int>(build);
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

constexpr auto kCaseName = [](const auto& testInfo) { return testInfo.param.name; };
INSTANTIATE_TEST_SUITE_P(Cases, BoxWorld, ::testing::ValuesIn(kCases), kCaseName);
INSTANTIATE_TEST_SUITE_P(SharedPlanes, BoxWorld, ::testing::ValuesIn(kPairs), kCaseName);
INSTANTIATE_TEST_SUITE_P(Caves, BoxWorld, ::testing::ValuesIn(kCaves), kCaseName);

}  // namespace
}  // namespace zando::testing
