#include "views/camera.h"

#include <gtest/gtest.h>

#include <limits>

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

}  // namespace
}  // namespace zando
