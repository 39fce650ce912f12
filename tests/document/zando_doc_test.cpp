#include "document/zando_doc.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zando {
namespace {

/// Writes down what an operation tells the desktop.
class CRecorder : public CView, public CFrameDisplay {
 public:
  void OnUpdate(const CView* sender, int hint) override {
    EXPECT_EQ(sender, nullptr);
    EXPECT_EQ(hint, kNoHint);
    told += "redraw ";
  }
  void RefreshGroups() override { told += "groups "; }
  void RefreshGrid() override { told += "grid "; }
  std::string told;
};

/// Lists a solid cube around a centre and returns it.
CZandoBrush& AddCube(CZANDODoc& level, double size, const Vector& centre) {
  CCreateBoxDlg dialog;
  dialog.YSize = dialog.TopXSize = dialog.TopZSize = size;
  dialog.BottomXSize = dialog.BottomZSize = size;
  CZandoBrush cube;
  dialog.Generate(cube);
  cube.ComputeFacePoints();
  cube.MoveTo(centre);
  const std::int32_t index = level.AddBrush(cube);
  return *level.BrushList.Brushes()[static_cast<std::size_t>(index)];
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

TEST(Document, StartsWithTheDefaultBoxAsWorkingBrushAndNothingListed) {
  CZANDODoc level;
  EXPECT_EQ(level.BrushCount(), 0);
  EXPECT_EQ(level.CurrentBrush, &level.WorkingBrush);
  ASSERT_EQ(level.WorkingBrush.PolyCount(), 6);
  for (std::size_t i = 0; i < 6; ++i) {
    const CZandoPoly& polygon = level.WorkingBrush.Polys[i];
    EXPECT_EQ(level.WorkingBrush.Faces[i].points,
              (std::array<Vector, 3>{polygon[1], polygon[0], polygon[2]}));
  }
  EXPECT_FALSE(level.IsModified());
}

TEST(Document, EachOperationRedrawsOnceAndMarksOnlyChangesOfTheLevel) {
  using Operation = std::function<void(CZANDODoc&)>;
  const auto nothing = [](CZANDODoc&) {};
  const auto pick = [](CZANDODoc& l) { l.SetCurrentBrush(*l.BrushList.Head()); };
  const auto light = [](CZANDODoc& l) { l.PlaceLight(); };
  const auto click = [](const Vector& p) { return [p](CZANDODoc& l) { l.PickBrush(p); }; };
  const auto erase = [](std::int32_t i) { return [i](CZANDODoc& l) { l.DeleteEntity(i); }; };
  struct Case {
    Operation prepare;
    Operation operate;
    std::string told;
  };
  const std::vector<Case> cases{
      {nothing, &CZANDODoc::AddToWorld, "groups redraw modified"},
      {pick, &CZANDODoc::SubtractFromWorld, "redraw modified"},
      {nothing, &CZANDODoc::DeleteCurrentBrush, ""},
      {pick, &CZANDODoc::DeleteCurrentBrush, "redraw modified"},
      {nothing, click({0, 1, 1}), "redraw "},
      {nothing, click({0, 1, 999}), ""},
      {nothing, &CZANDODoc::RefreshColors, "groups "},
      {light, erase(0), "redraw modified"},
      {light, erase(1), ""},
      {light, erase(-1), ""},
      {nothing, [](CZANDODoc& l) { l.StepGrid(CZANDODoc::GridStep::Up); }, "grid redraw "},
      {SelectAll, &CZANDODoc::CreateNewGroup, "groups redraw modified"},
      {light, &CZANDODoc::CreateNewGroup, ""},
      {SelectAll, &CZANDODoc::AddSelectedToGroup, "groups redraw modified"},
      {light, &CZANDODoc::AddSelectedToGroup, ""},
      {SelectAll, &CZANDODoc::RemoveSelectedFromGroup, "groups redraw modified"},
      {light, &CZANDODoc::RemoveSelectedFromGroup, ""},
      {nothing, light, "groups redraw modified"},
      {light, &CZANDODoc::CopyCurrentEntity, "redraw modified"},
      {nothing, &CZANDODoc::CopyCurrentEntity, ""},
      {nothing, &CZANDODoc::ToggleShowEntities, "groups redraw "},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    CZANDODoc level;
    AddCube(level, 64, {0, 0, 0});
    cases[i].prepare(level);
    level.SetModifiedFlag(false);
    CRecorder recorder;
    level.AddView(recorder);
    level.Frame = &recorder;
    cases[i].operate(level);
    EXPECT_EQ(recorder.told + (level.IsModified() ? "modified" : ""), cases[i].told) << i;
    level.RemoveView(recorder);
  }
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
  const std::vector<std::int32_t> groups{-1, 0, 1, 7};
  for (const std::int32_t group : groups) {
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
    std::int32_t showEntities;
    std::string brushes;  ///< group none, visible, hidden, unknown; of an entity: none, visible
    std::string entities;
  };
  const std::vector<Case> cases{
      {ID_SHOW_ALL_BRUSHES, 0, 1, "111111", "1111"},
      {ID_SHOW_ALL_BRUSHES, 0, 0, "111100", "1111"},
      {ID_SHOW_VISIBLE_GROUPS, 1, 1, "010001", "0100"},
      {ID_SHOW_VISIBLE_GROUPS, 1, 0, "010000", "0100"},
      {ID_SHOW_CURRENT_GROUP, 1, 1, "001000", "0010"},
      {ID_SHOW_CURRENT_GROUP, 0, 1, "010001", "0100"},
      {ID_SHOW_CURRENT_GROUP, 0, 0, "010000", "0100"},
      {ID_SHOW_CURRENT_GROUP, -1, 1, "100010", "1000"},
      {ID_SHOW_CURRENT_GROUP, -1, 0, "100000", "1000"},
  };
  for (const Case& c : cases) {
    level.ShowFilter = c.filter;
    level.CurrentGroup = c.currentGroup;
    level.ShowEntities = c.showEntities;
    level.RefreshColors();
    std::string brushes;
    std::string entities;
    for (const auto& brush : level.BrushList.Brushes()) brushes += brush->IsShown() ? '1' : '0';
    for (const CEntity& entity : level.Entities) entities += entity.IsShown() ? '1' : '0';
    EXPECT_EQ(brushes, c.brushes) << c.filter << ' ' << c.currentGroup << ' ' << c.showEntities;
    EXPECT_EQ(entities, c.entities) << c.filter << ' ' << c.currentGroup;
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
  CZandoBrush& other = AddCube(level, 64, {0, 0, 0});
  level.PlaceLight();
  level.PlaceLight();
  chosen.BFlags |= BF_SELECTED;
  level.Entities[0].eFlags |= EF_SELECTED;
  level.CreateNewGroup();
  ASSERT_EQ(level.Groups.size(), 1U);
  EXPECT_EQ(level.Groups[0].GetName(), "Unnamed Group");
  EXPECT_EQ(level.Groups[0].Centre, (Vector{0, 0, 0}));
  EXPECT_EQ(level.CurrentGroup, 0);
  EXPECT_EQ(other.BGroup, -1);
  EXPECT_EQ(level.Entities[1].eGroup, -1);

  const auto expectMembers = [&](std::int32_t group, std::uint32_t color, const Vector& pivot) {
    EXPECT_EQ(chosen.BGroup, group);
    EXPECT_EQ(chosen.Color, color);
    EXPECT_EQ(chosen.Pos[kGroupSlot], pivot);
    EXPECT_EQ(chosen.WorkPos[kGroupSlot], pivot);
    EXPECT_EQ(level.Entities[0].eGroup, group);
    EXPECT_EQ(level.Entities[0].Color, color);
    EXPECT_FALSE(level.AnySelected());
  };
  expectMembers(0, 0x0000FF, {0, 0, 0});
  SelectAll(level);
  level.RemoveSelectedFromGroup();
  expectMembers(-1, kWhite, {128, 128, 128});
  level.Groups[0].Centre = {1, 2, 3};
  SelectAll(level);
  level.AddSelectedToGroup();
  expectMembers(0, 0x0000FF, {1, 2, 3});
  level.CurrentGroup = -1;
  SelectAll(level);
  level.AddSelectedToGroup();
  expectMembers(-1, kWhite, {0, 0, 0});
}

TEST(Document, LightsJoinTheCurrentGroupAndCopiesLieOnTheirModel) {
  CZANDODoc level;
  level.Groups.resize(1);
  level.CurrentGroup = 0;
  level.PlaceLight();
  level.Entities[0].SetValue("origin", "4 5 6");
  level.ParseAllOrigins();
  level.CopyCurrentEntity();
  EXPECT_EQ(level.CurrentEntity, 1);
  for (const CEntity& light : level.Entities) {
    EXPECT_EQ(light.Pairs, (std::vector<EntityPair>{
                               {"classname", "light"}, {"origin", "4 5 6"}, {"light", "300"}}));
    EXPECT_EQ(light.eOrigin, (Vector{4, 5, 6}));
    EXPECT_EQ(light.Color, 0x0000FFU);
  }
}

TEST(Document, BrushesAndTheCurrentEntityFollowWhenAnEntityIsDeleted) {
  CZANDODoc level;
  for (int i = 0; i < 5; ++i) level.PlaceLight();
  level.ShowEntities = 0;
  std::vector<CZandoBrush*> brushes;
  for (const std::int32_t owner : {1, 2, 4, 4}) {
    brushes.push_back(&AddCube(level, 64, {0, 0, 0}));
    brushes.back()->BEnt = owner;
    brushes.back()->BFlags |= BF_ENTITY;
  }
  brushes[3]->BFlags &= ~BF_ENTITY;
  level.ApplyShowFilter();
  level.DeleteEntity(2);
  EXPECT_EQ(level.Entities.size(), 4U);
  EXPECT_EQ(level.CurrentEntity, 3);
  EXPECT_EQ(brushes[0]->BEnt, 1);
  EXPECT_FALSE(brushes[0]->IsShown());
  EXPECT_FALSE(brushes[1]->BelongsToEntity());
  EXPECT_TRUE(brushes[1]->IsShown());
  EXPECT_EQ(brushes[2]->BEnt, 3);
  EXPECT_EQ(brushes[3]->BEnt, 4);
  level.DeleteEntity(3);
  EXPECT_EQ(level.CurrentEntity, -1);
}

TEST(Document, IdsAreNeverUsedAgainAndTheOrderSurvivesDeletes) {
  CZANDODoc level;
  for (std::int32_t i = 0; i < 4; ++i) EXPECT_EQ(level.AddBrush(level.WorkingBrush), i);
  EXPECT_EQ(level.FindBrushById(2)->Document, &level);
  struct Case {
    std::int32_t deleted;
    std::vector<std::int32_t> left;
  };
  for (const Case& c : {Case{0, {1, 2, 3}}, Case{2, {1, 3}}, Case{3, {1}}}) {
    level.SetCurrentBrush(*level.FindBrushById(c.deleted));
    level.DeleteCurrentBrush();
    EXPECT_EQ(Ids(level), c.left);
    EXPECT_EQ(level.World.brushList, level.BrushList.Head());
    EXPECT_EQ(level.FindBrushById(c.deleted), nullptr);
    EXPECT_EQ(level.CurrentBrush, &level.WorkingBrush);
    EXPECT_EQ(level.BrushPicked, 0);
  }
  EXPECT_EQ(level.AddBrush(level.WorkingBrush), 1);
  EXPECT_EQ(Ids(level), (std::vector<std::int32_t>{1, 4}));
}

TEST(Document, AClickPicksTheSmallestShownBrushAndTheEarlierOfEqualOnes) {
  CZANDODoc level;
  CZandoBrush& outer = AddCube(level, 256, {0, 0, 0});
  CZandoBrush& inner = AddCube(level, 64, {0, 0, 64});
  AddCube(level, 64, {0, 0, 80});
  CZandoBrush& hidden = AddCube(level, 16, {0, 0, 64});
  hidden.BFlags &= ~BF_SHOWN;
  struct Case {
    Vector point;
    const CZandoBrush* picked;
  };
  for (const Case& c : {Case{{0, 1, 64}, &inner}, Case{{1, -0.0, 64}, &inner},
                        Case{{0, 1, 31}, &outer}, Case{{1, 1, 0}, &inner},
                        Case{{100, 1, 0}, &outer}, Case{{0, 129, 64}, &level.WorkingBrush}}) {
    level.SetCurrentBrush(level.WorkingBrush);
    level.ShowBrush = 0;
    level.ToolMode = ID_TOOL_SELECT_BRUSH;
    level.PickBrush(c.point);
    const bool hit = c.picked != &level.WorkingBrush;
    EXPECT_EQ(level.CurrentBrush, c.picked) << c.point.x << ' ' << c.point.y << ' ' << c.point.z;
    EXPECT_EQ(level.BrushPicked, hit ? 1 : 0);
    EXPECT_EQ(level.ShowBrush, hit ? 1 : 0);
    EXPECT_EQ(level.ToolMode, hit ? ID_TOOL_MOVE_ROTATE_BRUSH : ID_TOOL_SELECT_BRUSH);
  }
}

TEST(Document, AddingAndSubtractingListCopiesOfTheWorkingBrushThatOwnTheirFaces) {
  CZANDODoc level;
  level.Groups.resize(1);
  level.CurrentGroup = 0;
  level.AddToWorld();
  level.CurrentGroup = -1;
  level.BoxDialog.TopXSize = level.BoxDialog.BottomXSize = 32;
  level.BoxDialog.TopZSize = level.BoxDialog.BottomZSize = level.BoxDialog.YSize = 32;
  level.BoxDialog.Generate(level.WorkingBrush);
  level.SubtractFromWorld();
  ASSERT_EQ(Ids(level), (std::vector<std::int32_t>{0, 1}));
  EXPECT_EQ(level.FindBrushById(0)->Color, 0x0000FFU);
  EXPECT_EQ(level.FindBrushById(1)->BGroup, -1);
  EXPECT_EQ(level.FindBrushById(1)->TranT, kSubtractFromWorld);
  EXPECT_EQ(level.WorkingBrush.BBid, -1);

  std::vector<int> faces(2, 0);
  for (const CBspNode* polygon : WorldPolygons(level)) {
    ASSERT_NE(polygon->pBrush, nullptr);
    EXPECT_EQ(polygon->pBrush, level.FindBrushById(polygon->nBid));
    EXPECT_EQ(polygon->nValid, 1);
    ++faces[static_cast<std::size_t>(polygon->nBid)];
  }
  EXPECT_EQ(faces, (std::vector<int>{6, 6}));
}

TEST(Document, ThePickedBrushChangesItsOperationOrGoesAndTheWorldWaitsForARebuild) {
  CZANDODoc level;
  level.AddToWorld();
  level.WorkingBrush.MoveTo({512, 0, 0});
  level.AddToWorld();
  CZandoBrush& second = *level.FindBrushById(1);
  level.SetCurrentBrush(second);
  level.SubtractFromWorld();
  EXPECT_EQ(level.BrushCount(), 2);
  EXPECT_EQ(second.TranT, kSubtractFromWorld);
  EXPECT_EQ(level.WorkingBrush.TranT, kAddToWorld);
  EXPECT_EQ(level.CurrentBrush, &level.WorkingBrush);
  EXPECT_EQ(level.BrushPicked, 0);

  level.SetCurrentBrush(*level.FindBrushById(0));
  level.DeleteCurrentBrush();
  EXPECT_EQ(WorldPolygons(level).size(), 12U);
  for (const CBspNode* polygon : WorldPolygons(level)) {
    EXPECT_EQ(polygon->pBrush, polygon->nBid == 1 ? &second : nullptr);
  }
}

}  // namespace
}  // namespace zando
