#pragma once

#include <cstdint>

#include "csg/bsp_tree.h"
#include "platform/progress.h"

namespace zando {

/// How visible polygons lie to a candidate's plane.
struct CandidateCount {
  std::int32_t front = 0;  ///< before it, or in it and facing the same way
  std::int32_t spans = 0;  ///< cut by it

  /// Counts the polygon of a node `times` times; once again with -1 it is as if never counted.
  void Add(const CBspNode& candidate, const CBspNode& node, std::int32_t times);

  /// Whether the candidate can split a list that is to become cells.
  [[nodiscard]] bool DividesCells() const { return front > 0 || spans > 0; }
};

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

}  // namespace zando
