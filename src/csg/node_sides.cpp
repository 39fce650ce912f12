#include "csg/node_sides.h"

namespace zando {

NodeSides CutNode(CConstructiveBsp& tree, const Plane& plane, CBspNode* node) {
  CZandoPoly back;
  const PolygonClass side = tree.Split(plane, node->polygon, back);
  if (side != PolygonClass::Spanning) return {side};
  CBspNode* backPiece = tree.NewNode();
  backPiece->TakePolygon(back);
  backPiece->TakeOwner(*node);
  return {side, backPiece};
}

}  // namespace zando
