#include "csg/bsp_tree.h"

#include <unordered_map>

namespace zando {

void CConstructiveBsp::Clear() {
  arena_.ReleaseAll();
  root = nullptr;
  nodes = 0;
  coplanar = 0;
  inserted = 0;
  splits = 0;
  visible = 0;
  refused = 0;
}

void CConstructiveBsp::ClearFresh() {
  WalkBackFrontNode(root, [](CBspNode* node) { node->nFresh = 0; });
}

void CConstructiveBsp::CountStats() {
  nodes = 0;
  coplanar = 0;
  visible = 0;
  WalkBackFrontNode(root, [this](const CBspNode* node) {
    ++nodes;
    if (node->nValid != 0) ++visible;
    coplanar += ChainLength(node) - 1;
  });
  splits = nodes - inserted + coplanar;
}

void CConstructiveBsp::LinkBrushes(CZandoBrush* head) {
  std::unordered_map<std::int32_t, CZandoBrush*> byId;
  for (CZandoBrush* brush = head; brush != nullptr; brush = brush->Next) {
    byId.try_emplace(brush->BBid, brush);
  }
  WalkBackFrontNode(root, [&byId](CBspNode* node) {
    for (CBspNode* member = node; member != nullptr; member = member->chain) {
      const auto found = byId.find(member->nBid);
      member->pBrush = found == byId.end() ? nullptr : found->second;
    }
  });
}

SplitResult CConstructiveBsp::Split(const Plane& plane, CZandoPoly& polygon, CZandoPoly& back) {
  const SplitResult result = SplitPolygon(plane, polygon, back);
  if (result == SplitResult::Refused) ++refused;
  return result;
}

}  // namespace zando
