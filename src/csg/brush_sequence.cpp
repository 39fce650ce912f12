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

/// The corner of a box that comes first as one moves along the direction.
Vector FirstCorner(const Vector& low, const Vector& high, const Vector& direction) {
  return {direction.x > 0.0 ? low.x : high.x, direction.y > 0.0 ? low.y : high.y,
          direction.z > 0.0 ? low.z : high.z};
}

}  // namespace

void CBrushSequence::Insert(CZandoBrush& brush, std::int32_t id) {
  brush.UpdateWorld();
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
    const Vector corner = FirstCorner(remains.low, remains.high, face.normal);
    return SignedDistance(face, corner) > kClearDistance;
  });
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
  std::erase_if(remains.unsettled, [&](CBspNode* polygon) {
    clipper_.ClipAdd(brushTree_, polygon, rule);
    return IsSettled(*polygon);
  });
}

void CBrushSequence::NoteUnsettled(Remains& remains) {
  remains.unsettled.clear();
  for (CBspNode* polygon : remains.polygons) {
    remains.mostVertices = std::max(remains.mostVertices, polygon->polygon.count);
    if (!IsSettled(*polygon)) remains.unsettled.push_back(polygon);
  }
}

CBrushSequence::Remains CBrushSequence::RemainsOf(const std::vector<CBspNode*>& polygons) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  Remains remains;
  remains.polygons = polygons;
  remains.low = {infinity, infinity, infinity};
  remains.high = {-infinity, -infinity, -infinity};
  remains.withinReach = true;
  for (const CBspNode* polygon : polygons) {
    for (const Vector& v : polygon->polygon.Vertices()) {
      remains.withinReach = remains.withinReach && IsWithinReach(v);
      remains.low = {std::min(v.x, remains.low.x), std::min(v.y, remains.low.y),
                     std::min(v.z, remains.low.z)};
      remains.high = {std::max(v.x, remains.high.x), std::max(v.y, remains.high.y),
                      std::max(v.z, remains.high.z)};
    }
  }
  NoteUnsettled(remains);
  return remains;
}

}  // namespace zando
