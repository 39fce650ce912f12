#include "geometry/polygon.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "geometry/geometry_testing.h"

namespace zando {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr Plane kPlaneX{{1, 0, 0}, 0};
constexpr Plane kPlaneZ{{0, 0, 1}, 0};

CZandoPoly Square() { return MakePolygon({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}); }

TEST(PolygonTest, PolygonsAreClassifiedByAllTheirVertices) {
  const CZandoPoly line = MakePolygon({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}});
  const CZandoPoly thin = MakePolygon({{0, 0, 0}, {1, 0, 0}, {1, 0, 0.0009}, {0, 0, 0.0009}});
  const struct {
    const char* what;
    Plane plane;
    CZandoPoly polygon;
    PolygonClass expected;
  } cases[] = {
      {"front", {{1, 0, 0}, 2}, Square(), PolygonClass::Front},
      {"front, an edge on", {{1, 0, 0}, 1}, Square(), PolygonClass::Front},
      {"back, an edge on", {{1, 0, 0}, -1}, Square(), PolygonClass::Back},
      {"both sides", kPlaneX, Square(), PolygonClass::Spanning},
      {"on by tolerance", {{0, 0, 1}, 0.001}, Square(), PolygonClass::CoplanarSame},
      {"front by little", {{0, 0, 1}, 0.0011}, Square(), PolygonClass::Front},
      {"back by little", {{0, 0, 1}, -0.0011}, Square(), PolygonClass::Back},
      {"on by tolerance behind", {{0, 0, 1}, -0.001}, Square(), PolygonClass::CoplanarSame},
      {"back, one no number",
       {{1, 0, 0}, -9},
       MakePolygon({{0, 0, 0}, {kNaN, 0, 0}}),
       PolygonClass::Back},
      {"reversed", kPlaneZ, ReverseCopy(Square()).polygon, PolygonClass::CoplanarOpposite},
      {"without a normal", kPlaneZ, line, PolygonClass::CoplanarOpposite},
      {"upright in the tolerance", kPlaneZ, thin, PolygonClass::CoplanarOpposite},
      {"no vertices", kPlaneX, CZandoPoly(), PolygonClass::Spanning},
  };
  for (const auto& c : cases) EXPECT_EQ(ClassifyPolygon(c.plane, c.polygon), c.expected) << c.what;
}

TEST(PolygonTest, ThePlaneComesFromTheFirstRealCornerAndVertexZero) {
  // Vertices 0 and 1 are collinear corners within the tolerance, so vertex 2 gives the normal.
  const CZandoPoly bent = MakePolygon({{1, 0, 0.001}, {2, 0, 0}, {4, 0, 0}, {4, 2, 0}, {0, 0, 0}});
  const Plane plane = ComputePlane(bent);
  EXPECT_LT(Length(plane.normal - Vector{0, 0, 1}), 1e-9);
  EXPECT_NEAR(plane.d, -0.001, 1e-9);
}

TEST(PolygonTest, SplitPiecesKeepTheWindingAndTheStart) {
  const CZandoPoly arrow = MakePolygon({{1, 0, 0}, {-1, 2, 0}, {-1, -2, 0}});
  const CZandoPoly diamond = MakePolygon({{0, -1, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0}});
  const struct {
    const char* what;
    Plane plane;
    CZandoPoly polygon;
    CZandoPoly front;
    CZandoPoly back;
  } cases[] = {
      {"square", kPlaneX, Square(), MakePolygon({{0, -1, 0}, {1, -1, 0}, {1, 1, 0}, {0, 1, 0}}),
       MakePolygon({{-1, -1, 0}, {0, -1, 0}, {0, 1, 0}, {-1, 1, 0}})},
      {"closing edge", kPlaneX, arrow, MakePolygon({{1, 0, 0}, {0, 1, 0}, {0, -1, 0}}),
       MakePolygon({{0, 1, 0}, {-1, 2, 0}, {-1, -2, 0}, {0, -1, 0}})},
      {"through two vertices", kPlaneX, diamond, MakePolygon({{0, -1, 0}, {1, 0, 0}, {0, 1, 0}}),
       MakePolygon({{0, -1, 0}, {0, 1, 0}, {-1, 0, 0}})},
      {"all in front", {{1, 0, 0}, 1}, Square(), Square(), MakePolygon({{-1, -1, 0}, {-1, 1, 0}})},
      {"all behind", {{1, 0, 0}, -2}, Square(), CZandoPoly(), Square()},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    CZandoPoly front = c.polygon;
    front.tag = 7;
    CZandoPoly back = diamond;
    back.tag = 9;
    ASSERT_EQ(SplitPolygon(c.plane, front, back), SplitResult::Done);
    EXPECT_TRUE(SameVertices(front, c.front));
    EXPECT_TRUE(SameVertices(back, c.back));
    EXPECT_EQ(front.tag, 7U);
    EXPECT_EQ(back.tag, 9U);
  }
}

TEST(PolygonTest, ASplitThatWouldNeedThirtyThreeVerticesIsRefused) {
  CZandoPoly full;
  for (int i = 0; i < MAX_POLY_VERTS; ++i) {
    const double angle = 2 * std::numbers::pi * i / MAX_POLY_VERTS;
    full.Append({0, 100 * std::cos(angle), 100 * std::sin(angle)});
  }
  for (const double side : {1.0, -1.0}) {
    // Cuts off nothing but vertex 0, at y = 100; the other piece would need 33 vertices.
    const Plane corner{{0, side, 0}, -99.5 * side};
    CZandoPoly polygon = full;
    CZandoPoly back;
    EXPECT_EQ(SplitPolygon(corner, polygon, back), SplitResult::Refused);
    EXPECT_TRUE(SameVertices(polygon, full));
    EXPECT_EQ(SideOfMean(corner, polygon), side > 0 ? PolygonClass::Back : PolygonClass::Front);

    // Cuts off three vertices: 31 remain, with those of the cut.
    const Plane further{{0, side, 0}, -97.0 * side};
    EXPECT_EQ(SplitPolygon(further, polygon, back), SplitResult::Done);
    EXPECT_EQ(polygon.count, side > 0 ? 5 : 31);
    EXPECT_EQ(back.count, side > 0 ? 31 : 5);
  }
}

}  // namespace
}  // namespace zando
