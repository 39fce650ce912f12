#include "csg/bsp_tree.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_map>

namespace zando {
namespace {

/// Nodes lie far apart in memory; what will be needed in a moment is sent for now. Changes nothing
/// but the time that it takes.
inline void Prefetch(const void* place) { __builtin_prefetch(place); }

}  // namespace

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

PolygonClass CConstructiveBsp::Split(const Plane& plane, CZandoPoly& polygon, CZandoPoly& back) {
  if (SplitPolygon(plane, polygon, back) == SplitResult::Done) return PolygonClass::Spanning;
  ++refused;
  return SideOfMean(plane, polygon);
}

// More than the topmost, so that their memory is on its way at the same time.
void ExpandSteps(CWalkStack& stack, const Vector& eye) {
  constexpr std::size_t kAhead = 16;
  std::array<WalkStep, kAhead> steps;
  const std::size_t count = std::min(stack.size(), kAhead);
  std::copy(stack.end() - static_cast<std::ptrdiff_t>(count), stack.end(), steps.begin());
  stack.resize(stack.size() - count);
  const auto push = [&stack](const CBspNode* node) {
    if (node == nullptr) return;
    Prefetch(node);
    stack.push_back({node, false});
  };
  for (std::size_t i = 0; i < count; ++i) {
    const auto [node, draw] = steps[i];
    if (draw) {
      stack.push_back({node, true});
    } else if (ClassifyPoint(node->plane, eye) == PointClass::Front) {
      push(node->back);
      stack.push_back({node, true});
      Prefetch(&node->nBid);
      Prefetch(&node->polygon.verts[3]);
      push(node->front);
    } else {
      push(node->front);
      push(node->back);
    }
  }
}

}  // namespace zando
