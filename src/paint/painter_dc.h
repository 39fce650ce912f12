#pragma once

#include <QPainter>
#include <QRect>
#include <QSize>

#include "platform/draw_context.h"

namespace zando {

/// Paints through a QPainter, on a window or on an image, without smoothing. The painter's units
/// are the pixels; coordinates may lie anywhere, however far outside the surface. On a plain QImage
/// of 32-bit colours, rectangles, thin lines and pictures go straight into its memory, several
/// times faster.
class CPainterDC final : public CDC {
 public:
  /// The painter is active on a surface of this size and outlives the CPainterDC. A clip that it
  /// has already stays until ResetClip.
  CPainterDC(QPainter& painter, QSize size);

  void ResetClip() override;
  Pen SelectPen(const Pen& pen) override;
  ScreenPoint SetViewportOrg(ScreenPoint origin) override;
  void MoveTo(ScreenPoint point) override;
  void LineTo(ScreenPoint point) override;
  void Polyline(std::span<const ScreenPoint> points) override;
  void FillSolidRect(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                     ColorRef color) override;
  void StretchDIBits(ScreenPoint at, const IndexedPicture& picture) override;
  [[nodiscard]] bool PtVisible(ScreenPoint point) const override;

 private:
  /// The memory of a surface that can be written directly.
  struct Pixels {
    std::uint32_t* first = nullptr;  ///< null when there is none
    std::int64_t stride = 0;         ///< from row to row
  };
  [[nodiscard]] Pixels FindPixels() const;

  void ApplyPen();
  void DrawLine(ScreenPoint from, ScreenPoint to);
  void DrawThinLine(ScreenPoint from, ScreenPoint to);

  QPainter& painter_;
  QRect surface_;
  QRect clip_;
  Pixels pixels_;
  Pen pen_;
  Pen applied_;  ///< the pen that the painter has
  ScreenPoint origin_;
  ScreenPoint position_;
};

}  // namespace zando
