#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "csg/bsp_tree.h"
#include "csg/least_bound.h"
#include "csg/polygon_bvh.h"
#include "csg/splitter.h"
#include "csg/stabbing_counts.h"

namespace zando {

/// A list of polygons from which one splitter after the other is taken: gives the same splitters as
/// ChooseSplitter, without counting every candidate again each time.
///
/// Candidates whose plane is square to an axis, most of them in a level, are counted along that
/// axis: which extents hold their position. For each other candidate some of the polygons that it
/// cuts are remembered: its witnesses. Their number is a lower bound of its count, and stays one
/// while polygons leave. The candidate with the least bound is looked at first, and again with more
/// effort each time it comes up, until the one that comes up has been counted completely.
class CSplitterSearch {
 public:
  using Slot = CPolygonBvh::Slot;

  /// One polygon of the list. Only heads are candidates; a head's own chain is not counted.
  struct Member {
    CBspNode* node;
    std::uint32_t head;  ///< the same number for a head and its chain
    bool isHead;
  };

  explicit CSplitterSearch(const std::vector<Member>& members);

  [[nodiscard]] std::size_t LiveCount() const { return bvh_.LiveCount(); }

  /// The slot of the splitter. The list must not be empty.
  [[nodiscard]] Slot Choose();

  /// A splitter that has been taken. The smaller of its sides has left this search, in list order;
  /// the larger one stays.
  struct Taken {
    CBspNode* splitter = nullptr;
    std::vector<CBspNode*> smaller;
    bool smallerIsFront = true;
  };
  [[nodiscard]] Taken Take(CConstructiveBsp& tree, Slot splitter);

  /// What is left, in list order.
  [[nodiscard]] std::vector<CBspNode*> Remaining() const;

 private:
  static constexpr std::size_t kAxes = 3;
  static constexpr std::uint32_t kNoAxis = kAxes;

  struct Candidate {
    std::uint32_t head = 0;
    std::uint32_t axis = kNoAxis;  ///< the axis its plane is square to, when counted along it
    std::uint32_t count = 0;       ///< how often its witnesses have been looked for
    std::uint32_t countedAt = 0;   ///< splitters taken by then
    bool alive = false;
    bool complete = false;    ///< the witnesses are all that it cuts
    bool borderline = false;  ///< rounding decides whether some polygon is cut
  };

  /// A candidate that has a polygon as a witness, as long as it has not been counted again.
  struct Watcher {
    Slot candidate;
    std::uint32_t count;
  };

  /// The candidates of each axis that a polygon is cut by.
  using Extents = std::array<CStabbingCounts::Range, kAxes>;

  /// The axis that a head without a chain can be counted along, or kNoAxis.
  [[nodiscard]] std::uint32_t CountableAxis(Slot slot) const;
  [[nodiscard]] bool HasChain(Slot slot) const;
  [[nodiscard]] Extents ExtentsOf(const CBspNode* node) const;
  void AddExtents(const Extents& extents, std::int32_t change);
  void StopCountingAlongAxis(Slot slot);
  [[nodiscard]] CStabbingCounts::Least FirstAlongAxes() const;

  void Count(Slot slot, std::uint32_t enough);
  void Restart(Slot slot);
  void Leave(Slot slot);
  void Shrink(Slot slot, CBspNode* part);
  [[nodiscard]] bool IsWatching(const Watcher& watcher) const;
  void SortUnclear(CConstructiveBsp& tree, const Plane& plane);

  CPolygonBvh bvh_;
  std::vector<Candidate> candidates_;
  std::vector<CStabbingCounts> alongAxis_;
  std::vector<Extents> extents_;                ///< by slot
  CLeastBound bounds_;                          ///< number of witnesses
  std::vector<std::vector<Watcher>> watchers_;  ///< by the slot of the witness
  std::uint32_t taken_ = 0;

  // Working storage of Take.
  CPolygonBvh::Sides sides_;
  std::vector<Slot> front_;
  std::vector<Slot> back_;
  std::vector<std::pair<Slot, CBspNode*>> backPieces_;
};

}  // namespace zando
