#include "csg/brush_sequence.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "csg/insert_faces.h"

namespace zando {
namespace {

/// A polygon this far before a face stays so whatever rounding does to the pieces it is cut into,
/// within this reach.
constexpr double kClearDistance = 0.0625;
constexpr double kClearReach = 32768.0;

bool SameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool IsSettled(const CBspNode& node) {
  const Plane own = ComputePlane(node.polygon);
  return SameBits(own.normal.x, node.plane.normal.x) &&
         SameBits(own.normal.y, node.plane.normal.y) &&
         SameBits(own.normal.z, node.plane.normal.z) && SameBits(own.d, node.plane.d);
}

/// Written so that coordinates that are not numbers are out of reach.
bool IsWithinReach(const CZandoPoly& polygon) {
  const auto vertices = polygon.Vertices();
  return std::all_of(vertices.begin(), vertices.end(), [](const Vector& v) {
    return std::fabs(v.x) <= kClearReach && std::fabs(v.y) <= kClearReach &&
           std::fabs(v.z) <= kClearReach;
  });
}

/// Whether every plane cuts the face, and any part of it, into two at most, each with one vertex
/// more at most; a polygon that zigzags through a plane gains more. False when in doubt.
bool IsFlatAndConvex(const CZandoPoly& face) {
  constexpr double kFlat = 0.9 * PLANE_EPSILON;  // off its plane, no vertex can change sides
  constexpr double kConvex = 1e-6;
  const Plane plane = ComputePlane(face);
  const std::int32_t count = face.count;
  for (std::int32_t i = 0; i < count; ++i) {
    if (!(std::fabs(SignedDistance(plane, face[i])) < kFlat)) return false;
    const std::int32_t next = (i + 1) % count;
    const Vector outward = Normalised(Cross(face[next] - face[i], plane.normal));
    for (std::int32_t j = 0; j < count; ++j) {
      if (j == i || j == next) continue;
      if (!(Dot(outward, face[j] - face[i]) < -kConvex)) return false;
    }
  }
  return true;
}

Bounds BoundsOf(const CZandoPoly& polygon) {
  Bounds bounds;
  for (const Vector& vertex : polygon.Vertices()) bounds.Include(vertex);
  return bounds;
}

/// The distance of the corner of a box that comes first as one moves along the plane's normal.
double LeastDistance(const Plane& plane, const Vector& low, const Vector& high) {
  const Vector& n = plane.normal;
  return SignedDistance(
      plane, {n.x > 0.0 ? low.x : high.x, n.y > 0.0 ? low.y : high.y, n.z > 0.0 ? low.z : high.z});
}

}  // namespace

void CBrushSequence::Insert(const CZandoBrush& brush, std::int32_t id) {
  for (CBspNode* node : fresh_) node->nFresh = 0;
  fresh_.clear();
  if (brush.TranT != kAddToWorld && brush.TranT != kSubtractFromWorld) return;
  InsertFaces(world_, brush, id, &fresh_);
  BuildBrushTree(brushTree_, brush);
  NoteBrushTree();
  const CoplanarRule rule = OlderFaceRule(brush);
  for (Remains& remains : remains_) {
    if (IsClear(remains)) {
      ClipUnsettled(remains, rule);
    } else {
      ClipRemains(remains, rule);
    }
  }
  world_.refused += brushTree_.refused;
  if (!fresh_.empty()) remains_.push_back(RemainsOf(brush, fresh_));
}

void CBrushSequence::NoteBrushTree() {
  convexFaces_.clear();
  for (const CBspNode* face = brushTree_.root; face != nullptr; face = face->back) {
    const bool withinReach = std::fabs(face->plane.d) <= 2.0 * kClearReach;
    if (face->front != nullptr || !withinReach) {
      convexFaces_.clear();
      return;
    }
    convexFaces_.push_back(face->plane);
  }
}

bool CBrushSequence::IsClear(const Remains& remains) const {
  if (!remains.withinReach) return false;
  // A polygon with so many vertices may be refused a cut, which is counted.
  if (remains.mostVertices + static_cast<std::int32_t>(convexFaces_.size()) > MAX_POLY_VERTS) {
    return false;
  }
  return std::any_of(convexFaces_.begin(), convexFaces_.end(), [&remains](const Plane& face) {
    return LeastDistance(face, remains.bounds.low, remains.bounds.high) > kClearDistance;
  });
}

bool CBrushSequence::PassesUncut(const Bounds& bounds) const {
  for (const Plane& face : convexFaces_) {
    if (LeastDistance(face, bounds.low, bounds.high) > kClearDistance) return true;
    // Corners swapped: the greatest distance. One that is not a number does not count as behind.
    const bool behind = LeastDistance(face, bounds.high, bounds.low) < -kClearDistance;
    if (!behind) return false;
  }
  return false;
}

void CBrushSequence::ClipRemains(Remains& remains, CoplanarRule rule) {
  added_.clear();
  for (CBspNode* polygon : remains.polygons) {
    const CBspNode* end = ChainEnd(polygon);
    clipper_.ClipAdd(brushTree_, polygon, rule);
    for (CBspNode* piece = end->chain; piece != nullptr; piece = piece->chain) {
      added_.push_back(piece);
    }
  }
  remains.polygons.insert(remains.polygons.end(), added_.begin(), added_.end());
  std::erase_if(remains.polygons, [](const CBspNode* polygon) { return polygon->nValid == 0; });
  NoteUnsettled(remains);
}

/// Faces before the one that a polygon is clear of may cut it. It becomes whole again, but with its
/// plane computed afresh. That, and counting cuts that are refused, is all that clipping does to
/// it.
void CBrushSequence::ClipUnsettled(Remains& remains, CoplanarRule rule) {
  std::erase_if(remains.unsettled, [&](const Unsettled& unsettled) {
    if (PassesUncut(unsettled.bounds)) return false;
    clipper_.ClipAdd(brushTree_, unsettled.polygon, rule);
    return remains.cutsInTwo && IsSettled(*unsettled.polygon);
  });
}

void CBrushSequence::NoteUnsettled(Remains& remains) {
  remains.unsettled.clear();
  for (CBspNode* polygon : remains.polygons) {
    remains.mostVertices = std::max(remains.mostVertices, polygon->polygon.count);
    if (remains.cutsInTwo && IsSettled(*polygon)) continue;
    remains.unsettled.push_back({polygon, BoundsOf(polygon->polygon)});
  }
}

CBrushSequence::Remains CBrushSequence::RemainsOf(const CZandoBrush& brush,
                                                  const std::vector<CBspNode*>& polygons) {
  Remains remains;
  remains.polygons = polygons;
  remains.withinReach =
      std::all_of(brush.WorldPolys().begin(), brush.WorldPolys().end(), IsWithinReach);
  remains.cutsInTwo =
      std::all_of(brush.WorldPolys().begin(), brush.WorldPolys().end(), IsFlatAndConvex);
  for (const CBspNode* node : polygons) remains.bounds.Include(BoundsOf(node->polygon));
  NoteUnsettled(remains);
  return remains;
}

}  // namespace zando
