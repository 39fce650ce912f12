#include "document/zando_doc.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/random_level.h"

namespace zando {
namespace {

/// Lists a solid cube around a centre and returns it.
CZandoBrush& AddCube(CZANDODoc& level, std::int32_t size, const Vector& centre) {
  const std::int32_t half = size / 2;
  const auto cube = testing::MakeBoxBrush({{-half, -half, -half}, {half, half, half}});
  cube->MoveTo(centre);
  level.AddBrush(*cube);
  return *level.BrushList.Brushes().back();
}

void SelectAll(CZANDODoc& level) {
  for (const auto& brush : level.BrushList.Brushes()) brush->BFlags |= BF_SELECTED;
  for (CEntity& entity : level.Entities) entity.eFlags |= EF_SELECTED;
}

std::vector<const CBspNode*> WorldPolygons(const CZANDODoc& level) {
  std::vector<const CBspNode*> polygons;
  WalkBackFrontNode(level.World.root, [&](const CBspNode* node) {
    for (; node != nullptr; node = node->chain) polygons.push_back(node);
  });
  return polygons;
}

std::vector<std::int32_t> Ids(const CZANDODoc& level) {
  std::vector<std::int32_t> ids;
  for (const CZandoBrush* b = level.BrushList.Head(); b != nullptr; b = b->Next) {
    EXPECT_TRUE(b->Next == nullptr || b->Next->Prev == b);
    ids.push_back(b->BBid);
  }
  return ids;
}

TEST(Document, GridStepsDoubleAndHalveDownToOne) {
  CZANDODoc level;
  for (const auto& [before, halved] : {std::pair{64.0, 32.0}, {3.0, 1.5}, {2.0, 1.0}, {1.5, 1.5}}) {
    level.GridSize = before;
    level.StepGrid(CZANDODoc::GridStep::Down);
    EXPECT_EQ(level.GridSize, halved);
    level.StepGrid(CZANDODoc::GridStep::Up);
    EXPECT_EQ(level.GridSize, 2.0 * halved);
  }
}

TEST(Document, TheShowFilterAndGroupsDecideWhatIsShownInWhichColour) {
  CZANDODoc level;
  level.Groups.resize(2);
  level.Groups[0].gCol = 0x00FF00;
  level.Groups[1].gVis = 0;
  for (const std::int32_t group : {-1, 0, 1, 7}) {
    AddCube(level, 64, {0, 0, 0}).BGroup = group;
    level.Entities.emplace_back().eGroup = group;
  }
  for (const std::int32_t group : {-1, 0}) {
    CZandoBrush& owned = AddCube(level, 64, {0, 0, 0});
    owned.BGroup = group;
    owned.BFlags |= BF_ENTITY;
  }

  struct Case {
    std::int32_t filter;
    std::int32_t currentGroup;
    std::string shown;  ///< group none, visible, hidden, unknown; of an entity: none, visible
  };
  for (const Case& c :
       {Case{ID_SHOW_ALL_BRUSHES, 0, "111111"}, Case{ID_SHOW_VISIBLE_GROUPS, 1, "010001"},
        Case{ID_SHOW_CURRENT_GROUP, 1, "001000"}, Case{ID_SHOW_CURRENT_GROUP, -1, "100010"}}) {
    for (const std::int32_t showEntities : {1, 0}) {
      level.ShowFilter = c.filter;
      level.CurrentGroup = c.currentGroup;
      level.ShowEntities = showEntities;
      level.RefreshColors();
      std::string brushes;
      std::string entities;
      for (const auto& brush : level.BrushList.Brushes()) brushes += brush->IsShown() ? '1' : '0';
      for (const CEntity& entity : level.Entities) entities += entity.IsShown() ? '1' : '0';
      EXPECT_EQ(entities, c.shown.substr(0, 4)) << c.filter;
      EXPECT_EQ(brushes, showEntities == 1 ? c.shown : entities + "00") << c.filter;
    }
  }
  const std::vector<std::uint32_t> colours{kWhite, 0x00FF00, 0x0000FF, kWhite};
  for (std::size_t i = 0; i < colours.size(); ++i) {
    EXPECT_EQ(level.BrushList.Brushes()[i]->Color, colours[i]);
    EXPECT_EQ(level.Entities[i].Color, colours[i]);
  }
}

TEST(Document, GroupCommandsMoveTheSelectionWithItsPivotAndEndIt) {
  CZANDODoc level;
  CZandoBrush& chosen = AddCube(level, 64, {10, 20, 30});
  const CZandoBrush& other = AddCube(level, 64, {0, 0, 0});
  level.PlaceLight();
  chosen.BFlags |= BF_SELECTED;
  level.Entities[0].eFlags |= EF_SELECTED;
  level.CreateNewGroup();
  EXPECT_EQ(level.Groups.size(), 1U);
  EXPECT_EQ(level.CurrentGroup, 0);
  EXPECT_EQ(other.BGroup, -1);

  const auto expectMembers = [&](std::int32_t group, const Vector& pivot) {
    EXPECT_EQ(chosen.BGroup, group);
    EXPECT_EQ(chosen.Pos[kGroupSlot], pivot);
    EXPECT_EQ(level.Entities[0].eGroup, group);
    EXPECT_FALSE(level.AnySelected());
  };
  expectMembers(0, {0, 0, 0});
  SelectAll(level);
  level.RemoveSelectedFromGroup();
  expectMembers(-1, {128, 128, 128});
  level.Groups[0].Centre = {1, 2, 3};
  SelectAll(level);
  level.AddSelectedToGroup();
  expectMembers(0, {1, 2, 3});
  level.CurrentGroup = -1;
  SelectAll(level);
  level.AddSelectedToGroup();
  expectMembers(-1, {0, 0, 0});
}

TEST(Document, BrushesAndTheCurrentEntityFollowWhenAnEntityIsDeleted) {
  CZANDODoc level;
  for (int i = 0; i < 5; ++i) level.PlaceLight();
  level.ShowEntities = 0;
  for (const std::int32_t owner : {1, 2, 4}) {
    CZandoBrush& brush = AddCube(level, 64, {0, 0, 0});
    brush.BEnt = owner;
    brush.BFlags |= BF_ENTITY;
  }
  level.SetCurrentBrush(*level.BrushList.Brushes().back());
  level.CopyToCurrent();
  level.DeleteEntity(2);
  level.DeleteEntity(9);
  EXPECT_EQ(level.Entities.size(), 4U);
  EXPECT_EQ(level.CurrentEntity, 3);
  const auto& brushes = level.BrushList.Brushes();
  EXPECT_EQ(brushes[0]->BEnt, 1);
  EXPECT_FALSE(brushes[0]->IsShown());
  EXPECT_FALSE(brushes[1]->BelongsToEntity());
  EXPECT_TRUE(brushes[1]->IsShown());
  EXPECT_EQ(brushes[2]->BEnt, 3);
  EXPECT_EQ(level.WorkingBrush.BEnt, 3);
  level.DeleteEntity(3);
  EXPECT_EQ(level.CurrentEntity, -1);
  EXPECT_FALSE(level.WorkingBrush.BelongsToEntity());
}

TEST(Document, IdsAreNeverUsedAgainAndTheOrderSurvivesDeletes) {
  CZANDODoc level;
  for (std::int32_t i = 0; i < 4; ++i) EXPECT_EQ(level.AddBrush(level.WorkingBrush), i);
  for (const std::int32_t deleted : {0, 2, 3}) {
    level.SetCurrentBrush(*level.FindBrushById(deleted));
    level.DeleteCurrentBrush();
    EXPECT_EQ(level.CurrentBrush, &level.WorkingBrush);
  }
  EXPECT_EQ(level.AddBrush(level.WorkingBrush), 1);
  EXPECT_EQ(Ids(level), (std::vector<std::int32_t>{1, 4}));
}

TEST(Document, AClickPicksTheSmallestShownBrushAndTheEarlierOfEqualOnes) {
  CZANDODoc level;
  const CZandoBrush& outer = AddCube(level, 256, {0, 0, 0});
  const CZandoBrush& inner = AddCube(level, 64, {0, 0, 64});
  AddCube(level, 64, {0, 0, 80});
  AddCube(level, 16, {0, 0, 64}).BFlags &= ~BF_SHOWN;
  struct Case {
    Vector point;
    const CZandoBrush* picked;
  };
  for (const Case& c : {Case{{0, 1, 64}, &inner}, Case{{1, 1, 0}, &inner}, Case{{0, 1, 31}, &outer},
                        Case{{100, 1, 0}, &outer}, Case{{0, 129, 64}, &level.WorkingBrush}}) {
    level.SetCurrentBrush(level.WorkingBrush);
    level.ShowBrush = 0;
    level.PickBrush(c.point);
    const int hit = c.picked != &level.WorkingBrush ? 1 : 0;
    EXPECT_EQ(level.CurrentBrush, c.picked) << c.point.x << ' ' << c.point.y << ' ' << c.point.z;
    EXPECT_EQ(level.BrushPicked, hit);
    EXPECT_EQ(level.ShowBrush, hit);
  }
}

TEST(Document, ListedCopiesOfTheWorkingBrushOwnTheirFacesUntilTheyGo) {
  CZANDODoc level;
  level.Groups.resize(1);
  level.CurrentGroup = 0;
  level.AddToWorld();
  level.WorkingBrush.MoveTo({512, 0, 0});
  level.SubtractFromWorld();
  level.CurrentGroup = -1;
  level.AddToWorld();
  ASSERT_EQ(Ids(level), (std::vector<std::int32_t>{0, 1, 2}));
  EXPECT_EQ(level.FindBrushById(0)->Color, 0x0000FFU);
  EXPECT_EQ(level.FindBrushById(1)->TranT, kSubtractFromWorld);
  EXPECT_EQ(level.FindBrushById(2)->BGroup, -1);
  const auto expectOwners = [&level] {
    EXPECT_EQ(WorldPolygons(level).size(), 12U);
    for (const CBspNode* polygon : WorldPolygons(level)) {
      EXPECT_EQ(polygon->pBrush, level.FindBrushById(polygon->nBid));
    }
  };
  expectOwners();

  // A picked brush changes its operation or goes, and the world waits for a rebuild.
  level.SetCurrentBrush(*level.FindBrushById(2));
  level.SubtractFromWorld();
  EXPECT_EQ(level.FindBrushById(2)->TranT, kSubtractFromWorld);
  EXPECT_EQ(level.WorkingBrush.TranT, kAddToWorld);
  EXPECT_EQ(level.CurrentBrush, &level.WorkingBrush);
  level.SetCurrentBrush(*level.FindBrushById(0));
  level.DeleteCurrentBrush();
  expectOwners();
}

}  // namespace
}  // namespace zando
