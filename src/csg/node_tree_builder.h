#pragma once

#include "csg/splitter.h"

namespace zando {

/// Makes the list the tree's node tree: ChooseSplitter and Partition, again and again on each side
/// until every polygon is a node. Chains are dissolved. Steps `progress` once for each partition.
void BuildNodeTree(CConstructiveBsp& tree, const CNodeList& list, CProgress* progress);

}  // namespace zando
