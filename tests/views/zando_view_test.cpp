#include "views/zando_view.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/file_io.h"
#include "support/recording_dc.h"
#include "support/scripted_desktop.h"

namespace zando {
namespace {

using testing::CFakeViewWindow;
using testing::CScriptedDesktop;
using Button = CZANDOView::MouseButton;
using Activation = CZANDOView::Activation;

constexpr MouseFlags kLeft{.left = true};
constexpr MouseFlags kRight{.right = true};
constexpr MouseFlags kBoth{.left = true, .right = true};
constexpr MouseFlags kNone{};

class CCountingFrame : public CFrameDisplay {
 public:
  int Groups = 0;
  void RefreshGroups() override { ++Groups; }
  void RefreshGrid() override {}
};

class View : public ::testing::Test {
 protected:
  View() {
    view.SetWindow(&window);
    view.OnSize(400, 300);
    view.Camera().Position = {0.0, 0.0, 0.0};
  }

  void Move(MouseFlags flags, std::int32_t x, std::int32_t y) {
    desktop.Cursor = {desktop.Cursor.x + x, desktop.Cursor.y + y};
    view.OnMouseMove(flags, {});
  }

  CZANDODoc document;
  CEditorSettings settings;
  CScriptedDesktop desktop;
  CFakeViewWindow window;
  CZANDOView view{document, settings, desktop};
};

TEST_F(View, ANewOneLooksAlongZFromBeforeTheOrigin) {
  CZANDOView fresh(document, settings, desktop);
  EXPECT_EQ(fresh.Camera().Position, (Vector{0.0, 0.0, -500.0}));
  EXPECT_EQ(fresh.Zoom(), 0.1);
  EXPECT_EQ(fresh.AxisFlags(), kAxisX | kAxisY | kAxisZ);
}

TEST_F(View, KindCommandsRedrawSetTheTitleAndCheckTheirItem) {
  EXPECT_EQ(view.Kind(), ViewKind::Solid);
  const std::vector<std::string> titles = {"-3D Wireframe-", "-Solid Gons-", "-Top View-",
                                           "-Side View-",    "-Front View-", "-Texture View-"};
  for (CommandId id = 32806; id <= 32811; ++id) {
    EXPECT_TRUE(view.OnCommand(id));
    EXPECT_EQ(static_cast<CommandId>(view.Kind()), id);
    EXPECT_EQ(view.ErasesBackground(), id != 32807 && id != 32811);
    for (CommandId other = 32806; other <= 32811; ++other) {
      CCmdUI ui;
      EXPECT_TRUE(view.OnUpdateCommandUI(other, ui));
      EXPECT_EQ(ui.IsChecked(), other == id);
    }
  }
  EXPECT_EQ(window.Titles, titles);
  EXPECT_EQ(window.Redraws, 6);
  CCmdUI ui;
  for (const CommandId foreign : {32805, 32812, 57600, -1}) {
    EXPECT_FALSE(view.OnCommand(foreign));
    EXPECT_FALSE(view.OnUpdateCommandUI(foreign, ui));
  }
}

TEST_F(View, AxisFlagsAreItsOwnAndBecomeActiveWhenToggledOrActivated) {
  CZANDOView second(document, settings, desktop);
  EXPECT_EQ(settings.ActiveAxisMask, 0U);
  EXPECT_TRUE(view.OnCommand(32782));
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisZ);
  second.OnActivate(Activation::Activated);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisY | kAxisZ);
  view.OnActivate(Activation::Deactivated);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisY | kAxisZ);
  view.OnActivate(Activation::Activated);
  view.OnCommand(32783);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX);
  for (const CommandId id : {32781, 32782, 32783}) {
    CCmdUI ui;
    EXPECT_TRUE(view.OnUpdateCommandUI(id, ui));
    EXPECT_EQ(ui.IsChecked(), id == 32781);
  }
  view.OnCommand(32782);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisY);
  EXPECT_EQ(view.AxisFlags(), kAxisX | kAxisY);
}

TEST_F(View, ActivationBothWaysSetsTheTitleAndRefreshesTheGroups) {
  CCountingFrame frame;
  document.Frame = &frame;
  view.OnInitialUpdate();
  view.OnActivate(Activation::Activated);
  view.OnActivate(Activation::Deactivated);
  EXPECT_EQ(window.Titles, std::vector<std::string>(3, "-Solid Gons-"));
  EXPECT_EQ(frame.Groups, 2);
  document.Frame = nullptr;
  view.OnActivate(Activation::Activated);
}

TEST_F(View, CameraDragsMoveByKindAndButtons) {
  struct Row {
    ViewKind kind;
    MouseFlags flags;
    double startYaw, yaw, pitch;
    Vector position;
    double zoom;
  };
  constexpr ViewKind kPerspective[] = {ViewKind::Wireframe, ViewKind::Solid, ViewKind::Texture};
  std::vector<Row> rows = {{ViewKind::Top, kLeft, 0, 0, 0, {6, 0, 4}, 0.1},
                           {ViewKind::Top, kBoth, 0, 0, 0, {6, 0, 4}, 0.1},
                           {ViewKind::Side, kLeft, 0, 0, 0, {0, 4, 6}, 0.1},
                           {ViewKind::Side, kBoth, 0, 0, 0, {0, 4, 6}, 0.1},
                           {ViewKind::Front, kLeft, 0, 0, 0, {6, 4, 0}, 0.1},
                           {ViewKind::Front, kBoth, 0, 0, 0, {6, 4, 0}, 0.1},
                           {ViewKind::Top, kRight, 0, 0, 0, {0, 0, 0}, 0.102},
                           {ViewKind::Side, kRight, 0, 0, 0, {0, 0, 0}, 0.102},
                           {ViewKind::Front, kRight, 0, 0, 0, {0, 0, 0}, 0.102}};
  for (const ViewKind kind : kPerspective) {
    // The turn comes first: the step goes along the new heading, a quarter turn.
    rows.push_back({kind, kLeft, 2066, 2048, 0, {-8, 0, 0}, 0.1});
    rows.push_back({kind, kRight, 2066, 2048, 12, {0, 0, 0}, 0.1});
    rows.push_back({kind, kBoth, 0, 0, 0, {12, 8, 0}, 0.1});
  }
  for (const Row& row : rows) {
    SCOPED_TRACE(::testing::Message() << "kind " << static_cast<int>(row.kind) << " left "
                                      << row.flags.left << " right " << row.flags.right);
    CFakeViewWindow own;
    CZANDOView dragged(document, settings, desktop);
    dragged.SetWindow(&own);
    dragged.SetKind(row.kind);
    CCamera& camera = dragged.Camera();
    camera.Position = {0.0, 0.0, 0.0};
    camera.Yaw = row.startYaw;
    if (row.flags.left) dragged.OnButtonDown(Button::Left, kLeft, {});
    if (row.flags.right) dragged.OnButtonDown(Button::Right, row.flags, {});
    desktop.Cursor = {503, 398};
    dragged.OnMouseMove(row.flags, {});
    EXPECT_EQ(own.Redraws, 2);
    EXPECT_EQ(desktop.Cursor, (ScreenPoint{500, 400}));
    dragged.OnButtonUp(Button::Left, kNone, {});
    EXPECT_EQ(camera.Yaw, row.yaw);
    EXPECT_EQ(camera.Pitch, row.pitch);
    EXPECT_NEAR(camera.Position.x, row.position.x, 1e-9);
    EXPECT_NEAR(camera.Position.y, row.position.y, 1e-9);
    EXPECT_NEAR(camera.Position.z, row.position.z, 1e-9);
    EXPECT_NEAR(dragged.Zoom(), row.zoom, 1e-12);
  }
}

TEST_F(View, ZoomNeverFallsBelowItsFloor) {
  view.SetKind(ViewKind::Top);
  view.OnButtonDown(Button::Right, kRight, {});
  Move(kRight, 0, 5000);
  EXPECT_EQ(view.Zoom(), 0.001);
}

TEST_F(View, ADragHidesTheCursorOnceAndEndsWithTheLastButton) {
  CFakeViewWindow siblingWindow;
  CZANDOView sibling(document, settings, desktop);
  sibling.SetWindow(&siblingWindow);
  view.OnButtonDown(Button::Left, kLeft, {});
  view.OnButtonDown(Button::Right, kBoth, {});
  EXPECT_EQ(desktop.CursorHidden, 1);
  EXPECT_TRUE(window.Captured);
  view.OnButtonUp(Button::Left, kRight, {});
  EXPECT_EQ(desktop.CursorHidden, 1);
  EXPECT_TRUE(window.Captured);
  EXPECT_EQ(siblingWindow.Invalidations, 0);
  view.OnButtonUp(Button::Right, kNone, {});
  EXPECT_EQ(desktop.CursorHidden, 0);
  EXPECT_FALSE(window.Captured);
  EXPECT_EQ(desktop.Cursor, (ScreenPoint{500, 400}));
  EXPECT_EQ(window.Invalidations, 1);
  EXPECT_EQ(siblingWindow.Invalidations, 1);
}

TEST_F(View, MotionWithoutChangeOrWithoutADragDoesNothing) {
  Move(kLeft, 9, 9);
  view.OnButtonDown(Button::Left, kLeft, {});
  Move(kLeft, 0, 0);
  window.Captured = false;
  Move(kLeft, 5, 5);
  EXPECT_EQ(window.Redraws, 0);
  EXPECT_EQ(view.Camera().Position, (Vector{0.0, 0.0, 0.0}));
}

TEST_F(View, LosingTheMouseEndsTheDragAndLaterReleasesAreHarmless) {
  view.OnButtonDown(Button::Left, kLeft, {});
  Move(kLeft, 4, 0);
  view.EndDrag();
  EXPECT_EQ(desktop.CursorHidden, 0);
  EXPECT_FALSE(window.Captured);
  EXPECT_EQ(desktop.Cursor, (ScreenPoint{500, 400}));
  view.EndDrag();
  view.OnButtonUp(Button::Left, kNone, {});
  EXPECT_EQ(desktop.CursorHidden, 0);
  const double yaw = view.Camera().Yaw;
  Move(kLeft, 4, 0);
  EXPECT_EQ(view.Camera().Yaw, yaw);
}

TEST_F(View, ADragOfBothButtonsThatLosesTheMouseLeavesTheNextOneWhole) {
  view.OnButtonDown(Button::Left, kLeft, {});
  view.OnButtonDown(Button::Right, kBoth, {});
  view.EndDrag();
  view.OnButtonUp(Button::Right, kLeft, {});
  view.OnButtonUp(Button::Left, kNone, {});
  EXPECT_EQ(desktop.CursorHidden, 0);

  desktop.Cursor = {70, 80};
  view.SetKind(ViewKind::Top);
  view.OnButtonDown(Button::Left, kLeft, {});
  EXPECT_EQ(desktop.CursorHidden, 1);
  Move(kLeft, 5, 0);
  EXPECT_EQ(view.Camera().Position, (Vector{10.0, 0.0, 0.0}));
  view.OnButtonUp(Button::Left, kNone, {});
  EXPECT_EQ(desktop.CursorHidden, 0);
  EXPECT_EQ(desktop.Cursor, (ScreenPoint{70, 80}));
}

TEST_F(View, APressAfterALostReleaseHidesTheCursorOnlyOnce) {
  view.OnButtonDown(Button::Left, kLeft, {});
  view.OnButtonDown(Button::Left, kLeft, {});
  view.OnButtonUp(Button::Left, kNone, {});
  EXPECT_EQ(desktop.CursorHidden, 0);
}

TEST_F(View, DragsByRelativeMotionWhereTheCursorCannotBePlaced) {
  desktop.CursorPlaceable = false;
  view.SetKind(ViewKind::Top);
  view.OnButtonDown(Button::Left, kLeft, {});
  Move(kLeft, 3, 2);
  Move(kLeft, 3, 2);
  Move(kLeft, 0, 0);
  EXPECT_EQ(view.Camera().Position, (Vector{12.0, 0.0, -8.0}));
  view.OnButtonUp(Button::Left, kNone, {});
  EXPECT_EQ(desktop.CursorHidden, 0);
  EXPECT_EQ(desktop.Cursor, (ScreenPoint{506, 404}));
}

TEST_F(View, AStepCountsOnceWhenTheCursorTurnsOutNotToBePlaceable) {
  class CRefusing : public CScriptedDesktop {
    void SetCursorPos(ScreenPoint /*point*/) override { CursorPlaceable = false; }
  } refusing;
  CZANDOView other(document, settings, refusing);
  other.SetWindow(&window);
  other.SetKind(ViewKind::Top);
  other.OnButtonDown(Button::Left, kLeft, {});
  for (int i = 0; i < 2; ++i) {
    refusing.Cursor.x += 3;
    other.OnMouseMove(kLeft, {});
  }
  EXPECT_EQ(other.Camera().Position.x, 12.0);
}

TEST_F(View, AToolChangedOrAViewClosedInADragLeavesNoCursorHidden) {
  view.OnButtonDown(Button::Left, kLeft, {});
  document.ToolMode = ID_TOOL_SELECT_BRUSH;
  view.OnButtonUp(Button::Left, kNone, {});
  EXPECT_EQ(desktop.CursorHidden, 0);
  document.ToolMode = ID_TOOL_CAMERA;
  {
    CZANDOView closing(document, settings, desktop);
    closing.SetWindow(&window);
    closing.OnButtonDown(Button::Left, kLeft, {});
    EXPECT_EQ(document.Views().size(), 2U);
  }
  EXPECT_EQ(desktop.CursorHidden, 0);
  EXPECT_EQ(document.Views().size(), 1U);
}

/// Keeps the second colour of the picture that it is shown.
class CColorDC : public testing::CRecordingDC {
 public:
  CColorDC() : CRecordingDC(400, 300) {}
  RgbQuad Second;
  void StretchDIBits(ScreenPoint at, const IndexedPicture& picture) override {
    Second = picture.colors[1];
    CRecordingDC::StretchDIBits(at, picture);
  }
};

TEST(ViewColours, AreTakenAndRestartedByTheFirstSizingOnly) {
  const auto path = std::filesystem::temp_directory_path() / "zando_view_colours.lmp";
  ASSERT_EQ(WriteFileAtomically(path, std::string(6, '\x11')), "");
  SeedColorTags(1);
  const std::uint32_t first = NextColorTag();
  const std::uint32_t second = NextColorTag();
  CZANDODoc document;
  CEditorSettings settings;
  CScriptedDesktop desktop;
  ASSERT_TRUE(document.Textures.LoadPalette(path));
  CZANDOView view(document, settings, desktop);
  view.OnSize(0, 0);
  EXPECT_EQ(NextColorTag(), first);
  ASSERT_EQ(WriteFileAtomically(path, std::string(6, '\x22')), "");
  ASSERT_TRUE(document.Textures.LoadPalette(path));
  CColorDC dc;
  view.OnDraw(dc);
  EXPECT_EQ(dc.Count("dib"), 0);
  view.OnSize(399, 300);
  EXPECT_EQ(NextColorTag(), second);
  view.OnDraw(dc);
  EXPECT_EQ(dc.Count("dib 0,0 400x300"), 1);
  EXPECT_EQ(dc.Second, (RgbQuad{0x11, 0x11, 0x11, 0}));
  std::filesystem::remove(path);
}

}  // namespace
}  // namespace zando
