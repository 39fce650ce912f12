#pragma once

#include <cstdint>

#include "geometry/brush.h"
#include "geometry/polygon.h"

namespace zando {

/// One polygon of a BSP tree, with its links. In a node tree every polygon is a node and a null
/// child is an empty half-space. In a leaf tree a child may be a cell instead: a list of polygons
/// through `link` whose head has nLeaf set. Nodes belong to the tree that handed them out.
///
/// What a walk reads of every node comes first, in one cache line: a walk of a large tree does
/// little but wait for memory.
struct alignas(64) CBspNode {
  Plane plane{};
  CBspNode* front = nullptr;  ///< the side into which the plane's normal points
  CBspNode* back = nullptr;
  CBspNode* chain = nullptr;  ///< next further polygon kept at this node
  std::int32_t nValid = 1;    ///< 1 visible, 0 hidden
  std::int32_t nFresh = 1;    ///< made during the brush insertion under way

  std::int32_t nBid = -1;    ///< BBid of the brush that the polygon came from, -1 for none
  std::int32_t nPolNum = 0;  ///< index of the face within that brush
  const CZandoBrush* pBrush = nullptr;  ///< that brush, or null after it was deleted; not owned

  CZandoPoly polygon;

  CBspNode* link = nullptr;  ///< next node of a flat list, or next polygon of a leaf cell
  std::int32_t nLeaf = 0;    ///< leaf tree: heads a cell
  std::int32_t nSide = 0;    ///< carving tree: 0 behind the face it was made from, 1 in front

  /// Takes a copy of the polygon: with a fresh colour tag and its own plane.
  void TakePolygon(const CZandoPoly& source);

  /// Names the source face of the other node's polygon as this node's own.
  void TakeOwner(const CBspNode& other) {
    nBid = other.nBid;
    nPolNum = other.nPolNum;
    pBrush = other.pBrush;
  }

  /// The face record of the source face, or null when brush or face no longer exist.
  [[nodiscard]] const BrushFace* Face() const;
};

/// A flat list of nodes, threaded through CBspNode::link. Owns nothing.
struct CNodeList {
  CBspNode* head = nullptr;
  CBspNode* tail = nullptr;

  [[nodiscard]] bool IsEmpty() const { return head == nullptr; }
  void Append(CBspNode* node);
};

/// The last member of the node's coplanar chain; the node itself when it has none.
[[nodiscard]] CBspNode* ChainEnd(CBspNode* node);

/// The number of members of the node's coplanar chain, the node included.
[[nodiscard]] std::int32_t ChainLength(const CBspNode* node);

/// The next flat colour for a polygon in a tree: 4 to 253, from a pseudo-random sequence.
[[nodiscard]] std::uint32_t NextColorTag();

/// Restarts the sequence of flat colours.
void SeedColorTags(std::uint32_t seed);

}  // namespace zando
