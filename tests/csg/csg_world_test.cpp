#include "csg/csg_world.h"

#include <gtest/gtest.h>

#include "support/csg_testing.h"

namespace zando::testing {
namespace {

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
