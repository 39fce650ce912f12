#include "views/wireframe.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <tuple>

#include "support/recording_dc.h"
#include "views/view_fixture.h"

namespace zando {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class Wireframe : public testing::ViewTest {
 protected:
  Wireframe() { state.ShowFineGrid = state.ShowCoarseGrid = state.ShowBrush = 0; }

  /// A listed brush of one triangle, a quarter turn about the vertical axis.
  CZandoBrush& AddTurnedTriangle() {
    CZandoBrush brush;
    brush.SetPolyCount(1);
    for (const Vector& v : {Vector{105.3, 20.3, 0.3}, {-55.3, 20.3, 0.3}, {0.3, -30.3, 60.3}}) {
      brush.EditPoly(0).Append(v);
    }
    testing::Place(brush, [](Placement& own) { own.WorkRot = own.Rot = {2048, 0, 0}; });
    return level.BrushList[AddBrush(document, brush)];
  }

  void AddCross(std::int32_t flags, std::uint32_t color) {
    CEntity& entity = AddEntity("16 0 0");
    entity.eFlags = flags;
    entity.Color = color;
  }

  const testing::CRecordingDC& Draw(ViewKind kind, double zoom) {
    view.SetKind(kind);
    view.SetZoom(zoom);
    dc.Text.clear();
    view.OnDraw(dc);
    EXPECT_TRUE(dc.Text.starts_with("clip; "));
    dc.Text.erase(0, 6);
    return dc;
  }

  /// What is drawn beside the grid and its axes.
  std::string DrawContent(ViewKind kind, double zoom) {
    const std::string& text = Draw(kind, zoom).Text;
    const std::string end = "org 0,0; ";
    return IsOrthographic(kind) ? text.substr(text.find(end) + end.size()) : text;
  }

  testing::CRecordingDC dc{400, 300};
};

TEST_F(Wireframe, BrushesAreOutlinesWithHandlesOpenInFlatViewsAndClosedInPerspective) {
  AddTurnedTriangle();
  view.Camera().Position = {0, 0, -500};
  for (const auto& [kind, zoom, outline] :
       {std::tuple{ViewKind::Top, 0.1,
                   "poly 200,90 200,106 194,100; "
                   "fill 198,88 4x4 FFFFFF; fill 198,104 4x4 FFFFFF; fill 192,98 4x4 FFFFFF; "},
        {ViewKind::Side, 1.0,
         "poly 805,130 644,130 700,180; "
         "fill 803,128 4x4 FFFFFF; fill 642,128 4x4 FFFFFF; fill 698,178 4x4 FFFFFF; "},
        {ViewKind::Wireframe, 2.0,
         "move 199,143; line 199,140; line 175,162; line 199,143; "
         "fill 197,141 4x4 FFFFFF; fill 197,138 4x4 FFFFFF; fill 173,160 4x4 FFFFFF; "}}) {
    EXPECT_EQ(DrawContent(kind, zoom), std::string("pen FFFFFF 1; ") + outline + "pen 000000 1; ");
  }
  view.Camera().Position = {0, 0, 100};
  EXPECT_EQ(DrawContent(ViewKind::Wireframe, 1), "pen FFFFFF 1; pen 000000 1; ") << "behind";
}

TEST_F(Wireframe, TheCurrentBrushComesLastInItsOwnColoursCyanWhenSelectedWithARedOrigin) {
  AddTurnedTriangle().BFlags = 0;  // hidden
  CZandoBrush& picked = AddTurnedTriangle();
  CZandoBrush& grouped = AddTurnedTriangle();
  grouped.Color = 0x563412;
  picked.MoveTo({10.5, 20.4, 30.3});
  state.CurrentBrush = picked.BBid;
  state.ShowBrush = 1;
  AddCross(EF_SHOWN, kWhite);
  const std::string others =
      "pen 123456 1; poly 200,130 200,130 140,180; "
      "fill 198,128 4x4 123456; fill 198,128 4x4 123456; fill 138,178 4x4 123456; pen 000000 1; ";
  const std::string entity =
      "pen FFFFFF 2; move 208,142; line 224,158; move 208,158; line 224,142; pen 000000 1; ";
  const std::string current =
      "pen 0000FF 1; poly 210,110 210,110 151,159; "
      "fill 208,108 4x4 FF0000; fill 208,108 4x4 FF0000; fill 149,157 4x4 FF0000; pen 000000 1; ";
  const std::string origin = "fill 208,128 4x4 FF0000; ";
  EXPECT_EQ(DrawContent(ViewKind::Front, 1), others + entity + current + origin);
  picked.BFlags |= BF_SELECTED;
  EXPECT_EQ(Draw(ViewKind::Front, 1).Count("pen 00FFFF 2"), 1);
  EXPECT_EQ(dc.Count("4x4 00FFFF"), 3);
  EXPECT_TRUE(dc.Text.ends_with(origin));
  state.ShowEntities = 0;
  picked.BFlags = 0;  // a filter takes its outline, not its origin
  EXPECT_EQ(DrawContent(ViewKind::Front, 1), others + origin);
  state.ShowBrush = 0;
  EXPECT_EQ(DrawContent(ViewKind::Front, 1), others);
}

TEST_F(Wireframe, AFullPolygonThatCrossesTheNearPlaneAtEveryEdgeIsDrawnWhole) {
  CZandoPoly zigzag;
  for (std::int32_t i = 0; i < MAX_POLY_VERTS; ++i) {
    zigzag.Append({1.0 * i, 10, i % 2 * kNearDepth});  // on the plane is in front
  }
  CZandoBrush& brush = AddTurnedTriangle();
  brush.EditPoly(0) = zigzag;
  brush.ResetSlot(kOwnSlot);
  const testing::CRecordingDC& drawn = Draw(ViewKind::Wireframe, 1);
  EXPECT_EQ(drawn.Count("line "), 48);
  EXPECT_EQ(drawn.Count("fill "), 48);
  const std::size_t begin = drawn.Text.find("move ") + 5;
  const std::string first = drawn.Text.substr(begin, drawn.Text.find("; ", begin) - begin);
  EXPECT_EQ(drawn.Count("line " + first + "; fill "), 1) << "closed";
}

TEST_F(Wireframe, CoordinatesBeyondReasonLoseNoHandleOfAFlatView) {
  for (const double far : {1e30, -1e300, 1e308, kInfinity, kNaN}) {
    level.BrushList = {};
    AddTurnedTriangle().MoveTo({far, far, far});
    for (const ViewKind kind : {ViewKind::Top, ViewKind::Side, ViewKind::Front}) {
      EXPECT_EQ(Draw(kind, 2).Count("fill "), 3);
    }
    // Nothing at all, or a closed outline: never one or two points.
    const int handles = Draw(ViewKind::Wireframe, 2).Count("fill ");
    EXPECT_TRUE(handles == 0 || handles >= 3) << handles;
  }
}

TEST_F(Wireframe, EntitiesAreCrossesThatShrinkWithDistanceAndMirrorFromBehind) {
  AddCross(EF_SHOWN, 0x123456);
  AddCross(EF_SHOWN, kWhite);
  AddCross(EF_SHOWN | EF_SELECTED, kWhite);
  AddCross(EF_SHOWN, kWhite);
  level.Entities[3].eStyle = 1;   // without an origin
  AddCross(EF_SELECTED, kWhite);  // not shown
  state.CurrentEntity = 1;
  for (const auto& [kind, zoom, depth, drawn] :
       {std::tuple{ViewKind::Top, 2.0, 0.0,
                   "move 216,134; line 248,166; move 216,166; line 248,134; "},
        {ViewKind::Side, 1.0, 0.0, "move 192,142; line 208,158; move 192,158; line 208,142; "},
        {ViewKind::Wireframe, 1.0, -500.0,
         "move 203,147; line 209,153; move 203,153; line 209,147; "},
        {ViewKind::Wireframe, 1.0, 500.0,
         "move 196,153; line 190,147; move 196,147; line 190,153; "}}) {
    view.Camera().Position = {0, 0, depth};
    view.Camera().Yaw = depth > 0 ? 4096 : 0;
    const std::string cross = drawn + std::string("pen 000000 1; ");
    EXPECT_EQ(DrawContent(kind, zoom),
              "pen 563412 2; " + cross + "pen FF0000 2; " + cross + "pen 00FFFF 2; " + cross);
  }
  view.Camera().Position = {1000, 0, 1000};
  EXPECT_EQ(DrawContent(ViewKind::Front, 1), "") << "out of the window";
}

TEST_F(Wireframe, GridsAreDrawnWhereTheirLinesStandWideEnoughApart) {
  struct Row {
    double zoom, grid;
    int fine, coarse;  ///< how many lines
    double camera = 0;
  };
  state.ShowFineGrid = state.ShowCoarseGrid = 1;
  // Exactly 20 pixels are too narrow for fine lines, and 30 for coarse ones.
  for (const Row& row : {Row{0.1, 64, 0, 12}, Row{1, 20, 0, 4}, Row{1, 3, 0, 0}, Row{2, 16, 22, 2},
                         Row{100, 0.5, 16, 2}, Row{1, 20.5, 34, 2}, Row{1, 3.1, 0, 22},
                         Row{1, 1e300, 2, 2}, Row{0.001, kInfinity, 2, 2}, Row{1, kNaN, 0, 0},
                         Row{1, -16, 0, 0}, Row{1, 64, 14, 4, 1e9}, Row{1e6, 64, 2, 2, -1e300}}) {
    view.Camera().Position = {row.camera, row.camera, row.camera};
    state.GridSize = row.grid;
    Draw(ViewKind::Top, row.zoom);
    EXPECT_EQ(dc.Count("line "), row.fine + row.coarse + 2) << row.zoom << ' ' << row.grid;
    EXPECT_EQ(dc.Count("pen 8C8C8C"), row.fine > 0 ? 1 : 0);
    EXPECT_EQ(dc.Count("pen BEBEBE"), row.coarse > 0 ? 1 : 0);
  }
}

TEST_F(Wireframe, GridLinesStandAtTheirPlacesFineThenCoarseThenAxes) {
  state.ShowFineGrid = state.ShowCoarseGrid = 1;
  state.GridSize = 100;
  view.OnSize(401, 301);
  view.Camera().Position = {1030.5, 7, -1190};
  EXPECT_EQ(Draw(ViewKind::Top, 1).Text,
            "org 202,150; pen 8C8C8C 1; "
            "move -230,-150; line -230,150; move -130,-150; line -130,150; "  // x 800, 900
            "move -30,-150; line -30,150; move 69,-150; line 69,150; "        // x 1000, 1100
            "move 169,-150; line 169,150; "                                   // x 1200
            "move -202,110; line 202,110; move -202,10; line 202,10; "        // z -1300, -1200
            "move -202,-90; line 202,-90; move -202,-190; line 202,-190; "    // z -1100, -1000
            "pen 000000 1; pen BEBEBE 1; "
            // The first coarse line is a tenth one toward zero.
            "move -1030,-150; line -1030,150; move -30,-150; line -30,150; "  // x 0, 1000
            "move -202,-190; line 202,-190; "                                 // z -1000
            "pen 000000 1; pen FAFAFA 1; "
            "move -1030,-32000; line -1030,32000; move -32000,-1190; line 32000,-1190; "
            "pen 000000 1; org 0,0; ");
  EXPECT_EQ(Draw(ViewKind::Wireframe, 1).Text, "");
  EXPECT_TRUE(Draw(ViewKind::Top, 3).Text.ends_with("line 10666,-3570; pen 000000 1; org 0,0; "));
}

TEST_F(Wireframe, WhatLiesOnTheGridIsDrawnAtThePixelsOfItsLines) {
  state.ShowFineGrid = 1;
  for (const double grid : {0.25, 1.5, 16.0, 64.0}) {
    state.GridSize = grid;
    for (int i = 0; i < 40; ++i) {
      const double at = 1000.3 - 77.7 * i;
      view.OnSize(300 + i, 200 + i / 3);
      view.Camera().Position = {at, -at, at * 0.5};
      const std::string& text = Draw(ViewKind::Side, (20.5 + i * 1.3) / grid).Text;
      ScreenPoint org;
      ASSERT_EQ(std::sscanf(text.c_str(), "org %d,%d", &org.x, &org.y), 2);
      for (const int k : {-1, 0, 1}) {
        const auto near = [&](double place) { return (std::round(place / grid) + k) * grid; };
        const auto [x, y] = view.Camera().WorldToScreen({0, near(-at), near(at * 0.5)});
        EXPECT_GE(dc.Count("; line " + std::to_string(x - org.x) + ","), 1) << grid << ' ' << i;
        EXPECT_GE(dc.Count("," + std::to_string(y - org.y) + "; line "), 1) << grid << ' ' << i;
      }
    }
  }
}

}  // namespace
}  // namespace zando
