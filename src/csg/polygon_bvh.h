#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "csg/bsp_node.h"

namespace zando {

/// A list of polygons in a hierarchy of boxes, to ask which of them a plane may cut without looking
/// at the others. A polygon's place in the list is its slot; slots never move. Polygons can be
/// removed, or replaced by a part of themselves, and the boxes stay as they are.
class CPolygonBvh {
 public:
  using Slot = std::uint32_t;

  explicit CPolygonBvh(std::vector<CBspNode*> polygons);

  [[nodiscard]] std::size_t SlotCount() const { return polygons_.size(); }
  [[nodiscard]] std::size_t LiveCount() const { return boxes_.empty() ? 0 : boxes_[0].live; }
  [[nodiscard]] bool IsLive(Slot slot) const { return polygons_[slot] != nullptr; }

  /// The polygon in a slot, or null once removed.
  [[nodiscard]] CBspNode* At(Slot slot) const { return polygons_[slot]; }

  /// Distances computed for vertices and for boxes differ by less than this.
  [[nodiscard]] double Slack(const Plane& plane) const;

  void Remove(Slot slot);

  /// `part` lies within the polygon that the slot held so far.
  void Replace(Slot slot, CBspNode* part) { polygons_[slot] = part; }

  /// Calls `visit(slot)` for every live polygon that may have vertices on both sides of the plane,
  /// until it returns false.
  template <typename Visit>
  void VisitNear(const Plane& plane, Visit&& visit) const;

  /// Live polygons by their side of a plane; `unclear` ones come near the plane.
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

  struct Box {
    Vector centre;
    Vector extent;  ///< half sizes
    std::uint32_t parent = kNone;
    std::uint32_t left = kNone;  ///< the right child follows; kNone for a leaf
    std::uint32_t begin = 0;     ///< range of order_ below this box
    std::uint32_t end = 0;
    std::size_t live = 0;
  };

  struct Range {
    double low;
    double high;
  };
  /// The range of signed distances within a box.
  [[nodiscard]] static Range DistanceRange(const Plane& plane, const Box& box);

  [[nodiscard]] static Box BoxAround(const Vector& low, const Vector& high);
  void Build(const std::vector<Box>& leaves);
  void FitBox(Box& box, const std::vector<Box>& leaves) const;

  std::vector<CBspNode*> polygons_;
  std::vector<Slot> order_;            ///< slots, those of one box together
  std::vector<std::uint32_t> leafOf_;  ///< slot to box
  std::vector<Box> boxes_;
  double reach_ = 0.0;  ///< largest coordinate
};

template <typename Visit>
void CPolygonBvh::VisitNear(const Plane& plane, Visit&& visit) const {
  const double slack = Slack(plane);
  std::vector<std::uint32_t> pending;
  if (!boxes_.empty()) pending.push_back(0);
  while (!pending.empty()) {
    const std::uint32_t index = pending.back();
    const Box& box = boxes_[index];
    pending.pop_back();
    if (box.live == 0) continue;
    const Range range = DistanceRange(plane, box);
    // Written so that a range that is not a number is looked into.
    if (range.high + slack < PLANE_EPSILON || range.low - slack > -PLANE_EPSILON) continue;
    if (box.left != kNone) {
      pending.push_back(box.left + 1);
      pending.push_back(box.left);
      continue;
    }
    for (std::uint32_t i = box.begin; i < box.end; ++i) {
      if (IsLive(order_[i]) && !visit(order_[i])) return;
    }
  }
}

}  // namespace zando
