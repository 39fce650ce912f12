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

using Activation = CZANDOView::Activation;

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
    document.Frame = &frame;
  }

  bool IsChecked(CommandId id) {
    CCmdUI ui;
    EXPECT_TRUE(view.OnUpdateCommandUI(id, ui));
    return ui.IsChecked();
  }

  CZANDODoc document;
  CCountingFrame frame;
  CEditorSettings settings;
  testing::CScriptedDesktop desktop;
  testing::CFakeViewWindow window;
  CZANDOView view{document, settings, desktop};
};

TEST_F(View, KindCommandsRedrawSetTheTitleAndCheckTheirItem) {
  EXPECT_EQ(view.Kind(), ViewKind::Solid);
  for (CommandId id = 32806; id <= 32811; ++id) {
    EXPECT_TRUE(view.OnCommand(id));
    EXPECT_EQ(static_cast<CommandId>(view.Kind()), id);
    EXPECT_EQ(view.ErasesBackground(), id != 32807 && id != 32811);
    for (CommandId other = 32806; other <= 32811; ++other) {
      EXPECT_EQ(IsChecked(other), other == id);
    }
  }
  EXPECT_EQ(window.Titles,
            (std::vector<std::string>{"-3D Wireframe-", "-Solid Gons-", "-Top View-", "-Side View-",
                                      "-Front View-", "-Texture View-"}));
  EXPECT_EQ(window.Redraws, 6);
  EXPECT_FALSE(view.OnCommand(32805) || view.OnCommand(32812));
}

TEST_F(View, AxisFlagsAreItsOwnAndBecomeActiveWhenToggledOrActivated) {
  CZANDOView second(document, settings, desktop);
  view.OnCommand(ID_AXIS_Y);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisZ);
  second.OnActivate(Activation::Activated);
  view.OnActivate(Activation::Deactivated);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisY | kAxisZ);
  view.OnActivate(Activation::Activated);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisZ);
  view.OnCommand(ID_AXIS_Z);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX);
  EXPECT_TRUE(IsChecked(ID_AXIS_X) && !IsChecked(ID_AXIS_Y) && !IsChecked(ID_AXIS_Z));
  EXPECT_EQ(frame.Groups, 3);
  EXPECT_EQ(window.Titles, std::vector<std::string>(2, "-Solid Gons-"));
}

TEST_F(View, GroupCommandsNeedASelectionAndAreLeftToTheDocument) {
  document.Entities.resize(1);
  for (const bool selected : {false, true}) {
    if (selected) document.Entities[0].eFlags |= EF_SELECTED;
    for (const CommandId id : {ID_ADD_TO_GROUP, ID_CREATE_GROUP, ID_REMOVE_FROM_GROUP}) {
      CCmdUI ui;
      EXPECT_TRUE(view.OnUpdateCommandUI(id, ui));
      EXPECT_EQ(ui.IsEnabled(), selected);
      EXPECT_FALSE(view.OnCommand(id));
    }
  }
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

TEST_F(View, TakesThePaletteAndRestartsTheColoursAtItsFirstSizingOnly) {
  const auto path = std::filesystem::path(::testing::TempDir()) / "zando_view_colours.lmp";
  const auto loadGrey = [&](char shade) {
    return WriteFileAtomically(path, std::string(6, shade)).empty() &&
           document.Textures.LoadPalette(path);
  };
  SeedColorTags(1);
  const std::uint32_t tags[] = {NextColorTag(), NextColorTag()};
  ASSERT_TRUE(loadGrey('\x11'));
  CColorDC dc;
  view.OnSize(0, 0);
  view.OnDraw(dc);
  EXPECT_EQ(dc.Count("dib"), 0);
  EXPECT_EQ(NextColorTag(), tags[0]);
  ASSERT_TRUE(loadGrey('\x22'));
  view.OnSize(399, 300);
  view.OnDraw(dc);
  EXPECT_EQ(dc.Count("dib 0,0 400x300"), 1);
  EXPECT_EQ(dc.Second, (RgbQuad{0x11, 0x11, 0x11, 0}));
  EXPECT_EQ(NextColorTag(), tags[1]);
  std::filesystem::remove(path);
}

}  // namespace
}  // namespace zando
