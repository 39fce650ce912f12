#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "support/csg_testing.h"

namespace zando::testing {
namespace {

using Layout = LevelOptions::Layout;

/// Whether the last box that holds the point is a solid one.
bool IsSolidAt(const CBrushList& boxes, const Vector& p) {
  bool solid = false;
  for (const CZandoBrush& box : boxes) {
    const Vector& low = box.WorldBounds().low;
    const Vector& high = box.WorldBounds().high;
    const bool holds =
        low.x < p.x && p.x < high.x && low.y < p.y && p.y < high.y && low.z < p.z && p.z < high.z;
    if (holds) solid = box.TranT == kAddToWorld;
  }
  return solid;
}

bool Contains(const CBspNode& node, const Vector& p) {
  if (std::abs(SignedDistance(node.plane, p)) > 1e-6) return false;
  const CZandoPoly& polygon = node.polygon;
  for (std::int32_t i = 0; i < polygon.count; ++i) {
    const Vector edge = polygon[(i + 1) % polygon.count] - polygon[i];
    if (Dot(Cross(edge, p - polygon[i]), node.plane.normal) < 0.0) return false;
  }
  return true;
}

/// Looks at random points of the faces of all boxes. Where volume alone tells that one side is
/// solid and the other one empty, polygons must be seen from the empty side; elsewhere nothing.
void ExpectSurfaceOnly(const CBrushList& boxes, const std::vector<const CBspNode*>& visible,
                       CRandom& random) {
  for (const CZandoBrush& box : boxes) {
    for (const CZandoPoly& face : box.WorldPolys()) {
      const Vector normal = ComputePlane(face).normal;
      for (int i = 0; i < 10; ++i) {
        const Vector point = face[0] + (face[1] - face[0]) * random.Real(0.0, 1.0) +
                             (face[3] - face[0]) * random.Real(0.0, 1.0);
        const bool before = IsSolidAt(boxes, point + normal * 0.25);
        const bool behind = IsSolidAt(boxes, point - normal * 0.25);
        int right = 0;
        int wrong = 0;
        for (const CBspNode* node : visible) {
          if (!Contains(*node, point)) continue;
          const bool emptyBefore = Dot(node->plane.normal, normal) > 0.0 ? !before : !behind;
          ++(before != behind && emptyBefore ? right : wrong);
        }
        EXPECT_EQ(wrong, 0) << ::testing::PrintToString(point);
        EXPECT_EQ(right > 0, before != behind) << ::testing::PrintToString(point);
      }
    }
  }
}

TEST(CsgProperties, OptimalRebuildShowsExactlyTheSurfaceOfBoxes) {
  for (const Layout layout : {Layout::General, Layout::CoarseGrid}) {
    for (std::int32_t seed = 1; seed <= 200 && !::testing::Test::HasFailure(); ++seed) {
      SCOPED_TRACE(::testing::Message() << "seed " << seed << " layout " << int(layout));
      CRandom random(static_cast<std::uint64_t>(seed));
      const CBrushList level = RandomLevel(random.Next(), {.layout = layout,
                                                           .brushes = 2 + seed % 20,
                                                           .extent = seed % 2 == 0 ? 256 : 128,
                                                           .carving = 20 + seed % 5 * 15});
      CConstructiveBsp world;
      BuildWorld(world, level, Build::Optimal);
      ExpectSurfaceOnly(level, VisiblePolygons(world), random);
    }
  }
}

}  // namespace
}  // namespace zando::testing
