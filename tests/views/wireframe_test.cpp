#include "views/wireframe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "support/recording_dc.h"
#include "support/scripted_desktop.h"
#include "views/zando_view.h"

namespace zando {
namespace {

using testing::CRecordingDC;
using Lines = std::vector<std::string>;

CZandoPoly Triangle(const Vector& a, const Vector& b, const Vector& c) {
  CZandoPoly polygon;
  for (const Vector& vertex : {a, b, c}) polygon.Append(vertex);
  return polygon;
}

class Wireframe : public ::testing::Test {
 protected:
  Wireframe() {
    view.OnSize(400, 300);
    view.Camera().Position = {0.0, 0.0, 0.0};
    document.ShowFineGrid = document.ShowCoarseGrid = document.ShowBrush = 0;
  }

  /// A listed brush of one triangle, a quarter turn about the vertical axis.
  CZandoBrush& AddTurnedTriangle() {
    CZandoBrush brush;
    brush.SetPolyCount(1);
    brush.Polys[0] = Triangle({105.3, 20.3, 0.3}, {-55.3, 20.3, 0.3}, {0.3, -30.3, 60.3});
    brush.Rot[kOwnSlot] = brush.WorkRot[kOwnSlot] = {2048.0, 0.0, 0.0};
    document.AddBrush(brush);
    return *document.BrushList.Brushes().back();
  }

  void AddEntity(std::int32_t style, std::int32_t flags, std::uint32_t color) {
    CEntity entity;
    entity.eStyle = style;
    entity.eFlags = flags;
    entity.Color = color;
    entity.WorkOrigin = {16.0, 0.0, 0.0};
    document.Entities.push_back(entity);
  }

  Lines Draw(ViewKind kind, double zoom) {
    view.SetKind(kind);
    view.SetZoom(zoom);
    CRecordingDC dc(400, 300);
    view.OnDraw(dc);
    EXPECT_EQ(dc.Lines.front(), "clip");
    dc.Lines.erase(dc.Lines.begin());
    return dc.Lines;
  }

  /// Without the grid's origin and axes.
  Lines DrawContent(ViewKind kind, double zoom) {
    Lines lines = Draw(kind, zoom);
    if (IsOrthographic(kind)) lines.erase(lines.begin(), lines.begin() + 8);
    return lines;
  }

  CZANDODoc document;
  CEditorSettings settings;
  testing::CScriptedDesktop desktop;
  CZANDOView view{document, settings, desktop};
};

TEST_F(Wireframe, OrthographicOutlinesAreOpenLinesWithHandlesAtEveryZoom) {
  struct Row {
    ViewKind kind;
    double zoom;
    std::string points;
  };
  AddTurnedTriangle();
  for (const Row& row : {Row{ViewKind::Top, 0.1, "200,140 200,155 194,150"},
                         {ViewKind::Top, 1, "200,45 200,205 140,150"},
                         {ViewKind::Top, 2, "200,-60 200,260 80,150"},
                         {ViewKind::Side, 0.1, "210,148 195,148 200,153"},
                         {ViewKind::Side, 1, "305,130 145,130 200,180"},
                         {ViewKind::Side, 2, "410,110 90,110 200,210"},
                         {ViewKind::Front, 0.1, "200,148 200,148 194,153"},
                         {ViewKind::Front, 1, "200,130 200,130 140,180"},
                         {ViewKind::Front, 2, "200,110 200,110 80,210"}}) {
    const Lines lines = DrawContent(row.kind, row.zoom);
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(lines[0], "pen FFFFFF 1");
    EXPECT_EQ(lines[1], "poly " + row.points);
    EXPECT_EQ(lines[5], "pen 000000 1");
  }
  const Lines handles = DrawContent(ViewKind::Side, 1.0);
  EXPECT_EQ(
      Lines(handles.begin() + 2, handles.end() - 1),
      (Lines{"fill 303,128 4x4 FFFFFF", "fill 143,128 4x4 FFFFFF", "fill 198,178 4x4 FFFFFF"}));
}

TEST_F(Wireframe, PerspectiveOutlinesAreClosedAndIgnoreTheZoom) {
  AddTurnedTriangle();
  view.Camera().Position = {0.0, 0.0, -500.0};
  const Lines expected = {"pen FFFFFF 1",
                          "move 199,143",
                          "line 199,140",
                          "line 175,162",
                          "line 199,143",
                          "fill 197,141 4x4 FFFFFF",
                          "fill 197,138 4x4 FFFFFF",
                          "fill 173,160 4x4 FFFFFF",
                          "pen 000000 1"};
  for (const double zoom : {0.1, 1.0, 2.0}) EXPECT_EQ(Draw(ViewKind::Wireframe, zoom), expected);

  view.Camera().Position = {0.0, 0.0, 100.0};
  EXPECT_EQ(Draw(ViewKind::Wireframe, 1.0), (Lines{"pen FFFFFF 1", "pen 000000 1"}));
}

TEST_F(Wireframe, WhatLiesBeyondEveryPixelIsDrawnAtTheFarthest) {
  AddTurnedTriangle().BMatrix.Translate(-1e30, 1e30, 0.0);
  const Lines lines = DrawContent(ViewKind::Front, 1.0);
  EXPECT_EQ(lines[2], "fill -499999802,-499999852 4x4 FFFFFF");
}

TEST_F(Wireframe, SelectionIsCyanAndWideAndHiddenBrushesAreLeftOut) {
  AddTurnedTriangle().BFlags = 0;
  CZandoBrush& grouped = AddTurnedTriangle();
  grouped.BFlags = BF_SHOWN | BF_SELECTED;
  grouped.Color = 0x0000FF;
  for (const ViewKind kind : {ViewKind::Wireframe, ViewKind::Top, ViewKind::Side}) {
    view.Camera().Position = {0.0, 0.0, -100.0};
    grouped.BFlags = BF_SHOWN | BF_SELECTED;
    Lines lines = DrawContent(kind, 1.0);
    EXPECT_EQ(lines.front(), "pen 00FFFF 2");
    EXPECT_TRUE(lines[lines.size() - 2].ends_with("4x4 00FFFF"));
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) { return line.starts_with("fill"); }),
              3);
    grouped.BFlags = BF_SHOWN;
    lines = DrawContent(kind, 1.0);
    EXPECT_EQ(lines.front(), "pen FF0000 1");
    EXPECT_TRUE(lines[lines.size() - 2].ends_with("4x4 FF0000"));
  }
}

TEST_F(Wireframe, TheCurrentBrushComesLastInItsOwnColoursWithItsOrigin) {
  CZandoBrush& picked = AddTurnedTriangle();
  AddTurnedTriangle();
  picked.BMatrix.Translate(10.5, 20.4, 30.3);
  document.CurrentBrush = &picked;
  document.ShowBrush = 1;
  AddEntity(0, EF_SHOWN, kWhite);
  const Lines expected = {"pen FFFFFF 1",
                          "poly 200,130 200,130 140,180",
                          "fill 198,128 4x4 FFFFFF",
                          "fill 198,128 4x4 FFFFFF",
                          "fill 138,178 4x4 FFFFFF",
                          "pen 000000 1",
                          "pen FFFFFF 2",
                          "move 208,142",
                          "line 224,158",
                          "move 208,158",
                          "line 224,142",
                          "pen 000000 1",
                          "pen 0000FF 1",
                          "poly 210,110 210,110 151,159",
                          "fill 208,108 4x4 FF0000",
                          "fill 208,108 4x4 FF0000",
                          "fill 149,157 4x4 FF0000",
                          "pen 000000 1",
                          "fill 208,128 4x4 FF0000"};
  EXPECT_EQ(DrawContent(ViewKind::Front, 1.0), expected);

  document.ShowEntities = 0;
  document.ShowBrush = 0;
  EXPECT_EQ(DrawContent(ViewKind::Front, 1.0), Lines(expected.begin(), expected.begin() + 6));

  // A filter takes the outline of the current brush, not its origin.
  document.ShowBrush = 1;
  picked.BFlags = 0;
  EXPECT_EQ(DrawContent(ViewKind::Front, 1.0).back(), expected.back());
  EXPECT_EQ(DrawContent(ViewKind::Front, 1.0).size(), 7U);
}

TEST_F(Wireframe, ASelectedCurrentBrushIsCyanButItsOriginStaysRed) {
  CZandoBrush& picked = AddTurnedTriangle();
  picked.BFlags |= BF_SELECTED;
  document.CurrentBrush = &picked;
  document.ShowBrush = 1;
  const Lines expected = {"pen 00FFFF 2",
                          "poly 305,130 145,130 200,180",
                          "fill 303,128 4x4 00FFFF",
                          "fill 143,128 4x4 00FFFF",
                          "fill 198,178 4x4 00FFFF",
                          "pen 000000 1",
                          "fill 198,148 4x4 FF0000"};
  EXPECT_EQ(DrawContent(ViewKind::Side, 1.0), expected);
}

TEST_F(Wireframe, FullPolygonsCutByTheNearPlaneAreDrawnWhole) {
  struct Row {
    const char* name;
    bool zigzag;
    int points;
  };
  for (const Row& row :
       {Row{"a ring, half of it behind", false, 18}, {"every second vertex behind", true, 48}}) {
    SCOPED_TRACE(row.name);
    CZANDODoc level;
    CZandoBrush brush;
    brush.SetPolyCount(1);
    CZandoPoly polygon;
    for (std::int32_t i = 0; i < MAX_POLY_VERTS; ++i) {
      const double angle = (i + 0.5) * 3.141592653589793 / 16.0;
      const double depth = row.zigzag ? (i % 2 == 0 ? 32.0 : 0.0) : 16.0 + 100.0 * std::sin(angle);
      polygon.Append({100.0 * std::cos(angle), 10.0, depth});
    }
    brush.Polys[0] = polygon;
    level.AddBrush(brush);
    CCamera camera;
    camera.SetViewport(0, 0, 400, 300);
    camera.Position = {0.0, 0.0, 0.0};
    camera.BuildViewMatrix();
    camera.BeginDraw(ViewKind::Wireframe, 1.0);
    CRecordingDC dc(400, 300);
    DrawBrushes({dc, camera, ViewKind::Wireframe, 1.0, {400, 300}}, level);
    EXPECT_EQ(dc.Count("move"), 1);
    EXPECT_EQ(dc.Count("line"), row.points);
    EXPECT_EQ(dc.Count("fill"), row.points);
    EXPECT_EQ(dc.Lines[1].substr(5), dc.Lines[1U + static_cast<std::size_t>(row.points)].substr(5));
  }
}

TEST_F(Wireframe, CoordinatesBeyondReasonLoseNoHandleOfAFlatView) {
  for (const double far : {1e30, -1e300, 1e308, std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()}) {
    document.BrushList.Clear();
    AddTurnedTriangle().BMatrix.Translate(far, far, far);
    for (const ViewKind kind : {ViewKind::Top, ViewKind::Side, ViewKind::Front}) {
      EXPECT_EQ(DrawContent(kind, 2.0).size(), 6U);
    }
    // Nothing at all, or a closed outline: never one or two points.
    const Lines lines = Draw(ViewKind::Wireframe, 2.0);
    EXPECT_TRUE(lines.size() == 2U || lines.size() >= 9U) << lines.size();
  }
}

TEST_F(Wireframe, SolidKindsShowTheirPictureUnderTheOverlays) {
  AddTurnedTriangle();
  document.ShowBrush = 1;
  document.WorkingBrush.SetPolyCount(0);
  view.Camera().Position = {0.0, 0.0, -100.0};
  for (const ViewKind kind : {ViewKind::Solid, ViewKind::Texture}) {
    EXPECT_EQ(Draw(kind, 1.0), (Lines{"dib 0,0 400x300", "pen 0000FF 1", "pen 000000 1",
                                      "fill 198,148 4x4 FF0000"}));
  }
}

TEST_F(Wireframe, EntitiesAreCrossesInTheirColours) {
  AddEntity(0, EF_SHOWN, 0x123456);
  AddEntity(0, EF_SHOWN, kWhite);
  AddEntity(0, EF_SHOWN | EF_SELECTED, kWhite);
  AddEntity(1, EF_SHOWN, kWhite);     // without an origin
  AddEntity(0, EF_SELECTED, kWhite);  // not shown
  document.CurrentEntity = 1;
  struct Row {
    ViewKind kind;
    double zoom;
    Lines cross;
  };
  for (const Row& row :
       {Row{ViewKind::Top, 2.0, {"move 216,134", "line 248,166", "move 216,166", "line 248,134"}},
        {ViewKind::Top, 0.1, {"move 200,149", "line 202,151", "move 200,151", "line 202,149"}},
        {ViewKind::Side, 1.0, {"move 192,142", "line 208,158", "move 192,158", "line 208,142"}}}) {
    Lines expected;
    for (const char* pen : {"pen 563412 2", "pen FF0000 2", "pen 00FFFF 2"}) {
      expected.emplace_back(pen);
      expected.insert(expected.end(), row.cross.begin(), row.cross.end());
      expected.emplace_back("pen 000000 1");
    }
    EXPECT_EQ(DrawContent(row.kind, row.zoom), expected);
  }
  // Out of the window, or behind the camera, nothing is drawn of them.
  view.Camera().Position = {1000.0, 0.0, 1000.0};
  EXPECT_EQ(DrawContent(ViewKind::Front, 1.0), Lines());
  EXPECT_EQ(DrawContent(ViewKind::Wireframe, 1.0), Lines());
}

TEST_F(Wireframe, CrossesInPerspectiveShrinkWithDistanceAndMirrorFromBehind) {
  AddEntity(0, EF_SHOWN, kWhite);
  struct Row {
    double depth, yaw;
    Lines cross;
  };
  for (const Row& row :
       {Row{-500, 0, {"move 203,147", "line 209,153", "move 203,153", "line 209,147"}},
        {-5000, 0, {"move 200,150", "line 200,150", "move 200,150", "line 200,150"}},
        {500, 4096, {"move 196,153", "line 190,147", "move 196,147", "line 190,153"}}}) {
    view.Camera().Position = {0.0, 0.0, row.depth};
    view.Camera().Yaw = row.yaw;
    const Lines lines = Draw(ViewKind::Wireframe, 1.0);
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(Lines(lines.begin() + 1, lines.end() - 1), row.cross);
  }
}

/// Lines drawn under each of the grid's pens.
struct GridCounts {
  int fine = 0;
  int coarse = 0;
  int axes = 0;
  friend bool operator==(const GridCounts&, const GridCounts&) = default;
  friend std::ostream& operator<<(std::ostream& out, const GridCounts& counts) {
    return out << counts.fine << " fine, " << counts.coarse << " coarse, " << counts.axes;
  }
};

GridCounts CountGrid(const Lines& lines) {
  GridCounts counts;
  int* current = nullptr;
  for (const std::string& line : lines) {
    if (line == "pen 8C8C8C 1") current = &counts.fine;
    if (line == "pen BEBEBE 1") current = &counts.coarse;
    if (line == "pen FAFAFA 1") current = &counts.axes;
    if (line.starts_with("line") && current != nullptr) ++*current;
  }
  return counts;
}

TEST_F(Wireframe, GridsAreDrawnWhereTheirLinesStandWideEnoughApart) {
  document.ShowFineGrid = document.ShowCoarseGrid = 1;
  struct Row {
    double zoom, grid;
    GridCounts expected;
  };
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  for (const Row& row : {Row{0.1, 64, {0, 12, 2}},
                         {1, 16, {0, 4, 2}},
                         {1, 20, {0, 4, 2}},  // exactly 20 pixels are too narrow
                         {1, 3, {0, 0, 2}},   // exactly 30
                         {2, 16, {22, 2, 2}},
                         {100, 0.5, {0, 0, 2}},  // no whole spacing
                         {100, 1.5, {8, 2, 2}},  // counted by its whole part
                         {1, 1e300, {2, 2, 2}},
                         {0.001, infinity, {2, 2, 2}},
                         {1, nan, {0, 0, 2}},
                         {1, -16, {0, 0, 2}}}) {
    SCOPED_TRACE(::testing::Message() << "zoom " << row.zoom << " grid " << row.grid);
    document.GridSize = row.grid;
    EXPECT_EQ(CountGrid(Draw(ViewKind::Top, row.zoom)), row.expected);
  }
  document.GridSize = 64.0;
  for (const double far : {1e9, 1e18, 1e300, -1e300}) {
    view.Camera().Position = {far, far, far};
    for (const double zoom : {0.001, 1.0, 1e6}) {
      const GridCounts counts = CountGrid(Draw(ViewKind::Side, zoom));
      EXPECT_LT(counts.fine + counts.coarse, 100);
      EXPECT_EQ(counts.axes, 2);
    }
  }
}

TEST_F(Wireframe, TheFirstCoarseLineIsATenthOneTowardZero) {
  document.ShowCoarseGrid = 1;
  document.GridSize = 16.0;
  // Lines -7 to 18 across and -17 to 1 up are in sight: from 0, and from -10.
  view.Camera().Position = {88.0, 0.0, -122.0};
  const Lines lines = Draw(ViewKind::Top, 1.0);
  const Lines expected = {"pen BEBEBE 1",  "move -88,-150", "line -88,150", "move 72,-150",
                          "line 72,150",   "move -200,38",  "line 200,38",  "move -200,-122",
                          "line 200,-122", "pen 000000 1"};
  ASSERT_GT(lines.size(), 11U);
  EXPECT_EQ(Lines(lines.begin() + 1, lines.begin() + 11), expected);
}

TEST_F(Wireframe, GridLinesStandAtTheirPlacesFineThenCoarseThenAxes) {
  document.ShowFineGrid = document.ShowCoarseGrid = 1;
  document.GridSize = 100.0;
  view.OnSize(401, 301);
  view.Camera().Position = {1030.5, 7.0, -90.0};
  const Lines expected = {
      "org 200,150",    "pen 8C8C8C 1",                                      //
      "move -230,-150", "line -230,150", "move -130,-150", "line -130,150",  // x 800, 900
      "move -30,-150",  "line -30,150",  "move 69,-150",   "line 69,150",    // x 1000, 1100
      "move 169,-150",  "line 169,150",                                      // x 1200
      "move -200,110",  "line 200,110",  "move -200,10",   "line 200,10",    // z -200, -100
      "move -200,-90",  "line 200,-90",  "pen 000000 1",   "pen BEBEBE 1",   // z 0
      "move -1030,-150"};
  const Lines lines = Draw(ViewKind::Top, 1.0);
  ASSERT_GT(lines.size(), expected.size());
  EXPECT_EQ(Lines(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(expected.size())),
            expected);
  const Lines end = {"pen FAFAFA 1",   "move -1030,-32000", "line -1030,32000", "move -32000,-90",
                     "line 32000,-90", "pen 000000 1",      "org 0,0"};
  EXPECT_EQ(Lines(lines.end() - 7, lines.end()), end);
  EXPECT_EQ(Draw(ViewKind::Wireframe, 1.0), Lines());
  const Lines near = Draw(ViewKind::Top, 3.0);
  EXPECT_EQ(near[near.size() - 5], "line -3091,10666");
}

}  // namespace
}  // namespace zando
