#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/draw_context.h"

namespace zando {

/// A picture of palette indices, row by row from the top, that owns its pixels and colours. One
/// without pixels is no surface: it takes none and presents nothing.
class CSurface {
 public:
  /// Makes it width * height pixels of index 0. False when a side is not positive, or when there is
  /// no memory for it; the surface then has no pixels.
  bool Create(std::int32_t width, std::int32_t height, const ColorTable& colors);
  void Delete();

  [[nodiscard]] bool IsValid() const { return !pixels_.empty(); }
  [[nodiscard]] std::int32_t Width() const { return width_; }
  [[nodiscard]] std::int32_t Height() const { return height_; }
  [[nodiscard]] const ColorTable& Colors() const { return colors_; }
  [[nodiscard]] std::span<std::uint8_t> Pixels() { return pixels_; }
  [[nodiscard]] std::span<const std::uint8_t> Pixels() const { return pixels_; }

  /// Copies the whole surface, a pixel to a pixel, to a place of the target. False without pixels.
  bool Present(CDC& target, ScreenPoint at) const;

 private:
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  ColorTable colors_{};
  std::vector<std::uint8_t> pixels_;
};

}  // namespace zando
