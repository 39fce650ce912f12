#include "document/level.h"

#include <gtest/gtest.h>

#include "csg/csg_world.h"
#include "primitives/box.h"
#include "support/edit_level.h"

namespace zando::testing {
namespace {

/// A pyramid, whose tip is a face without extent, and a box that stands in it; both in the world.
Level SmallLevel() {
  SeedColorTags(1);
  Level level;
  for (const double top : {0.0, 128.0}) {
    Generate(BoxParameters{.TopXSize = top, .TopZSize = top}, level.WorkingBrush);
    level.WorkingBrush.MoveTo({0.0, top / 2.0, 0.0});
    const CZandoBrush& listed = level.BrushList[level.AddBrush(level.WorkingBrush)];
    InsertBrush(level.World, listed, listed.BBid);
  }
  level.WorkingBrush.UpdateMove({1.0, 2.0, 3.0});
  level.Entities.emplace_back().AddPair("classname", "light");
  level.Groups.emplace_back();
  return level;
}

void ExpectOwnBrushes(const Level& level) {
  EXPECT_EQ(level.World.brushList, level.BrushList.Head());
  WalkBackFrontNode(level.World.root, [&level](const CBspNode* node) {
    for (; node != nullptr; node = node->chain) {
      EXPECT_EQ(node->pBrush, level.BrushList.Find(node->nBid));
    }
  });
}

TEST(LevelTest, ACopyIsEqualAndNamesItsOwnBrushes) {
  Level level = SmallLevel();
  ASSERT_GT(level.World.Count().coplanar, 0);
  const Level copy = level;
  Level assigned;
  assigned = copy;
  EXPECT_TRUE(copy == level && assigned == level);
  level.RemoveBrush(0);
  ExpectOwnBrushes(level);
  ExpectOwnBrushes(copy);
  ExpectOwnBrushes(assigned);
  EXPECT_EQ(assigned.BrushList[1].Prev, assigned.BrushList.Head());
}

}  // namespace
}  // namespace zando::testing
