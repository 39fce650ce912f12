#include "primitives/box.h"

#include <gtest/gtest.h>

#include <array>

#include "geometry/geometry_testing.h"

namespace zando {
namespace {

/// The six faces of a box with these corners, in their order.
std::array<CZandoPoly, 6> FacesOf(const Vector (&v)[8]) {
  return {MakePolygon({v[0], v[1], v[2], v[3]}), MakePolygon({v[4], v[5], v[6], v[7]}),
          MakePolygon({v[1], v[7], v[6], v[2]}), MakePolygon({v[0], v[3], v[5], v[4]}),
          MakePolygon({v[0], v[4], v[7], v[1]}), MakePolygon({v[3], v[2], v[6], v[5]})};
}

TEST(Box, FacesHaveTheirOrderAndLookAwayFromTheWalls) {
  BoxParameters box;
  box.YSize = 8;
  box.TopXSize = 4;
  box.TopZSize = 6;
  box.BottomXSize = 20;
  box.BottomZSize = 40;
  box.WallThickness = 1;
  const Vector shell[] = {{-2, 4, -3},    {-2, 4, 3},    {2, 4, 3},    {2, 4, -3},
                          {-10, -4, -20}, {10, -4, -20}, {10, -4, 20}, {-10, -4, 20}};
  const Vector cavity[] = {{-1, 3, -2},   {-1, 3, 2},   {1, 3, 2},   {1, 3, -2},
                           {-9, -3, -19}, {9, -3, -19}, {9, -3, 19}, {-9, -3, 19}};
  CZandoBrush brush;
  Generate(box, brush);
  EXPECT_EQ(brush.PolyCount(), 6);
  box.Style = BoxParameters::kHollow;
  Generate(box, brush);
  ASSERT_EQ(brush.PolyCount(), 12);
  for (std::size_t i = 0; i < 6; ++i) {
    SCOPED_TRACE(i);
    const CZandoPoly& outer = brush.Polys()[i];
    const CZandoPoly& inner = brush.Polys()[6 + i];
    EXPECT_TRUE(SameVertices(outer, FacesOf(shell)[i]));
    EXPECT_TRUE(SameVertices(inner, ReverseCopy(FacesOf(cavity)[i]).polygon));
    EXPECT_EQ(ClassifyPoint(ComputePlane(outer), {0, 0, 0}), PointClass::Back);
    EXPECT_EQ(ClassifyPoint(ComputePlane(inner), {0, 0, 0}), PointClass::Front);
  }
}

}  // namespace
}  // namespace zando
