#include "primitives/create_box_dlg.h"

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

TEST(CreateBoxTest, FacesHaveTheirOrderAndLookAwayFromTheWalls) {
  CCreateBoxDlg box;
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
  box.Generate(brush);
  EXPECT_EQ(brush.PolyCount(), 6);
  box.Style = CCreateBoxDlg::kHollow;
  box.Generate(brush);
  ASSERT_EQ(brush.PolyCount(), 12);
  for (std::size_t i = 0; i < 6; ++i) {
    SCOPED_TRACE(i);
    const CZandoPoly& outer = brush.Polys[i];
    const CZandoPoly& inner = brush.Polys[6 + i];
    EXPECT_TRUE(SameVertices(outer, FacesOf(shell)[i]));
    EXPECT_TRUE(SameVertices(inner, ReverseCopy(FacesOf(cavity)[i]).polygon));
    EXPECT_EQ(ClassifyPoint(ComputePlane(outer), {0, 0, 0}), PointClass::Back);
    EXPECT_EQ(ClassifyPoint(ComputePlane(inner), {0, 0, 0}), PointClass::Front);
  }
}

TEST(CreateBoxTest, WallsThatMeetAndNegativeSizesAreMadeAsTheyCompute) {
  CCreateBoxDlg box;
  box.Style = CCreateBoxDlg::kHollow;
  box.WallThickness = 80;
  box.YSize = -10;
  CZandoBrush brush;
  box.Generate(brush);
  ASSERT_EQ(brush.PolyCount(), 12);
  EXPECT_EQ(brush.Polys[0][0], (Vector{-64, -5, -64}));
  EXPECT_EQ(brush.Polys[6][3], (Vector{16, -85, 16}));
}

TEST(CreateBoxTest, DefaultsAreASolidCubeOf128) {
  CCreateBoxDlg box;
  box.YSize = box.WallThickness = 1;
  box.Style = CCreateBoxDlg::kHollow;
  box.TopXSize = box.TopZSize = box.BottomXSize = box.BottomZSize = 1;
  box.SetDefaults();
  EXPECT_EQ(box.WallThickness, 16);
  CZandoBrush brush;
  box.Generate(brush);
  brush.UpdateWorld();
  EXPECT_EQ(brush.PolyCount(), 6);
  EXPECT_EQ(brush.BoundsMin, (Vector{-64, -64, -64}));
  EXPECT_EQ(brush.BoundsMax, (Vector{64, 64, 64}));
}

TEST(CreateBoxTest, NothingButThePolygonsOfTheBrushChanges) {
  CZandoBrush brush;
  brush.SetPolyCount(20);
  brush.Polys[0] = BasePolygonForPlane({{0, 0, 1}, 0});
  brush.Faces[0].textureName = "wall";
  brush.Name = "sky";
  brush.MoveTo({1, 2, 3});
  CCreateBoxDlg().Generate(brush);
  EXPECT_EQ(brush.PolyCount(), 6);
  EXPECT_EQ(brush.Polys[0].count, 4);
  EXPECT_EQ(brush.Faces[0].textureName, "wall");
  EXPECT_EQ(brush.Name, "sky");
  EXPECT_EQ(brush.WorldOrigin(), (Vector{1, 2, 3}));
}

}  // namespace
}  // namespace zando
