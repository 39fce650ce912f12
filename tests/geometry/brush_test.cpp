#include "geometry/brush.h"

#include <array>
#include <functional>
#include <limits>
#include <tuple>
#include <utility>
#include <vector>

#include "geometry/geometry_testing.h"
#include "primitives/box.h"

namespace zando {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A box of 128 with these sizes changed.
CZandoBrush BoxBrush(const std::function<void(BoxParameters&)>& change = [](BoxParameters&) {}) {
  BoxParameters box;
  change(box);
  CZandoBrush brush;
  Generate(box, brush);
  return brush;
}

Transform Shift(const Vector& offset) {
  Transform shift = Transform::Identity();
  shift.Translate(offset);
  return shift;
}

TEST(BrushTest, PlacementShearsThenScalesThenTurnsThenPlacesThenDrags) {
  CZandoBrush brush;
  brush.AppendPoly(MakePolygon({{0, 0, 1}, {0, 0, 0}, {0, 5, 0}}));
  Placement own;
  own.Shr = {1, 0, 0};         // (0, 0, 1) to (1, 0, 1)
  own.Scl = {2, 1, 1};         // to (2, 0, 1)
  own.WorkRot = {2048, 0, 0};  // to (-1, 0, 2)
  own.Rot = {1234, 0, 0};      // the working rotation shows in its place
  own.Pos = {70, 0, 0};        // a committed position is in BMatrix already
  brush.SetSlot(kOwnSlot, own);
  brush.SetBMatrix(Shift({10, 0, 0}));  // to (9, 0, 2)
  Placement group;
  group.Scl = {9, 9, 9};  // shows through the drag alone
  brush.SetSlot(kGroupSlot, group);
  Transform drag = Transform::Identity();
  drag.Scale(3, 1, 1);
  brush.UpdateGroupOperation(drag);  // to (27, 0, 2)
  ASSERT_EQ(brush.WorldPolys().size(), 1U);
  EXPECT_PRED2(Near, brush.WorldPolys()[0][0], (Vector{27, 0, 2}));
  EXPECT_PRED2(Near, brush.WorldBounds().low, (Vector{27, 0, 0}));
  EXPECT_PRED2(Near, brush.WorldBounds().high, (Vector{30, 5, 2}));
  EXPECT_PRED2(Near, brush.WorldOrigin(), (Vector{30, 0, 0}));
}

TEST(BrushTest, WhatIsReadOfTheWorldIsCurrentAfterEveryEdit) {
  Transform turn = Transform::Identity();
  turn.RotateY(100);
  CZandoBrush dragged = BoxBrush();
  dragged.UpdateMove({64, 0, 0});
  const Vector v{1, 2, 3};
  const CZandoPoly point = MakePolygon({{0, 0, 999}});
  const std::pair<const char*, std::function<void(CZandoBrush&)>> edits[] = {
      {"poly count", [&](CZandoBrush& b) { b.SetPolyCount(2); }},
      {"polygon", [&](CZandoBrush& b) { b.EditPoly(0)[0].y += 32; }},
      {"another polygon", [&](CZandoBrush& b) { b.AppendPoly(point); }},
      {"slot", [&](CZandoBrush& b) { b.SetSlot(kOwnSlot, Placement()); }},
      {"BMatrix", [&](CZandoBrush& b) { b.SetBMatrix(Shift(v)); }},
      {"reset", [&](CZandoBrush& b) { b.ResetSlot(kOwnSlot); }},
      {"drag", [&](CZandoBrush& b) { b.UpdateMove(v); }},
      {"end of a drag", [&](CZandoBrush& b) { b.MoveTo(v); }},
      {"cancel", [&](CZandoBrush& b) { b.CancelDrag(b.Slots()); }},
      {"group drag", [&](CZandoBrush& b) { b.UpdateGroupOperation(turn); }},
      {"group operation", [&](CZandoBrush& b) { b.EndGroupOperation(turn); }},
      {"assignment", [&](CZandoBrush& b) { b = dragged; }},
      {"whole copy", [&](CZandoBrush& b) { b.CopyWhole(dragged); }},
  };
  for (const auto& [what, edit] : edits) {
    CZandoBrush brush = BoxBrush();
    brush.SetSlot(kOwnSlot, {.WorkPos = {5, 5, 5}, .WorkRot = {300, 0, 0}, .Scl = {2, 1, 1}});
    brush.UpdateMove({40, 0, 0});
    const auto before = brush.WorldPolys();
    edit(brush);
    CZandoBrush fresh;
    fresh.CopyWhole(brush);
    EXPECT_NE(brush.WorldPolys(), before) << what;
    EXPECT_EQ(brush.WorldPolys(), fresh.WorldPolys()) << what;
    EXPECT_EQ(brush.WorldBounds(), fresh.WorldBounds()) << what;
    EXPECT_EQ(brush.WorldMatrix(), fresh.WorldMatrix()) << what;
    EXPECT_EQ(brush.HasVolume(), fresh.HasVolume()) << what;
  }
}

/// Sizes or scales or both are negative on some axes: an even number of times on one cancels out.
TEST(BrushTest, FacesLookOutwardHoweverABrushIsMirrored) {
  for (std::uint32_t mirrored = 0; mirrored < 128; ++mirrored) {
    SCOPED_TRACE(mirrored);
    const auto sign = [mirrored](std::uint32_t bit) { return (mirrored >> bit & 1) != 0 ? -1 : 1; };
    const bool hollow = sign(6) < 0;
    CZandoBrush brush = BoxBrush([&](BoxParameters& box) {
      box.Style = hollow ? BoxParameters::kHollow : BoxParameters::kSolid;
      // Walls of a mirrored box would grow outward.
      if (hollow) return;
      box.BottomXSize *= sign(0);
      box.TopXSize *= sign(0) * 0.5;
      box.YSize *= sign(1);
      box.BottomZSize *= sign(2);
      box.TopZSize *= sign(2);
    });
    const Vector scale{sign(3) * 1.5, double(sign(4)), double(sign(5))};
    brush.SetSlot(kOwnSlot, {.WorkRot = {700, 300, 100}, .Scl = scale});
    brush.MoveTo({1000, 0, -500});
    EXPECT_TRUE(brush.HasVolume());
    for (std::size_t i = 0; i < brush.WorldPolys().size(); ++i) {
      const PointClass middle =
          ClassifyPoint(ComputePlane(brush.WorldPolys()[i]), brush.WorldOrigin());
      EXPECT_EQ(middle, i < 6 ? PointClass::Back : PointClass::Front) << i;
    }
  }
}

TEST(BrushTest, ABrushHasVolumeUnlessItsFacesCloseAroundNothing) {
  const CZandoPoly square = MakePolygon({{0, 0, 5}, {8, 0, 5}, {8, 8, 5}, {0, 8, 5}});
  CZandoBrush scaled = BoxBrush();
  scaled.SetSlot(kOwnSlot, {.WorkRot = {300, 200, 100}, .Scl = {1, 0, 1}});
  CZandoBrush single;
  single.AppendPoly(square);
  CZandoBrush twoSided = single;
  twoSided.AppendPoly(ReverseCopy(square).polygon);
  const struct {
    const char* what;
    CZandoBrush brush;
    bool hasVolume;
  } cases[] = {{"no face", CZandoBrush(), false},
               {"one face", single, true},
               {"two faces back to back", twoSided, false},
               {"no height", BoxBrush([](BoxParameters& box) { box.YSize = 0; }), false},
               {"a pyramid", BoxBrush([](BoxParameters& b) { b.TopXSize = b.TopZSize = 0; }), true},
               {"thinner than planes are told apart",
                BoxBrush([](BoxParameters& box) { box.YSize = 0.001; }), false},
               {"scaled by nothing and turned", scaled, false}};
  for (const auto& c : cases) EXPECT_EQ(c.brush.HasVolume(), c.hasVolume) << c.what;
}

TEST(BrushTest, FewerPolygonsKeepTheFirstAndMoreStartAfresh) {
  CZandoBrush brush = BoxBrush();
  brush.Faces[0].textureName = "wall";
  brush.SetPolyCount(1);
  EXPECT_EQ(brush.Faces.at(0).textureName, "wall");
  EXPECT_EQ(brush.WorldPolys(), std::vector{BoxBrush().Polys()[0]});
  brush.SetPolyCount(2);
  EXPECT_EQ(brush.Faces.at(0).textureName, "");
  EXPECT_EQ(brush.Polys().at(0).count, 0);
  EXPECT_EQ(brush.WorldBounds(), CZandoBrush().WorldBounds()) << "no vertex left";
  brush.SetPolyCount(-5);
  EXPECT_EQ(brush.PolyCount(), 0);
}

TEST(BrushTest, ACopyTakesTheShapeAndKeepsItsOwnIdentity) {
  CZandoBrush source = BoxBrush();
  source.Faces[0].textureName = "wall";
  source.Name = "*water";
  source.BFlags = BF_SHOWN | BF_ENTITY;
  source.BEnt = source.BGroup = 4;
  source.TranT = kSubtractFromWorld;
  source.BBid = 17;
  source.Color = 0x0000FF;
  source.Next = &source;
  source.SetBMatrix(Shift({1, 0, 0}));
  const Vector v{1, 2, 3};
  const Vector w{1, 7, 3};
  for (const std::size_t slot : {kOwnSlot, kGroupSlot}) source.SetSlot(slot, {v, w, v, w, v, v});
  source.UpdateMove(w);
  const Placement committed{v, v, v, v, v, v};

  CZandoBrush copy;
  copy.BBid = 3;
  copy.Color = 0x00FF00;
  copy = source;
  EXPECT_EQ(copy.Slots(), (std::array{committed, committed})) << "working values fall back";
  EXPECT_EQ(copy.BBid, 3);
  EXPECT_EQ(copy.Color, 0x00FF00U);
  EXPECT_EQ(copy.Next, nullptr);
  for (const std::size_t slot : {kOwnSlot, kGroupSlot}) copy.SetSlot(slot, source.Slot(slot));
  EXPECT_FALSE(copy == source);
  copy.BBid = 17;
  EXPECT_TRUE(copy == source);

  CZandoBrush whole;
  whole.CopyWhole(source);
  EXPECT_TRUE(whole == source);
  EXPECT_EQ(whole.Color, 0x0000FFU);
}

TEST(BrushTest, HitTestsLookAtTheTwoAxesOfTheView) {
  CZandoBrush brush;
  brush.AppendPoly(MakePolygon({{-1, 10, 100}, {2, 10, 100}, {2, 20, 200}}));
  const std::tuple<ViewAxes, Vector, bool> cases[] = {
      {kFrontAxes, {1.5, 15, 0}, true},  {kFrontAxes, {1.5, 21, 0}, false},
      {kFrontAxes, {3, 15, 0}, false},   {kFrontAxes, {-1, 10, 0}, true},
      {kTopAxes, {1.5, 0, 150}, true},   {kTopAxes, {1.5, 15, 99}, false},
      {kTopAxes, {-1.5, 0, 150}, false}, {kTopAxes, {2, 0, 200}, true},
      {kSideAxes, {0, 15, 150}, true},   {kSideAxes, {0, 15, 201}, false},
      {kSideAxes, {0, 9, 150}, false},   {kFrontAxes, {kNaN, 15, 0}, false}};
  for (const auto& [axes, p, hit] : cases) {
    EXPECT_EQ(brush.HitTest2D(p, axes), hit) << testing::PrintToString(p);
  }
}

TEST(BrushTest, FacePointsAreVerticesOneZeroTwo) {
  CZandoBrush brush;
  brush.AppendPoly(MakePolygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}));
  brush.AppendPoly(MakePolygon({{5, 5, 5}, {6, 6, 6}}));
  brush.MoveTo({100, 0, 0});
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
  a.AppendPoly(MakePolygon({{0, 0, 0}, {1, 1, 1}}));
  for (const Vector& side : {Vector{1, 0, 0}, Vector{0, 1, 0}, Vector{0, 0, 1}}) {
    for (const double shift : {-1.0001, -1.0, 1.0, 1.0001}) {
      CZandoBrush b = a;
      b.MoveTo(side * shift);
      EXPECT_EQ(BoundsOverlap(a, b), shift * shift == 1) << shift;
    }
  }
  EXPECT_FALSE(BoundsOverlap(a, CZandoBrush())) << "an empty brush overlaps nothing";
}

}  // namespace
}  // namespace zando
