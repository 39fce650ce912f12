#include "csg/node_tree_builder.h"

#include <vector>

namespace zando {

void BuildNodeTree(CConstructiveBsp& tree, const CNodeList& list, CProgress* progress) {
  struct Pending {
    CBspNode** child;
    CNodeList list;
  };
  std::vector<Pending> pending;
  if (!list.IsEmpty()) pending.push_back({&tree.root, list});
  while (!pending.empty()) {
    const Pending part = pending.back();
    pending.pop_back();
    CBspNode* splitter = ChooseSplitter(part.list);
    *part.child = splitter;
    const Partitioned sides = Partition(tree, splitter, part.list, progress);
    if (!sides.back.IsEmpty()) pending.push_back({&splitter->back, sides.back});
    if (!sides.front.IsEmpty()) pending.push_back({&splitter->front, sides.front});
  }
}

}  // namespace zando
