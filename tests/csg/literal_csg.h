#pragma once

#include <cstdint>
#include <vector>

#include "csg/bsp_tree.h"

namespace zando::literal {

/// The plain form of the tree and world algorithms: recursive, quadratic, without an index, written
/// to be compared with the fast form. It shares the geometry kernel and the records of nodes and
/// trees with it and nothing else. Depth is bounded by the small levels of the tests.
using Tree = CConstructiveBsp;

/// Heads of a flat list, each with its chain.
using List = std::vector<CBspNode*>;

/// Builds the tree of a list; returns the number of partitions.
std::int32_t BuildNodeTree(Tree& tree, const List& list);

void InsertBrush(Tree& world, const CZandoBrush& brush, std::int32_t id);

/// Both rebuilds take the head of the brush list and return the number of progress steps.
std::int32_t RebuildQuick(Tree& world, const CZandoBrush* head, bool water);
std::int32_t RebuildOptimal(Tree& world, const CZandoBrush* head, bool water);

}  // namespace zando::literal
