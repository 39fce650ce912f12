#include "csg/node_tree_builder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "csg/splitter_search.h"

namespace zando {
namespace {

/// Below this size counting every candidate is quicker than keeping account of them.
constexpr std::size_t kPlainSize = 12;

using Members = std::vector<CSplitterSearch::Member>;

/// A list that still has to become the subtree at `child`.
struct Pending {
  CBspNode** child;
  Members members;
};

/// The members of a list whose heads still have chains.
Members ListMembers(const CNodeList& list) {
  Members members;
  std::uint32_t head = 0;
  for (CBspNode* node = list.head; node != nullptr; node = node->link, ++head) {
    for (CBspNode* member = node; member != nullptr; member = member->chain) {
      members.push_back({member, head, member == node});
    }
  }
  for (const CSplitterSearch::Member& member : members) {
    member.node->chain = nullptr;
  }
  return members;
}

/// Once chains are dissolved, every polygon is a candidate of its own.
Members SingleMembers(const std::vector<CBspNode*>& nodes) {
  Members members;
  members.reserve(nodes.size());
  std::uint32_t head = 0;
  for (CBspNode* node : nodes) members.push_back({node, head++, true});
  return members;
}

class CNodeTreeBuilder {
 public:
  CNodeTreeBuilder(CConstructiveBsp& tree, CProgress* progress)
      : tree_(tree), progress_(progress) {}

  void Build(const CNodeList& list) {
    pending_.push_back({&tree_.root, ListMembers(list)});
    while (!pending_.empty()) {
      Pending part = std::move(pending_.back());
      pending_.pop_back();
      // Only the list that was given has chains; its root is always searched for.
      if (part.members.size() <= kPlainSize && part.child != &tree_.root) {
        BuildPlain(part);
      } else {
        BuildBySearch(part);
      }
    }
  }

 private:
  void Step() {
    if (progress_ != nullptr) progress_->StepIt();
  }

  void Enqueue(CBspNode** child, const std::vector<CBspNode*>& nodes) {
    if (!nodes.empty()) pending_.push_back({child, SingleMembers(nodes)});
  }

  /// Takes splitter after splitter as long as the larger side is worth keeping account of.
  void BuildBySearch(const Pending& part) {
    CSplitterSearch search(part.members);
    const std::size_t enough = std::max(part.members.size() / 3, kPlainSize);
    CBspNode** child = part.child;
    bool chainsDissolved = child != &tree_.root;
    while (search.LiveCount() > 0) {
      CSplitterSearch::Taken taken = search.Take(tree_, search.Choose());
      CBspNode* splitter = taken.splitter;
      splitter->link = nullptr;
      *child = splitter;
      Step();
      Enqueue(taken.smallerIsFront ? &splitter->front : &splitter->back, taken.smaller);
      child = taken.smallerIsFront ? &splitter->back : &splitter->front;
      if (search.LiveCount() <= enough || !chainsDissolved) {
        Enqueue(child, search.Remaining());
        return;
      }
      chainsDissolved = true;
    }
  }

  void BuildPlain(const Pending& part) {
    struct Plain {
      CBspNode** child;
      CNodeList list;
    };
    CNodeList whole;
    for (const CSplitterSearch::Member& member : part.members) whole.Append(member.node);
    std::vector<Plain> plain;
    plain.push_back({part.child, whole});
    while (!plain.empty()) {
      const Plain next = plain.back();
      plain.pop_back();
      CBspNode* splitter = ChooseSplitter(next.list);
      *next.child = splitter;
      const Partitioned sides = Partition(tree_, splitter, next.list, progress_);
      if (!sides.back.IsEmpty()) plain.push_back({&splitter->back, sides.back});
      if (!sides.front.IsEmpty()) plain.push_back({&splitter->front, sides.front});
    }
  }

  CConstructiveBsp& tree_;
  CProgress* progress_;
  std::vector<Pending> pending_;
};

}  // namespace

void BuildNodeTree(CConstructiveBsp& tree, const CNodeList& list, CProgress* progress) {
  if (!list.IsEmpty()) CNodeTreeBuilder(tree, progress).Build(list);
}

}  // namespace zando
