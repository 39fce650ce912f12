#pragma once

#include <cstdint>

#include "csg/bsp_tree.h"
#include "csg/coplanar_table.h"
#include "geometry/brush.h"
#include "platform/progress.h"

namespace zando {

/// The world of a level: which faces of its brushes can be seen once every brush has been added or
/// carved in list order. A world is kept brush by brush (InsertBrush) or made anew (RebuildQuick,
/// RebuildOptimal); nValid tells visible polygons from hidden ones.

/// Pieces found outside and inside the clipping brush.
struct ClipCounts {
  std::int32_t outside = 0;
  std::int32_t inside = 0;
};

/// Inserts the node's polygon with the additive keep rules: kept in empty space, dropped inside
/// older solid. The tree takes the node.
void InsertAdd(CConstructiveBsp& tree, CBspNode* node);

/// Inserts with the subtractive keep rules: kept inside solid, dropped in older empty space. An
/// empty tree takes nothing and counts nothing. The tree takes the node.
void InsertSubtract(CConstructiveBsp& tree, CBspNode* node);

/// Hides the pieces of the node's polygon that lie inside the brush whose tree is given, and shows
/// the others. New pieces come from `owner` and join the node's chain; a split that hides nothing
/// is undone.
ClipCounts ClipAdd(const CConstructiveBsp& brushTree, CConstructiveBsp& owner, CBspNode* node,
                   CoplanarRule rule);

/// Shows the pieces that lie inside the brush and leaves the others as they are; a split without a
/// piece outside is undone.
ClipCounts ClipSubtract(const CConstructiveBsp& brushTree, CConstructiveBsp& owner, CBspNode* node,
                        CoplanarRule rule);

/// ClipAdd on every visible polygon that was in the world before the current insertion.
/// `clipper` is the brush that brushTree was made from.
void ClipWorldByBrush(CConstructiveBsp& world, const CConstructiveBsp& brushTree,
                      const CZandoBrush& clipper);

/// Makes `tree` the full tree of the brush's own faces, in face order: a chain of back children
/// when the brush is convex.
void BuildBrushTree(CConstructiveBsp& tree, const CZandoBrush& brush);

/// Inserts all faces of one brush, by its TranT, and clips the older world by it. The new nodes
/// name the brush as their owner, with this id. A brush without volume is passed over.
void InsertBrush(CConstructiveBsp& world, const CZandoBrush& brush, std::int32_t id);

/// Fills `tree` with the faces of the brush that bound it within the given plane; the tree stays
/// empty when the brush does not reach into or onto the plane.
void BuildClipTree(CConstructiveBsp& tree, const CZandoBrush& brush, const Plane& plane);

/// Frees every hidden polygon of the list of heads with chains; returns what is left.
[[nodiscard]] CNodeList PruneHidden(CConstructiveBsp& tree, CNodeList list);

/// Whether brushes named as water take part in a rebuild.
enum class WaterBrushes { Skip, Build };

/// Replays the insertion of every shown brush of the world's brush list that has volume.
void RebuildQuick(CConstructiveBsp& world, CProgress* progress, WaterBrushes water);

/// Clips the faces of every such brush against every overlapping one, and builds a fresh tree of
/// the visible pieces only: every node visible, no chains.
void RebuildOptimal(CConstructiveBsp& world, CProgress* progress, WaterBrushes water);

}  // namespace zando
