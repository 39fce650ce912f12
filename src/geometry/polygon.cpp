#include "geometry/polygon.h"

#include <cmath>
#include <cstddef>

namespace zando {
namespace {

/// Edges whose cosine differs from one by no more than this count as collinear.
constexpr double kCollinearTolerance = 0.00001;

/// A list of vertices that notes an overflow instead of writing past its capacity.
struct PieceBuilder {
  CZandoPoly piece;
  bool overflow = false;

  void Append(const Vector& vertex) {
    if (piece.count == MAX_POLY_VERTS) {
      overflow = true;
      return;
    }
    piece.Append(vertex);
  }
};

}  // namespace

Plane ComputePlane(const CZandoPoly& polygon) {
  const std::int32_t count = polygon.count;
  if (count == 0) return {{0.0, 0.0, 0.0}, 0.0};
  Vector a{};
  Vector b{};
  for (std::int32_t i = 0; i < count; ++i) {
    a = polygon[(i + count - 1) % count] - polygon[i];
    b = polygon[(i + 1) % count] - polygon[i];
    const double cosine = std::fabs(Dot(a, b)) / (Length(a) * Length(b));
    if (std::fabs(1.0 - cosine) > kCollinearTolerance) break;
  }
  Plane plane;
  plane.normal = Normalised(Cross(b, a));
  plane.d = -Dot(plane.normal, polygon[0]);
  return plane;
}

PolygonClass ClassifyPolygon(const Plane& plane, const CZandoPoly& polygon) {
  bool front = false;
  bool back = false;
  for (const Vector& vertex : polygon.Vertices()) {
    const double distance = SignedDistance(plane, vertex);
    front |= distance > PLANE_EPSILON;
    back |= distance < -PLANE_EPSILON;
  }
  if (front != back) return front ? PolygonClass::Front : PolygonClass::Back;
  if (front || polygon.count == 0) return PolygonClass::Spanning;
  return Dot(plane.normal, ComputePlane(polygon).normal) > 0.0 ? PolygonClass::CoplanarSame
                                                               : PolygonClass::CoplanarOpposite;
}

SplitResult SplitPolygon(const Plane& plane, CZandoPoly& polygon, CZandoPoly& back) {
  PieceBuilder frontPiece;
  PieceBuilder backPiece;
  const auto cut = [&](const Vector& a, const Vector& b) {
    const Vector point = IntersectEdge(plane, a, b);
    frontPiece.Append(point);
    backPiece.Append(point);
  };

  const std::int32_t count = polygon.count;
  PointClass previous = PointClass::On;
  for (std::int32_t i = 0; i < count; ++i) {
    const Vector& vertex = polygon[i];
    const PointClass side = ClassifyPoint(plane, vertex);
    switch (side) {
      case PointClass::On:
        frontPiece.Append(vertex);
        backPiece.Append(vertex);
        break;
      case PointClass::Back:
        if (previous == PointClass::Front) cut(polygon[i - 1], vertex);
        backPiece.Append(vertex);
        break;
      case PointClass::Front:
        if (previous == PointClass::Back) cut(polygon[i - 1], vertex);
        frontPiece.Append(vertex);
        break;
    }
    previous = side;
  }
  if (count > 0) {
    const PointClass first = ClassifyPoint(plane, polygon[0]);
    if ((previous == PointClass::Back && first == PointClass::Front) ||
        (previous == PointClass::Front && first == PointClass::Back)) {
      cut(polygon[count - 1], polygon[0]);
    }
  }
  if (frontPiece.overflow || backPiece.overflow) return SplitResult::Refused;

  frontPiece.piece.tag = polygon.tag;
  backPiece.piece.tag = back.tag;
  polygon = frontPiece.piece;
  back = backPiece.piece;
  return SplitResult::Done;
}

PolygonClass SideOfMean(const Plane& plane, const CZandoPoly& polygon) {
  double sum = 0.0;
  for (const Vector& vertex : polygon.Vertices()) sum += SignedDistance(plane, vertex);
  return sum > 0.0 ? PolygonClass::Front : PolygonClass::Back;
}

ReversedPolygon ReverseCopy(const CZandoPoly& polygon) {
  ReversedPolygon result{polygon, {}};
  std::reverse_copy(polygon.Vertices().begin(), polygon.Vertices().end(),
                    result.polygon.verts.begin());
  result.plane = ComputePlane(result.polygon);
  return result;
}

CZandoPoly BasePolygonForPlane(const Plane& plane, const Vector& middle, double reach) {
  const Vector n = -plane.normal;
  std::size_t axis = 0;
  double largest = -10000.0;
  const std::array<double, 3> magnitudes{std::fabs(n.x), std::fabs(n.y), std::fabs(n.z)};
  for (std::size_t i = 0; i < 3; ++i) {
    if (magnitudes[i] <= largest) continue;
    largest = magnitudes[i];
    axis = i;
  }

  Vector up = axis == 2 ? Vector{1.0, 0.0, 0.0} : Vector{0.0, 0.0, 1.0};
  up = up - n * Dot(n, up);
  const Vector origin = middle + n * SignedDistance(plane, middle);
  const Vector right = Cross(up, n) * reach;
  up = up * reach;

  CZandoPoly result;
  result.Append(origin - right + up);
  result.Append(origin + right + up);
  result.Append(origin + right - up);
  result.Append(origin - right - up);
  return result;
}

}  // namespace zando
