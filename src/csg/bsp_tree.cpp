#include "csg/bsp_tree.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zando {
namespace {

/// Nodes lie far apart in memory; what will be needed in a moment is sent for now. Changes nothing
/// but the time that it takes.
inline void Prefetch(const void* place) { __builtin_prefetch(place); }

/// A chain is copied member by member; children are copied by the walk of the tree.
CBspNode* CopyChain(CConstructiveBsp& owner, const CBspNode* source) {
  CBspNode* head = nullptr;
  CBspNode** next = &head;
  for (; source != nullptr; source = source->chain) {
    CBspNode* copy = owner.NewNode();
    copy->polygon = source->polygon;
    copy->plane = source->plane;
    copy->nValid = source->nValid;
    copy->nFresh = source->nFresh;
    copy->TakeOwner(*source);
    *next = copy;
    next = &copy->chain;
  }
  return head;
}

/// A face without extent has a plane whose coordinates are no numbers.
bool SameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool SamePlane(const Plane& a, const Plane& b) {
  return SameNumber(a.normal.x, b.normal.x) && SameNumber(a.normal.y, b.normal.y) &&
         SameNumber(a.normal.z, b.normal.z) && SameNumber(a.d, b.d);
}

bool SameChains(const CBspNode* a, const CBspNode* b) {
  for (; a != nullptr && b != nullptr; a = a->chain, b = b->chain) {
    const bool same = a->nValid == b->nValid && a->nBid == b->nBid && a->nPolNum == b->nPolNum &&
                      SamePlane(a->plane, b->plane) && a->polygon == b->polygon;
    if (!same) return false;
  }
  return a == b;
}

}  // namespace

CConstructiveBsp::CConstructiveBsp(const CConstructiveBsp& source)
    : brushList(source.brushList),
      nodes(source.nodes),
      coplanar(source.coplanar),
      inserted(source.inserted),
      splits(source.splits),
      visible(source.visible),
      refused(source.refused) {
  struct Step {
    const CBspNode* from;
    CBspNode** to;
  };
  std::vector<Step> pending{{source.root, &root}};
  while (!pending.empty()) {
    const Step step = pending.back();
    pending.pop_back();
    if (step.from == nullptr) continue;
    CBspNode* copy = CopyChain(*this, step.from);
    *step.to = copy;
    pending.push_back({step.from->front, &copy->front});
    pending.push_back({step.from->back, &copy->back});
  }
}

void CConstructiveBsp::Swap(CConstructiveBsp& other) noexcept {
  std::swap(root, other.root);
  std::swap(brushList, other.brushList);
  std::swap(nodes, other.nodes);
  std::swap(coplanar, other.coplanar);
  std::swap(inserted, other.inserted);
  std::swap(splits, other.splits);
  std::swap(visible, other.visible);
  std::swap(refused, other.refused);
  arena_.Swap(other.arena_);
}

bool operator==(const CConstructiveBsp& a, const CConstructiveBsp& b) {
  if (a.inserted != b.inserted || a.refused != b.refused) return false;
  std::vector<std::pair<const CBspNode*, const CBspNode*>> pending{{a.root, b.root}};
  while (!pending.empty()) {
    const auto [x, y] = pending.back();
    pending.pop_back();
    if (!SameChains(x, y)) return false;
    if (x == nullptr) continue;
    pending.emplace_back(x->front, y->front);
    pending.emplace_back(x->back, y->back);
  }
  return true;
}

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

BspCounts CConstructiveBsp::Count() const {
  BspCounts counts;
  counts.inserted = inserted;
  WalkBackFrontNode(root, [&counts](const CBspNode* node) {
    ++counts.nodes;
    if (node->nValid != 0) ++counts.visible;
    counts.coplanar += ChainLength(node) - 1;
  });
  counts.splits = counts.nodes - inserted + counts.coplanar;
  return counts;
}

void CConstructiveBsp::CountStats() {
  const BspCounts counts = Count();
  nodes = counts.nodes;
  coplanar = counts.coplanar;
  splits = counts.splits;
  visible = counts.visible;
}

void CConstructiveBsp::LinkBrushes(const CZandoBrush* head) {
  std::unordered_map<std::int32_t, const CZandoBrush*> byId;
  for (const CZandoBrush* brush = head; brush != nullptr; brush = brush->Next) {
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
