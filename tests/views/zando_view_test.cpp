// What a view does beside drags of its tools: kinds, axes, frames, clicks and keys.
#include <string>
#include <utility>

#include "document/view_edits.h"
#include "views/view_fixture.h"

namespace zando::testing {
namespace {

using View = ViewTest;
using Activation = CZANDOView::Activation;
using Key = CZANDOView::Key;

TEST_F(View, AxisFlagsAreItsOwnAndBecomeActiveWhenToggledOrActivated) {
  CListener frame;
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
  EXPECT_EQ(frame.told, "ggg");
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

TEST_F(View, AFrameFollowsTheMouseSelectsByItsButtonAndGoesWithItsDrag) {
  CZandoBrush& inside = AddBoxAt({50, 0, 50});
  AddEntity("0 0 0");
  Use(kBox, kTop);
  const auto drag = [&](ScreenPoint from, ScreenPoint to, const std::string& press,
                        const std::string& release) {
    mouse = from;
    Play(press);
    EXPECT_EQ(window.DragRect, NormalizedRect(mouse, mouse));
    mouse = to;
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
  CZandoBrush& listed = AddBoxAt({50, 0, 50});
  AddEntity("-20 500 0");
  for (const ViewKind kind : {kTop, ViewKind::Wireframe}) {
    state.CurrentBrush = kWorkingBrush;
    view.Camera().Position = kind == kTop ? kZero : Vector{650, 0, 50};
    view.Camera().Yaw = 2048;  // towards lower x
    Use(ID_TOOL_SELECT_BRUSH, kind);
    mouse = kind == kTop ? ScreenPoint{250, 100} : ScreenPoint{200, 150};
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
  mouse = {200, 150};
  Play("L l");
  EXPECT_EQ(state.CurrentEntity, -1);
  Play("R L 7,0 l r");
  EXPECT_EQ(level.Entities[0].GetValue("origin"), "-13 500 0") << "dragged at once";
}

TEST_F(View, KeysToggleTheCameraAndDeleteWhatTheToolWorksOn) {
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
    SetCurrentBrush(document, AddBoxAt(kZero).BBid);
    state.ToolMode = tool;
    view.OnKeyDown(Key::Delete, {});
    EXPECT_EQ(!document.BrushPicked(), tool == kMove || tool == kScale || tool == kShear) << tool;
    EXPECT_EQ(level.Entities.empty(), tool == kEntity) << tool;
  }
}

TEST_F(View, Rotate90TurnsAboutTheViewsAxisUnsnappedAndToStay) {
  for (const auto& [kind, by] : {std::pair{kTop, Vector{2048, 0, 0}},
                                 {kSolid, {2048, 0, 0}},
                                 {kSide, {0, 2048, 0}},
                                 {kFront, {0, 0, 2048}}}) {
    Place(working, [](Placement& own) { own.WorkRot = own.Rot = {7, 8, 9}; });
    for (const std::uint32_t axes : {kAllAxes, 0U}) {
      Use(kMove, kind, axes);
      view.Rotate90();
      EXPECT_EQ(working.Own().WorkRot, (Vector{7, 8, 9}) + by);
      EXPECT_EQ(working.Own().Rot, working.Own().WorkRot);
    }
  }
}

}  // namespace
}  // namespace zando::testing
