#include "formats/plane_points.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <vector>

#include "support/random_level.h"

namespace zando::testing {
namespace {

CZandoPoly Polygon(const std::vector<Vector>& vertices) {
  CZandoPoly polygon;
  for (const Vector& vertex : vertices) polygon.Append(vertex);
  return polygon;
}

/// How far the plane through three points lies from the vertices of a flat face; infinite when it
/// faces the other way or is none.
double Shift(const std::vector<Vector>& points, const CZandoPoly& face) {
  const Plane plane = ComputePlane(Polygon(points));
  if (!(Dot(plane.normal, ComputePlane(face).normal) > 0.0)) return INFINITY;
  double shift = 0.0;
  for (const Vector& v : face.Vertices()) {
    shift = std::max(shift, std::abs(SignedDistance(plane, v)));
  }
  return shift;
}

/// A leaning regular face of `count` vertices.
CZandoPoly RandomFace(CRandom& random, std::int32_t count) {
  const double radius = random.Real(0.3, 90.0);
  const double start = random.Real(0.0, 6.0);
  const Vector across = Normalised({random.Real(0.1, 1.0), random.Real(-1.0, 1.0), 0.3});
  const Vector along = Normalised(Cross(across, {0.3, random.Real(-1.0, 1.0), 1.0}));
  const Vector middle{random.Real(-99.0, 99.0), random.Real(-99.0, 99.0), 7.0};
  CZandoPoly face;
  for (std::int32_t i = 0; i < count; ++i) {
    const double angle = start + 2.0 * std::numbers::pi * i / count;
    face.Append(middle + across * (radius * std::cos(angle)) + along * (radius * std::sin(angle)));
  }
  return face;
}

std::vector<Vector> Whole(const CZandoPoly& face) {
  std::vector<Vector> whole;
  for (const Vector& v : face.Vertices()) {
    whole.push_back({std::round(v.x), std::round(v.y), std::round(v.z)});
  }
  return whole;
}

/// The least shift of any three of the points.
double LeastShift(const std::vector<Vector>& points, const CZandoPoly& face) {
  double least = INFINITY;
  for (std::size_t i = 0; i < points.size(); ++i) {
    for (std::size_t j = i + 1; j < points.size(); ++j) {
      for (std::size_t k = j + 1; k < points.size(); ++k) {
        least = std::min(least, Shift({points[i], points[j], points[k]}, face));
      }
    }
  }
  return least;
}

TEST(PlanePoints, KeepThePlaneOfEveryFaceWithinHalfAUnitInTheSimplestWayThatDoes) {
  CRandom random(5);
  std::map<PlaneOrigin, int> seen;
  for (int i = 0; i < 600; ++i) {
    const CZandoPoly face = RandomFace(random, random.Between(3, 9));
    const std::vector<Vector> whole = Whole(face);
    const auto [points, origin] = ChoosePlanePoints(face);
    ++seen[origin];
    const std::vector<Vector> chosen(points.begin(), points.end());
    const double shift = Shift(chosen, face);
    EXPECT_LE(shift, 0.5) << i;
    const double least = LeastShift(whole, face);
    if (Shift({whole[0], whole[1], whole[2]}, face) <= 0.5) {
      EXPECT_EQ(chosen, std::vector<Vector>(whole.begin(), whole.begin() + 3)) << i;
    } else if (least <= 0.5) {
      EXPECT_EQ(origin, PlaneOrigin::OtherVertices) << i;
      EXPECT_NEAR(shift, least, 1e-9) << i;
    } else {
      EXPECT_EQ(origin, PlaneOrigin::Decimals) << i;
      EXPECT_EQ(chosen, std::vector<Vector>(face.verts.begin(), face.verts.begin() + 3)) << i;
    }
  }
  for (const PlaneOrigin origin :
       {PlaneOrigin::FirstVertices, PlaneOrigin::OtherVertices, PlaneOrigin::Decimals}) {
    EXPECT_GT(seen[origin], 30);
  }
}

TEST(PlanePoints, OfAFaceThatBeginsWithALineAreOthersAndOfOneWithoutAPlaneTheFirst) {
  const double a = 0.3;
  const auto other = ChoosePlanePoints(Polygon({{0, 0, 0}, {4, 0, 0}, {8, 0, 0}, {8, 8, 0}}));
  EXPECT_EQ(other.origin, PlaneOrigin::OtherVertices);
  EXPECT_EQ(other.points[2], (Vector{8, 8, 0}));
  const auto thin =
      ChoosePlanePoints(Polygon({{0, 0, a}, {a / 4, 0, a}, {a / 2, 0, a}, {a / 2, a, a}}));
  EXPECT_EQ(thin.origin, PlaneOrigin::Decimals);
  EXPECT_EQ(thin.points[2], (Vector{a / 2, a, a}));
  for (const CZandoPoly& line : {Polygon({{0, 0, 0}, {4.4, 0, 0}, {8, 0, 0}}),
                                 Polygon({{0, 0, 0}, {4.4, NAN, 0}, {8, 8, 0}})}) {
    const auto none = ChoosePlanePoints(line);
    EXPECT_EQ(none.origin, PlaneOrigin::Moved);
    EXPECT_EQ(none.points[1], (Vector{4, 0, 0}));
  }
}

}  // namespace
}  // namespace zando::testing
