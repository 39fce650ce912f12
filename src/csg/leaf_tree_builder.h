#pragma once

#include "csg/splitter.h"

namespace zando {

/// Makes the list the tree's leaf tree: splitters above, convex cells below. Gives the splitters of
/// ChooseLeafSplitter and PartitionLeaf, again and again on each side. An empty list leaves an
/// empty tree.
void BuildLeafTree(CConstructiveBsp& tree, const CNodeList& list);

}  // namespace zando
