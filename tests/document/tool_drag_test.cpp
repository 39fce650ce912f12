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

constexpr std::uint32_t kAllAxes = kAxisX | kAxisY | kAxisZ;
constexpr DragOperation kOfBrushes[] = {DragOperation::MoveBrush, DragOperation::RotateBrush,
                                        DragOperation::ScaleBrush, DragOperation::ShearBrush};

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

  [[nodiscard]] const CZandoBrush& Brush(std::int32_t index) const {
    return document_.GetLevel().BrushList[index];
  }

  CZANDODoc document_;
};

TEST_F(ToolDrag, SnapsTheAxesThatItChangedOfWhatItDragsAndLeavesTheRest) {
  using enum DragOperation;
  const double kSnap = document_.State().RotationSnap;
  const auto placed = [](const Vector& place) {
    return [place](Level& level) { level.BrushList[0].MoveTo(place); };
  };
  const auto own = [](auto change) {
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
    std::function<void(Level&)> edit;  ///< what it comes to
  } cases[] = {
      {MoveBrush, {-70, 0, 0}, kAllAxes, Commit::AllAxes, placed({64, 2, 3})},
      {MoveBrush, {-70, -70, 70}, kAxisX | kAxisZ, Commit::AllAxes, placed({64, 2, -64})},
      {MoveBrush, {-70, -100, 0}, kAllAxes, Commit::DominantAxis, placed({1, 128, 3})},
      {MoveBrush, {0, 0, 0}, kAllAxes, Commit::AllAxes, placed({1, 2, 3})},
      {RotateBrush, {400, 0, 0}, kAllAxes, Commit::AllAxes, turned({kSnap, 20, 30})},
      {RotateBrush, {400, 400, 0}, kAxisX, Commit::AllAxes, turned({10, kSnap, 30})},
      {RotateBrush, {400, 0, 800}, kAllAxes, Commit::DominantAxis, turned({10, 20, 2 * kSnap})},
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
  const Level before = document_.GetLevel();
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    Edit(document_) = before;
    CToolDrag drag(document_, cases[i].operation);
    drag.Step(cases[i].amount * 0.5, cases[i].mask);
    drag.Step(cases[i].amount * 0.5, cases[i].mask);
    drag.End(cases[i].mask, cases[i].commit);
    Level expected = before;
    cases[i].edit(expected);
    EXPECT_TRUE(document_.GetLevel() == expected) << i;
  }
}

TEST_F(ToolDrag, GivenUpLeavesTheLevelAsItWas) {
  const Level before = document_.GetLevel();
  const auto expectUndone = [&](DragOperation operation) {
    CToolDrag drag(document_, operation);
    drag.Step({-50, 60, 70}, kAllAxes);
    EXPECT_FALSE(document_.GetLevel() == before);
    drag.Cancel();
    EXPECT_TRUE(document_.GetLevel() == before) << static_cast<int>(operation);
    EXPECT_FALSE(document_.IsModified());
  };
  expectUndone(DragOperation::MoveEntity);
  for (const std::int32_t groupMode : {0, 1}) {
    EditState(document_).GroupMovementMode = groupMode;
    for (const DragOperation operation : kOfBrushes) expectUndone(operation);
  }
}

TEST_F(ToolDrag, AGroupMovesByTheCommonDisplacementOnTheGrid) {
  EditState(document_).GroupMovementMode = 1;
  const Vector apart = Brush(1).Own().Pos - Brush(0).Own().Pos;
  for (const auto& [commit, place] : {std::pair{Commit::AllAxes, Vector{65, 66, 3}},
                                      std::pair{Commit::DominantAxis, Vector{65, 130, 3}}}) {
    CToolDrag drag(document_, DragOperation::MoveBrush);
    // Each alone would end at (64, 64, 0) or (256, 128, 0).
    drag.Step({-40, -62, 0}, kAllAxes);
    drag.Step({0, 0, 20}, kAllAxes);
    drag.End(kAllAxes, commit);
    EXPECT_EQ(Brush(0).Own().Pos, place);
    EXPECT_EQ(Brush(1).Own().Pos - Brush(0).Own().Pos, apart);
    EXPECT_EQ(Brush(0).Slot(kGroupSlot).Pos, document_.GetLevel().Groups[0].Centre);
  }
}

TEST_F(ToolDrag, AGroupIsTransformedAboutItsCentreAtTheFirstStepAndPositionsFollow) {
  EditState(document_).GroupMovementMode = 1;
  MoveGroup(document_, 0, {1000, 0, 0});
  const Vector first = Brush(0).WorldOrigin();
  const Vector second = Brush(1).WorldOrigin();
  CToolDrag half(document_, DragOperation::RotateBrush);
  half.Step({2000, 0, 0}, kAxisY);
  half.Step({2000, 0, 0}, kAxisY);
  half.End(kAxisY, Commit::AllAxes);
  EXPECT_PRED2(Near, Brush(0).WorldOrigin(), (Vector{second.x, first.y, first.z}));
  EXPECT_PRED2(Near, Brush(1).WorldOrigin(), (Vector{first.x, second.y, first.z}));

  const auto expectPositions = [this] {
    for (const CZandoBrush& brush : document_.GetLevel().BrushList) {
      const auto& m = brush.BMatrix().m;
      EXPECT_PRED2(Near, brush.Own().Pos, (Vector{m[0][3], m[1][3], m[2][3]}));
      EXPECT_EQ(brush.Own().WorkPos, brush.Own().Pos);
    }
  };
  expectPositions();
  for (const DragOperation operation : kOfBrushes) {
    CToolDrag drag(document_, operation);
    drag.Step({-70, 30, 10}, kAllAxes);
    drag.End(kAllAxes, Commit::AllAxes);
    expectPositions();
  }
  TransformGroup(document_, 0, Brush(0).BMatrix());
  expectPositions();
}

}  // namespace
}  // namespace zando::testing
