#include "csg/node_sides.h"

namespace zando {

NodeSides SortNode(CConstructiveBsp& tree, const Plane& plane, CBspNode* node) {
  const PolygonClass side = ClassifyPolygon(plane, node->polygon);
  if (side != PolygonClass::Spanning) return {side};
  CZandoPoly back;
  const PolygonClass split = tree.Split(plane, node->polygon, back);
  if (split != PolygonClass::Spanning) return {split};
  CBspNode* backPiece = tree.NewNode();
  backPiece->TakePolygon(back);
  backPiece->TakeOwner(*node);
  return {split, backPiece};
}

}  // namespace zando
