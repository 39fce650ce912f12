#include "views/texture_view.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "document/brush_edits.h"
#include "support/edit_level.h"
#include "support/made_up_wad.h"
#include "support/recording_dc.h"
#include "support/scripted_desktop.h"

namespace zando {
namespace {

using Step = CTextureView::Step;

/// Width and height of textures, or what a view is told of them.
using Sizes = std::vector<ScreenPoint>;

class TextureView : public ::testing::Test {
 protected:
  TextureView() {
    view.SetWindow(&window);
    document.AddView(other);
  }

  /// An archive with textures "t0", "t1" and so on in a window that is so wide.
  void Show(const Sizes& sizes, std::int32_t width) {
    std::vector<testing::Lump> lumps;
    for (const ScreenPoint& size : sizes) {
      const auto columns = static_cast<std::uint32_t>(size.x);
      const auto rows = static_cast<std::uint32_t>(size.y);
      const std::string name = "t" + std::to_string(lumps.size());
      lumps.push_back(
          {testing::MipHead(name, columns, rows) + std::string(std::size_t{columns} * rows, '\1')});
    }
    // Tests run beside each other.
    const std::string path =
        ::testing::TempDir() + "zando_texture_view_" + std::to_string(::getpid()) + ".wad";
    std::ofstream(path, std::ios::binary) << testing::Archive(lumps);
    document.LoadTextures({}, path);
    std::filesystem::remove(path);
    view.OnSize(width);
  }
  void ShowFourInTwoRows() { Show(Sizes(4, {128, 128}), 300); }

  CZANDODoc document;
  testing::CListener other;
  testing::CScriptedDesktop desktop;
  testing::CFakeViewWindow window;
  CTextureView view{document, desktop};
};

TEST_F(TextureView, ARowEndsBehindTheTextureThatReachesPastTheWindow) {
  struct Case {
    Sizes textures;
    std::int32_t width;
    Sizes places;
    ScreenPoint total;
  };
  const Sizes four(4, {128, 128});
  for (const Case& c : std::vector<Case>{
           {four, 288, {{0, 0}, {144, 0}, {288, 0}, {0, 144}}, {432, 288}},
           {four, 287, {{0, 0}, {144, 0}, {0, 144}, {144, 144}}, {288, 288}},
           {four, 0, {{0, 0}, {0, 144}, {0, 288}, {0, 432}}, {144, 576}},
           {{{64, 96}, {32, 32}, {16, 16}}, 100, {{0, 0}, {80, 0}, {0, 112}}, {128, 144}},
           {{{16, 8}}, 500, {{0, 0}}, {32, 24}},
           {{}, 300, {}, {0, 0}}}) {
    Show(c.textures, c.width);
    for (std::size_t i = 0; i < c.places.size(); ++i) {
      const auto [x, y] = c.places[i];
      const ScreenRect place{x, y, x + c.textures[i].x, y + c.textures[i].y};
      EXPECT_EQ(view.PlaceOf(static_cast<std::int32_t>(i)), place) << i << " in " << c.width;
    }
    EXPECT_EQ(view.TotalSize(), c.total) << c.width;
    EXPECT_EQ(window.ScrollSizes, c.total) << c.width;
  }
}

TEST_F(TextureView, AClickWithinATextureSelectsItAndNamesTheCurrentBrush) {
  ShowFourInTwoRows();
  using Case = std::pair<ScreenPoint, std::optional<std::int32_t>>;
  for (const auto& [point, hit] :
       {Case{{1, 1}, 0}, Case{{127, 127}, 0}, Case{{0, 64}, {}}, Case{{64, 0}, {}},
        Case{{128, 64}, {}}, Case{{64, 128}, {}}, Case{{145, 1}, 1}, Case{{100, 150}, 3},
        Case{{64, 100000}, {}}}) {
    view.OnLeftButtonUp({350, 64});
    testing::Edit(document).WorkingBrush.Name = "before";
    document.SetModifiedFlag(false);
    window.Redraws = 0;
    other.told.clear();
    view.OnLeftButtonUp(point);
    EXPECT_EQ(view.TextureAt(point), hit) << point.x << "," << point.y;
    EXPECT_EQ(view.Selected(), hit.value_or(2));
    EXPECT_EQ(document.CurrentBrush().Name, hit ? "t" + std::to_string(*hit) : "before");
    EXPECT_EQ(document.IsModified(), hit.has_value());
    EXPECT_EQ(window.Redraws, hit ? 1 : 0);
    EXPECT_EQ(other.told, hit ? "r" : "");
  }
  EXPECT_EQ(desktop.StatusText, "Texture of the current brush: t2");
}

TEST_F(TextureView, StartsAtTheTextureOfTheCurrentBrushAndKeepsTheSelectionInSight) {
  ShowFourInTwoRows();
  testing::CRecordingDC dc(300, 300);
  for (const auto& [name, selected] : {std::pair{"T2", 2}, {"t3", 3}, {"none", 0}, {"t1", 1}}) {
    CTextureView opened(document, desktop);
    opened.SetWindow(&window);
    testing::Edit(document).WorkingBrush.Name = name;
    opened.OnInitialUpdate();
    window.ScrolledTo.clear();
    opened.OnSize(300);
    EXPECT_EQ(opened.Selected(), selected);
    EXPECT_EQ(window.ScrolledTo, std::vector{opened.PlaceOf(selected)});
    if (selected != 1) continue;
    // Who has scrolled on wants to see something else.
    opened.OnDraw(dc, {0, 200, 300, 300});
    opened.OnSize(310);
    EXPECT_EQ(window.ScrolledTo.size(), 1U);
    opened.OnDraw(dc, {0, 100, 300, 300});
    opened.OnSize(200);
    EXPECT_EQ(window.ScrolledTo.back(), opened.PlaceOf(1));
    // A texture that is cut by the edge is shown whole by the click that chooses it.
    opened.OnLeftButtonUp({10, 150});
    EXPECT_EQ(window.ScrolledTo.back(), opened.PlaceOf(opened.Selected()));
    EXPECT_NE(opened.Selected(), 1);
  }
}

TEST_F(TextureView, OnlyWhatIsVisibleIsDrawnWithAFrameWithinTheSelectedTexture) {
  const std::string frame =
      "fill 0,144 128x1 FF0000; fill 0,271 128x1 FF0000; "
      "fill 0,144 1x128 FF0000; fill 127,144 1x128 FF0000; ";
  ShowFourInTwoRows();
  view.OnLeftButtonUp({64, 200});
  const std::string above = "dib 0,0 128x128; dib 144,0 128x128; ";
  for (const auto& [visible, drawn] :
       {std::pair{ScreenRect{0, 0, 300, 144}, "org 0,0; " + above + "dib 288,0 128x128; "},
        {{100, 110, 200, 200}, "org -100,-110; " + above + "dib 0,144 128x128; " + frame},
        {{0, 150, 100, 160}, "org 0,-150; dib 0,144 128x128; " + frame},
        {{128, 128, 144, 600}, "org -128,-128; "}}) {
    testing::CRecordingDC dc(400, 400);
    view.OnDraw(dc, visible);
    EXPECT_EQ(dc.Text, drawn);
  }
}

TEST_F(TextureView, KeysMoveTheSelectionAndOnlyUsingItNamesTheBrush) {
  // 0 1 2 / 3 4 5 / 6, the last row shorter.
  Show({{128, 16}, {128, 16}, {128, 16}, {192, 16}, {64, 16}, {64, 16}, {64, 16}}, 300);
  const std::string before = document.CurrentBrush().Name;
  const std::vector<std::pair<Step, std::int32_t>> steps{
      {Step::Left, 0}, {Step::Up, 0},    {Step::Right, 1}, {Step::Down, 4}, {Step::Down, 6},
      {Step::Down, 6}, {Step::Right, 6}, {Step::Up, 3},    {Step::Left, 2}, {Step::Down, 5},
      {Step::Up, 2},   {Step::First, 0}, {Step::Last, 6}};
  for (const auto& [step, selected] : steps) {
    view.MoveSelection(step);
    EXPECT_EQ(view.Selected(), selected);
    EXPECT_EQ(window.ScrolledTo.back(), view.PlaceOf(selected));
  }
  EXPECT_EQ(document.CurrentBrush().Name, before);
  view.UseSelected();
  EXPECT_EQ(document.CurrentBrush().Name, "t6");
}

TEST_F(TextureView, WithoutTexturesThereIsNothingToDrawOrToSelect) {
  Show({}, 300);
  testing::CRecordingDC dc(300, 200);
  view.OnDraw(dc, {0, 0, 300, 200});
  view.OnLeftButtonUp({5, 5});
  view.MoveSelection(Step::Down);
  view.UseSelected();
  EXPECT_EQ(dc.Text, "");
  EXPECT_FALSE(document.IsModified());
}

}  // namespace
}  // namespace zando
