#include "views/solid_renderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "support/csg_testing.h"
#include "support/random_level.h"
#include "support/recording_dc.h"
#include "views/span_testing.h"

namespace zando {
namespace {

using testing::Build;
using testing::CRandom;
using testing::CRecordingDC;
using testing::LevelOptions;
using testing::TagsOf;

/// Gives every polygon of the tree a tag of its own; returns them by tag.
std::vector<const CBspNode*> NumberPolygons(const CConstructiveBsp& world) {
  std::vector<const CBspNode*> polygons{nullptr};
  WalkBackFrontNode(world.root, [&polygons](CBspNode* node) {
    for (; node != nullptr; node = node->chain) {
      node->polygon.tag = static_cast<std::uint32_t>(polygons.size());
      polygons.push_back(node);
    }
  });
  return polygons;
}

/// Whether another polygon shows within a pixel of the place.
bool HasEdgeAt(const std::vector<std::uint32_t>& tags, const CCamera& camera, std::int32_t place) {
  const std::int32_t width = camera.Width();
  for (std::int32_t i = 0; i < 9; ++i) {
    const std::int32_t x = std::clamp(place % width + i % 3 - 1, 0, width - 1);
    const std::int32_t y = std::clamp(place / width + i / 3 - 1, 0, camera.Height() - 1);
    if (tags[static_cast<std::size_t>(y * width + x)] != tags[static_cast<std::size_t>(place)]) {
      return true;
    }
  }
  return false;
}

/// In or beside a random level.
void PlaceCamera(CCamera& camera, CRandom& random) {
  const auto coordinate = [&] { return random.Real(-80.0, 336.0); };
  camera.Position = {coordinate(), coordinate(), coordinate()};
  camera.Yaw = random.Real(0.0, 8192.0);
  camera.Pitch = random.Real(-2048.0, 2048.0);
  camera.Roll = random.Percent(30) ? random.Real(0.0, 8192.0) : 0.0;
  camera.BuildViewMatrix();
}

/// Faces of two brushes can fill the same place; either may show.
bool AreInOnePlane(const CBspNode* a, const CBspNode* b) {
  if (a == nullptr || b == nullptr) return false;
  return std::ranges::all_of(a->polygon.Vertices(), [b](const Vector& v) {
    return ClassifyPoint(b->plane, v) == PointClass::On;
  });
}

/// The axes of a camera in the world: turned by roll, then pitch, then yaw.
struct Basis {
  explicit Basis(const CCamera& camera) : right(Turn({1, 0, 0}, camera)) {
    up = Turn({0, 1, 0}, camera);
    forward = Turn({0, 0, 1}, camera);
  }
  static Vector Turn(Vector v, const CCamera& camera) {
    const auto turn = [&v](double angle, double Vector::*from, double Vector::*to) {
      const double radians = -angle / 8192.0 * 2.0 * std::numbers::pi;
      const Vector old = v;
      v.*from = old.*from * std::cos(radians) - old.*to * std::sin(radians);
      v.*to = old.*from * std::sin(radians) + old.*to * std::cos(radians);
    };
    turn(camera.Roll, &Vector::x, &Vector::y);
    turn(camera.Pitch, &Vector::y, &Vector::z);
    turn(camera.Yaw, &Vector::z, &Vector::x);
    return v;
  }
  Vector right, up, forward;
};

/// Where a ray meets the polygon, in steps of its direction; infinity where it does not, or too
/// near, or from behind.
double Meets(const CBspNode& node, const Vector& eye, const Vector& direction) {
  constexpr double kNever = std::numeric_limits<double>::infinity();
  const double before = SignedDistance(node.plane, eye);
  if (before <= PLANE_EPSILON) return kNever;
  const double depth = -before / Dot(node.plane.normal, direction);
  if (!(depth >= kNearDepth)) return kNever;
  return testing::Contains(node, eye + direction * depth) ? depth : kNever;
}

/// The tag of the visible polygon that a ray through the corner of each pixel meets first, row by
/// row; 0 where it meets none.
std::vector<std::uint32_t> TagsOnRays(const CCamera& camera,
                                      const std::vector<const CBspNode*>& polygons) {
  const Basis basis(camera);
  const std::int32_t focal = camera.Width() / 2;
  std::vector<std::uint32_t> tags;
  for (std::int32_t i = 0; i < camera.Width() * camera.Height(); ++i) {
    const double x = (i % camera.Width() - focal) / double(focal);
    const double y = (camera.Height() / 2 - i / camera.Width()) / double(focal);
    const Vector direction = basis.forward + basis.right * x + basis.up * y;
    double nearest = std::numeric_limits<double>::infinity();
    tags.push_back(0);
    for (const CBspNode* polygon : polygons) {
      if (polygon == nullptr || polygon->nValid == 0) continue;
      const double depth = Meets(*polygon, camera.Position, direction);
      if (depth >= nearest) continue;
      nearest = depth;
      tags.back() = polygon->polygon.tag;
    }
  }
  return tags;
}

void CompareWithRays(LevelOptions::Layout layout, Build build) {
  const std::int32_t turned = layout == LevelOptions::Layout::General ? 50 : 0;
  const LevelOptions options{
      .layout = layout, .brushes = 30, .tapered = turned / 2, .turned = turned, .shaped = 20};
  CSolidRenderer renderer;
  std::int64_t drawn = 0;
  std::int64_t differences = 0;
  for (std::uint64_t seed = 1; seed <= 8; ++seed) {
    CRandom random(seed);
    const CBrushList brushes = RandomLevel(seed, options);
    CConstructiveBsp world;
    testing::BuildWorld(world, brushes, build);
    const std::vector<const CBspNode*> polygons = NumberPolygons(world);
    CCamera camera;
    camera.SetViewport(0, 0, random.Between(2, 100), random.Between(1, 70));
    ASSERT_TRUE(renderer.SetViewport(camera.Width(), camera.Height(), ColorTable{}));
    for (int frame = 0; frame < 8; ++frame) {
      PlaceCamera(camera, random);
      renderer.Render(camera, world, RenderMode::Solid);
      const std::vector<std::uint32_t> expected = TagsOnRays(camera, polygons);
      const std::vector<std::uint32_t> tags = TagsOf(renderer.Spans());
      for (std::size_t i = 0; i < tags.size(); ++i) {
        ASSERT_EQ(renderer.Surface().Pixels()[i], tags[i] & 0xFFU);
        drawn += tags[i] != 0 ? 1 : 0;
        if (tags[i] == expected[i] || AreInOnePlane(polygons[tags[i]], polygons[expected[i]])) {
          continue;
        }
        ++differences;
        EXPECT_TRUE(HasEdgeAt(expected, camera, static_cast<std::int32_t>(i)))
            << "seed " << seed << ", frame " << frame << ", pixel " << i;
      }
    }
  }
  EXPECT_GT(drawn, 15'000);
  EXPECT_LE(differences * 1000, drawn);
}

TEST(SolidRendererLevels, ShowThePolygonsThatRaysThroughThePixelsMeetFirst) {
  for (const auto layout : {LevelOptions::Layout::General, LevelOptions::Layout::CoarseGrid}) {
    for (const Build build : {Build::Optimal, Build::Quick}) CompareWithRays(layout, build);
  }
}

/// A square that faces the camera of a new view, `size` to each side of (x, y), at depth z.
CBspNode* Square(CConstructiveBsp& tree, double x, double y, double z, double size,
                 std::uint32_t tag) {
  CZandoPoly polygon;
  for (const auto& [dx, dy] : {std::pair{-1, -1}, {-1, 1}, {1, 1}, {1, -1}}) {
    polygon.Append({x + dx * size, y + dy * size, z});
  }
  CBspNode* node = tree.NewNode();
  node->TakePolygon(polygon);
  node->polygon.tag = tag;
  return node;
}

class SolidRenderer : public ::testing::Test {
 protected:
  void SetSize(std::int32_t width, std::int32_t height) {
    camera.SetViewport(0, 0, width, height);
    camera.Position = {0.0, 0.0, 0.0};
    camera.BuildViewMatrix();
    renderer.SetViewport(camera.Width(), camera.Height(), ColorTable{});
  }

  /// The picture, a digit a pixel.
  std::string Draw(RenderMode mode = RenderMode::Solid) {
    renderer.Render(camera, world, mode);
    std::string text;
    const auto pixels = renderer.Surface().Pixels();
    for (std::size_t i = 0; i < pixels.size(); ++i) {
      text += static_cast<char>('0' + pixels[i]);
      if ((i + 1) % static_cast<std::size_t>(camera.Width()) == 0) text += '\n';
    }
    return text;
  }

  CConstructiveBsp world;
  CCamera camera;
  CSolidRenderer renderer;
};

TEST_F(SolidRenderer, WhatIsNearerOrEarlierInAChainKeepsSharedPixels) {
  SetSize(12, 6);
  // At depth 96 a pixel is 16 units.
  world.root = Square(world, 0.0, 0.0, 96.0, 32.0, 1);
  world.root->back = Square(world, 32.0, 0.0, 192.0, 96.0, 2);
  world.root->chain = Square(world, -32.0, 0.0, 96.0, 32.0, 3);
  world.root->chain->chain = Square(world, 0.0, 0.0, 96.0, 96.0, 4);
  world.root->chain->chain->nValid = 0;
  const std::string edge = "000022222200\n";
  const std::string row = "003311112200\n";
  EXPECT_EQ(Draw(), edge + row + row + row + row + edge);
  EXPECT_EQ(renderer.DrawnPolygons(), 3);
  EXPECT_EQ(Draw(RenderMode::Textured).find_first_not_of("0\n"), std::string::npos);
}

TEST_F(SolidRenderer, AFullPictureEndsTheWalkWhateverItsSize) {
  world.root = Square(world, 0.0, 0.0, 20.0, 1e6, 7);
  world.root->back = Square(world, 0.0, 0.0, 30.0, 10.0, 8);
  for (const auto& [width, height] :
       {std::pair{8, 8}, {1, 1}, {5, 3}, {8192, 1}, {8192, 40}, {4, 5000}, {1023, 600}}) {
    SetSize(width, height);
    const std::string picture = Draw();
    EXPECT_EQ(picture.find_first_not_of("7\n"), std::string::npos) << width << 'x' << height;
    EXPECT_TRUE(renderer.Spans().ScreenFull());
    EXPECT_EQ(renderer.DrawnPolygons(), 1);
    EXPECT_EQ(renderer.Spans().Spans().size(), static_cast<std::size_t>(height));
    CRecordingDC dc(width, height);
    EXPECT_TRUE(renderer.Present(dc));
    EXPECT_EQ(dc.Text, "dib 0,0 " + std::to_string((width + 3) / 4 * 4) + "x" +
                           std::to_string(height) + "; ");
  }
}

TEST_F(SolidRenderer, WithoutAPictureNothingIsDrawnOrPresented) {
  world.root = Square(world, 0.0, 0.0, 20.0, 1e6, 7);
  for (const auto& [width, height] : {std::pair{8, 8}, {0, 0}, {0, 8}, {8, 0}}) {
    SetSize(width, height);
    EXPECT_EQ(Draw().empty(), width * height == 0);
    CRecordingDC dc(8, 8);
    EXPECT_EQ(renderer.Present(dc), width * height != 0);
    EXPECT_EQ(dc.Text.empty(), width * height == 0);
  }
}

}  // namespace
}  // namespace zando
