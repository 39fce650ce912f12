#pragma once

#include <cstdint>
#include <vector>

#include "geometry/brush.h"
#include "views/camera.h"
#include "views/span_buffer.h"

namespace zando {

/// Turns projected polygons into spans. Keeps its storage from one polygon to the next.
class CScanConverter {
 public:
  /// Inserts the spans of a convex polygon that runs clockwise on the screen; one that runs the
  /// other way round, or has a coordinate that is not finite, gives none. A pixel is covered when
  /// ceil(left edge) <= x < ceil(right edge) and ceil(top) <= y < ceil(bottom). Edges are stepped
  /// from row to row in steps of 1/16384 pixel, from where they begin, be that far above the
  /// viewport.
  void ScanConvert(const CProjectedPoly& polygon, const BrushFace* face, CSpanBuffer& spans);

 private:
  /// The least x of the pixels right of an edge, for each row of the viewport. 64 bits, so that
  /// places far outside do not wrap.
  using CChain = std::vector<std::int64_t>;

  CChain left_;
  CChain right_;
};

}  // namespace zando
