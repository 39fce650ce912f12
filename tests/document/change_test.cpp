#include "document/change.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

#include "document/brush_edits.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"
#include "document/selection_edits.h"
#include "document/tool_drag.h"
#include "document/view_edits.h"
#include "document/world_edits.h"
#include "support/edit_level.h"

namespace zando::testing {
namespace {

using Operation = std::function<void(CZANDODoc&)>;

/// Notes whom a document tells of changes.
class CListener : public CView, public CFrameDisplay {
 public:
  explicit CListener(CZANDODoc& document) : document_(document) {
    document.AddView(*this);
    document.SetFrame(this);
  }
  CListener(const CListener&) = delete;
  CListener& operator=(const CListener&) = delete;
  ~CListener() override {
    document_.RemoveView(*this);
    document_.SetFrame(nullptr);
  }

  void OnUpdate(const CView* /*sender*/, int /*hint*/) override { told += " redraw"; }
  void RefreshGroups() override { told += " groups"; }
  void RefreshGrid() override { told += " grid"; }

  /// What was told since it was last asked for, " modified" being the mark.
  std::string Take() {
    if (document_.IsModified()) told += " modified";
    document_.SetModifiedFlag(false);
    return std::exchange(told, {});
  }

 private:
  CZANDODoc& document_;
  std::string told;
};

/// Two selected brushes, two lights and a group that holds them all; the first of each is current.
void Fill(CZANDODoc& document) {
  CreateEmptyGroup(document);
  for (int i = 0; i < 2; ++i) AddToWorld(document);
  for (int i = 0; i < 2; ++i) PlaceLight(document);
  SelectAll(document);
  SetCurrentBrush(document, 0);
  SetCurrentEntity(document, 0);
  document.SetModifiedFlag(false);
}

Operation Drag(DragOperation operation, void (*end)(CToolDrag&), std::int32_t groupMode = 0) {
  return [=](CZANDODoc& document) {
    EditState(document).GroupMovementMode = groupMode;
    CToolDrag drag(document, operation);
    for (int i = 0; i < 3; ++i) drag.Step({40.0, 0.0, 0.0}, kAxisX | kAxisY);
    end(drag);
  };
}
void Stay(CToolDrag& /*drag*/) {}
void End(CToolDrag& drag) { drag.End(kAxisX, Commit::AllAxes); }
void Cancel(CToolDrag& drag) { drag.Cancel(); }

struct Case {
  const char* name;
  Operation operation;
  const char* told;
  const char* toldIfEmpty;  ///< of a level without brushes, entities and groups
};

constexpr const char* kNobody = "";
constexpr const char* kShown = " redraw";
constexpr const char* kChanged = " redraw modified";
constexpr const char* kGrouped = " groups redraw modified";
constexpr const char* kRegrouped = " groups redraw";
constexpr const char* kGridded = " grid redraw";

const Case kCases[] = {
    {"AddBrush", [](CZANDODoc& d) { AddBrush(d, d.CurrentBrush()); }, kChanged, kChanged},
    {"AddToWorld", AddToWorld, kChanged, kChanged},
    {"SubtractFromWorld", SubtractFromWorld, kChanged, kChanged},
    {"DeleteCurrentBrush", DeleteCurrentBrush, kChanged, kNobody},
    {"PickBrush",
     [](CZANDODoc& d) {
       PickBrush(d, {0, 0, 0}, kTopAxes);
     },
     kShown, kNobody},
    {"StepCurrentBrush", [](CZANDODoc& d) { StepCurrentBrush(d, ListStep::Next); }, kShown,
     kNobody},
    {"CopyToCurrent", CopyToCurrent, kShown, kNobody},
    {"GenerateBox", [](CZANDODoc& d) { GenerateBox(d, {}); }, kChanged, kChanged},
    {"SetBrushName", [](CZANDODoc& d) { SetBrushName(d, "x"); }, kChanged, kChanged},
    {"SetBrushName, the same", [](CZANDODoc& d) { SetBrushName(d, "tech05_1"); }, kNobody, kNobody},
    {"PlaceBrush",
     [](CZANDODoc& d) {
       PlaceBrush(d, {1, 2, 3});
     },
     kChanged, kChanged},
    {"SetBrushScale",
     [](CZANDODoc& d) {
       SetBrushScale(d, {1, 2, 3});
     },
     kChanged, kChanged},
    {"ResetBrush", ResetBrush, kChanged, kChanged},
    {"PlaceLight", PlaceLight, kChanged, kChanged},
    {"CopyCurrentEntity", CopyCurrentEntity, kChanged, kNobody},
    {"DeleteEntity", [](CZANDODoc& d) { DeleteEntity(d, 1); }, kChanged, kNobody},
    {"DeleteCurrentEntity", DeleteCurrentEntity, kChanged, kNobody},
    {"PickEntity",
     [](CZANDODoc& d) {
       PickEntity(d, {0, 0, 0}, kTopAxes);
     },
     kShown, kNobody},
    {"SetEntityKey", [](CZANDODoc& d) { SetEntityKey(d, 0, "light", "1"); }, kChanged, kNobody},
    {"AssociateSelectedBrushes", [](CZANDODoc& d) { AssociateSelectedBrushes(d, 0); }, kGrouped,
     kNobody},
    {"AssociateBrush", [](CZANDODoc& d) { AssociateBrush(d, 1, 1); }, kGrouped, kNobody},
    {"DisassociateBrushes", [](CZANDODoc& d) { DisassociateBrushes(d, 0); }, kGrouped, kNobody},
    {"CreateNewGroup", CreateNewGroup, kGrouped, kNobody},
    {"AddSelectedToGroup", AddSelectedToGroup, kGrouped, kNobody},
    {"RemoveSelectedFromGroup", RemoveSelectedFromGroup, kGrouped, kNobody},
    {"CreateEmptyGroup", CreateEmptyGroup, kGrouped, kGrouped},
    {"SetCurrentGroup", [](CZANDODoc& d) { SetCurrentGroup(d, -1); }, kRegrouped, kRegrouped},
    {"SetGroupLook",
     [](CZANDODoc& d) {
       SetGroupLook(d, 0, {"x", 1, true});
     },
     kGrouped, kNobody},
    {"SetGroupLook, the same", [](CZANDODoc& d) { SetGroupLook(d, 0, LookOf(CBGroup())); }, kNobody,
     kNobody},
    {"MoveGroup",
     [](CZANDODoc& d) {
       MoveGroup(d, 0, {1, 2, 3});
     },
     kChanged, kNobody},
    {"TransformGroup", [](CZANDODoc& d) { TransformGroup(d, 0, Transform::Identity()); }, kChanged,
     kNobody},
    {"BoxSelect",
     [](CZANDODoc& d) {
       BoxSelect(d, {{0, 0, 0}, {1, 1, 1}, kTopAxes}, Selection::Select);
     },
     kShown, kShown},
    {"SelectAll", SelectAll, kShown, kShown},
    {"SelectNone", SelectNone, kShown, kShown},
    {"SelectEntity", [](CZANDODoc& d) { SelectEntity(d, 0, Selection::Deselect); }, kShown,
     kNobody},
    {"SetShowFilter", [](CZANDODoc& d) { SetShowFilter(d, ID_SHOW_CURRENT_GROUP); }, kShown,
     kShown},
    {"ToggleShowEntities", ToggleShowEntities, kShown, kShown},
    {"ToggleShowBrush", ToggleShowBrush, kShown, kShown},
    {"ToggleUseGrid", ToggleUseGrid, kGridded, kGridded},
    {"StepGrid", [](CZANDODoc& d) { StepGrid(d, GridStep::Up); }, kGridded, kGridded},
    {"ToggleCamera", ToggleCamera, kNobody, kNobody},
    {"ToggleGroupMovement", ToggleGroupMovement, kNobody, kNobody},
    {"RebuildWorld",
     [](CZANDODoc& d) { RebuildWorld(d, RebuildKind::Optimal, WaterBrushes::Build, nullptr); },
     kChanged, kChanged},
    {"steps of a drag", Drag(DragOperation::MoveBrush, Stay, 1), kNobody, kNobody},
    {"cancelled drag", Drag(DragOperation::RotateBrush, Cancel, 1), kShown, kNobody},
    {"drag of a brush", Drag(DragOperation::RotateBrush, End), kChanged, kChanged},
    {"move of a group", Drag(DragOperation::MoveBrush, End, 1), kChanged, kNobody},
    {"turn of a group", Drag(DragOperation::RotateBrush, End, 1), kChanged, kNobody},
    {"shear of a group", Drag(DragOperation::ShearBrush, End, 1), kChanged, kNobody},
    {"drag of an entity", Drag(DragOperation::MoveEntity, End), kChanged, kNobody},
};

TEST(Change, EachOperationTellsOnceAndMarksTheLevelOnlyWhenThatChanged) {
  for (const Case& c : kCases) {
    for (const bool empty : {false, true}) {
      CZANDODoc document;
      if (!empty) Fill(document);
      const Level before = document.GetLevel();
      CListener listener(document);
      c.operation(document);
      const std::string told = listener.Take();
      EXPECT_EQ(told, empty ? c.toldIfEmpty : c.told) << c.name << (empty ? ", empty" : "");
      if (empty && told.find("modified") == std::string::npos) {
        EXPECT_TRUE(document.GetLevel() == before) << c.name;
      }
    }
  }
}

TEST(Change, ACompoundChangeTellsOnceAndAlsoWhenItEndsInAnException) {
  CZANDODoc document;
  CListener listener(document);
  const auto addMany = [&document](bool fail) {
    const CCompoundChange whole(document);
    for (int i = 0; i < 4000; ++i) AddBrush(document, document.GetLevel().WorkingBrush);
    CreateEmptyGroup(document);
    ToggleUseGrid(document);
    if (fail) throw std::runtime_error("in the middle");
  };
  addMany(false);
  EXPECT_EQ(listener.Take(), " groups grid redraw modified");
  EXPECT_THROW(addMany(true), std::runtime_error);
  EXPECT_EQ(listener.Take(), " groups grid redraw modified");
  ToggleShowBrush(document);
  EXPECT_EQ(listener.Take(), " redraw") << "nothing is left over";
}

TEST(Change, WhatIsAddedTakesColourAndVisibilityAndNothingElseIsTouched) {
  CZANDODoc document;
  Fill(document);
  Edit(document).Groups[0].gCol = 0x00FF00;
  EditState(document).ShowFilter = ID_SHOW_CURRENT_GROUP;
  Edit(document).BrushList[0].Color = 0x123456;
  const Level before = document.GetLevel();
  CZandoBrush outsider = document.GetLevel().BrushList[1];
  AddBrush(document, outsider);
  outsider.BGroup = -1;
  AddBrush(document, outsider);
  PlaceLight(document);
  const Level& level = document.GetLevel();
  EXPECT_EQ(level.BrushList[2].Color, 0x00FF00U);
  EXPECT_EQ(level.Entities[2].Color, 0x00FF00U);
  EXPECT_FALSE(level.BrushList[3].IsShown());
  EXPECT_EQ(level.BrushList[3].Color, kWhite);
  EXPECT_EQ(level.BrushList[0].Color, 0x123456U);
  for (std::int32_t i = 0; i < 2; ++i) EXPECT_TRUE(level.BrushList[i] == before.BrushList[i]) << i;
}

}  // namespace
}  // namespace zando::testing
