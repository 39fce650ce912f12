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

TEST(LevelTest, LevelsThatDifferInAnythingThatIsKeptAreUnequal) {
  const Level level = SmallLevel();
  void (*const changes[])(Level&) = {
      [](Level& l) { l.WorkingBrush.Name = "other"; },
      [](Level& l) { l.BrushList[1].BBid = 9; },
      [](Level& l) { l.BrushList[1].BFlags ^= BF_SELECTED; },
      [](Level& l) { l.BrushList[1].BGroup = 0; },
      [](Level& l) { l.BrushList[1].TranT = kSubtractFromWorld; },
      [](Level& l) { Place(l.BrushList[1], [](Placement& own) { own.WorkRot.z = 1.0; }); },
      [](Level& l) { l.BrushList[1].SetBMatrix(Transform::Identity()); },
      [](Level& l) { l.BrushList[1].UpdateGroupOperation(l.BrushList[1].BMatrix()); },
      [](Level& l) { l.BrushList[1].EditPoly(5)[3].z += 1.0; },
      [](Level& l) { l.BrushList[1].Faces[5].points[2].x = 1.0; },
      [](Level& l) { l.AddBrush(l.WorkingBrush), l.NextBrushId = 2; },
      [](Level& l) { l.Entities[0].Pairs[0].value = "lamp"; },
      [](Level& l) { l.Entities[0].WorkOrigin.y = 1.0; },
      [](Level& l) { l.World.root->nValid ^= 1; },
      [](Level& l) { l.World.root->nPolNum = 9; },
      [](Level& l) { l.World.root->polygon[0].x += 1.0; },
      [](Level& l) { l.World.root->plane.d = 1.0; },
      [](Level& l) { l.World.root->front = l.World.NewNode(); },
      [](Level& l) { ChainEnd(l.World.root)->chain = l.World.NewNode(); },
  };
  int row = 0;
  for (const auto change : changes) {
    Level changed = level;
    change(changed);
    EXPECT_FALSE(changed == level) << row;
    EXPECT_TRUE(level == SmallLevel()) << row++ << " reached the level that was copied";
  }
}

}  // namespace
}  // namespace zando::testing
