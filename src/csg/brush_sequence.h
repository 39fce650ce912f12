#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "csg/clipper.h"
#include "csg/csg_world.h"
#include "geometry/bounds.h"

namespace zando {

/// Inserts brush after brush into a world that was empty, with the same results as InsertBrush.
/// It keeps account of what can be seen of which brush, so that a brush is compared with the
/// polygons near it only, not with the whole tree. Nothing else may change the world meanwhile.
class CBrushSequence {
 public:
  explicit CBrushSequence(CConstructiveBsp& world) : world_(world), clipper_(world) {}

  void Insert(const CZandoBrush& brush, std::int32_t id);

 private:
  /// A visible polygon that brushes clear of it may leave a trace on: its plane, computed afresh,
  /// would come out differently in some bit, or it may be refused a cut.
  struct Unsettled {
    CBspNode* polygon;
    Bounds bounds;
  };

  /// The visible polygons of one brush that was inserted.
  struct Remains {
    std::vector<CBspNode*> polygons;  ///< those of one chain in the order of the chain
    std::vector<Unsettled> unsettled;
    Bounds bounds;
    std::int32_t mostVertices = 0;
    bool withinReach = false;
    bool cutsInTwo = false;  ///< no cut is refused as long as there is room for one vertex more
  };

  [[nodiscard]] static Remains RemainsOf(const CZandoBrush& brush,
                                         const std::vector<CBspNode*>& polygons);
  static void NoteUnsettled(Remains& remains);
  void NoteBrushTree();
  /// Whether no polygon is near the brush tree: to clip them would hide nothing.
  [[nodiscard]] bool IsClear(const Remains& remains) const;
  /// Whether a polygon within the bounds is clear of the brush tree without being cut on the way.
  [[nodiscard]] bool PassesUncut(const Bounds& bounds) const;
  void ClipRemains(Remains& remains, CoplanarRule rule);
  void ClipUnsettled(Remains& remains, CoplanarRule rule);

  CConstructiveBsp& world_;
  CClipper clipper_;
  CConstructiveBsp brushTree_;
  std::vector<Plane> convexFaces_;  ///< planes of the brush tree, none when it is not convex
  std::vector<Remains> remains_;
  std::vector<CBspNode*> fresh_;  ///< what the last brush added to the tree
  std::vector<CBspNode*> added_;  ///< working storage of ClipRemains
};

}  // namespace zando
