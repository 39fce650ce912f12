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

/// What is wanted for a face: the simplest way that keeps its plane within half a unit.
PlaneOrigin Simplest(const CZandoPoly& face) {
  const std::vector<Vector> whole = Whole(face);
  if (Shift({whole[0], whole[1], whole[2]}, face) <= 0.5) return PlaneOrigin::FirstVertices;
  return LeastShift(whole, face) <= 0.5 ? PlaneOrigin::OtherVertices : PlaneOrigin::Decimals;
}

TEST(PlanePoints, KeepThePlaneOfEveryFaceWithinHalfAUnitInTheSimplestWayThatDoes) {
  CRandom random(5);
  std::map<PlaneOrigin, int> seen;
  for (int i = 0; i < 600; ++i) {
    const CZandoPoly face = RandomFace(random, random.Between(3, 9));
    const auto [points, origin] = ChoosePlanePoints(face);
    ++seen[origin];
    ASSERT_EQ(origin, Simplest(face)) << i;
    const std::vector<Vector> chosen(points.begin(), points.end());
    if (origin == PlaneOrigin::OtherVertices) {
      EXPECT_NEAR(Shift(chosen, face), LeastShift(Whole(face), face), 1e-5) << i;
    } else {
      std::vector<Vector> first = Whole(face);
      if (origin == PlaneOrigin::Decimals) first.assign(face.verts.begin(), face.verts.begin() + 3);
      EXPECT_TRUE(std::equal(chosen.begin(), chosen.end(), first.begin())) << i;
    }
  }
  EXPECT_EQ(seen.size(), 3U) << "every way is met";
}

TEST(PlanePoints, OfAFaceThatBeginsWithALineAreOthersAndOfOneWithoutAPlaneTheFirst) {
  const double a = 0.3;
  const struct {
    CZandoPoly face;
    PlaneOrigin origin;
    std::size_t which;
    Vector point;
  } cases[] = {{Polygon({{0, 0, 0}, {4, 0, 0}, {8, 0, 0}, {8, 8, 0}}),
                PlaneOrigin::OtherVertices,
                2,
                {8, 8, 0}},
               {Polygon({{0, 0, a}, {a / 4, 0, a}, {a / 2, 0, a}, {a / 2, a, a}}),
                PlaneOrigin::Decimals,
                2,
                {a / 2, a, a}},
               {Polygon({{0, 0, 0}, {4.4, 0, 0}, {8, 0, 0}}), PlaneOrigin::Moved, 1, {4, 0, 0}},
               {Polygon({{0, 0, 0}, {4.4, NAN, 0}, {8, 8, 0}}), PlaneOrigin::Moved, 1, {4, 0, 0}}};
  for (const auto& [face, origin, which, point] : cases) {
    const PlanePoints found = ChoosePlanePoints(face);
    EXPECT_EQ(found.origin, origin);
    EXPECT_EQ(found.points.at(which), point);
  }
}

}  // namespace
}  // namespace zando::testing
