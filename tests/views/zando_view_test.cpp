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

  CZANDODoc document;
  CCountingFrame frame;
  CEditorSettings settings;
  testing::CScriptedDesktop desktop;
  testing::CFakeViewWindow window;
  CZANDOView view{document, settings, desktop};
};

TEST_F(View, AnotherKindRedrawsAndSetsTheTitle) {
  EXPECT_EQ(view.Kind(), ViewKind::Solid);
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
  CZANDOView second(document, settings, desktop);
  view.ToggleAxis(kAxisY);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisZ);
  second.OnActivate(Activation::Activated);
  view.OnActivate(Activation::Deactivated);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisY | kAxisZ);
  view.OnActivate(Activation::Activated);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX | kAxisZ);
  view.ToggleAxis(kAxisZ);
  EXPECT_EQ(settings.ActiveAxisMask, kAxisX);
  EXPECT_EQ(view.AxisFlags(), kAxisX);
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
