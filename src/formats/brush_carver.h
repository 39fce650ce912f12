#pragma once

#include <span>
#include <vector>

#include "csg/bsp_tree.h"
#include "geometry/brush.h"

namespace zando {

/// Makes `tree` the leaf tree of what is left of a solid brush once the carvers, in their order,
/// have been subtracted: every cell is one convex piece. Carvers whose bounds do not touch the
/// brush are passed over. The tree is empty when nothing is left.
void CarveBrush(CConstructiveBsp& tree, const CZandoBrush& brush,
                std::span<const CZandoBrush* const> carvers);

/// Turns the tree into a list of its visible polygons: a head for each node that has any, with its
/// further visible fragments as the chain. Hidden polygons are freed, and the tree has no root.
[[nodiscard]] CNodeList FlattenVisible(CConstructiveBsp& tree);

/// Whether a visible polygon of the cell lies more than one unit beyond the bounds of the brush
/// that the cell was cut from. Such a cell is no part of the brush: it stems from a region that a
/// carver swallowed whole.
[[nodiscard]] bool IsStrayCell(const CBspNode* cell, const CZandoBrush& brush);

/// Visits the head of every cell of a leaf tree, those behind a splitter before those in front.
template <typename Visitor>
void WalkCells(const CBspNode* root, Visitor&& visit) {
  std::vector<const CBspNode*> stack;
  if (root != nullptr) stack.push_back(root);
  while (!stack.empty()) {
    const CBspNode* node = stack.back();
    stack.pop_back();
    if (node->nLeaf != 0) {
      visit(node);
      continue;
    }
    if (node->front != nullptr) stack.push_back(node->front);
    if (node->back != nullptr) stack.push_back(node->back);
  }
}

}  // namespace zando
