#include "document/tool_drag.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <utility>

#include "document/brush_edits.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"
#include "geometry/geometry_testing.h"
#include "support/edit_level.h"

namespace zando::testing {
namespace {

using enum DragOperation;
constexpr std::uint32_t kAllAxes = kAxisX | kAxisY | kAxisZ;
constexpr DragOperation kOfBrushes[] = {RotateBrush, ScaleBrush, ShearBrush, MoveBrush};

/// Two brushes in the current group and a current light, all beside the grid, which is in use. The
/// first brush is picked, and turned.
class ToolDrag : public ::testing::Test {
 protected:
  ToolDrag() {
    CreateEmptyGroup(document_);
    for (const Vector& place : {Vector{1, 2, 3}, Vector{201, 42, 3}}) {
      PlaceBrush(document_, place);
      AddToWorld(document_);
    }
    SetCurrentBrush(document_, 0);
    SetBrushRotation(document_, {10, 20, 30});
    PlaceLight(document_);
    SetEntityKey(document_, 0, "origin", "5 6 7");
    EditState(document_).UseGrid = 1;
    document_.SetModifiedFlag(false);
  }

  /// In two steps.
  void Drag(DragOperation operation, const Vector& amount, std::uint32_t mask = kAllAxes,
            Commit commit = Commit::AllAxes) {
    CToolDrag drag(document_, operation);
    for (int i = 0; i < 2; ++i) drag.Step(amount * 0.5, mask);
    drag.End(mask, commit);
  }

  CZANDODoc document_;
  Level& level_ = Edit(document_);
};

TEST_F(ToolDrag, SnapsTheAxesThatItChangedOfWhatItDragsAndLeavesTheRest) {
  const double snap = document_.State().RotationSnap;
  using Edit = std::function<void(Level&)>;
  const auto placed = [](const Vector& place) -> Edit {
    return [place](Level& level) { level.BrushList[0].MoveTo(place); };
  };
  const auto own = [](auto change) -> Edit {
    return [change](Level& level) { Place(level.BrushList[0], change); };
  };
  const auto turned = [own](const Vector& turn) {
    return own([turn](Placement& slot) { slot.Rot = slot.WorkRot = turn; });
  };
  const struct {
    DragOperation operation;
    Vector amount;
    std::uint32_t mask;
    Commit commit;
    Edit edit;  ///< what it comes to
  } cases[] = {
      {MoveBrush, {-70, 0, 0}, kAllAxes, Commit::AllAxes, placed({64, 2, 3})},
      {MoveBrush, {-70, -70, 70}, kAxisX | kAxisZ, Commit::AllAxes, placed({64, 2, -64})},
      {MoveBrush, {-70, -100, 0}, kAllAxes, Commit::DominantAxis, placed({1, 128, 3})},
      {RotateBrush, {400, 0, 0}, kAllAxes, Commit::AllAxes, turned({snap, 20, 30})},
      {RotateBrush, {400, 400, 0}, kAxisX, Commit::AllAxes, turned({10, snap, 30})},
      {RotateBrush, {400, 0, 800}, kAllAxes, Commit::DominantAxis, turned({10, 20, 2 * snap})},
      {ScaleBrush, {-100, 0, 1000}, kAllAxes, Commit::AllAxes, own([](Placement& slot) {
         slot.Scl = {1.5, 1, 0.1};
       })},
      {ShearBrush, {100, 0, 10}, kAxisX, Commit::AllAxes, own([](Placement& slot) {
         slot.Shr = {0.5, 0, 0};
       })},
      {MoveEntity,
       {-70, 0, 0},
       kAllAxes,
       Commit::AllAxes,
       [](Level& level) {
         level.Entities[0].SetValue("origin", "64 6 7");
         level.Entities[0].ParseOrigin();
       }},
  };
  const Level before = level_;
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    level_ = before;
    Drag(cases[i].operation, cases[i].amount, cases[i].mask, cases[i].commit);
    Level expected = before;
    cases[i].edit(expected);
    EXPECT_TRUE(level_ == expected) << i;
  }
}

TEST_F(ToolDrag, GivenUpLeavesTheLevelAsItWas) {
  const Level before = level_;
  for (const std::int32_t groupMode : {0, 1}) {
    EditState(document_).GroupMovementMode = groupMode;
    for (const auto operation : {MoveBrush, RotateBrush, ScaleBrush, ShearBrush, MoveEntity}) {
      CToolDrag drag(document_, operation);
      drag.Step({-50, 60, 70}, kAllAxes);
      EXPECT_FALSE(level_ == before);
      drag.Cancel();
      EXPECT_TRUE(level_ == before) << static_cast<int>(operation);
      EXPECT_FALSE(document_.IsModified());
    }
  }
}

TEST_F(ToolDrag, AGroupMovesByTheCommonDisplacementOnTheGrid) {
  EditState(document_).GroupMovementMode = 1;
  for (const auto& [commit, place] : {std::pair{Commit::AllAxes, Vector{65, 66, 3}},
                                      std::pair{Commit::DominantAxis, Vector{65, 130, 3}}}) {
    // Each alone would end at (64, 64, 0) or (256, 128, 0).
    Drag(MoveBrush, {-40, -62, 20}, kAllAxes, commit);
    EXPECT_EQ(level_.BrushList[0].Own().Pos, place);
    EXPECT_EQ(level_.BrushList[1].Own().Pos, (place + Vector{200, 40, 0}));
    EXPECT_EQ(level_.BrushList[0].Slot(kGroupSlot).Pos, level_.Groups[0].Centre);
  }
}

TEST_F(ToolDrag, AGroupIsTransformedAboutItsCentreAtTheFirstStepAndPositionsFollow) {
  EditState(document_).GroupMovementMode = 1;
  Transform half = Transform::Identity();
  half.RotateY(kRotationUnitsPerTurn / 2);
  MoveGroup(document_, 0, {1000, 0, 0});
  TransformGroup(document_, 0, half);
  EXPECT_PRED2(Near, level_.BrushList[0].WorldOrigin(), (Vector{1201, 2, 3}));
  MoveGroup(document_, 0, {0, 0, 1000});
  Drag(RotateBrush, {4000, 0, 0}, kAxisY);
  EXPECT_PRED2(Near, level_.BrushList[0].WorldOrigin(), (Vector{1001, 2, 1003}));
  EXPECT_PRED2(Near, level_.BrushList[1].WorldOrigin(), (Vector{1201, 42, 1003}));

  for (const DragOperation operation : kOfBrushes) {
    Drag(operation, {-70, 30, 10});
    for (const CZandoBrush& brush : level_.BrushList) {
      const auto& m = brush.BMatrix().m;
      EXPECT_PRED2(Near, brush.Own().Pos, (Vector{m[0][3], m[1][3], m[2][3]}));
      EXPECT_EQ(brush.Own().WorkPos, brush.Own().Pos);
    }
  }
}

}  // namespace
}  // namespace zando::testing
