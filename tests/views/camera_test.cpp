#include "views/camera.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace zando {
namespace {

CCamera MakeCamera(const Vector& position, ViewKind kind, double zoom) {
  CCamera camera;
  camera.SetViewport(0, 0, 400, 300);
  camera.Position = position;
  camera.BuildViewMatrix();
  camera.BeginDraw(kind, zoom);
  return camera;
}

TEST(Camera, ViewportWidthIsRoundedUpToFour) {
  struct Row {
    std::int32_t client, width, centre;
  };
  for (const Row row : {Row{0, 0, 0}, {1, 4, 2}, {5, 8, 4}, {400, 400, 200}}) {
    CCamera camera;
    camera.SetViewport(0, 0, row.client, 101);
    EXPECT_EQ(camera.Width(), row.width);
    EXPECT_EQ(camera.Centre(), (ScreenPoint{row.centre, 50}));
    EXPECT_NEAR(camera.FocalX(), row.centre, 1e-9);
    EXPECT_EQ(camera.FocalY(), -camera.FocalX());
  }
  CCamera offset;
  offset.SetViewport(10, 20, 15, 31);
  EXPECT_EQ(offset.Width(), 6);
  EXPECT_EQ(offset.Height(), 11);
  EXPECT_EQ(offset.Centre(), (ScreenPoint{13, 25}));
}

TEST(Camera, MapsBetweenWorldAndScreenInEveryKind) {
  struct Row {
    ViewKind kind;
    ScreenPoint screen;
    Vector back;
  };
  const Vector point{30.0, 60.0, -10.0};
  for (const Row& row : {Row{ViewKind::Top, {210, 170}, {30.0, 0.0, -10.0}},
                         {ViewKind::Side, {180, 130}, {0.0, 60.0, -10.0}},
                         {ViewKind::Front, {210, 130}, {30.0, 60.0, 0.0}},
                         {ViewKind::Wireframe, {-32, -32}, {0.0, 0.0, 0.0}},
                         {ViewKind::Solid, {-32, -32}, {0.0, 0.0, 0.0}},
                         {ViewKind::Texture, {-32, -32}, {0.0, 0.0, 0.0}}}) {
    const CCamera camera = MakeCamera({10.0, 20.0, 30.0}, row.kind, 0.5);
    EXPECT_EQ(camera.WorldToScreen(point), row.screen);
    EXPECT_EQ(camera.ScreenToWorld(row.screen), row.back);
  }
}

TEST(Camera, TruncatesTowardZeroFromTheCentreAndNeverOverflows) {
  const CCamera camera = MakeCamera({0.0, 0.0, 0.0}, ViewKind::Front, 1.0);
  EXPECT_EQ(camera.WorldToScreen({0.9, 0.9, 0.0}), (ScreenPoint{200, 150}));
  EXPECT_EQ(camera.WorldToScreen({-1.9, -1.9, 0.0}), (ScreenPoint{199, 151}));
  const auto farthest = static_cast<std::int32_t>(kFarthestPixel);
  EXPECT_EQ(camera.WorldToScreen({1e300, 1e300, 0.0}),
            (ScreenPoint{200 + farthest, 150 - farthest}));
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(camera.WorldToScreen({nan, nan, 0.0}), (ScreenPoint{200, 150}));
}

TEST(Camera, LooksAlongZAndTurnsByItsAngles) {
  CCamera camera = MakeCamera({0.0, 0.0, -500.0}, ViewKind::Solid, 0.1);
  EXPECT_EQ(camera.WorldToScreen({51.0, 26.0, 0.0}), (ScreenPoint{220, 139}));
  EXPECT_EQ(camera.WorldToScreen({51.0, 26.0, -500.0}), (ScreenPoint{-32, -32}));

  // Flying forward goes where the view looks: a point ahead stays in the middle.
  camera.Turn(700.0, 0.0, 0.0);
  const Vector start = camera.Position;
  camera.Fly(0.0, 0.0, 10.0);
  const Vector ahead = camera.Position;
  camera.Position = start;
  camera.BuildViewMatrix();
  const CCamera::Projected middle = camera.ProjectPoint(ahead);
  EXPECT_NEAR(middle.x, 200.0, 1e-9);
  EXPECT_NEAR(middle.y, 150.0, 1e-9);

  // Yaw first, then pitch: straight up at a pitch of a quarter turn, whatever the heading.
  camera.Turn(0.0, 2048.0, 0.0);
  camera.BuildViewMatrix();
  Vector above = start + Vector{0.0, 100.0, 0.0};
  camera.ViewMatrix().TransformPoint(above);
  EXPECT_NEAR(above.z, 100.0, 1e-9);
}

TEST(Camera, TheViewMatrixUndoesYawThenPitchThenRollAboutThePosition) {
  struct Row {
    double yaw, pitch, roll;
    Vector seen;
  };
  for (const Row& row : {Row{0, 0, 0, {1, 2, 3}},
                         {2048, 0, 0, {3, 2, -1}},
                         {0, 2048, 0, {1, -3, 2}},
                         {0, 0, 2048, {-2, 1, 3}},
                         {2048, 2048, 2048, {-1, 3, 2}}}) {
    CCamera camera;
    camera.Position = {10.0, 20.0, 30.0};
    camera.Turn(row.yaw, row.pitch, row.roll);
    camera.BuildViewMatrix();
    Vector point{11.0, 22.0, 33.0};
    camera.ViewMatrix().TransformPoint(point);
    SCOPED_TRACE(::testing::Message() << row.yaw << ' ' << row.pitch << ' ' << row.roll);
    EXPECT_NEAR(point.x, row.seen.x, 1e-9);
    EXPECT_NEAR(point.y, row.seen.y, 1e-9);
    EXPECT_NEAR(point.z, row.seen.z, 1e-9);
  }
}

TEST(Camera, PitchStopsAtAQuarterTurnAndYawAndRollDoNot) {
  CCamera camera;
  for (int i = 0; i < 1000; ++i) camera.Turn(6.0, 6.0, 9.0);
  EXPECT_EQ(camera.Pitch, 2048.0);
  for (int i = 0; i < 2000; ++i) camera.Turn(6.0, -6.0, 0.0);
  EXPECT_EQ(camera.Pitch, -2048.0);
  EXPECT_EQ(camera.Yaw, 18000.0);
  EXPECT_EQ(camera.Roll, 9000.0);
}

TEST(Camera, CutsPolygonsOffAtTheNearPlane) {
  struct Point {
    double x, y, depth;
  };
  struct Row {
    const char* name;
    std::vector<Vector> vertices;
    std::vector<Point> expected;
  };
  const std::vector<Row> rows = {
      {"on the plane is in front",
       {{0, 0, 16}, {16, 0, 16}, {0, 16, 16}},
       {{200, 150, 16}, {400, 150, 16}, {200, -50, 16}}},
      {"one behind: toward the previous vertex, then the next",
       {{0, 0, 0}, {32, 0, 32}, {-32, 0, 32}},
       {{0, 150, 16}, {400, 150, 16}, {400, 150, 32}, {0, 150, 32}}},
      {"two behind",
       {{0, 0, 32}, {32, 0, 0}, {-32, 0, 0}},
       {{200, 150, 32}, {400, 150, 16}, {0, 150, 16}}},
      {"all behind", {{0, 0, 15.9}, {32, 0, 15}, {-32, 0, -100}}, {}},
  };
  const CCamera camera = MakeCamera({0.0, 0.0, 0.0}, ViewKind::Wireframe, 0.1);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    CZandoPoly polygon;
    for (const Vector& vertex : row.vertices) polygon.Append(vertex);
    const CProjectedPoly projected = camera.ProjectPolygon(polygon);
    ASSERT_EQ(projected.Points().size(), row.expected.size());
    for (std::size_t i = 0; i < row.expected.size(); ++i) {
      EXPECT_NEAR(projected.points[i].x, row.expected[i].x, 1e-9);
      EXPECT_NEAR(projected.points[i].y, row.expected[i].y, 1e-9);
      EXPECT_EQ(projected.points[i].depth, row.expected[i].depth);
    }
  }
}

TEST(Camera, ProjectsAFullPolygonThatCrossesTheNearPlaneAtEveryEdge) {
  CZandoPoly polygon;
  polygon.tag = 17;
  for (std::int32_t i = 0; i < MAX_POLY_VERTS; ++i) {
    polygon.Append({static_cast<double>(i), 0.0, i % 2 == 0 ? 32.0 : 0.0});
  }
  const CProjectedPoly projected =
      MakeCamera({0.0, 0.0, 0.0}, ViewKind::Wireframe, 0.1).ProjectPolygon(polygon);
  EXPECT_EQ(projected.count, 48);
  EXPECT_EQ(projected.color, 17U);
}

}  // namespace
}  // namespace zando
