#include "views/zando_view.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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
    document.SetFrame(&frame);
  }

  CCmdUI Query(CommandId id) {
    CCmdUI ui;
    EXPECT_TRUE(view.OnUpdateCommandUI(id, ui));
    return ui;
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
      EXPECT_EQ(Query(other).IsChecked(), other == id);
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
  EXPECT_TRUE(Query(ID_AXIS_X).IsChecked());
  EXPECT_FALSE(Query(ID_AXIS_Z).IsChecked());
  EXPECT_EQ(frame.Groups, 3);
  EXPECT_EQ(window.Titles, std::vector<std::string>(2, "-Solid Gons-"));
}

TEST_F(View, RestartsTheFlatColoursAtItsFirstSizingOnly) {
  SeedColorTags(1);
  const std::uint32_t tags[] = {NextColorTag(), NextColorTag()};
  view.OnSize(0, 0);
  EXPECT_EQ(NextColorTag(), tags[0]);
  view.OnSize(399, 300);
  EXPECT_EQ(NextColorTag(), tags[1]);
}

}  // namespace
}  // namespace zando
