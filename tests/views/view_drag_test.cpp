// What a drag does under every tool, and how it ends.
#include <functional>
#include <utility>

#include "views/view_fixture.h"

namespace zando::testing {
namespace {

using ViewDrag = ViewTest;
using Key = CZANDOView::Key;

void ExpectNear(const Vector& actual, const Vector& expected, const std::string& what) {
  EXPECT_NEAR(Length(actual - expected), 0, 1e-9)
      << what << ": " << actual.x << ' ' << actual.y << ' ' << actual.z;
}

/// What a mouse that moves 3 pixels right and 2 down changes, by the buttons held: the position,
/// the origin, the scale or the shear; with the right button of the move tool the angles.
struct ToolRow {
  CommandId tool;
  ViewKind kind;  ///< Solid stands for every perspective kind
  Vector left, right, both;
};
constexpr ToolRow kToolRows[] = {
    {kMove, kSolid, {3, 0, -2}, {-18, -12, 0}, {3, -2, 0}},
    {kMove, kTop, {3, 0, -2}, {-18, 0, 0}, {3, 0, -2}},
    {kMove, kSide, {0, -2, 3}, {0, -18, 0}, {0, -2, 3}},
    {kMove, kFront, {3, -2, 0}, {0, 0, -18}, {3, -2, 0}},
    {kEntity, kSolid, {3, 0, -2}, kZero, {3, -2, 0}},
    {kEntity, kTop, {3, 0, -2}, kZero, {3, 0, -2}},
    {kEntity, kSide, {0, -2, 3}, kZero, {0, -2, 3}},
    {kEntity, kFront, {3, -2, 0}, kZero, {3, -2, 0}},
    {kScale, kSolid, {0.015, 0, -0.01}, {0.015, -0.01, 0}, {0.015, 0.015, 0.015}},
    {kScale, kTop, {0.015, 0, -0.01}, kZero, {0.015, 0, 0.015}},
    {kScale, kSide, {0, -0.01, 0.015}, kZero, {0, 0.015, 0.015}},
    {kScale, kFront, {0.015, -0.01, 0}, kZero, {0.015, 0.015, 0}},
    {kShear, kSolid, {-0.015, 0, 0.01}, {-0.015, 0.01, 0}, kZero},
    {kShear, kTop, {0.01, 0, -0.015}, kZero, kZero},
    {kShear, kSide, {0, 0, -0.015}, kZero, kZero},
    {kShear, kFront, {-0.015, 0, 0}, kZero, kZero},
};

TEST_F(ViewDrag, EveryStepChangesWhatItsViewAndButtonsSayUnderEveryAxisMask) {
  AddEntity("10 20 30");
  state.CurrentEntity = 0;
  const Level fresh = level;
  const auto check = [&](const ToolRow& row, ViewKind kind, const std::string& buttons,
                         const Vector& by) {
    const bool turns = row.tool == kMove && buttons == "R";
    for (std::uint32_t axes = 0; axes <= kAllAxes; ++axes) {
      SCOPED_TRACE(::testing::Message() << "tool " << row.tool << " kind " << static_cast<int>(kind)
                                        << " buttons " << buttons << " axes " << axes);
      level = fresh;
      Use(row.tool, kind, axes);
      const int redraws = window.Redraws;
      Play(buttons + " 3,2");
      EXPECT_EQ(window.Redraws, redraws + 1);
      EXPECT_EQ(desktop.Cursor, (ScreenPoint{500, 400}));
      // What is scaled and sheared is not snapped when it ends.
      if (row.tool == kScale || row.tool == kShear) {
        Play(buttons == "L" ? "l" : buttons == "R" ? "r" : "l r");
      }
      const auto expect = [&](const Vector& change, bool does, std::uint32_t x = kAxisX,
                              std::uint32_t y = kAxisY) {
        const std::uint32_t allowed = does ? axes : 0;
        ExpectNear(change,
                   {allowed & x ? by.x : 0, allowed & y ? by.y : 0, allowed & kAxisZ ? by.z : 0},
                   buttons);
      };
      const Placement& own = working.Own();
      expect(own.WorkPos, row.tool == kMove && !turns);
      expect(working.WorldOrigin(), row.tool == kMove && !turns);
      expect(own.WorkRot, turns, kAxisY, kAxisX);  // yaw is about y
      expect(own.Scl - fresh.WorkingBrush.Own().Scl, row.tool == kScale);
      expect(own.Shr, row.tool == kShear);
      expect(level.Entities[0].WorkOrigin - fresh.Entities[0].eOrigin, row.tool == kEntity);
      view.EndDrag();
      held = {};
    }
  };
  for (const ToolRow& row : kToolRows) {
    for (const ViewKind kind : {ViewKind::Wireframe, kSolid, ViewKind::Texture, row.kind}) {
      if (IsOrthographic(kind) != IsOrthographic(row.kind)) continue;
      check(row, kind, "L", row.left);
      check(row, kind, "R", row.right);
      check(row, kind, "L R", row.both);
    }
  }
}

TEST_F(ViewDrag, TheCameraFliesTurnsPansAndZooms) {
  CCamera& camera = view.Camera();
  for (const ViewKind kind : {ViewKind::Wireframe, kSolid, ViewKind::Texture}) {
    Use(kCamera, kind);
    camera.Position = kZero;
    camera.Pitch = 0;
    // The turn comes first: the step goes along the new heading, a quarter turn.
    camera.Yaw = 2066;
    Play("L 3,-2 l");
    ExpectNear(camera.Position, {-8, 0, 0}, "forward");
    Play("R 3,-2 r");
    EXPECT_EQ(camera.Yaw, 2030);
    EXPECT_EQ(camera.Pitch, 12);
    camera.Yaw = 0;
    Play("L R 3,-2 l r");
    ExpectNear(camera.Position, {4, 8, 0}, "sideways and up");
  }
  Play("R 0,-9999 r");
  EXPECT_EQ(camera.Pitch, 2048);
  Play("R 0,9999 r");
  EXPECT_EQ(camera.Pitch, -2048);
  for (const auto& [kind, panned] :
       {std::pair{kTop, Vector{12, 0, 8}}, {kSide, {0, 8, 12}}, {kFront, {12, 8, 0}}}) {
    Use(kCamera, kind);
    camera.Position = kZero;
    view.SetZoom(0.1);
    Play("L 3,-2 l L R 3,-2 l r R 3,-2 r");
    ExpectNear(camera.Position, panned, "panned twice");
    EXPECT_NEAR(view.Zoom(), 0.102, 1e-12);
  }
  Play("R 0,5000 r");
  EXPECT_EQ(view.Zoom(), 0.001);
}

TEST_F(ViewDrag, AFinishedDragSnapsAndCommits) {
  struct Case {
    CommandId tool;
    std::string script;
    Vector at, turned{0, 0, 0};
    double x = 0;  ///< each coordinate of the brush before
    std::uint32_t axes = kAllAxes;
    ViewKind kind = kTop;
  };
  const Case cases[] = {
      // Halves are snapped up, to whole units without a grid; what is not moved is left.
      {kMove, "grid=16 L 23,0 l", {16, 0.6, 0.6}, kZero, 0.6},
      {kMove, "grid=16 L -24,24 l", {-16, 0, -16}},
      {kMove, "grid=16 L 23,23 l", {0.6, 0.6, -16}, kZero, 0.6, kAxisZ},
      {kMove, "L 5,0 l", {6, 0.5, 0.5}, kZero, 0.5},
      {kMove, "grid=0 L 5,0 l", {5, 0.4, 0.4}, kZero, 0.4},
      {kMove, "grid=inf L 5,0 l", {5, 0.4, 0.4}, kZero, 0.4},
      // Shift keeps the largest change, and of equal ones that along the last axis.
      {kMove, "shift L 50,50 l", {0, 0, -50}},
      // The last button up ends a drag, in whatever order.
      {kMove, "L 4,0 R 4,0 l r", {8, 0, 0}},
      {kMove, "L 4,0 R 4,0 r l", {8, 0, 0}},
      {kMove, "L 5,0 lost R 9,9 r l L 5,0 L 2,0 l", {12, 0, 0}},
      {kMove, "step=6 L 7,0 R 2,0 l -5,0 r", {9, 0, 0}, {30, 0, 0}},
      {kMove, "shift step=7 R 7,3 r", kZero, {-42, 0, 0}, 0, kAllAxes, kSolid},
      {kMove, "step=7 R 7,3 r", kZero, {0, -21, 0}, 0, kAxisX, kSolid},
      {kEntity, "grid=8 shift L 9,16 l", {10, 20, 16}},
      {kEntity, "grid=8 L R 8,0 r l", {16, 20, 30}}};
  AddEntity("10 20 30");
  const Level before = level;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.script);
    level = before;
    working.MoveTo({c.x, c.x, c.x});
    state.CurrentEntity = 0;
    state.UseGrid = state.UseRotationSnap = 0;
    document.SetModifiedFlag(false);
    desktop.ShiftDown = false;
    Use(c.tool, c.kind, c.axes);
    Play(c.script);
    ExpectNear(c.tool == kEntity ? level.Entities[0].eOrigin : working.Own().Pos, c.at, "at");
    ExpectNear(working.Own().Rot, c.turned, "turned");
    EXPECT_TRUE(document.IsModified());
    EXPECT_EQ(working.Own().WorkPos, working.Own().Pos);
    EXPECT_EQ(working.Own().WorkRot, working.Own().Rot);
  }
}

TEST_F(ViewDrag, AGroupMovesByOneStepOfTheGridAndTurnsScalesAndShearsAboutItsCentre) {
  const auto cornerOf = [](const CZandoBrush& of) { return of.WorldPolys()[0][0]; };
  const CZandoBrush& member = AddBoxAt({100.5, 10, 20}, 1);
  AddBoxAt({-40, 30, 7.25}, 1);
  const CZandoBrush& other = AddBoxAt({8, 8, 8}, 0);
  const Vector untouched = cornerOf(other);
  level.Groups.resize(2);
  state.CurrentGroup = state.GroupMovementMode = 1;
  using Operation = std::function<void(Transform&)>;
  const auto check = [&](CommandId tool, const std::string& script, const Operation& operation) {
    const Vector pivot{30.25, 20, 13.625};  // the mean of their places
    Vector corner = cornerOf(member) - pivot;
    Transform matrix = Transform::Identity();
    operation(matrix);
    matrix.TransformPoint(corner);
    Use(tool, kSolid);
    Play(script);
    ExpectNear(cornerOf(member), corner + pivot, script);
    EXPECT_EQ(cornerOf(other), untouched);
    EXPECT_EQ(working.Own().WorkPos, kZero);
    const auto& m = member.BMatrix().m;
    ExpectNear(member.Own().Pos, {m[0][3], m[1][3], m[2][3]}, script);
  };
  Use(kMove, kTop);
  Play("grid=64 L 90,-30 l grid=64 L 0,70 l L -64,-64 l");  // by (64, 0), (0, -64), back
  ExpectNear(member.Own().Pos, {100.5, 10, 20}, "moved");
  check(kMove, "shift step=6 R 10,4 r", [](Transform& t) { t.Rotate(-60, -24, 0); });
  check(kScale, "L R 10,4 r l", [](Transform& t) { t.Scale(1.05, 1.05, 1.05); });
  check(kShear, "L 10,4 l", [](Transform& t) { t.Shear(-0.05, 0, 0.02); });
}

TEST_F(ViewDrag, ADragIsCapturedAndNotCommittedUntilItsLastButtonGoesNorChangesToolOrBrush) {
  CFakeViewWindow siblingWindow;
  CZANDOView sibling(document, settings, desktop);
  sibling.SetWindow(&siblingWindow);
  CZandoBrush& listed = AddBoxAt({10, 0, 0});
  siblingWindow.Invalidations = 0;
  Play("L 4,0");
  state.ToolMode = kScale;
  state.CurrentBrush = listed.BBid;
  Play("R 4,0 l");
  EXPECT_TRUE(window.Captured);
  EXPECT_EQ(desktop.CursorHidden, 1);
  EXPECT_EQ(working.Own().Pos, kZero);
  EXPECT_EQ(siblingWindow.Invalidations, 0);
  window.Captured = false;
  Play("9,9");
  EXPECT_EQ(working.Own().WorkPos, (Vector{8, 0, 0}));
  desktop.Cursor.x += 7;  // on its way when the button goes
  Play("r");
  EXPECT_EQ(desktop.Cursor, (ScreenPoint{500, 400}));
  EXPECT_EQ(siblingWindow.Invalidations, 1);
  EXPECT_EQ(working.Own().Pos, (Vector{8, 0, 0}));
  EXPECT_EQ(working.Own().Scl, (Vector{1, 1, 1}));
  EXPECT_EQ(listed.Own().Pos, (Vector{10, 0, 0}));
}

TEST_F(ViewDrag, ADragEndsWithADeletionOrItsView) {
  state.CurrentBrush = AddBoxAt({10, 0, 0}).BBid;
  Play("L 5,0");
  view.OnKeyDown(Key::Delete, held);
  EXPECT_TRUE(level.BrushList.IsEmpty());
  ExpectAtRest();
  Play("5,0 l L 5,0");
  view.SetWindow(nullptr);
  EXPECT_EQ(working.Own().Pos, (Vector{5, 0, 0}));
  ExpectAtRest();
  {
    CZANDOView closing(document, settings, desktop);
    closing.SetWindow(&window);
    closing.OnButtonDown(Button::Left, {.left = true}, {});
  }
  ExpectAtRest();
}

TEST_F(ViewDrag, ADragThatIsGivenUpOrHasNothingToDragLeavesEverythingAsItWas) {
  AddEntity("10 20 30");
  AddEntity("");
  working.MoveTo({0.3, 0.4, 0.5});
  const Level before = level;
  const CCamera camera = view.Camera();
  for (const CommandId tool : {kCamera, kMove, kScale, kShear, kEntity, kBox}) {
    for (const std::int32_t nothing : {-1, 0, 1}) {  // no entity and group, or one without a place
      Use(tool, nothing == 0 ? kSolid : kTop);
      state.GroupMovementMode = nothing == 0 ? 0 : 1;
      state.CurrentEntity = nothing;
      document.SetModifiedFlag(false);
      Play("L l R r L 0,0 R 0,0 r l");
      state.CurrentEntity = nothing;  // a right press may have picked another
      if (nothing != 0 && tool != kCamera && tool != kBox) {
        view.Rotate90();
        Play("L 9,7 l L 3,2 R 9,7 r l");
      }
      for (const char* press : {"L", "R"}) {
        Play(std::string(press) + " 9,7 3,4");
        view.CancelDrag();
        ExpectAtRest();
        Play("5,5 l r");
      }
      EXPECT_TRUE(level == before) << tool << ' ' << nothing;
      EXPECT_FALSE(document.IsModified()) << tool << ' ' << nothing;
      EXPECT_EQ(view.Camera().Position, camera.Position);
      EXPECT_EQ(view.Camera().Yaw, camera.Yaw);
      EXPECT_EQ(view.Camera().Pitch, camera.Pitch);
      EXPECT_EQ(view.Zoom(), camera.Zoom());
    }
  }
}

TEST_F(ViewDrag, AStepCountsOnceWhenTheCursorTurnsOutNotToBePlaceable) {
  class CRefusing : public CScriptedDesktop {
    void SetCursorPos(ScreenPoint /*point*/) override { CursorPlaceable = false; }
  } refusing;
  CZANDOView other(document, settings, refusing);
  other.SetWindow(&window);
  other.OnButtonDown(Button::Left, {.left = true}, {});
  for (int i = 0; i < 4; ++i) {  // every other time without motion
    refusing.Cursor.x += i % 2 * 3;
    other.OnMouseMove({.left = true}, {});
    EXPECT_EQ(window.Redraws, 1 + (i + 1) / 2);  // the first for the kind of view
  }
  EXPECT_EQ(working.Own().WorkPos.x, 6);
}

}  // namespace
}  // namespace zando::testing
