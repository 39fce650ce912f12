#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "support/csg_testing.h"

namespace zando::testing {
namespace {

using Areas = std::vector<double>;

/// The visible area of each brush's polygons in the plane z = 8.
Areas AreasInSharedPlane(const BoxLevel& level) {
  Areas areas(level.brushes.Brushes().size(), 0.0);
  for (const CBspNode* node : VisiblePolygons(level.world)) {
    if (std::abs(node->plane.normal.z) < 0.5 || node->polygon[0].z != 8.0) continue;
    areas.at(static_cast<std::size_t>(node->nBid)) += Area(node->polygon);
  }
  return areas;
}

struct SharedPlaneCase {
  std::string name;
  std::vector<BoxBrush> boxes;
  Areas areas;
};

void PrintTo(const SharedPlaneCase& shared, std::ostream* out) { *out << shared.name; }

// `kWide` ends at z = 8. `kWithin` ends there too, inside of it: same facing. `kOn` stands on it:
// opposite facing. Their share of the plane is 16 of the 64 of `kWide`.
constexpr GridBox kWide{{0, 0, 0}, {8, 8, 8}};
constexpr GridBox kWithin{{2, 2, 4}, {6, 6, 8}};
constexpr GridBox kOn{{2, 2, 8}, {6, 6, 12}};

// Two solids that end in the same plane both keep their faces: they are the same surface. A carver
// that stands on a solid takes the face over.
const SharedPlaneCase kPairs[] = {
    {"SolidThenSolidSameFacing", {Solid(kWide), Solid(kWithin)}, {64, 16}},
    {"SmallThenWideSolidSameFacing", {Solid(kWithin), Solid(kWide)}, {16, 64}},
    {"FlushPitIsOpen", {Solid(kWide), Carve(kWithin)}, {48, 0}},
    {"CarverOverWholeSolidSameFacing", {Solid(kWithin), Carve(kWide)}, {0, 0}},
    {"EarlierCarverLeavesWideSolid", {Carve(kWithin), Solid(kWide)}, {0, 64}},
    {"EarlierWideCarverLeavesSolid", {Carve(kWide), Solid(kWithin)}, {0, 16}},
    {"CarversAloneSameFacing", {Carve(kWide), Carve(kWithin)}, {0, 0}},
    {"SolidOnSolidHidesTheShare", {Solid(kWide), Solid(kOn)}, {48, 0}},
    {"SolidUnderSolidHidesTheShare", {Solid(kOn), Solid(kWide)}, {0, 48}},
    {"CarverOnSolidTakesTheShareOver", {Solid(kWide), Carve(kOn)}, {48, 16}},
    {"CarverUnderSolidTakesTheShareOver", {Solid(kOn), Carve(kWide)}, {0, 16}},
    {"EarlierCarverOnSolidTakesNothing", {Carve(kOn), Solid(kWide)}, {0, 64}},
    {"EarlierCarverUnderSolidTakesNothing", {Carve(kWide), Solid(kOn)}, {0, 16}},
    {"CarversAloneOppositeFacing", {Carve(kWide), Carve(kOn)}, {0, 0}},
};

constexpr GridBox kRock{{-8, -8, -8}, {16, 16, 24}};

// Carvers in one rock. Of two that end in the same plane the earlier one gives up the share. A wall
// without thickness between two caves is no wall. A later solid closes what it covers, and keeps
// its face where it ends flush with the rock.
const SharedPlaneCase kCaves[] = {
    {"CaveWithinCave", {Solid(kRock), Carve(kWide), Carve(kWithin)}, {0, 48, 16}},
    {"CaveAroundCave", {Solid(kRock), Carve(kWithin), Carve(kWide)}, {0, 0, 64}},
    {"CaveOnCaveIsOpen", {Solid(kRock), Carve(kWide), Carve(kOn)}, {0, 48, 0}},
    {"CaveUnderCaveIsOpen", {Solid(kRock), Carve(kOn), Carve(kWide)}, {0, 0, 48}},
    {"PillarToTheCeiling", {Solid(kRock), Carve(kWide), Solid(kWithin)}, {0, 48, 0}},
    {"SolidFlushAboveTheCeiling", {Solid(kRock), Carve(kWide), Solid(kOn)}, {0, 64, 16}},
    {"SolidFlushUnderTheFloor", {Solid(kRock), Carve(kOn), Solid(kWide)}, {0, 16, 16}},
};

class SharedPlane : public ::testing::TestWithParam<SharedPlaneCase> {};

TEST_P(SharedPlane, EachFaceShowsItsPartAfterAnOptimalRebuild) {
  BoxLevel level(GetParam().boxes);
  BuildWorld(level.world, level.brushes, Build::Optimal);
  EXPECT_EQ(AreasInSharedPlane(level), GetParam().areas);
}

constexpr auto kCaseName = [](const auto& testInfo) { return testInfo.param.name; };
INSTANTIATE_TEST_SUITE_P(Pairs, SharedPlane, ::testing::ValuesIn(kPairs), kCaseName);
INSTANTIATE_TEST_SUITE_P(Caves, SharedPlane, ::testing::ValuesIn(kCaves), kCaseName);

class InsertedSharedPlane : public ::testing::TestWithParam<SharedPlaneCase> {};

TEST_P(InsertedSharedPlane, EachFaceShowsItsPartWhenBrushesAreInsertedOneByOne) {
  BoxLevel level(GetParam().boxes);
  BuildWorld(level.world, level.brushes, Build::StepByStep);
  EXPECT_EQ(AreasInSharedPlane(level), GetParam().areas);
}

INSTANTIATE_TEST_SUITE_P(Pairs, InsertedSharedPlane, ::testing::ValuesIn(kPairs), kCaseName);
INSTANTIATE_TEST_SUITE_P(Caves, InsertedSharedPlane, ::testing::ValuesIn(kCaves), kCaseName);

/// A door in a wall of its own thickness: the surface is the wall's without the two openings, and
/// the three sides of the frame that stand in it.
TEST(CoincidentPlanes, AFlushDoorIsOpenOnBothSides) {
  for (const Build build : {Build::StepByStep, Build::Optimal}) {
    BoxLevel level({Solid({{0, 0, 0}, {40, 20, 2}}), Carve({{16, 0, 0}, {24, 12, 2}})});
    BuildWorld(level.world, level.brushes, build);
    const double wall = 2 * (40 * 20 - 8 * 12);
    const double rims = 2 * (20 + 20 + 40 + (40 - 8));
    const double frame = 2 * (12 + 12 + 8);
    EXPECT_DOUBLE_EQ(VisibleArea(level.world), wall + rims + frame);
  }
}

}  // namespace
}  // namespace zando::testing
