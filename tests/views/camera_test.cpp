#include "views/camera.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace zando {
namespace {

/// Of a client area that begins at (10, 20) and is one pixel narrower than its viewport.
CCamera MakeCamera(const Vector& position, ViewKind kind) {
  CCamera camera;
  camera.SetViewport(10, 20, 409, 321);
  camera.Position = position;
  camera.BuildViewMatrix();
  camera.BeginDraw(kind, 0.5);
  return camera;
}

TEST(Camera, MapsBetweenWorldAndScreenInEveryKind) {
  constexpr auto kFar = static_cast<std::int32_t>(kFarthestPixel);
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  struct Row {
    ViewKind kind;
    Vector point;
    ScreenPoint screen;  ///< truncated toward the centre, (211, 170)
  };
  for (const Row& row : {Row{ViewKind::Top, {30, 60, -10}, {221, 190}},
                         {ViewKind::Side, {30, 60, -10}, {191, 150}},
                         {ViewKind::Front, {30, 60, -10}, {221, 150}},
                         {ViewKind::Front, {11.9, 21.9, 0}, {211, 170}},
                         {ViewKind::Front, {8.1, 18.1, 0}, {211, 170}},
                         {ViewKind::Front, {6, 1e300, 0}, {209, 170 - kFar}},
                         {ViewKind::Front, {-1e300, kNaN, 0}, {211 - kFar, 170}},
                         {ViewKind::Wireframe, {30, 60, 130}, {251, 89}},
                         {ViewKind::Solid, {30, 60, 30}, {-32, -32}},
                         {ViewKind::Texture, {30, 60, -10}, {-32, -32}}}) {
    EXPECT_EQ(MakeCamera({10, 20, 30}, row.kind).WorldToScreen(row.point), row.screen);
  }
  const auto back = [](ViewKind kind) {
    return MakeCamera({10, 20, 30}, kind).ScreenToWorld({221, 190});
  };
  EXPECT_EQ(back(ViewKind::Top), (Vector{30, 0, -10}));
  EXPECT_EQ(back(ViewKind::Side), (Vector{0, -20, 50}));
  EXPECT_EQ(back(ViewKind::Front), (Vector{30, -20, 0}));
  EXPECT_EQ(back(ViewKind::Solid), (Vector{0, 0, 0}));
}

TEST(Camera, CutsPolygonsOffAtTheNearPlane) {
  using Point = CProjectedPoly::Point;
  struct Row {
    const char* name;
    std::vector<Vector> vertices;
    std::vector<Point> expected;
  };
  const CCamera camera = MakeCamera({0, 0, 0}, ViewKind::Wireframe);
  for (const Row& row :
       std::vector<Row>{{"on the plane is in front",
                         {{0, 0, 16}, {16, 0, 16}, {0, 16, 16}},
                         {{211, 170, 16}, {412, 170, 16}, {211, -31, 16}}},
                        {"one behind: toward the previous vertex, then the next",
                         {{0, 0, 0}, {32, 0, 32}, {-32, 0, 32}},
                         {{10, 170, 16}, {412, 170, 16}, {412, 170, 32}, {10, 170, 32}}},
                        {"two behind",
                         {{0, 0, 32}, {32, 0, 0}, {-32, 0, 0}},
                         {{211, 170, 32}, {412, 170, 16}, {10, 170, 16}}},
                        {"all behind", {{0, 0, 15.9}, {32, 0, 15}, {-32, 0, -100}}, {}}}) {
    SCOPED_TRACE(row.name);
    CZandoPoly polygon;
    polygon.tag = 17;
    for (const Vector& vertex : row.vertices) polygon.Append(vertex);
    const CProjectedPoly projected = camera.ProjectPolygon(polygon);
    EXPECT_EQ(projected.color, 17U);
    ASSERT_EQ(projected.Points().size(), row.expected.size());
    for (std::size_t i = 0; i < row.expected.size(); ++i) {
      EXPECT_NEAR(projected.points[i].x, row.expected[i].x, 1e-9);
      EXPECT_NEAR(projected.points[i].y, row.expected[i].y, 1e-9);
      EXPECT_EQ(projected.points[i].depth, row.expected[i].depth);
    }
  }
}

}  // namespace
}  // namespace zando
