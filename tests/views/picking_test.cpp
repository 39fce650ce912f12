#include "views/picking.h"

#include <algorithm>
#include <limits>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "support/csg_testing.h"
#include "views/solid_renderer.h"
#include "views/view_fixture.h"

namespace zando {
namespace {

using testing::CRandom;

class Picking : public testing::ViewTest {
 protected:
  void Look(ViewKind kind, const Vector& from) {
    camera.SetViewport(0, 0, 400, 300);
    camera.Position = from;
    camera.BuildViewMatrix();
    camera.BeginDraw(kind, 1.0);
  }
  std::int32_t PickedBrush(ScreenPoint pixel) {
    state.CurrentBrush = kWorkingBrush;
    PickBrushAt(document, camera, pixel);
    return state.CurrentBrush;
  }

  CCamera camera;
};

/// The shown convex brush that the ray enters first, by the planes of its faces.
std::int32_t FirstEntered(const Level& level, const Ray& ray) {
  std::int32_t first = kWorkingBrush;
  double nearest = std::numeric_limits<double>::infinity();
  for (const CZandoBrush& brush : level.BrushList) {
    double in = -1e30;
    double out = 1e30;
    for (const CZandoPoly& polygon : brush.WorldPolys()) {
      const Plane plane = ComputePlane(polygon);
      const double slope = Dot(plane.normal, ray.direction);
      const double at = -SignedDistance(plane, ray.origin) / slope;
      slope < 0.0 ? in = std::max(in, at) : out = std::min(out, at);
    }
    if (!brush.IsShown() || in > out || in < kNearDepth || in >= nearest) continue;
    nearest = in;
    first = brush.BBid;
  }
  return first;
}

TEST_F(Picking, InPerspectiveAPixelPicksTheShownOwnerOfItsFaceOrTheFirstBrushOnItsRay) {
  CSolidRenderer renderer;
  testing::LevelOptions options{.brushes = 30, .turned = 30};
  int picked = 0;
  int differing = 0;
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    CRandom random(seed);
    level.BrushList = RandomLevel(seed, options);
    testing::BuildWorld(level.World, level.BrushList, testing::Build::Optimal);
    WalkBackFrontNode(level.World.root,
                      [&](CBspNode* node) { node->nValid = random.Percent(10) ? 0 : 1; });
    std::map<const BrushFace*, std::int32_t> owners{{nullptr, kWorkingBrush}};
    for (CZandoBrush& brush : level.BrushList) {
      if (random.Percent(10)) brush.BFlags = 0;
      for (const BrushFace& face : brush.Faces) {
        owners[&face] = brush.IsShown() ? brush.BBid : kWorkingBrush;
      }
    }
    camera.SetViewport(0, 0, 60, 41);
    camera.Position = {random.Real(0, 256), random.Real(0, 256), random.Real(-200, 150)};
    camera.Yaw = random.Real(-700, 700);
    camera.Pitch = random.Real(-700, 700);
    camera.Roll = random.Real(0, 8192);
    camera.BuildViewMatrix();
    ASSERT_TRUE(renderer.SetViewport(60, 41, ColorTable{}));
    renderer.Render(camera, level.World, RenderMode::Solid);
    std::vector<std::int32_t> shown(std::size_t{60} * 41, kWorkingBrush);
    for (const Span& span : renderer.Spans().Spans()) {
      std::fill_n(shown.begin() + span.y * 60 + span.x0, span.x1 - span.x0, owners[span.face]);
    }
    for (std::int32_t i = 0; i < 60 * 41; ++i) {
      const ScreenPoint pixel{i % 60, i / 60};
      camera.BeginDraw(i % 2 == 0 ? ViewKind::Solid : ViewKind::Texture, 1.0);
      const std::int32_t brush = PickedBrush(pixel);
      differing += brush != shown[static_cast<std::size_t>(i)] ? 1 : 0;
      picked += brush != kWorkingBrush ? 1 : 0;
      camera.BeginDraw(ViewKind::Wireframe, 1.0);
      ASSERT_EQ(PickedBrush(pixel), FirstEntered(level, camera.RayThrough(pixel))) << i;
    }
  }
  EXPECT_GT(picked, 1000);
  EXPECT_LE(differing * 1000, picked);  // the edges of spans are rounded
}

TEST_F(Picking, WithinABrushItIsNotEnteredAndFacesOfDeletedBrushesAreNobodys) {
  AddBox({{-100, -100, -100}, {100, 100, 100}});
  AddBox({{-10, -10, 50}, {10, 10, 60}});
  testing::BuildWorld(level.World, level.BrushList, testing::Build::Optimal);
  Look(ViewKind::Wireframe, {0, 0, 0});
  EXPECT_EQ(PickedBrush({200, 150}), 1);
  EXPECT_EQ(PickedBrush({300, 150}), kWorkingBrush);
  Look(ViewKind::Solid, {0, 0, -500});
  level.RemoveBrush(0);
  document.SetModifiedFlag(false);
  EXPECT_EQ(PickedBrush({200, 150}), kWorkingBrush);
  EXPECT_FALSE(document.IsModified());
}

TEST_F(Picking, TheNearestShownEntityIsPickedWithinItsReach) {
  AddEntity("");                  // without an origin it is nowhere
  AddEntity("0 0 0").eFlags = 0;  // hidden
  AddEntity("-3 9 0");
  AddEntity("17 9 0");
  AddEntity("0 0 -300");
  for (const auto& [kind, pixel, entity] :
       {std::tuple{ViewKind::Top, ScreenPoint{207, 150}, 2},  // as near as the other, and first
        {ViewKind::Top, {208, 150}, 3},
        {ViewKind::Top, {317, 150}, 3},
        {ViewKind::Top, {318, 150}, 7},
        {ViewKind::Top, {278, 230}, 7},
        {ViewKind::Side, {200, 241}, 2},
        {ViewKind::Side, {200, 242}, 7},
        // A unit is a pixel at this depth.
        {ViewKind::Wireframe, {207, 141}, 2},
        {ViewKind::Solid, {208, 141}, 3},
        {ViewKind::Texture, {229, 141}, 3},
        {ViewKind::Solid, {230, 141}, 7},
        {ViewKind::Solid, {189, 132}, 7},
        {ViewKind::Solid, {189, 133}, 2},
        {ViewKind::Solid, {200, 151}, 2},
        {ViewKind::Solid, {-32, -32}, 7}}) {
    Look(kind, {0, 0, IsOrthographic(kind) ? 0.0 : -200.0});
    for (const std::int32_t shown : {1, 0}) {
      state.ShowEntities = shown;
      state.CurrentEntity = 7;
      PickEntityAt(document, camera, pixel);
      EXPECT_EQ(state.CurrentEntity, shown == 1 ? entity : 7)
          << static_cast<int>(kind) << ": " << pixel.x << "," << pixel.y;
    }
  }
  EXPECT_FALSE(document.IsModified());
}

TEST_F(Picking, AFrameTakesWhatIsShownWhollyInItAndBeforeTheEye) {
  AddBox({{-9, -9, -9}, {9, 9, 9}}).BFlags |= BF_ENTITY;  // before the first of the world
  AddBox({{-50, -40, 0}, {50, 40, 100}});                 // its front reaches the frame's sides
  AddBox({{-51, -9, 0}, {9, 9, 100}});
  AddBox({{-1, -1, -190}, {1, 1, -185}});  // nearer than the near plane
  AddBox({{-9, -9, -300}, {9, 9, 0}});     // reaches behind the eye
  AddBox({{-9, -9, -9}, {9, 9, 9}}).BFlags |= BF_ENTITY;
  AddBox({{-9, -9, -9}, {9, 9, 9}}).BFlags = 0;
  AddBox({}).SetPolyCount(0);
  for (const char* origin : {"50 40 0", "51 0 0", "0 0 -300", "0 999 0", ""}) AddEntity(origin);
  AddEntity("0 0 0").eFlags = 0;
  document.SetModifiedFlag(false);
  for (const auto& [kind, expected] : {std::pair{ViewKind::Wireframe, "01000100 100000"},
                                       {ViewKind::Solid, "01000100 100000"},
                                       {ViewKind::Front, "01011100 101000"},
                                       {ViewKind::Side, "00000100 110000"},
                                       {ViewKind::Top, "00000100 100100"}}) {
    SCOPED_TRACE(static_cast<int>(kind));
    Look(kind, {0, 0, IsOrthographic(kind) ? 0.0 : -200.0});
    const auto after = [&](const ScreenRect& frame, Selection selection) {
      SelectInFrame(document, camera, frame, selection);
      std::string flags;
      for (const CZandoBrush& brush : level.BrushList) flags += brush.IsSelected() ? '1' : '0';
      flags += ' ';
      for (const CEntity& entity : level.Entities) flags += entity.IsSelected() ? '1' : '0';
      return flags;
    };
    const ScreenRect frame{150, 110, 250, 190};
    EXPECT_EQ(after(frame, Selection::Select), expected);
    EXPECT_EQ(after({0, 0, 1, 1}, Selection::Deselect), expected);
    EXPECT_EQ(after(frame, Selection::Deselect), "00000000 000000");
    state.ShowEntities = 0;
    EXPECT_EQ(after(frame, Selection::Select), std::string(expected, 9) + "000000");
    after(frame, Selection::Deselect);
    state.ShowEntities = 1;
  }
  EXPECT_FALSE(document.IsModified());
}

}  // namespace
}  // namespace zando
