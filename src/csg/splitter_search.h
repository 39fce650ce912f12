#pragma once

#include <cstddef>
#include <cstdint>
#include <queue>
#include <utility>
#include <vector>

#include "csg/bsp_tree.h"
#include "csg/polygon_bvh.h"
#include "csg/splitter.h"

namespace zando {

/// A list of polygons from which one splitter after the other is taken: gives the same splitters as
/// ChooseSplitter, without counting every candidate again each time.
///
/// For each candidate it remembers some of the polygons that it cuts: its witnesses. Their number
/// is a lower bound of its count, and stays one while other polygons leave. The candidate with the
/// least bound is looked at first, and again with more effort each time it comes up, until the one
/// that comes up has been counted completely.
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
  [[nodiscard]] std::size_t SlotCount() const { return bvh_.SlotCount(); }

  /// The slot of the splitter. The list must not be empty.
  [[nodiscard]] Slot Choose();

  /// The two sides of a splitter that has been taken. The smaller side has left this search, in
  /// list order; the larger one stays.
  struct Taken {
    CBspNode* splitter = nullptr;
    std::vector<CBspNode*> smaller;
    bool smallerIsFront = true;
  };
  [[nodiscard]] Taken Take(CConstructiveBsp& tree, Slot splitter);

  /// What is left, in list order.
  [[nodiscard]] std::vector<CBspNode*> Remaining() const;

 private:
  struct Candidate {
    std::vector<Slot> witnesses;
    std::uint32_t head = 0;
    bool alive = false;
    bool complete = false;      ///< the witnesses are all that it cuts
    bool borderline = false;    ///< some polygon is cut, or not, by a rounding error
    std::uint64_t counted = 0;  ///< when the witnesses were looked for
  };

  /// Least bound first, then list order.
  using Entry = std::pair<std::uint32_t, Slot>;

  enum class Cut { No, Yes, Borderline };
  [[nodiscard]] static Cut Cuts(const Plane& plane, const CZandoPoly& polygon, double slack);

  void Count(Slot slot, std::size_t enough);
  void Push(Slot slot);
  void Forget(Slot slot);
  void LoseWitness(Slot candidate, Slot witness);
  void Leave(Slot slot);
  void Shrink(Slot slot, CBspNode* part);
  void SortUnclear(CConstructiveBsp& tree, const Plane& plane, const std::vector<Slot>& unclear,
                   Slot splitter);

  CPolygonBvh bvh_;
  std::vector<Candidate> candidates_;
  std::vector<std::vector<Slot>> watchers_;  ///< candidates that have the slot as a witness
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> queue_;
  std::uint64_t now_ = 0;  ///< how many splitters have been taken

  // Working storage of Take.
  CPolygonBvh::Sides sides_;
  std::vector<Slot> front_;
  std::vector<Slot> back_;
  std::vector<std::pair<Slot, CBspNode*>> backPieces_;
};

}  // namespace zando
