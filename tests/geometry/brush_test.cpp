#include "geometry/brush.h"

#include <limits>
#include <tuple>
#include <utility>

#include "geometry/geometry_testing.h"

namespace zando {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

void AddPolygon(CZandoBrush& brush, const CZandoPoly& polygon) {
  brush.Polys.push_back(polygon);
  brush.Faces.emplace_back();
}

TEST(BrushTest, PlacementShearsThenScalesThenTurnsThenPlacesThenDrags) {
  CZandoBrush brush;
  AddPolygon(brush, MakePolygon({{0, 0, 1}, {0, 0, 0}, {0, 5, 0}}));
  brush.Shr[kOwnSlot] = {1, 0, 0};         // (0, 0, 1) to (1, 0, 1)
  brush.Scl[kOwnSlot] = {2, 1, 1};         // to (2, 0, 1)
  brush.WorkRot[kOwnSlot] = {2048, 0, 0};  // to (-1, 0, 2)
  brush.BMatrix.Translate(10, 0, 0);       // to (9, 0, 2)
  brush.DragMatrix.Scale(3, 1, 1);         // to (27, 0, 2)
  brush.Rot[kOwnSlot] = {1234, 0, 0};      // the working rotation shows in its place
  brush.Scl[kGroupSlot] = {9, 9, 9};       // the group slot shows through DragMatrix alone
  brush.Pos[kOwnSlot] = {70, 0, 0};        // a committed position is in BMatrix already
  brush.UpdateWorld();
  brush.UpdateWorld();
  ASSERT_EQ(brush.WorldPolys.size(), 1U);
  EXPECT_EQ(brush.WorldPolys[0].count, 3) << "a second update replaces the first";
  EXPECT_PRED2(Near, brush.WorldPolys[0][0], (Vector{27, 0, 2}));
  EXPECT_PRED2(Near, brush.BoundsMin, (Vector{27, 0, 0}));
  EXPECT_PRED2(Near, brush.BoundsMax, (Vector{30, 5, 2}));
  EXPECT_PRED2(Near, brush.WorldOrigin(), (Vector{30, 0, 0}));
}

TEST(BrushTest, FewerPolygonsKeepTheFirstAndMoreStartAfresh) {
  CZandoBrush brush;
  AddPolygon(brush, MakePolygon({{-4, 0, 0}, {1, 0, 0}, {1, 1, 0}}));
  AddPolygon(brush, MakePolygon({{0, 0, 9}, {1, 0, 9}, {1, 1, 9}, {0, 1, 9}}));
  brush.Faces[0].textureName = "wall";
  brush.UpdateWorld();

  brush.SetPolyCount(1);
  brush.UpdateWorld();
  EXPECT_EQ(brush.Faces[0].textureName, "wall");
  ASSERT_EQ(brush.WorldPolys.size(), 1U);
  EXPECT_TRUE(SameVertices(brush.WorldPolys[0], brush.Polys[0]));
  EXPECT_EQ(brush.BoundsMax, (Vector{1, 1, 0})) << "of what is left";

  brush.SetPolyCount(2);
  brush.UpdateWorld();
  EXPECT_EQ(brush.Faces.at(0).textureName, "");
  EXPECT_EQ(brush.WorldPolys[0].count, 0);
  EXPECT_EQ(brush.BoundsMin, CZandoBrush().BoundsMin) << "no vertex left";
  brush.SetPolyCount(-5);
  EXPECT_EQ(brush.PolyCount(), 0);
}

TEST(BrushTest, ACopyTakesTheShapeAndKeepsItsOwnIdentity) {
  CZandoBrush source;
  AddPolygon(source, MakePolygon({{1, 0, 0}, {2, 0, 0}, {3, 1, 0}}));
  source.Faces[0].textureName = "wall";
  source.Name = "*water";
  source.BFlags = BF_SHOWN | BF_ENTITY;
  source.BEnt = 4;
  source.BGroup = 2;
  source.TranT = kSubtractFromWorld;
  source.BBid = 17;
  source.Color = 0x0000FF;
  source.Next = &source;
  source.BMatrix.Translate(1, 0, 0);
  source.DragMatrix.Translate(0, 1, 0);
  source.Pos = source.Rot = {Vector{1, 0, 0}, Vector{2, 0, 0}};
  source.WorkPos = source.WorkRot = {Vector{50, 0, 0}, Vector{60, 0, 0}};
  source.Scl = source.Shr = {Vector{5, 5, 5}, Vector{6, 6, 6}};

  CZandoBrush copy;
  copy.BBid = 3;
  copy.Color = 0x00FF00;
  copy.SetPolyCount(6);
  copy = source;
  const auto copied = [](const CZandoBrush& b) {
    return std::tie(b.Name, b.BFlags, b.BEnt, b.BGroup, b.TranT, b.BMatrix, b.DragMatrix, b.Pos,
                    b.Rot, b.Scl, b.Shr);
  };
  EXPECT_TRUE(copied(copy) == copied(source));
  EXPECT_EQ(copy.WorkPos, source.Pos);
  EXPECT_EQ(copy.WorkRot, source.Rot);
  ASSERT_EQ(copy.PolyCount(), 1);
  EXPECT_TRUE(SameVertices(copy.Polys[0], source.Polys[0]));
  EXPECT_EQ(copy.Faces.at(0).textureName, "wall");
  EXPECT_EQ(copy.BBid, 3);
  EXPECT_EQ(copy.Color, 0x00FF00U);
  EXPECT_EQ(copy.Next, nullptr);
}

TEST(BrushTest, HitTestsLookAtTheTwoAxesOfTheView) {
  CZandoBrush brush;
  AddPolygon(brush, MakePolygon({{-1, 10, 100}, {2, 10, 100}, {2, 20, 200}}));
  brush.UpdateWorld();
  const std::pair<Vector, bool> cases[] = {
      {{1.5, 15, 0}, true},  {{1.5, 21, 0}, false},   {{3, 15, 0}, false},
      {{1.5, 0, 150}, true}, {{1.5, -0., 99}, false}, {{-1.5, 0, 150}, false},
      {{0, 15, 150}, true},  {{-0., 15, 201}, false}, {{0, 9, 150}, false},
      {{-1, 10, 0}, true},   {{2, 0, 200}, true},     {{kNaN, 15, 0}, false}};
  for (const auto& [p, hit] : cases) {
    EXPECT_EQ(brush.HitTest2D(p.x, p.y, p.z), hit) << testing::PrintToString(p);
  }
}

TEST(BrushTest, FacePointsAreVerticesOneZeroTwo) {
  CZandoBrush brush;
  AddPolygon(brush, MakePolygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}));
  AddPolygon(brush, MakePolygon({{5, 5, 5}, {6, 6, 6}}));
  brush.BMatrix.Translate(100, 0, 0);
  brush.ComputeFacePoints();
  EXPECT_EQ(brush.Faces[0].points, (std::array{Vector{1, 0, 0}, Vector{0, 0, 0}, Vector{1, 1, 0}}));
  EXPECT_EQ(brush.Faces[1].points, BrushFace().points) << "too few vertices";
}

TEST(BrushTest, ListWalksSkipWhatIsNotAskedFor) {
  std::array<CZandoBrush, 5> list;
  const std::int32_t flags[] = {BF_SELECTED, BF_SHOWN | BF_ENTITY, 0, BF_SHOWN, BF_ENTITY};
  for (std::size_t i = 0; i < list.size(); ++i) {
    list[i].BFlags = flags[i];
    list[i].BBid = static_cast<std::int32_t>(i / 2);
    if (i + 1 < list.size()) list[i].Next = &list[i + 1];
  }
  EXPECT_EQ(list[0].NextShown(), &list[1]);
  EXPECT_EQ(list[1].NextShown(), &list[3]) << "never the brush itself";
  EXPECT_EQ(list[3].NextShown(), nullptr);
  EXPECT_EQ(list[0].FirstShownNonEntity(), &list[3]);
  EXPECT_EQ(list[3].FirstShownNonEntity(), &list[3]) << "the brush itself counts";
  EXPECT_EQ(list[4].FirstShownNonEntity(), nullptr);
  EXPECT_EQ(FindBrushById(list.data(), 1), &list[2]) << "the first of two";
  EXPECT_EQ(FindBrushById(&list[3], 0), nullptr);
  EXPECT_EQ(FindBrushById(nullptr, 0), nullptr);
}

TEST(BrushTest, BoundsThatTouchOverlap) {
  CZandoBrush a;
  a.BoundsMin = {0, 0, 0};
  a.BoundsMax = {1, 1, 1};
  for (const Vector& side : {Vector{1, 0, 0}, Vector{0, 1, 0}, Vector{0, 0, 1}}) {
    for (const double shift : {-1.0001, -1.0, 1.0, 1.0001}) {
      CZandoBrush b;
      b.BoundsMin = a.BoundsMin + side * shift;
      b.BoundsMax = a.BoundsMax + side * shift;
      EXPECT_EQ(BoundsOverlap(a, b), shift * shift == 1) << shift;
    }
  }
  EXPECT_FALSE(BoundsOverlap(a, CZandoBrush())) << "an empty brush overlaps nothing";
}

}  // namespace
}  // namespace zando
