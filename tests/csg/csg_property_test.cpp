#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "support/csg_testing.h"
#include "support/solid_points.h"

namespace zando::testing {
namespace {

using Layout = LevelOptions::Layout;

/// What lies just beside a face at a point, in a direction, and a little around there. Nothing
/// where that differs: an edge or another face is near.
std::optional<bool> StateBeside(const CBrushList& level, const Vector& point,
                                const Vector& direction, const Vector& along) {
  const Vector across = Cross(direction, along);
  const Vector place = point + direction * 0.01;
  const bool solid = IsSolidAt(level, place);
  for (const Vector& to : {along, along * -1.0, across, across * -1.0, direction}) {
    if (IsSolidAt(level, place + to * 0.1) != solid) return std::nullopt;
  }
  return solid;
}

/// Looks at random points of the faces of all brushes. Where volume alone tells that one side is
/// solid and the other one empty, polygons must be seen from the empty side; elsewhere nothing.
/// Returns how many points are wrong.
int WrongPoints(const CBrushList& level, const std::vector<const CBspNode*>& visible,
                CRandom& random) {
  int wrongPoints = 0;
  for (const CZandoBrush& brush : level) {
    for (const CZandoPoly& face : brush.WorldPolys()) {
      const Vector normal = ComputePlane(face).normal;
      for (int i = 0; i < 4; ++i) {
        const std::int32_t corner = random.Between(2, face.count - 1);
        double b = random.Real(0.0, 1.0);
        double c = random.Real(0.0, 1.0);
        if (b + c > 1.0) b = 1.0 - b, c = 1.0 - c;
        const Vector point =
            face[0] + (face[corner - 1] - face[0]) * b + (face[corner] - face[0]) * c;
        const Vector along = Normalised(face[corner] - face[0]);
        const auto before = StateBeside(level, point, normal, along);
        const auto behind = StateBeside(level, point, normal * -1.0, along);
        if (!before || !behind) continue;
        int right = 0;
        int wrong = 0;
        for (const CBspNode* node : visible) {
          const bool isInPlane = std::abs(Dot(node->plane.normal, normal)) > 0.99 &&
                                 std::abs(SignedDistance(node->plane, point)) <= PLANE_EPSILON;
          if (!isInPlane || !Contains(*node, point)) continue;
          const bool emptyBefore = Dot(node->plane.normal, normal) > 0.0 ? !*before : !*behind;
          ++(before != behind && emptyBefore ? right : wrong);
        }
        if (wrong > 0 || (right > 0) != (*before != *behind)) ++wrongPoints;
      }
    }
  }
  return wrongPoints;
}

/// A kind of random level.
struct Kind {
  const char* name;
  LevelOptions options;
  int spoiled = 0;  ///< of 60 levels, how many a quick rebuild may spoil
};

// Where a brush swallows a region of the tree whole, a quick rebuild takes the side of an empty
// child for its state, and may be wrong.
const Kind kKinds[] = {
    {"Boxes", {}, 1},
    {"BoxesOnGrid", {.layout = Layout::CoarseGrid}, 10},
    {"Turned", {.tapered = 30, .turned = 60}},
    {"Shapes", {.shaped = 60}, 2},
    {"ShapesOnGrid", {.layout = Layout::CoarseGrid, .shaped = 60}, 5},
    {"SquareShapesOnGrid",
     {.layout = Layout::CoarseGrid, .shaped = 50, .shapes = LevelOptions::Shapes::Square},
     9},
    {"ShapesTurned", {.turned = 50, .shaped = 60}, 2},
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

class CsgProperties : public ::testing::TestWithParam<Kind> {};

TEST_P(CsgProperties, ARebuildShowsExactlyTheSurface) {
  for (const Build build : {Build::Quick, Build::Optimal}) {
    std::vector<std::int32_t> spoiled;
    for (std::int32_t seed = 1; seed <= 60; ++seed) {
      CRandom random(static_cast<std::uint64_t>(seed));
      LevelOptions options = GetParam().options;
      options.brushes = 2 + seed % 14;
      options.extent = seed % 2 == 0 ? 160 : 256;
      options.carving = 20 + seed % 5 * 15;
      const CBrushList level = RandomLevel(random.Next(), options);
      CConstructiveBsp world;
      BuildWorld(world, level, build);
      if (WrongPoints(level, VisiblePolygons(world), random) > 0) spoiled.push_back(seed);
    }
    const int allowed = build == Build::Quick ? GetParam().spoiled : 0;
    EXPECT_LE(static_cast<int>(spoiled.size()), allowed) << ::testing::PrintToString(spoiled);
  }
}

INSTANTIATE_TEST_SUITE_P(Levels, CsgProperties, ::testing::ValuesIn(kKinds),
                         [](const auto& testInfo) { return std::string(testInfo.param.name); });

/// The visible polygons of turned brushes bound a volume: their areas, as vectors, add up to
/// nothing. A polygon missing or too many would leave its own area.
TEST(CsgSurfaces, OptimalRebuildOfSlopedAndTurnedBrushesIsAClosedSurface) {
  for (std::uint64_t seed = 1; seed <= 40; ++seed) {
    const CBrushList level = RandomLevel(seed, {.brushes = 20,
                                                .extent = 160,
                                                .tapered = 30,
                                                .turned = seed % 2 == 0 ? 0 : 80,
                                                .shaped = seed % 4 < 2 ? 0 : 40});
    CConstructiveBsp world;
    BuildWorld(world, level, Build::Optimal);
    Vector sum{0.0, 0.0, 0.0};
    double area = 0.0;
    for (const CBspNode* node : VisiblePolygons(world)) {
      sum = sum + node->plane.normal * Area(node->polygon);
      area += Area(node->polygon);
    }
    EXPECT_LT(Length(sum), 1e-4 * area) << "seed " << seed;
  }
}

}  // namespace
}  // namespace zando::testing
