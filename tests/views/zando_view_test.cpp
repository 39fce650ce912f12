// What a view does: its kinds and axes, and the mouse and the keys under every tool.
#include "views/zando_view.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "document/brush_edits.h"
#include "document/view_edits.h"
#include "support/edit_level.h"
#include "support/scripted_desktop.h"

namespace zando {
namespace {

using Activation = CZANDOView::Activation;
using Button = CZANDOView::MouseButton;
using Key = CZANDOView::Key;

constexpr std::uint32_t kAllAxes = kAxisX | kAxisY | kAxisZ;
constexpr Vector kZero{0, 0, 0};

constexpr CommandId kCamera = ID_TOOL_CAMERA, kMove = ID_TOOL_MOVE_ROTATE_BRUSH,
                    kScale = ID_TOOL_SCALE_BRUSH, kShear = ID_TOOL_SHEAR_BRUSH,
                    kEntity = ID_TOOL_MOVE_SELECT_ENTITY, kBox = ID_TOOL_SELECT_GROUP;
constexpr ViewKind kTop = ViewKind::Top, kSide = ViewKind::Side, kFront = ViewKind::Front,
                   kSolid = ViewKind::Solid;

void ExpectNear(const Vector& actual, const Vector& expected, const std::string& what) {
  EXPECT_NEAR(Length(actual - expected), 0, 1e-9)
      << what << ": " << actual.x << ' ' << actual.y << ' ' << actual.z;
}

class View : public ::testing::Test {
 protected:
  View() {
    view.SetWindow(&window);
    view.OnSize(400, 300);
    view.Camera().Position = kZero;
    view.SetZoom(1);
    Use(kMove, kTop);
  }

  void Use(CommandId tool, ViewKind kind, std::uint32_t axes = kAllAxes) {
    state.ToolMode = tool;
    view.SetKind(kind);
    settings.ActiveAxisMask = axes;
  }

  /// Plays the mouse: "L" and "R" press a button, "l" and "r" release it, "3,-2" moves right and
  /// up, "lost" takes the mouse away, "shift" holds that key; "grid=8" and "step=6" set what is
  /// snapped to. Once all buttons are released nothing may be left of a drag.
  void Play(const std::string& script) {
    std::istringstream words(script);
    for (std::string word; words >> word;) {
      const bool isLeft = word == "L" || word == "l";
      const Button button = isLeft ? Button::Left : Button::Right;
      bool& isHeld = isLeft ? held.left : held.right;
      if (word == "L" || word == "R") {
        isHeld = true;
        view.OnButtonDown(button, held, at);
      } else if (word == "l" || word == "r") {
        isHeld = false;
        view.OnButtonUp(button, held, at);
        if (!held.left && !held.right) ExpectAtRest();
      } else if (word == "lost") {
        view.EndDrag();
        ExpectAtRest();
      } else if (word == "shift") {
        desktop.ShiftDown = true;
      } else if (const bool grid = word.starts_with("grid="); grid || word.starts_with("step=")) {
        (grid ? state.UseGrid : state.UseRotationSnap) = 1;
        (grid ? state.GridSize : state.RotationSnap) = std::stod(word.substr(5));
      } else {
        desktop.Cursor.x += std::stoi(word);
        desktop.Cursor.y += std::stoi(word.substr(word.find(',') + 1));
        view.OnMouseMove(held, at);
      }
    }
  }
  void ExpectAtRest() {
    EXPECT_FALSE(window.Captured || window.DragRect.has_value());
    EXPECT_EQ(desktop.CursorHidden, 0);
  }

  /// A listed box of 64 around a place, in a group.
  CZandoBrush& AddBox(const Vector& place, std::int32_t group = -1) {
    CZandoBrush box = CZANDODoc().GetLevel().WorkingBrush;
    testing::Place(box, [](Placement& own) { own.Scl = {0.5, 0.5, 0.5}; });
    box.BGroup = group;
    box.MoveTo(place);
    return level.BrushList[AddBrush(document, box)];
  }
  void AddEntitiesAt(const std::vector<std::string>& origins) {
    for (const std::string& origin : origins) {
      CEntity& entity = level.Entities.emplace_back();
      if (!origin.empty()) entity.AddPair("origin", origin);
      entity.ParseOrigin();
    }
  }

  CZANDODoc document;
  Level& level = testing::Edit(document);
  EditingState& state = testing::EditState(document);
  CZandoBrush& brush = level.WorkingBrush;
  CEditorSettings settings;
  testing::CScriptedDesktop desktop;
  testing::CFakeViewWindow window;
  CZANDOView view{document, settings, desktop};
  MouseFlags held;
  ScreenPoint at{200, 150};  ///< where buttons are pressed and released, and moves lead
};

class CCountingFrame : public CFrameDisplay {
 public:
  int Groups = 0;
  void RefreshGroups() override { ++Groups; }
  void RefreshGrid() override {}
};

TEST_F(View, AnotherKindRedrawsAndSetsTheTitle) {
  EXPECT_EQ(CZANDOView(document, settings, desktop).Kind(), kSolid);
  window.Titles.clear();
  window.Redraws = 0;
  for (CommandId id = 32806; id <= 32811; ++id) {
    view.SetKind(static_cast<ViewKind>(id));
    EXPECT_EQ(view.ErasesBackground(), id != 32807 && id != 32811);
  }
  EXPECT_EQ(window.Titles,
            (std::vector<std::string>{"-3D Wireframe-", "-Solid Gons-", "-Top View-", "-Side View-",
                                      "-Front View-", "-Texture View-"}));
  EXPECT_EQ(window.Redraws, 6);
}

TEST_F(View, AxisFlagsAreItsOwnAndBecomeActiveWhenToggledOrActivated) {
  CCountingFrame frame;
  document.SetFrame(&frame);
  CZANDOView second(document, settings, desktop);
  view.ToggleAxis(kAxisY);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisZ);
  second.OnActivate(Activation::Activated);
  view.OnActivate(Activation::Deactivated);
  EXPECT_EQ(settings.ActiveAxisMask, kAllAxes);
  view.OnActivate(Activation::Activated);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisZ);
  EXPECT_EQ(view.AxisFlags(), kAxisX | kAxisZ);
  EXPECT_EQ(frame.Groups, 3);
  document.SetFrame(nullptr);
}

TEST_F(View, RestartsTheFlatColoursAtItsFirstSizingOnly) {
  CZANDOView sized(document, settings, desktop);
  SeedColorTags(1);
  const std::uint32_t tags[] = {NextColorTag(), NextColorTag()};
  sized.OnSize(0, 0);
  EXPECT_EQ(NextColorTag(), tags[0]);
  sized.OnSize(399, 300);
  EXPECT_EQ(NextColorTag(), tags[1]);
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

TEST_F(View, EveryStepChangesWhatItsViewAndButtonsSayUnderEveryAxisMask) {
  AddEntitiesAt({"10 20 30"});
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
      const auto expect = [&](const Vector& change, bool does, std::uint32_t x = kAxisX,
                              std::uint32_t y = kAxisY) {
        const std::uint32_t allowed = does ? axes : 0;
        ExpectNear(change,
                   {allowed & x ? by.x : 0, allowed & y ? by.y : 0, allowed & kAxisZ ? by.z : 0},
                   buttons);
      };
      const Placement& own = brush.Own();
      expect(own.WorkPos, row.tool == kMove && !turns);
      expect(brush.WorldOrigin(), row.tool == kMove && !turns);
      expect(own.WorkRot, turns, kAxisY, kAxisX);  // yaw is about y
      expect(own.Scl - fresh.WorkingBrush.Own().Scl, row.tool == kScale);
      expect(own.Shr, row.tool == kShear);
      expect(level.Entities[0].WorkOrigin - fresh.Entities[0].eOrigin, row.tool == kEntity);
      Play(buttons == "L" ? "l" : buttons == "R" ? "r" : "l r");
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

TEST_F(View, TheCameraFliesTurnsPansAndZooms) {
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

TEST_F(View, AFinishedDragSnapsAndCommits) {
  struct Case {
    CommandId tool;
    std::string script;
    Vector at, turned{0, 0, 0};
    double x = 0;  ///< each coordinate of the brush before
  };
  const Case cases[] = {
      // Halves are snapped up, to whole units without a grid; what is not moved is left.
      {kMove, "grid=16 L 23,0 l", {16, 0.6, 0.6}, kZero, 0.6},
      {kMove, "grid=16 L -24,24 l", {-16, 0, -16}},
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
      {kEntity, "grid=8 shift L 9,16 l", {10, 20, 16}},
      {kEntity, "grid=8 L R 8,0 r l", {16, 20, 30}}};
  AddEntitiesAt({"10 20 30"});
  const Level before = level;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.script);
    level = before;
    brush.MoveTo({c.x, c.x, c.x});
    state.CurrentEntity = 0;
    state.UseGrid = state.UseRotationSnap = 0;
    document.SetModifiedFlag(false);
    desktop.ShiftDown = false;
    Use(c.tool, kTop);
    Play(c.script);
    ExpectNear(c.tool == kEntity ? level.Entities[0].eOrigin : brush.Own().Pos, c.at, "at");
    ExpectNear(brush.Own().Rot, c.turned, "turned");
    EXPECT_TRUE(document.IsModified());
    EXPECT_EQ(brush.Own().WorkPos, brush.Own().Pos);
    EXPECT_EQ(brush.Own().WorkRot, brush.Own().Rot);
  }
}

TEST_F(View, AGroupsMembersTurnScaleAndShearAboutTheirCentreAsTheMatricesDoAlone) {
  const auto cornerOf = [](const CZandoBrush& of) { return of.WorldPolys()[0][0]; };
  const CZandoBrush& member = AddBox({100.5, 10, 20}, 1);
  AddBox({-40, 30, 7.25}, 1);
  const CZandoBrush& other = AddBox({8, 8, 8}, 0);
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
    EXPECT_EQ(brush.Own().WorkPos, kZero);
  };
  check(kMove, "shift step=6 R 10,4 r", [](Transform& t) { t.Rotate(-60, -24, 0); });
  check(kScale, "L R 10,4 r l", [](Transform& t) { t.Scale(1.05, 1.05, 1.05); });
  check(kShear, "L 10,4 l", [](Transform& t) { t.Shear(-0.05, 0, 0.02); });
}

TEST_F(View, ADragIsCapturedAndNotCommittedUntilItsLastButtonGoesNorChangesToolOrBrush) {
  testing::CFakeViewWindow siblingWindow;
  CZANDOView sibling(document, settings, desktop);
  sibling.SetWindow(&siblingWindow);
  CZandoBrush& listed = AddBox({10, 0, 0});
  siblingWindow.Invalidations = 0;
  Play("L 4,0");
  state.ToolMode = kScale;
  state.CurrentBrush = listed.BBid;
  Play("R 4,0 l");
  EXPECT_TRUE(window.Captured);
  EXPECT_EQ(desktop.CursorHidden, 1);
  EXPECT_EQ(brush.Own().Pos, kZero);
  EXPECT_EQ(siblingWindow.Invalidations, 0);
  window.Captured = false;
  Play("9,9");
  EXPECT_EQ(brush.Own().WorkPos, (Vector{8, 0, 0}));
  desktop.Cursor.x += 7;  // on its way when the button goes
  Play("r");
  EXPECT_EQ(desktop.Cursor, (ScreenPoint{500, 400}));
  EXPECT_EQ(siblingWindow.Invalidations, 1);
  EXPECT_EQ(brush.Own().Pos, (Vector{8, 0, 0}));
  EXPECT_EQ(brush.Own().Scl, (Vector{1, 1, 1}));
  EXPECT_EQ(listed.Own().Pos, (Vector{10, 0, 0}));
}

TEST_F(View, ADragEndsWithADeletionOrItsView) {
  state.CurrentBrush = AddBox({10, 0, 0}).BBid;
  Play("L 5,0");
  view.OnKeyDown(Key::Delete, held);
  EXPECT_TRUE(level.BrushList.IsEmpty());
  ExpectAtRest();
  Play("5,0 l L 5,0");
  view.SetWindow(nullptr);
  EXPECT_EQ(brush.Own().Pos, (Vector{5, 0, 0}));
  ExpectAtRest();
  {
    CZANDOView closing(document, settings, desktop);
    closing.SetWindow(&window);
    closing.OnButtonDown(Button::Left, {.left = true}, {});
  }
  ExpectAtRest();
}

TEST_F(View, ADragThatIsGivenUpOrHasNothingToDragLeavesEverythingAsItWas) {
  AddEntitiesAt({"10 20 30", ""});
  brush.MoveTo({0.3, 0.4, 0.5});
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

TEST_F(View, AFrameFollowsTheMouseSelectsByItsButtonAndGoesWithItsDrag) {
  CZandoBrush& inside = AddBox({50, 0, 50});
  AddEntitiesAt({"0 0 0"});
  Use(kBox, kTop);
  const auto drag = [&](ScreenPoint from, ScreenPoint to, const std::string& press,
                        const std::string& release) {
    at = from;
    Play(press);
    EXPECT_EQ(window.DragRect, NormalizedRect(at, at));
    at = to;
    Play("1,1");
    EXPECT_EQ(window.DragRect, NormalizedRect(from, to));
    EXPECT_EQ(desktop.CursorHidden, 0);
    Play(release);
    return inside.IsSelected();
  };
  EXPECT_TRUE(drag({180, 68}, {282, 140}, "L", "l"));
  EXPECT_FALSE(drag({282, 140}, {180, 68}, "R", "r"));
  EXPECT_TRUE(drag({180, 140}, {282, 68}, "L", "l"));
  EXPECT_TRUE(drag({180, 140}, {282, 68}, "R", "lost r"));
  drag({200, 150}, {200, 150}, "L", "l");
  EXPECT_FALSE(level.Entities[0].IsSelected()) << "a frame around nothing";
}

TEST_F(View, ClicksPickInTheViewAsItLooksNow) {
  CZandoBrush& listed = AddBox({50, 0, 50});
  AddEntitiesAt({"-20 500 0"});
  for (const ViewKind kind : {kTop, ViewKind::Wireframe}) {
    state.CurrentBrush = kWorkingBrush;
    view.Camera().Position = kind == kTop ? kZero : Vector{650, 0, 50};
    view.Camera().Yaw = 2048;  // towards lower x
    Use(ID_TOOL_SELECT_BRUSH, kind);
    at = kind == kTop ? ScreenPoint{250, 100} : ScreenPoint{200, 150};
    const int redraws = window.Redraws;
    Play("R 5,5");
    EXPECT_EQ(desktop.CursorHidden, 1);
    EXPECT_EQ(window.Redraws, redraws);
    Play("r L R l r L lost l L");  // only the left button picks, and where it is released
    EXPECT_EQ(desktop.CursorHidden, 0);
    EXPECT_FALSE(document.BrushPicked());
    Play("l");
    EXPECT_EQ(state.CurrentBrush, listed.BBid);
    EXPECT_EQ(state.ToolMode, kMove);
  }
  view.Camera().Position = kZero;
  Use(kEntity, kTop);
  at = {200, 150};
  Play("L l");
  EXPECT_EQ(state.CurrentEntity, -1);
  Play("R L 7,0 l r");
  EXPECT_EQ(level.Entities[0].GetValue("origin"), "-13 500 0") << "dragged at once";
}

TEST_F(View, AStepCountsOnceWhenTheCursorTurnsOutNotToBePlaceable) {
  class CRefusing : public testing::CScriptedDesktop {
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
  EXPECT_EQ(brush.Own().WorkPos.x, 6);
}

TEST_F(View, KeysToggleTheCameraDeleteWhatTheToolWorksOnAndStepTheGrid) {
  for (const MouseFlags down : {MouseFlags{.left = true}, {.right = true}, {}}) {
    const bool toggles = !down.left && !down.right;
    view.OnKeyDown(Key::Space, down);
    EXPECT_EQ(state.ToolMode, toggles ? kCamera : kMove);
    view.OnButtonUp(Button::Middle, down, {});
    EXPECT_EQ(state.ToolMode, kMove);
  }
  for (const CommandId tool : {kMove, kScale, kShear, kEntity, kBox, kCamera}) {
    level.Entities.resize(1);
    state.CurrentEntity = 0;
    SetCurrentBrush(document, AddBox(kZero).BBid);
    state.ToolMode = tool;
    view.OnKeyDown(Key::Delete, {});
    EXPECT_EQ(!document.BrushPicked(), tool == kMove || tool == kScale || tool == kShear) << tool;
    EXPECT_EQ(level.Entities.empty(), tool == kEntity) << tool;
  }
  view.OnKeyDown(Key::KeypadMinus, {});
  EXPECT_EQ(state.GridSize, 32);
  view.OnKeyDown(Key::KeypadPlus, {});
  EXPECT_EQ(state.GridSize, 64);
}

TEST_F(View, Rotate90TurnsAboutTheViewsAxisUnsnappedAndToStay) {
  for (const auto& [kind, by] : {std::pair{kTop, Vector{2048, 0, 0}},
                                 {kSolid, {2048, 0, 0}},
                                 {kSide, {0, 2048, 0}},
                                 {kFront, {0, 0, 2048}}}) {
    testing::Place(brush, [](Placement& own) { own.WorkRot = own.Rot = {7, 8, 9}; });
    for (const std::uint32_t axes : {kAllAxes, 0U}) {
      Use(kMove, kind, axes);
      view.Rotate90();
      EXPECT_EQ(brush.Own().WorkRot, (Vector{7, 8, 9}) + by);
      EXPECT_EQ(brush.Own().Rot, brush.Own().WorkRot);
    }
  }
}

}  // namespace
}  // namespace zando
