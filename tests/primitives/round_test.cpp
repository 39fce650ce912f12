#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

#include "primitives/cylinder.h"
#include "primitives/spheroid.h"
#include "primitives/staircase.h"

namespace zando {
namespace {

/// Twice the area vectors of all faces, and six times the volume that they enclose.
struct Shell {
  Vector sum{0.0, 0.0, 0.0};
  double area = 0.0;
  double volume = 0.0;
};

Shell ShellOf(const CZandoBrush& brush) {
  Shell shell;
  for (const CZandoPoly& face : brush.Polys()) {
    for (std::int32_t i = 2; i < face.count; ++i) {
      const Vector twice = Cross(face[i - 1] - face[0], face[i] - face[0]);
      shell.sum = shell.sum + twice;
      shell.area += Length(twice);
      shell.volume += Dot(face[0], twice);
    }
  }
  return shell;
}

void ExpectClosedAndFlat(const CZandoBrush& brush, double volume, double within) {
  const Shell shell = ShellOf(brush);
  EXPECT_LE(Length(shell.sum), 1e-9 * shell.area);
  EXPECT_NEAR(shell.volume / 6.0, volume, within * std::fabs(volume));
  for (const CZandoPoly& face : brush.Polys()) {
    const Plane plane = ComputePlane(face);
    for (const Vector& v : face.Vertices()) EXPECT_NEAR(SignedDistance(plane, v), 0.0, 0.001);
  }
}

TEST(Spheroid, HasItsFacesVerticesAndTheVolumeOfItsStripes) {
  CZandoBrush brush;
  Generate(SpheroidParameters{}, brush);
  ASSERT_EQ(brush.PolyCount(), 32);
  EXPECT_EQ(brush.Polys()[0].Vertices().front(), (Vector{0, 128, 0}));
  EXPECT_EQ(brush.Polys()[31].Vertices().back(), (Vector{0, -128, 0}));
  EXPECT_NEAR(brush.Polys()[8][0].x, 128 * std::sqrt(0.5), 1e-9);
  Generate(SpheroidParameters{.HorizontalStripes = 100, .VerticalStripes = 100, .YSize = 512},
           brush);
  ASSERT_EQ(brush.PolyCount(), 10000);
  const double ellipsoid = 4.0 / 3.0 * std::numbers::pi * 128 * 256 * 128;
  EXPECT_NEAR(ShellOf(brush).volume / 6.0, ellipsoid, 0.01 * ellipsoid);
}

TEST(Spheroid, TheCavityLooksIntoItself) {
  for (const std::int32_t bands : {2, 3, 4, 7, 16}) {
    for (const std::int32_t segments : {bands, bands + 5}) {
      if (segments < 3) continue;
      SpheroidParameters p{.HorizontalStripes = bands, .VerticalStripes = segments};
      CZandoBrush solid;
      Generate(p, solid);
      const double outer = ShellOf(solid).volume;
      p.XSize = p.YSize = p.ZSize = 224.0;
      Generate(p, solid);
      const double inner = ShellOf(solid).volume;
      CZandoBrush hollow;
      Generate(SpheroidParameters{.HorizontalStripes = bands,
                                  .VerticalStripes = segments,
                                  .Style = SpheroidParameters::kHollow},
               hollow);
      EXPECT_EQ(hollow.PolyCount(), 2 * bands * segments);
      EXPECT_NEAR(ShellOf(hollow).volume, outer - inner, 1e-6 * outer);
      EXPECT_GT(outer, 0.0);
    }
  }
}

TEST(Cylinder, EveryNumberOfStripesClosesItsShells) {
  for (double stripes = 3.0; stripes <= 31.0; stripes += 1.0) {
    const auto n = static_cast<std::int32_t>(stripes);
    CZandoBrush brush;
    Generate(CylinderParameters{.Stripes = stripes + (stripes < 31.0 ? 0.9 : 0.0)}, brush);
    ASSERT_EQ(brush.PolyCount(), n + 2);
    EXPECT_EQ(brush.Polys()[0].count, n);
    const double area = ShellOf(brush).volume / 6.0 / 512.0;
    ExpectClosedAndFlat(brush, area * 512.0, 1e-9);
    EXPECT_NEAR(area, 0.5 * n * 64 * 64 * std::sin(2 * std::numbers::pi / n), 0.02 * area);
    Generate(CylinderParameters{.Style = CylinderParameters::kRing, .Stripes = stripes}, brush);
    ASSERT_EQ(brush.PolyCount(), 2 * n + 4);
    ExpectClosedAndFlat(brush, area * 512.0 - area * 0.5625 * 480.0, 1e-9);
  }
}

TEST(Cylinder, OffsetsMoveItsEndsAndWidthsCollapse) {
  CZandoBrush brush;
  Generate(CylinderParameters{.BottomXOffset = 5, .TopXSize = 0, .TopZOffset = -7}, brush);
  for (const Vector& v : brush.Polys()[0].Vertices()) EXPECT_EQ(v, (Vector{0, 256, -7}));
  EXPECT_EQ(brush.Polys()[1][0], (Vector{69, -256, 0}));
}

TEST(Staircase, StairsAndRampFillTheirOutline) {
  CZandoBrush brush;
  for (const double stairs : {1.0, 3.0, 8.0, 4096.0}) {
    Generate(StaircaseParameters{.NumberOfStairs = stairs}, brush);
    ASSERT_EQ(brush.PolyCount(), static_cast<std::int32_t>(4 * stairs + 2));
    ExpectClosedAndFlat(brush, 64.0 * 128 * 128 * (stairs + 1.0) / (2.0 * stairs), 1e-9);
  }
  Generate(StaircaseParameters{.NumberOfStairs = 0}, brush);
  EXPECT_EQ(brush.PolyCount(), 2);
  Generate(StaircaseParameters{.MakeRamp = 1}, brush);
  ASSERT_EQ(brush.PolyCount(), 5);
  ExpectClosedAndFlat(brush, 64.0 * 128 * 128 / 2.0, 1e-12);
}

TEST(Primitives, WhatIsOutOfRangeIsToldAndGeneratesNothing) {
  struct Case {
    std::string problem;
    std::function<void(CZandoBrush&)> generate;
  };
  const auto of = [](const auto& p) {
    return Case{Check(p), [p](CZandoBrush& brush) { Generate(p, brush); }};
  };
  for (const Case& c :
       {of(SpheroidParameters{.HorizontalStripes = 1}),
        of(SpheroidParameters{.VerticalStripes = 2}),
        of(SpheroidParameters{.HorizontalStripes = 5, .VerticalStripes = 4}),
        of(SpheroidParameters{.VerticalStripes = 101}), of(CylinderParameters{.Stripes = 2.9}),
        of(CylinderParameters{.Stripes = 31.5}), of(CylinderParameters{.WallThickness = 0.5}),
        of(StaircaseParameters{.NumberOfStairs = 2.5}),
        of(StaircaseParameters{.NumberOfStairs = -1}),
        of(StaircaseParameters{.NumberOfStairs = 4097})}) {
    CZandoBrush brush;
    c.generate(brush);
    EXPECT_FALSE(c.problem.empty());
    EXPECT_EQ(brush.PolyCount(), 0) << c.problem;
  }
}

TEST(Primitives, SizesOfAllKindsGiveNumbers) {
  for (const double size : {0.0, -64.0, 1e-320, 1e-170, 1e200}) {
    CZandoBrush brush;
    const auto expectNumbers = [&brush] {
      for (const CZandoPoly& face : brush.Polys()) {
        for (const Vector& v : face.Vertices()) EXPECT_TRUE(IsFinite(v));
      }
    };
    Generate(SpheroidParameters{.XSize = size, .YSize = size, .ZSize = size, .Style = 1}, brush);
    expectNumbers();
    Generate(SpheroidParameters{.YSize = size, .ZSize = 1e-9}, brush);
    expectNumbers();
    Generate(SpheroidParameters{.XSize = size}, brush);
    expectNumbers();
    Generate(CylinderParameters{.BottomXSize = size, .Style = 1, .TopZSize = size, .YSize = size},
             brush);
    expectNumbers();
    Generate(StaircaseParameters{.Height = size, .Length = size, .Width = size}, brush);
    expectNumbers();
  }
}

}  // namespace
}  // namespace zando
