#pragma once

#include <vector>

#include "csg/csg_world.h"

namespace zando {

/// Clips polygons against the trees of single brushes. Keeps its working storage between calls, so
/// that clipping many polygons allocates little; it depends on the faces of a brush, not on the
/// size of the level, and never recurses.
class CClipper {
 public:
  /// New pieces and saved splits come from and go back to `owner`.
  explicit CClipper(CConstructiveBsp& owner) : owner_(owner) {}

  ClipCounts ClipAdd(const CConstructiveBsp& brushTree, CBspNode* node, CoplanarRule rule) {
    return Clip(brushTree, node, {Mode::Hide, rule});
  }
  ClipCounts ClipSubtract(const CConstructiveBsp& brushTree, CBspNode* node, CoplanarRule rule) {
    return Clip(brushTree, node, {Mode::Show, rule});
  }

 private:
  enum class Mode { Hide, Show };
  struct Rules {
    Mode mode;
    CoplanarRule coplanar;
  };

  /// A polygon cut by a face of the brush, whose pieces are still under way.
  struct Cut {
    const CBspNode* splitter;
    CBspNode* frontPiece;
    CBspNode* backPiece;
    CZandoPoly whole;
    ClipCounts counts;
    bool frontDone;
  };

  ClipCounts Clip(const CConstructiveBsp& brushTree, CBspNode* node, Rules rules);

  /// Whether the piece goes on before the face. One that spans the face is cut: the front piece
  /// goes on, the back piece waits.
  [[nodiscard]] bool SideIsFront(const CBspNode* face, CBspNode* piece, Rules rules);
  void BeginCut(const CBspNode* face, CBspNode* piece, const CZandoPoly& whole,
                const CZandoPoly& back);
  [[nodiscard]] ClipCounts EndCut(const Cut& cut, Mode mode);

  CConstructiveBsp& owner_;
  std::vector<Cut> cuts_;
};

}  // namespace zando
