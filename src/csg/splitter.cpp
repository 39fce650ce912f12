#include "csg/splitter.h"

#include <cstdint>
#include <limits>
#include <vector>

#include "csg/coplanar_table.h"
#include "csg/node_sides.h"

namespace zando {
namespace {

/// Counts until the candidate cuts `spanLimit` polygons: from there on it cannot win.
CandidateCount CountCandidate(const CBspNode* candidate, const CNodeList& list,
                              std::int32_t spanLimit) {
  CandidateCount count;
  for (const CBspNode* head = list.head; head != nullptr; head = head->link) {
    if (head == candidate) continue;
    for (const CBspNode* member = head; member != nullptr; member = member->chain) {
      count.Add(*candidate, *member, 1);
      if (count.spans >= spanLimit) return count;
    }
  }
  return count;
}

/// The earliest candidate that cuts the fewest polygons, among those that `qualifies` admits.
template <typename Qualifies>
CBspNode* FewestSpans(const CNodeList& list, Qualifies qualifies) {
  CBspNode* best = nullptr;
  std::int32_t fewest = std::numeric_limits<std::int32_t>::max();
  for (CBspNode* candidate = list.head; candidate != nullptr; candidate = candidate->link) {
    const CandidateCount count = CountCandidate(candidate, list, fewest);
    if (count.spans >= fewest || !qualifies(count)) continue;
    best = candidate;
    fewest = count.spans;
    if (fewest == 0) break;
  }
  return best;
}

enum class SameFacing { ToFront, ToChain };

/// Where one member goes. A member that spans the plane, and may be cut, goes to both sides.
void SortMember(CConstructiveBsp& tree, CBspNode* splitter, CBspNode* member, SameFacing sameFacing,
                Partitioned& sides) {
  const auto [side, backPiece] = SortNode(tree, splitter->plane, member);
  if (backPiece != nullptr) sides.back.Append(backPiece);
  if (side == PolygonClass::CoplanarSame && sameFacing == SameFacing::ToChain) {
    member->link = nullptr;
    ChainEnd(splitter)->chain = member;
    return;
  }
  const bool front = GoesToFront(side, kCoplanarTable.partition);
  (front ? sides.front : sides.back).Append(member);
}

Partitioned PartitionList(CConstructiveBsp& tree, CBspNode* splitter, const CNodeList& list,
                          SameFacing sameFacing) {
  // The splitter's own chain is dissolved like any other; members may come back to it.
  std::vector<CBspNode*> members;
  for (CBspNode* head = list.head; head != nullptr; head = head->link) {
    for (CBspNode* member = head; member != nullptr; member = member->chain) {
      if (member != splitter) members.push_back(member);
    }
  }
  for (CBspNode* member : members) member->chain = nullptr;
  splitter->chain = nullptr;
  splitter->link = nullptr;

  Partitioned sides;
  for (CBspNode* member : members) SortMember(tree, splitter, member, sameFacing, sides);
  return sides;
}

}  // namespace

void CandidateCount::Add(const CBspNode& candidate, const CBspNode& node, std::int32_t times) {
  if (node.nValid == 0) return;
  switch (ClassifyPolygon(candidate.plane, node.polygon)) {
    case PolygonClass::Front:
    case PolygonClass::CoplanarSame:
      front += times;
      break;
    case PolygonClass::Spanning:
      spans += times;
      break;
    case PolygonClass::Back:
    case PolygonClass::CoplanarOpposite:
      break;
  }
}

CBspNode* ChooseSplitter(const CNodeList& list) {
  return FewestSpans(list, [](const CandidateCount&) { return true; });
}

CBspNode* ChooseLeafSplitter(const CNodeList& list) {
  return FewestSpans(list, [](const CandidateCount& count) { return count.DividesCells(); });
}

Partitioned Partition(CConstructiveBsp& tree, CBspNode* splitter, const CNodeList& list,
                      CProgress* progress) {
  if (progress != nullptr) progress->StepIt();
  return PartitionList(tree, splitter, list, SameFacing::ToFront);
}

Partitioned PartitionLeaf(CConstructiveBsp& tree, CBspNode* splitter, const CNodeList& list) {
  return PartitionList(tree, splitter, list, SameFacing::ToChain);
}

}  // namespace zando
