#include "csg/leaf_tree_builder.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "csg/coplanar_table.h"
#include "csg/node_sides.h"

namespace zando {
namespace {

/// Counts are kept on a side that so many times more polygons stay on than leave.
constexpr std::size_t kWorthKeeping = 4;

/// A polygon of a list without chains. Round shapes give up one face after the other: that none of
/// them costs a look at every pair, a candidate's count outlives the splitters of others.
struct Candidate {
  CBspNode* node;
  CandidateCount count{};
  bool counted = false;    ///< the count is that of the whole list
  std::size_t looked = 0;  ///< polygons looked at for counts that were given up
};

using Candidates = std::vector<Candidate>;

/// A member when a splitter has been taken: what of it lies on each side, if anything.
struct Placed {
  Candidate member;
  CBspNode* front = nullptr;
  CBspNode* back = nullptr;
  bool spans = false;

  [[nodiscard]] bool StaysWhole(CBspNode* Placed::*side) const {
    return !spans && this->*side != nullptr;
  }
};

/// A list that still has to become the child of a splitter.
struct PendingChild {
  CBspNode** child;
  Candidates members;
};

Candidates MembersOf(const CNodeList& list) {
  Candidates members;
  for (CBspNode* node = list.head; node != nullptr; node = node->link) members.push_back({node});
  return members;
}

/// Counts until the candidate cuts `spanLimit` polygons: from there on it cannot win. One that has
/// been given up often enough is counted to the end, so as not to begin again each time.
void Count(Candidates& members, std::size_t index, std::int32_t spanLimit) {
  Candidate& candidate = members[index];
  const bool toTheEnd = candidate.looked >= members.size();
  candidate.count = {};
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (i == index) continue;
    candidate.count.Add(*candidate.node, *members[i].node, 1);
    if (toTheEnd || candidate.count.spans < spanLimit) continue;
    candidate.looked += i + 1;
    return;
  }
  candidate.counted = true;
}

/// The place of what ChooseLeafSplitter would choose; past the end when the list is convex.
std::size_t Choose(Candidates& members) {
  std::size_t best = members.size();
  std::int32_t fewest = std::numeric_limits<std::int32_t>::max();
  for (std::size_t i = 0; i < members.size() && fewest > 0; ++i) {
    if (!members[i].counted) Count(members, i, fewest);
    const CandidateCount& count = members[i].count;
    if (count.spans >= fewest || !count.DividesCells()) continue;
    best = i;
    fewest = count.spans;
  }
  return best;
}

/// Sorts all but the splitter, as PartitionLeaf does, but cuts none.
std::vector<Placed> Place(const Candidates& members, CBspNode* splitter) {
  std::vector<Placed> placed;
  placed.reserve(members.size());
  for (const Candidate& member : members) {
    if (member.node == splitter) continue;
    const PolygonClass side = ClassifyPolygon(splitter->plane, member.node->polygon);
    Placed& place = placed.emplace_back(Placed{member});
    place.spans = side == PolygonClass::Spanning;
    if (place.spans || side == PolygonClass::CoplanarSame) continue;
    const bool front = GoesToFront(side, kCoplanarTable.partition);
    (front ? place.front : place.back) = member.node;
  }
  return placed;
}

/// Takes what does not stay whole on a side out of the counts of what does.
void CountOut(std::vector<Placed>& placed, CBspNode* Placed::*side, const CBspNode& splitter) {
  std::vector<const CBspNode*> leaving{&splitter};
  for (const Placed& place : placed) {
    if (!place.StaysWhole(side)) leaving.push_back(place.member.node);
  }
  const std::size_t staying = placed.size() + 1 - leaving.size();
  const bool keeps = staying > kWorthKeeping * leaving.size();
  for (auto& [member, front, back, spans] : placed) {
    if (spans || (side == &Placed::front ? front : back) == nullptr) continue;
    if (!keeps) member = {member.node};
    if (!member.counted) continue;
    for (const CBspNode* node : leaving) member.count.Add(*member.node, *node, -1);
  }
}

/// Cuts what spans the splitter, and lets it keep what lies in its plane and faces the same way.
void Cut(CConstructiveBsp& tree, std::vector<Placed>& placed, CBspNode* splitter) {
  CBspNode* last = ChainEnd(splitter);
  for (Placed& place : placed) {
    CBspNode* node = place.member.node;
    if (place.spans) {
      const auto [side, backPiece] = CutNode(tree, splitter->plane, node);
      place.back = backPiece;
      (GoesToFront(side, kCoplanarTable.partition) ? place.front : place.back) = node;
    } else if (place.front == nullptr && place.back == nullptr) {
      node->link = nullptr;
      last = last->chain = node;
    }
  }
}

/// What lies on a side, in the order of the list, with the pieces counted in.
Candidates Collect(const std::vector<Placed>& placed, CBspNode* Placed::*side) {
  Candidates members;
  std::vector<const CBspNode*> pieces;
  for (const Placed& place : placed) {
    if (place.*side == nullptr) continue;
    if (place.spans) {
      members.push_back({place.*side});
      pieces.push_back(place.*side);
    } else {
      members.push_back(place.member);
    }
  }
  for (Candidate& member : members) {
    if (!member.counted) continue;
    for (const CBspNode* piece : pieces) member.count.Add(*member.node, *piece, 1);
  }
  return members;
}

/// Sorts the list to the sides of one of its members.
std::pair<Candidates, Candidates> Divide(CConstructiveBsp& tree, const Candidates& members,
                                         CBspNode* splitter) {
  std::vector<Placed> placed = Place(members, splitter);
  CountOut(placed, &Placed::front, *splitter);
  CountOut(placed, &Placed::back, *splitter);
  splitter->link = nullptr;
  Cut(tree, placed, splitter);
  return {Collect(placed, &Placed::front), Collect(placed, &Placed::back)};
}

CBspNode* CellOf(const Candidates& members) {
  CNodeList cell;
  for (const Candidate& member : members) cell.Append(member.node);
  CBspNode* head = members.front().node;
  head->nLeaf = 1;
  return head;
}

void BuildChildren(CConstructiveBsp& tree, std::vector<PendingChild> pending) {
  const auto enqueue = [&pending](CBspNode** child, Candidates members) {
    if (!members.empty()) pending.push_back({child, std::move(members)});
  };
  while (!pending.empty()) {
    PendingChild part = std::move(pending.back());
    pending.pop_back();
    const std::size_t chosen = Choose(part.members);
    if (chosen == part.members.size()) {
      *part.child = CellOf(part.members);
      continue;
    }
    CBspNode* splitter = *part.child = part.members[chosen].node;
    auto [front, back] = Divide(tree, part.members, splitter);
    enqueue(&splitter->back, std::move(back));
    enqueue(&splitter->front, std::move(front));
  }
}

}  // namespace

void BuildLeafTree(CConstructiveBsp& tree, const CNodeList& list) {
  if (list.IsEmpty()) return;
  // Only the list that is given has chains.
  CBspNode* splitter = tree.root = ChooseLeafSplitter(list);
  if (splitter == nullptr) {
    tree.root = list.head;
    list.head->nLeaf = 1;
    return;
  }
  const Partitioned sides = PartitionLeaf(tree, splitter, list);
  std::vector<PendingChild> pending;
  for (const auto& [child, side] :
       {std::pair(&splitter->back, sides.back), std::pair(&splitter->front, sides.front)}) {
    if (!side.IsEmpty()) pending.push_back({child, MembersOf(side)});
  }
  BuildChildren(tree, std::move(pending));
}

}  // namespace zando
