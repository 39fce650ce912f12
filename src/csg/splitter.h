#pragma once

#include "csg/bsp_tree.h"
#include "platform/progress.h"

namespace zando {

/// The members of a list before and behind a splitter.
struct Partitioned {
  CNodeList front;
  CNodeList back;
};

/// The head of the list whose plane cuts the fewest visible polygons of other heads and their
/// chains; the earliest of equals. Null for an empty list.
[[nodiscard]] CBspNode* ChooseSplitter(const CNodeList& list);

/// Like ChooseSplitter among the heads that cut a polygon or have one before them; null when there
/// is none, that is when the list is convex.
[[nodiscard]] CBspNode* ChooseLeafSplitter(const CNodeList& list);

/// Sorts the members of the list, chains dissolved, to the sides of `splitter`, cutting those that
/// span its plane. Coplanar polygons of the same facing go to the front. Steps `progress` once.
[[nodiscard]] Partitioned Partition(CConstructiveBsp& tree, CBspNode* splitter,
                                    const CNodeList& list, CProgress* progress);

/// As Partition, but coplanar polygons of the same facing join the splitter's chain.
[[nodiscard]] Partitioned PartitionLeaf(CConstructiveBsp& tree, CBspNode* splitter,
                                        const CNodeList& list);

/// Makes the list the tree's leaf tree: splitters above, convex cells below. An empty list leaves
/// an empty tree.
void BuildLeafTree(CConstructiveBsp& tree, const CNodeList& list);

}  // namespace zando
