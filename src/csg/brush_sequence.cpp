#include "csg/brush_sequence.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

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
bool IsWithinReach(const Vector& corner) {
  return std::fabs(corner.x) <= kClearReach && std::fabs(corner.y) <= kClearReach &&
         std::fabs(corner.z) <= kClearReach;
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
  if (!fresh_.empty()) remains_.push_back(RemainsOf(fresh_));
}

void CBrushSequence::NoteBrushTree() {
  convexFaces_.clear();
  for (const CBspNode* face = brushTree_.root; face != nullptr; face = face->back) {
    if (face->front != nullptr) {
      convexFaces_.clear();
      return;
    }
    convexFaces_.push_back(face->plane);
  }
}

bool CBrushSequence::IsClear(const Remains& remains) const {
  // A polygon with so many vertices may be refused a cut, which is counted.
  if (remains.mostVertices + static_cast<std::int32_t>(convexFaces_.size()) > MAX_POLY_VERTS) {
    return false;
  }
  if (!remains.withinReach) return false;
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
/// plane computed afresh: that is all that clipping does to it.
void CBrushSequence::ClipUnsettled(Remains& remains, CoplanarRule rule) {
  std::erase_if(remains.unsettled, [&](const Unsettled& unsettled) {
    if (PassesUncut(unsettled.bounds)) return false;
    clipper_.ClipAdd(brushTree_, unsettled.polygon, rule);
    return IsSettled(*unsettled.polygon);
  });
}

void CBrushSequence::NoteUnsettled(Remains& remains) {
  remains.unsettled.clear();
  for (CBspNode* polygon : remains.polygons) {
    remains.mostVertices = std::max(remains.mostVertices, polygon->polygon.count);
    if (IsSettled(*polygon)) continue;
    remains.unsettled.push_back({polygon, BoundsOf(polygon->polygon)});
  }
}

CBrushSequence::Bounds CBrushSequence::BoundsOf(const CZandoPoly& polygon) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  Bounds bounds{{infinity, infinity, infinity}, {-infinity, -infinity, -infinity}};
  for (const Vector& v : polygon.Vertices()) {
    bounds.low = {std::min(v.x, bounds.low.x), std::min(v.y, bounds.low.y),
                  std::min(v.z, bounds.low.z)};
    bounds.high = {std::max(v.x, bounds.high.x), std::max(v.y, bounds.high.y),
                   std::max(v.z, bounds.high.z)};
  }
  return bounds;
}

CBrushSequence::Remains CBrushSequence::RemainsOf(const std::vector<CBspNode*>& polygons) {
  Remains remains;
  remains.polygons = polygons;
  remains.withinReach = true;
  remains.bounds = BoundsOf(CZandoPoly());
  for (const CBspNode* node : polygons) {
    const auto vertices = node->polygon.Vertices();
    remains.withinReach &= std::all_of(vertices.begin(), vertices.end(), IsWithinReach);
    const Bounds bounds = BoundsOf(node->polygon);
    remains.bounds.low = {std::min(remains.bounds.low.x, bounds.low.x),
                          std::min(remains.bounds.low.y, bounds.low.y),
                          std::min(remains.bounds.low.z, bounds.low.z)};
    remains.bounds.high = {std::max(remains.bounds.high.x, bounds.high.x),
                           std::max(remains.bounds.high.y, bounds.high.y),
                           std::max(remains.bounds.high.z, bounds.high.z)};
  }
  NoteUnsettled(remains);
  return remains;
}

}  // namespace zando
