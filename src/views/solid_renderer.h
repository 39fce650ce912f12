#pragma once

#include <cstdint>

#include "csg/bsp_tree.h"
#include "platform/draw_context.h"
#include "textures/surface.h"
#include "views/camera.h"
#include "views/scan_converter.h"
#include "views/span_buffer.h"

namespace zando {

enum class RenderMode {
  Solid,    ///< every polygon in the flat colour of its tag
  Textured  ///< the same spans, which nothing fills yet: index 0 everywhere
};

/// Draws the visible polygons of a world into a picture of its own. The world's tree gives their
/// order, nearest first; what is covered is never drawn over, and the walk ends when the picture is
/// full. Once the first frame of a size is drawn, others allocate only where they need more than
/// any before.
class CSolidRenderer {
 public:
  /// Makes the picture anew, of that size in pixels. False when a side is not positive or when
  /// there is no memory; then there is no picture.
  bool SetViewport(std::int32_t width, std::int32_t height, const ColorTable& colors);

  /// Draws a frame as seen by the camera, whose viewport begins at (0, 0) and has the size of the
  /// picture, and whose view matrix is built. Without a picture it does nothing.
  void Render(const CCamera& camera, const CConstructiveBsp& world, RenderMode mode);

  /// Copies the picture to the target's top left corner. False without a picture.
  bool Present(CDC& target) const { return surface_.Present(target, {0, 0}); }

  [[nodiscard]] const CSurface& Surface() const { return surface_; }
  [[nodiscard]] const CSpanBuffer& Spans() const { return spans_; }

  /// How many polygons the last frame took up before the picture was full.
  [[nodiscard]] std::int32_t DrawnPolygons() const { return drawn_; }

 private:
  void DrawNode(const CCamera& camera, const CBspNode* node);
  void FillSpans();

  CSurface surface_;
  CSpanBuffer spans_;
  CScanConverter converter_;
  CWalkStack stack_;
  std::int32_t drawn_ = 0;
};

}  // namespace zando
