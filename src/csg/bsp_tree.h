#pragma once

#include <cstdint>
#include <vector>

#include "csg/bsp_node.h"
#include "csg/node_arena.h"

namespace zando {

/// The size of a tree.
struct BspCounts {
  std::int32_t nodes = 0;
  std::int32_t coplanar = 0;  ///< chain members beside the nodes themselves
  std::int32_t inserted = 0;
  std::int32_t splits = 0;  ///< nodes + coplanar - inserted
  std::int32_t visible = 0;
};

/// A binary space partitioning tree of polygons: the world of a level, the faces of one brush, or
/// the carving of one brush for export. Owns its nodes, also those of lists that are still being
/// built from its arena. What survives when brushes are combined is decided in csg_world.h. No
/// operation recurses by the depth of the tree.
class CConstructiveBsp {
 public:
  CBspNode* root = nullptr;
  const CZandoBrush* brushList = nullptr;  ///< world tree: first brush of the document; not owned
  std::int32_t nodes = 0;                  ///< nodes as last counted
  std::int32_t coplanar = 0;  ///< chain members beside the nodes themselves, as last counted
  std::int32_t inserted = 0;  ///< polygons inserted since the last Clear
  std::int32_t splits = 0;    ///< nodes + coplanar - inserted, as last computed
  std::int32_t visible = 0;   ///< nodes with nValid set, as last counted
  std::int32_t refused = 0;   ///< splits refused for want of vertices since the last Clear

  CConstructiveBsp() = default;

  /// A copy of a node tree has nodes of its own; both name the same brushes.
  CConstructiveBsp(const CConstructiveBsp& source);
  CConstructiveBsp(CConstructiveBsp&& source) noexcept { Swap(source); }
  CConstructiveBsp& operator=(const CConstructiveBsp& source) {
    CConstructiveBsp copy(source);
    Swap(copy);
    return *this;
  }
  CConstructiveBsp& operator=(CConstructiveBsp&& source) noexcept {
    Swap(source);
    return *this;
  }
  virtual ~CConstructiveBsp() = default;

  void Swap(CConstructiveBsp& other) noexcept;

  /// Whether two node trees hold the same polygons in the same places, of brushes with the same
  /// ids. What the last insertion made, and counts that can be taken anew, do not matter.
  friend bool operator==(const CConstructiveBsp& a, const CConstructiveBsp& b);

  /// A new node of this tree's arena.
  [[nodiscard]] CBspNode* NewNode() { return arena_.Allocate(); }
  void FreeNode(CBspNode* node) { arena_.Release(node); }

  /// Frees every node and sets root and all statistics to none.
  void Clear();

  /// Sets nFresh to 0 on every node reachable through front and back.
  void ClearFresh();

  /// Recounts nodes, coplanar and visible, and computes splits. Inserted stays.
  void CountStats();

  /// What CountStats would find.
  [[nodiscard]] BspCounts Count() const;

  /// Sets every node's pBrush to the first brush of the list whose BBid is the node's nBid, or to
  /// none.
  void LinkBrushes(const CZandoBrush* head);

  /// Splits a polygon that spans the plane, as SplitPolygon does: Spanning. When that is refused it
  /// is counted, and tells the side that the whole polygon goes to: Front or Back, by the mean of
  /// its vertices.
  [[nodiscard]] PolygonClass Split(const Plane& plane, CZandoPoly& polygon, CZandoPoly& back);

 private:
  CNodeArena arena_;
};

/// Visits every node of the tree once: back subtree, front subtree, then the node. Chain members
/// are left to the visitor, which may free the node it is given.
template <typename Visitor>
void WalkBackFrontNode(CBspNode* root, Visitor&& visit);

/// Where a walk has yet to go.
struct WalkStep {
  const CBspNode* node;
  bool draw;
};
using CWalkStack = std::vector<WalkStep>;

/// Replaces the last few nodes of the stack that are not to be drawn yet by their subtrees and,
/// where they face the eye, themselves.
void ExpandSteps(CWalkStack& stack, const Vector& eye);

/// Visits the nodes that face the eye, nearest first: the front subtree, the node, the back
/// subtree; nodes seen from behind or edge-on are passed over. The visitor gets the node (whose
/// chain it draws) and returns whether to stop. The caller keeps the stack from walk to walk, for
/// its memory.
template <typename Visitor>
void WalkFrontToBack(const CBspNode* root, const Vector& eye, CWalkStack& stack, Visitor&& visit);

}  // namespace zando

#include "csg/bsp_walk.inl"
