#include <cstddef>
#include <vector>

#include "csg/clipper.h"
#include "csg/csg_world.h"
#include "csg/node_sides.h"

namespace zando {
namespace {

/// How a brush lies to a plane, and which of its faces bound it there.
class CPlaneContact {
 public:
  CPlaneContact(const CZandoBrush& brush, const Plane& plane) : plane_(plane) {
    for (const CZandoPoly& face : brush.WorldPolys()) Note(face);
  }

  /// Whether the brush reaches through the plane or has a face in it; a mere edge or corner in the
  /// plane bounds nothing.
  [[nodiscard]] bool BrushBoundsPlane() const { return faceInPlane_ || (front_ && back_); }

  [[nodiscard]] bool FaceBoundsPlane(const CZandoPoly& face) const {
    switch (ClassifyPolygon(plane_, face)) {
      case PolygonClass::Spanning:
      case PolygonClass::CoplanarSame:
      case PolygonClass::CoplanarOpposite:
        return true;
      case PolygonClass::Front:
      case PolygonClass::Back:
        break;
    }
    std::int32_t onPlane = 0;
    for (const Vector& vertex : face.Vertices()) {
      if (ClassifyPoint(plane_, vertex) == PointClass::On) ++onPlane;
    }
    return onPlane >= 2;
  }

 private:
  void Note(const CZandoPoly& face) {
    bool allOn = face.count > 0;
    for (const Vector& vertex : face.Vertices()) {
      const PointClass side = ClassifyPoint(plane_, vertex);
      front_ |= side == PointClass::Front;
      back_ |= side == PointClass::Back;
      allOn &= side == PointClass::On;
    }
    faceInPlane_ |= allOn;
  }

  Plane plane_;
  bool front_ = false;
  bool back_ = false;
  bool faceInPlane_ = false;
};

/// A face of the clip tree hangs at the first empty child it reaches, on either side.
void HangFace(CConstructiveBsp& tree, CBspNode* node) {
  if (tree.root == nullptr) {
    tree.root = node;
    return;
  }
  struct Descent {
    CBspNode* at;
    CBspNode* piece;
  };
  std::vector<Descent> pending;
  pending.push_back({tree.root, node});
  const auto go = [&pending](CBspNode*& child, CBspNode* piece) {
    if (child != nullptr) {
      pending.push_back({child, piece});
    } else {
      child = piece;
    }
  };
  while (!pending.empty()) {
    const Descent step = pending.back();
    pending.pop_back();
    const auto [side, backPiece] = SortNode(tree, step.at->plane, step.piece);
    if (backPiece != nullptr) go(step.at->back, backPiece);
    const bool front = GoesToFront(side, kCoplanarTable.partition);
    go(front ? step.at->front : step.at->back, step.piece);
  }
}

}  // namespace

ClipCounts ClipAdd(const CConstructiveBsp& brushTree, CConstructiveBsp& owner, CBspNode* node,
                   CoplanarRule rule) {
  return CClipper(owner).ClipAdd(brushTree, node, rule);
}

ClipCounts ClipSubtract(const CConstructiveBsp& brushTree, CConstructiveBsp& owner, CBspNode* node,
                        CoplanarRule rule) {
  return CClipper(owner).ClipSubtract(brushTree, node, rule);
}

void BuildClipTree(CConstructiveBsp& tree, const CZandoBrush& brush, const Plane& plane) {
  tree.Clear();
  const CPlaneContact contact(brush, plane);
  if (!contact.BrushBoundsPlane()) return;
  for (const CZandoPoly& face : brush.WorldPolys()) {
    if (face.count == 0 || !contact.FaceBoundsPlane(face)) continue;
    CBspNode* node = tree.NewNode();
    node->TakePolygon(face);
    HangFace(tree, node);
  }
}

}  // namespace zando
