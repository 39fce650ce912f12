#pragma once

#include "csg/bsp_tree.h"

namespace zando {

/// Where a node's polygon lies to a plane. `side` is Spanning only when it has been cut: the node
/// keeps the front piece, and `backPiece`, a new node of the same owner, holds the other.
struct NodeSides {
  PolygonClass side;
  CBspNode* backPiece = nullptr;
};

/// Cuts a node's polygon that spans the plane. One whose split is refused stays whole, and goes to
/// the side of its vertex mean.
[[nodiscard]] NodeSides CutNode(CConstructiveBsp& tree, const Plane& plane, CBspNode* node);

/// Classifies the node's polygon, and cuts it when it spans the plane.
[[nodiscard]] inline NodeSides SortNode(CConstructiveBsp& tree, const Plane& plane,
                                        CBspNode* node) {
  const PolygonClass side = ClassifyPolygon(plane, node->polygon);
  return side == PolygonClass::Spanning ? CutNode(tree, plane, node) : NodeSides{side};
}

}  // namespace zando
