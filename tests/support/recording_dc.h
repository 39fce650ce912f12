#pragma once

#include <string>
#include <string_view>

#include "platform/draw_context.h"

namespace zando::testing {

/// A surface that writes down what is drawn, "; " behind each operation: "clip", "pen 00FFFF 2",
/// "org 400,300", "move 1,2", "line 3,4", "poly 1,2 3,4", "fill 1,2 4x4 0000FF", "dib 1,2 64x64".
/// Colours are written red, green, blue.
class CRecordingDC : public CDC {
 public:
  CRecordingDC(std::int32_t width, std::int32_t height) : width_(width), height_(height) {}

  std::string Text;

  /// How often these words stand in the text.
  [[nodiscard]] int Count(std::string_view words) const;

  void ResetClip() override { Text += "clip; "; }
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
  std::int32_t width_;
  std::int32_t height_;
  Pen pen_;
  ScreenPoint origin_;
};

}  // namespace zando::testing
