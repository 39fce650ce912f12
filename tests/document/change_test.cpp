#include "document/change.h"

#include <gtest/gtest.h>

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

/// A document with a listener.
struct Told : CZANDODoc, CListener {
  Told() {
    AddView(*this);
    SetFrame(this);
  }

  /// What was told since it was last asked for, and an m when the level counts as modified.
  std::string Take() {
    if (IsModified()) told += 'm';
    SetModifiedFlag(false);
    return std::exchange(told, {});
  }
};

/// Two selected brushes and two lights in a group; the first of each is current.
void Fill(CZANDODoc& d) {
  CreateEmptyGroup(d);
  for (int i = 0; i < 2; ++i) AddToWorld(d), PlaceLight(d);
  SelectAll(d);
  SetCurrentBrush(d, 0);
  SetCurrentEntity(d, 0);
}

template <DragOperation operation, std::int32_t groupMode>
void Drag(CZANDODoc& d) {
  EditState(d).GroupMovementMode = groupMode;
  CToolDrag drag(d, operation);
  for (int i = 0; i < 3; ++i) drag.Step({40, 0, 0}, kAxisX | kAxisY);
  drag.End(kAxisX, Commit::AllAxes);
}

constexpr Vector kVector{1, 2, 3};
constexpr ViewRect kNoArea{{}, {}, kTopAxes};
const GroupLook kLook{"x", 1, true};

const struct {
  std::string told;
  std::string toldIfEmpty;  ///< by a level without brushes, entities and groups
  void (*operation)(CZANDODoc&);
} kOperations[] = {
    {"rm", "rm", [](CZANDODoc& d) { AddBrush(d, d.CurrentBrush()); }},
    {"rm", "rm", AddToWorld},
    {"rm", "", DeleteCurrentBrush},
    {"r", "", [](CZANDODoc& d) { PickBrush(d, kVector, kTopAxes); }},
    {"r", "", [](CZANDODoc& d) { StepCurrentBrush(d, ListStep::Next); }},
    {"r", "", CopyToCurrent},
    {"rm", "rm", [](CZANDODoc& d) { GeneratePrimitive(d, BoxParameters{.YSize = 9}); }},
    {"", "", [](CZANDODoc& d) { SetBrushName(d, "tech05_1"); }},
    {"rm", "rm", [](CZANDODoc& d) { PlaceBrush(d, kVector); }},
    {"rm", "rm", [](CZANDODoc& d) { SetBrushScale(d, kVector); }},
    {"", "",
     [](CZANDODoc& d) {
       SetBrushRotation(d, {0, 0, 0});
     }},
    {"rm", "rm", PlaceLight},
    {"rm", "", CopyCurrentEntity},
    {"rm", "", DeleteCurrentEntity},
    {"r", "", [](CZANDODoc& d) { PickEntity(d, kVector, kTopAxes); }},
    {"rm", "", [](CZANDODoc& d) { SetEntityKey(d, 0, "light", "1"); }},
    {"", "", [](CZANDODoc& d) { SetEntityKey(d, 0, "light", "300"); }},
    {"grm", "", [](CZANDODoc& d) { AssociateSelectedBrushes(d, 0); }},
    {"grm", "", [](CZANDODoc& d) { DisassociateBrushes(d, 0); }},
    {"grm", "", CreateNewGroup},
    {"grm", "", RemoveSelectedFromGroup},
    {"gr", "gr", [](CZANDODoc& d) { SetCurrentGroup(d, -1); }},
    {"grm", "", [](CZANDODoc& d) { SetGroupLook(d, 0, kLook); }},
    {"", "", [](CZANDODoc& d) { SetGroupLook(d, 0, LookOf(CBGroup())); }},
    {"rm", "", [](CZANDODoc& d) { MoveGroup(d, 0, kVector); }},
    {"rm", "", [](CZANDODoc& d) { TransformGroup(d, 0, Transform::Identity()); }},
    {"r", "r", SelectAll},
    {"r", "r", [](CZANDODoc& d) { BoxSelect(d, kNoArea, Selection::Deselect); }},
    {"r", "r", [](CZANDODoc& d) { SetShowFilter(d, ID_SHOW_CURRENT_GROUP); }},
    {"r", "r", ToggleShowEntities},
    {"sr", "sr", [](CZANDODoc& d) { StepGrid(d, GridStep::Up); }},
    {"", "", ToggleCamera},
    {"rm", "rm", [](CZANDODoc& d) { RebuildWorld(d, RebuildKind::Quick, {}, nullptr); }},
    {"rm", "rm", Drag<DragOperation::RotateBrush, 0>},
    {"rm", "", Drag<DragOperation::MoveBrush, 1>},
    {"rm", "", Drag<DragOperation::RotateBrush, 1>},
    {"rm", "", Drag<DragOperation::ShearBrush, 1>},
    {"rm", "", Drag<DragOperation::MoveEntity, 0>},
};

TEST(Change, EachOperationTellsOnceAndMarksTheLevelOnlyWhenThatChanged) {
  int row = 0;
  for (const auto& [told, toldIfEmpty, operation] : kOperations) {
    SCOPED_TRACE(row++);
    Told full;
    Fill(full);
    static_cast<void>(full.Take());
    operation(full);
    EXPECT_EQ(full.Take(), told);
    Told empty;
    const Level before = empty.GetLevel();
    operation(empty);
    EXPECT_TRUE(empty.IsModified() || empty.GetLevel() == before);
    EXPECT_EQ(empty.Take(), toldIfEmpty);
  }
}

TEST(Change, ACompoundChangeTellsOnceAndAlsoWhenItEndsInAnException) {
  Told document;
  const auto addMany = [&document](bool fail) {
    const CCompoundChange whole(document);
    for (int i = 0; i < 4000; ++i) AddBrush(document, document.CurrentBrush());
    CreateEmptyGroup(document);
    ToggleUseGrid(document);
    if (fail) throw std::runtime_error("in the middle");
  };
  addMany(false);
  EXPECT_EQ(document.Take(), "gsrm");
  EXPECT_THROW(addMany(true), std::runtime_error);
  EXPECT_EQ(document.Take(), "gsrm");
  ToggleShowBrush(document);
  EXPECT_EQ(document.Take(), "r") << "nothing is left over";
}

}  // namespace
}  // namespace zando::testing
