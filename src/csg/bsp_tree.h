#pragma once

#include <cstdint>
#include <vector>

#include "csg/bsp_node.h"
#include "csg/node_arena.h"

namespace zando {

/// A binary space partitioning tree of polygons: the world of a level, the faces of one brush, or
/// the carving of one brush for export. Owns its nodes, also those of lists that are still being
/// built from its arena. What survives when brushes are combined is decided in csg_world.h. No
/// operation recurses by the depth of the tree.
class CConstructiveBsp {
 public:
  CBspNode* root = nullptr;
  CZandoBrush* brushList = nullptr;  ///< world tree: first brush of the document; not owned
  std::int32_t nodes = 0;            ///< nodes as last counted
  std::int32_t coplanar = 0;         ///< chain members beside the nodes themselves, as last counted
  std::int32_t inserted = 0;         ///< polygons inserted since the last Clear
  std::int32_t splits = 0;           ///< nodes + coplanar - inserted, as last computed
  std::int32_t visible = 0;          ///< nodes with nValid set, as last counted
  std::int32_t refused = 0;          ///< splits refused for want of vertices since the last Clear

  CConstructiveBsp() = default;
  CConstructiveBsp(const CConstructiveBsp&) = delete;
  CConstructiveBsp& operator=(const CConstructiveBsp&) = delete;
  virtual ~CConstructiveBsp() = default;

  /// A new node of this tree's arena.
  [[nodiscard]] CBspNode* NewNode() { return arena_.Allocate(); }
  void FreeNode(CBspNode* node) { arena_.Release(node); }

  /// Frees every node and sets root and all statistics to none.
  void Clear();

  /// Sets nFresh to 0 on every node reachable through front and back.
  void ClearFresh();

  /// Recounts nodes, coplanar and visible, and computes splits. Inserted stays.
  void CountStats();

  /// Sets every node's pBrush to the first brush of the list whose BBid is the node's nBid, or to
  /// none.
  void LinkBrushes(CZandoBrush* head);

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
