#include "geometry/brush.h"

#include <array>
#include <functional>
#include <utility>

#include "geometry/geometry_testing.h"
#include "primitives/box.h"

namespace zando {
namespace {

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

}  // namespace
}  // namespace zando
