#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "csg/bsp_node.h"
#include "geometry/bounds.h"

namespace zando {

/// A list of polygons in a hierarchy of boxes, to ask which of them a plane cuts without looking at
/// all of them. A polygon's place in the list is its slot; slots never move. Polygons can be
/// removed, or replaced by a part of themselves; the boxes stay as they are.
class CPolygonBvh {
 public:
  using Slot = std::uint32_t;

  explicit CPolygonBvh(std::vector<CBspNode*> polygons);

  [[nodiscard]] std::size_t SlotCount() const { return polygons_.size(); }
  [[nodiscard]] std::size_t LiveCount() const { return boxes_.empty() ? 0 : boxes_[0].live; }
  [[nodiscard]] bool IsLive(Slot slot) const { return polygons_[slot] != nullptr; }

  /// The polygon in a slot, or null once removed.
  [[nodiscard]] CBspNode* At(Slot slot) const { return polygons_[slot]; }

  void Remove(Slot slot);

  /// `part` lies within the polygon that the slot held so far.
  void Replace(Slot slot, CBspNode* part);

  /// Borderline: not cut, but a part of the polygon may be: rounding decides.
  enum class Cut { Yes, Borderline };

  /// Calls `visit(slot, cut)` for every visible polygon that the plane cuts, or nearly so, until it
  /// returns false. Polygons in the middle of the level come first.
  template <typename Visit>
  void VisitCut(const Plane& plane, Visit&& visit) const;

  /// Live polygons by their side of a plane; `unclear` ones come near it.
  struct Sides {
    std::vector<std::uint32_t> frontBoxes;
    std::vector<std::uint32_t> backBoxes;
    std::vector<Slot> unclear;
    std::size_t frontCount = 0;  ///< polygons in the front boxes
    std::size_t backCount = 0;
  };
  void SortSides(const Plane& plane, Sides& sides) const;

  /// Appends the slots of the live polygons below a box.
  void Collect(std::uint32_t box, std::vector<Slot>& slots) const;

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
  static constexpr std::int32_t kInlineVertices = 6;

  struct Box {
    Vector centre;
    Vector extent;  ///< half sizes
    std::uint32_t parent = kNone;
    std::uint32_t left = kNone;  ///< the nearer to the middle of both children; kNone for a leaf
    std::uint32_t right = kNone;
    std::uint32_t begin = 0;  ///< range of entries_ below this box
    std::uint32_t end = 0;
    std::uint32_t live = 0;
  };

  /// What a query reads of a polygon, those of one box together.
  struct Entry {
    std::array<Vector, kInlineVertices> vertices;
    Slot slot = 0;
    std::int32_t count = 0;  ///< vertices of the polygon, also when they do not fit here
    bool counts = false;     ///< live and visible
    bool wild = false;       ///< its parts may lie anywhere, so it is near every plane
  };

  struct Range {
    double low;
    double high;
  };
  [[nodiscard]] static Range DistanceRange(const Plane& plane, const Box& box);
  [[nodiscard]] Range DistanceRange(const Plane& plane, const Entry& entry) const;

  /// Distances computed for a polygon, a part of it and a box around it differ by less than this.
  [[nodiscard]] double Slack(const Plane& plane) const;

  [[nodiscard]] static Box BoxAround(const Bounds& bounds);
  void Build(const std::vector<Box>& leaves);
  static void FitBox(Box& box, const std::vector<Slot>& order, const std::vector<Box>& leaves);
  static std::uint32_t Halve(const Box& box, std::vector<Slot>& order,
                             const std::vector<Box>& leaves);
  void OrderChildren(Box& box) const;
  void FillEntry(Entry& entry) const;

  std::vector<CBspNode*> polygons_;
  std::vector<Entry> entries_;
  std::vector<std::uint32_t> entryOf_;  ///< by slot
  std::vector<std::uint32_t> leafOf_;   ///< by slot
  std::vector<Box> boxes_;
  double reach_ = 0.0;  ///< largest coordinate, wild polygons left out
};

template <typename Visit>
void CPolygonBvh::VisitCut(const Plane& plane, Visit&& visit) const {
  const double slack = Slack(plane);
  // Written so that a range that is not a number is looked into.
  const auto clear = [slack](const Range& range) {
    return range.high < PLANE_EPSILON - slack || range.low > -PLANE_EPSILON + slack;
  };
  std::vector<std::uint32_t> pending;
  if (!boxes_.empty()) pending.push_back(0);
  while (!pending.empty()) {
    const Box& box = boxes_[pending.back()];
    pending.pop_back();
    if (box.live == 0 || clear(DistanceRange(plane, box))) continue;
    if (box.left != kNone) {
      pending.push_back(box.right);
      pending.push_back(box.left);
      continue;
    }
    for (std::uint32_t i = box.begin; i < box.end; ++i) {
      const Entry& entry = entries_[i];
      if (!entry.counts) continue;
      const Range range = DistanceRange(plane, entry);
      if (!entry.wild && clear(range)) continue;
      const bool cut = range.high > PLANE_EPSILON && range.low < -PLANE_EPSILON;
      if (!visit(entry.slot, cut ? Cut::Yes : Cut::Borderline)) return;
    }
  }
}

}  // namespace zando
