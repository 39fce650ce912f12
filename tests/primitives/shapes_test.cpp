// What the generators make, over the ranges of their parameters, against the closed form of every
// point and against places that a shape does or does not fill.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "document/brush_edits.h"
#include "document/document_file.h"
#include "document/world_edits.h"
#include "formats/map_writer.h"
#include "geometry/geometry_testing.h"
#include "primitives/box.h"
#include "primitives/cylinder.h"
#include "primitives/spheroid.h"
#include "primitives/staircase.h"
#include "support/solid_points.h"

namespace zando {
namespace {

template <typename Parameters>
CZandoBrush Made(const Parameters& parameters) {
  CZandoBrush brush;
  Generate(parameters, brush);
  return brush;
}

/// `step` of `steps` along a turn, or half a turn, each a whole number of the 8192 units of a turn:
/// what that leaves over is in the last one.
double Angle(std::int32_t step, std::int32_t steps, std::int32_t units = 8192) {
  return 2.0 * std::numbers::pi * (units / steps * step) / 8192.0;
}

/// At the far end of an ellipse the root of a difference leaves half of the digits.
void ExpectAt(const Vector& actual, const Vector& expected) {
  EXPECT_LE(Length(actual - expected), 1e-5)
      << ::testing::PrintToString(actual) << ::testing::PrintToString(expected);
}

/// Every face is flat; the shells go around each place as often as is told.
void ExpectFlatFacesAround(const CZandoBrush& brush,
                           const std::vector<std::pair<Vector, int>>& places) {
  for (const CZandoPoly& face : brush.Polys()) {
    const Plane plane = ComputePlane(face);
    for (const Vector& v : face.Vertices()) ASSERT_NEAR(SignedDistance(plane, v), 0.0, 0.001);
  }
  for (const auto& [place, times] : places) {
    EXPECT_NEAR(testing::Winding(brush.Polys(), place), times, 1e-6)
        << ::testing::PrintToString(place);
  }
}

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

void ExpectRings(const SpheroidParameters& p, double wall, const CZandoPoly* polygons) {
  const std::int32_t segments = p.VerticalStripes;
  for (std::int32_t ring = 1; ring < p.HorizontalStripes; ++ring) {
    const double down = Angle(ring, p.HorizontalStripes, 4096);
    for (std::int32_t k = 0; k < segments; ++k) {
      const auto half = [wall](double size) { return size / 2.0 - wall; };
      const CZandoPoly& polygon = polygons[segments * ring + k];
      ExpectAt(wall > 0.0 ? polygon[polygon.count - 1] : polygon[0],
               {half(p.XSize) * std::sin(down) * std::cos(Angle(k, segments)),
                half(p.YSize) * std::cos(down),
                half(p.ZSize) * std::sin(down) * std::sin(Angle(k, segments))});
    }
  }
}

TEST(Spheroid, EveryNumberOfStripesGivesClosedShellsOfTheGivenPoints) {
  for (const auto& [bands, segments] : {std::pair{2, 3},
                                        {2, 100},
                                        {3, 3},
                                        {3, 7},
                                        {4, 8},
                                        {5, 6},
                                        {16, 21},
                                        {99, 99},
                                        {100, 100}}) {
    SCOPED_TRACE(::testing::Message() << bands << " x " << segments);
    SpheroidParameters p{.HorizontalStripes = bands,
                         .VerticalStripes = segments,
                         .XSize = 200.0,
                         .YSize = 4096.0,
                         .ZSize = 320.0};
    for (const std::int32_t style : {SpheroidParameters::kSolid, SpheroidParameters::kHollow}) {
      p.Style = style;
      const CZandoBrush brush = Made(p);
      ASSERT_EQ(brush.PolyCount(), (1 + style) * bands * segments);
      ExpectRings(p, 0.0, brush.Polys().data());
      if (style != 0) ExpectRings(p, p.WallThickness, brush.Polys().data() + bands * segments);
      ExpectFlatFacesAround(brush, {{{0, 1, 0}, 1 - style},
                                    {{0, 2040, 0}, 1},
                                    {{0, 2049, 0}, 0},
                                    {{0, -2049, 0}, 0},
                                    {{101, 0, 0}, 0},
                                    {{0, 0, -161}, 0}});
    }
  }
}

/// The caps of a shell, the one against the order of its ring first.
void ExpectCaps(const CylinderParameters& p, std::int32_t sides, double wall,
                const CZandoPoly* caps) {
  for (std::int32_t k = 0; k < sides; ++k) {
    const Vector around{std::cos(Angle(k, sides)), 0.0, std::sin(Angle(k, sides))};
    const Vector top{p.TopXOffset + (p.TopXSize / 2.0 - wall) * around.x, p.YSize / 2.0 - wall,
                     p.TopZOffset + (p.TopZSize / 2.0 - wall) * around.z};
    const Vector bottom{p.BottomXOffset + (p.BottomXSize / 2.0 - wall) * around.x,
                        wall - p.YSize / 2.0,
                        p.BottomZOffset + (p.BottomZSize / 2.0 - wall) * around.z};
    ExpectAt(caps[0][sides - 1 - k], wall > 0.0 ? bottom : top);
    ExpectAt(caps[1][k], wall > 0.0 ? top : bottom);
  }
}

TEST(Cylinder, EveryNumberOfStripesGivesClosedShellsOfTheGivenPoints) {
  for (std::int32_t sides = 3; sides <= 31; ++sides) {
    SCOPED_TRACE(sides);
    // Of the number of stripes the fraction does not count. It leans, and its faces stay flat.
    CylinderParameters p{.BottomXOffset = 5.0,
                         .BottomZSize = 96.0,
                         .TopXOffset = -30.0,
                         .TopZOffset = 40.0,
                         .TopZSize = 96.0,
                         .Stripes = sides + (sides < 31 ? 0.9 : 0.0)};
    const Vector axis{-12.5, 0, 20};
    using P = CylinderParameters;
    for (const std::int32_t style : {P::kSolid, P::kHollow, P::kRing}) {
      p.Style = style;
      const int shells = style == P::kSolid ? 1 : 2;
      const CZandoBrush brush = Made(p);
      ASSERT_EQ(brush.PolyCount(), shells * (sides + 2));
      ExpectCaps(p, sides, 0.0, brush.Polys().data());
      if (shells == 2) ExpectCaps(p, sides, p.WallThickness, brush.Polys().data() + sides + 2);
      ExpectFlatFacesAround(brush, {{axis, 2 - shells},
                                    {axis + Vector{56, 0, 0}, 1},
                                    {axis + Vector{65, 0, 0}, 0},
                                    {axis - Vector{0, 0, 49}, 0},
                                    {axis + Vector{0, 257, 0}, 0},
                                    {axis - Vector{0, 257, 0}, 0}});
    }
  }
}

TEST(Staircase, StairsAndRampFillWhatLiesUnderThem) {
  StaircaseParameters p{.Height = 96.0, .Length = 160.0, .Width = 64.0};
  for (const double stairs : {1.0, 3.0, 8.0, 4096.0}) {
    p.NumberOfStairs = stairs;
    const CZandoBrush brush = Made(p);
    ASSERT_EQ(brush.PolyCount(), 4 * static_cast<std::int32_t>(stairs) + 2);
    ExpectFlatFacesAround(
        brush, {{{33, -47, 79}, 0}, {{-33, -47, 79}, 0}, {{0, -49, 0}, 0}, {{0, 0, 81}, 0}});
    for (const double i : {0.0, std::floor(stairs / 2.0), stairs - 1.0}) {
      const double middle = (i + 0.5) * 160.0 / stairs - 80.0;
      ExpectFlatFacesAround(brush, {{{31, (i + 0.9) * 96.0 / stairs - 48.0, middle}, 1},
                                    {{0, (i + 1.1) * 96.0 / stairs - 48.0, middle}, 0}});
    }
  }
  p.NumberOfStairs = 0;
  EXPECT_EQ(Made(p).PolyCount(), 2);
  p.MakeRamp = 1;
  ASSERT_EQ(Made(p).PolyCount(), 5);
  ExpectFlatFacesAround(Made(p), {{{31, -1, 0}, 1},
                                  {{-31, 40, 75}, 1},
                                  {{0, 1, 0}, 0},
                                  {{0, 47, 76}, 0},
                                  {{33, -1, 0}, 0},
                                  {{0, 0, 81}, 0}});
}

TEST(Primitives, WhatIsOutOfRangeIsToldAndGeneratesNothing) {
  const auto expectRefused = [](const auto& parameters) {
    EXPECT_NE(Check(parameters), "");
    EXPECT_EQ(Made(parameters).PolyCount(), 0) << Check(parameters);
  };
  for (const auto& [bands, segments] : {std::pair{1, 8}, {2, 2}, {5, 4}, {4, 101}, {101, 101}}) {
    expectRefused(SpheroidParameters{.HorizontalStripes = bands, .VerticalStripes = segments});
  }
  for (const double stripes : {2.9, 31.5, std::nan("")}) {
    expectRefused(CylinderParameters{.Stripes = stripes});
  }
  for (const double wall : {0.5, 10000.5}) {
    expectRefused(CylinderParameters{.WallThickness = wall});
  }
  for (const double stairs : {2.5, -1.0, 4097.0}) {
    expectRefused(StaircaseParameters{.NumberOfStairs = stairs});
  }
}

/// Gives some of the sizes, in every combination, a value that leaves nothing, mirrors or overflows
/// when inverted or squared, and takes the brush through the world into both files.
template <typename Parameters>
void ExpectNumbersInFiles(const Parameters& given, const std::vector<double Parameters::*>& sizes) {
  for (const double size : {0.0, -64.0, 1e-320, 1e-200, 1e200}) {
    for (std::uint32_t changed = 1; changed >> sizes.size() == 0; ++changed) {
      Parameters p = given;
      for (std::size_t i = 0; i < sizes.size(); ++i) {
        if ((changed >> i & 1U) != 0) p.*sizes[i] = size;
      }
      CZANDODoc document;
      GeneratePrimitive(document, p);
      AddToWorld(document);
      RebuildWorld(document, RebuildKind::Optimal, WaterBrushes::Build, nullptr);
      const std::string files = WriteDocument(document) + WriteMap(document.GetLevel(), "");
      for (const char* odd : {" nan", " -nan", " inf", " -inf"}) {
        EXPECT_EQ(files.find(odd), std::string::npos) << size << ' ' << changed;
      }
    }
  }
}

TEST(Primitives, SizesOfZeroAndLessGiveNumbers) {
  for (const std::int32_t style : {0, 1}) {
    using S = SpheroidParameters;
    ExpectNumbersInFiles(S{.Style = style}, {&S::XSize, &S::YSize, &S::ZSize});
    using C = CylinderParameters;
    ExpectNumbersInFiles(C{.Style = style},
                         {&C::BottomXSize, &C::BottomZSize, &C::TopXSize, &C::TopZSize, &C::YSize});
    using T = StaircaseParameters;
    ExpectNumbersInFiles(T{.MakeRamp = style}, {&T::Height, &T::Length, &T::Width});
  }
}

}  // namespace
}  // namespace zando
