#include "document/zando_doc.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <vector>

#include "document/brush_edits.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"
#include "document/selection_edits.h"
#include "document/view_edits.h"
#include "document/world_edits.h"
#include "support/edit_level.h"
#include "support/random_level.h"

namespace zando {
namespace {

using testing::Edit;
using testing::EditState;

/// Lists a solid cube around a centre and returns it.
CZandoBrush& AddCube(CZANDODoc& document, std::int32_t size, const Vector& centre) {
  const std::int32_t half = size / 2;
  const auto cube = testing::MakeBoxBrush({{-half, -half, -half}, {half, half, half}});
  cube->MoveTo(centre);
  return Edit(document).BrushList[AddBrush(document, *cube)];
}

std::vector<std::int32_t> Ids(const CZANDODoc& document) {
  std::vector<std::int32_t> ids;
  for (const CZandoBrush& b : document.GetLevel().BrushList) {
    EXPECT_TRUE(b.Next == nullptr || b.Next->Prev == &b);
    ids.push_back(b.BBid);
  }
  return ids;
}

TEST(Document, GridStepsHalveDownToOneAndDoubleUpToTheLimitOfTheSettings) {
  CZANDODoc document;
  // Before a step, after one down, after one up.
  const std::array<double, 3> cases[] = {{64.0, 32.0, 128.0},
                                         {3.0, 1.5, 6.0},
                                         {1.5, 1.5, 3.0},
                                         {1250.0, 625.0, 2500.0},
                                         {1250.5, 625.25, 1250.5}};
  for (const auto& [before, down, up] : cases) {
    EditState(document).GridSize = before;
    StepGrid(document, GridStep::Down);
    EXPECT_EQ(document.State().GridSize, down);
    EditState(document).GridSize = before;
    StepGrid(document, GridStep::Up);
    EXPECT_EQ(document.State().GridSize, up);
  }
}

TEST(Document, TheShowFilterAndGroupsDecideWhatIsShownInWhichColour) {
  CZANDODoc document;
  Level& level = Edit(document);
  level.Groups.resize(2);
  level.Groups[0].gCol = 0x00FF00;
  level.Groups[1].gVis = 0;
  for (const std::int32_t group : {-1, 0, 1, 7}) {
    AddCube(document, 64, {0, 0, 0}).BGroup = group;
    level.Entities.emplace_back().eGroup = group;
  }
  for (const std::int32_t group : {-1, 0}) {
    CZandoBrush& owned = AddCube(document, 64, {0, 0, 0});
    owned.BGroup = group;
    owned.BFlags |= BF_ENTITY;
  }

  // Shown are: of group none, visible, hidden, unknown; of an entity: none, visible.
  using Case = std::tuple<std::int32_t, std::int32_t, std::string>;
  for (const auto& [filter, currentGroup, shown] :
       {Case{ID_SHOW_ALL_BRUSHES, 0, "111111"}, Case{ID_SHOW_VISIBLE_GROUPS, 1, "010001"},
        Case{ID_SHOW_CURRENT_GROUP, 1, "001000"}, Case{ID_SHOW_CURRENT_GROUP, -1, "100010"}}) {
    for (int i = 0; i < 2; ++i) {
      SetCurrentGroup(document, currentGroup);
      SetShowFilter(document, filter);
      ToggleShowEntities(document);
      std::string brushes;
      std::string entities;
      for (const CZandoBrush& brush : level.BrushList) brushes += brush.IsShown() ? '1' : '0';
      for (const CEntity& entity : level.Entities) entities += entity.IsShown() ? '1' : '0';
      EXPECT_EQ(entities, shown.substr(0, 4)) << filter;
      EXPECT_EQ(brushes, document.State().ShowEntities == 1 ? shown : entities + "00") << filter;
    }
  }
  std::int32_t i = 0;
  for (const std::uint32_t colour : {kWhite, 0x00FF00U, 0x0000FFU, kWhite}) {
    EXPECT_EQ(level.BrushList[i].Color, colour);
    EXPECT_EQ(level.Entities[static_cast<std::size_t>(i++)].Color, colour);
  }
}

TEST(Document, GroupCommandsMoveTheSelectionWithItsPivotAndEndIt) {
  CZANDODoc document;
  CZandoBrush& chosen = AddCube(document, 64, {10, 20, 30});
  const CZandoBrush& other = AddCube(document, 64, {0, 0, 0});
  PlaceLight(document);
  SelectBrush(document, 0, Selection::Select);
  SelectEntity(document, 0, Selection::Select);
  CreateNewGroup(document);
  EXPECT_EQ(document.GetLevel().Groups.size(), 1U);
  EXPECT_EQ(document.State().CurrentGroup, 0);
  EXPECT_EQ(other.BGroup, -1);

  const auto expectMembers = [&](std::int32_t group, const Vector& pivot) {
    EXPECT_EQ(chosen.BGroup, group);
    EXPECT_EQ(chosen.Slot(kGroupSlot).Pos, pivot);
    EXPECT_EQ(document.GetLevel().Entities[0].eGroup, group);
    EXPECT_FALSE(document.AnySelected());
  };
  expectMembers(0, {0, 0, 0});
  SelectAll(document);
  RemoveSelectedFromGroup(document);
  expectMembers(-1, {128, 128, 128});
  Edit(document).Groups[0].Centre = {1, 2, 3};
  SelectAll(document);
  AddSelectedToGroup(document);
  expectMembers(0, {1, 2, 3});
  SetCurrentGroup(document, -1);
  SelectAll(document);
  AddSelectedToGroup(document);
  expectMembers(-1, {0, 0, 0});
}

TEST(Document, BrushesAndTheCurrentEntityFollowWhenAnEntityIsDeleted) {
  CZANDODoc document;
  for (int i = 0; i < 5; ++i) PlaceLight(document);
  for (const std::int32_t owner : {1, 2, 4}) {
    AddCube(document, 64, {0, 0, 0});
    AssociateBrush(document, owner, Ids(document).back());
  }
  ToggleShowEntities(document);
  SetCurrentBrush(document, 2);
  CopyToCurrent(document);
  DeleteEntity(document, 2);
  DeleteEntity(document, 9);
  const Level& level = document.GetLevel();
  EXPECT_EQ(level.Entities.size(), 4U);
  EXPECT_EQ(document.State().CurrentEntity, 3);
  EXPECT_EQ(level.BrushList[0].BEnt, 1);
  EXPECT_FALSE(level.BrushList[0].IsShown());
  EXPECT_FALSE(level.BrushList[1].BelongsToEntity());
  EXPECT_TRUE(level.BrushList[1].IsShown());
  EXPECT_EQ(level.BrushList[2].BEnt, 3);
  EXPECT_EQ(level.WorkingBrush.BEnt, 3);
  DeleteEntity(document, 3);
  EXPECT_EQ(document.State().CurrentEntity, -1);
  EXPECT_FALSE(level.WorkingBrush.BelongsToEntity());
}

TEST(Document, IdsAreNeverUsedAgainAndTheOrderSurvivesDeletes) {
  CZANDODoc document;
  const CZandoBrush& working = document.GetLevel().WorkingBrush;
  for (std::int32_t i = 0; i < 4; ++i) EXPECT_EQ(AddBrush(document, working), i);
  for (const std::int32_t deleted : {0, 2, 3}) {
    SetCurrentBrush(document, deleted);
    DeleteCurrentBrush(document);
    EXPECT_EQ(&document.CurrentBrush(), &working);
  }
  EXPECT_EQ(AddBrush(document, working), 1);
  EXPECT_EQ(Ids(document), (std::vector<std::int32_t>{1, 4}));
}

TEST(Document, AClickPicksTheSmallestShownBrushAndTheEarlierOfEqualOnes) {
  CZANDODoc document;
  AddCube(document, 256, {0, 0, 0});
  AddCube(document, 64, {0, 0, 64});
  AddCube(document, 64, {0, 0, 80});
  AddCube(document, 16, {0, 0, 64}).BFlags &= ~BF_SHOWN;
  // Two that differ in height alone.
  AddCube(document, 256, {4096, 0, 4096});
  SetCurrentBrush(document, AddCube(document, 256, {4096, 0, 4096}).BBid);
  SetBrushScale(document, {1, 0.25, 1});
  using Case = std::tuple<Vector, ViewAxes, std::int32_t>;
  for (const auto& [point, axes, picked] :
       {Case{{0, 1, 64}, kSideAxes, 1}, Case{{1, 1, 0}, kFrontAxes, 1},
        Case{{0, 1, 31}, kSideAxes, 0}, Case{{100, 1, 0}, kFrontAxes, 0},
        Case{{4000, 0, 4000}, kTopAxes, 5}, Case{{0, 129, 64}, kSideAxes, kWorkingBrush}}) {
    SetCurrentBrush(document, kWorkingBrush);
    EditState(document).ShowBrush = 0;
    PickBrush(document, point, axes);
    EXPECT_EQ(document.State().CurrentBrush, picked) << point.x << ' ' << point.z;
    EXPECT_EQ(document.State().ShowBrush, picked != kWorkingBrush ? 1 : 0);
  }
}

TEST(Document, ACopyOfALevelIsEqualAndNamesItsOwnBrushes) {
  CZANDODoc document;
  AddToWorld(document);
  PlaceBrush(document, {64, 64, 64});
  AddToWorld(document);
  PlaceLight(document);
  CreateEmptyGroup(document);
  const Level& level = document.GetLevel();
  ASSERT_GT(level.World.Count().coplanar, 0);
  const Level copy = level;
  Level assigned;
  assigned = copy;
  EXPECT_TRUE(copy == level && assigned == level);
  Edit(document).RemoveBrush(0);
  EXPECT_FALSE(copy == level);
  for (const Level* each : std::initializer_list<const Level*>{&level, &copy, &assigned}) {
    EXPECT_EQ(each->World.brushList, each->BrushList.Head());
    WalkBackFrontNode(each->World.root, [each](const CBspNode* node) {
      for (; node != nullptr; node = node->chain) {
        EXPECT_EQ(node->pBrush, each->BrushList.Find(node->nBid));
      }
    });
  }
}

}  // namespace
}  // namespace zando
