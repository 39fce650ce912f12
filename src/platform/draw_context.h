#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace zando {

/// A colour as 0x00BBGGRR.
using ColorRef = std::uint32_t;

[[nodiscard]] constexpr ColorRef Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return red | green << 8 | blue << 16;
}

/// A place in a window, in pixels from its top left corner.
struct ScreenPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;

  friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

/// A solid pen.
struct Pen {
  ColorRef color = 0;
  std::int32_t width = 1;  ///< pixels

  friend bool operator==(const Pen&, const Pen&) = default;
};

/// A place and size in a window, in pixels; right and bottom lie outside.
struct ScreenRect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  friend bool operator==(const ScreenRect&, const ScreenRect&) = default;
};

/// The rectangle between two opposite corners, whichever they are.
[[nodiscard]] constexpr ScreenRect NormalizedRect(ScreenPoint a, ScreenPoint b) {
  return {a.x < b.x ? a.x : b.x, a.y < b.y ? a.y : b.y, a.x < b.x ? b.x : a.x,
          a.y < b.y ? b.y : a.y};
}

/// One colour of a colour table.
struct RgbQuad {
  std::uint8_t blue = 0;
  std::uint8_t green = 0;
  std::uint8_t red = 0;
  std::uint8_t reserved = 0;

  friend bool operator==(const RgbQuad&, const RgbQuad&) = default;
};

/// What each index of a picture of 8-bit indices stands for.
using ColorTable = std::array<RgbQuad, 256>;

/// A picture of colour indices, row by row from the top, a byte a pixel. Refers to both, owns
/// neither.
struct IndexedPicture {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::span<const std::uint8_t> pixels;  ///< width * height of them
  const ColorTable& colors;
};

/// A surface that a view paints on. Coordinates are pixels, y downwards, relative to the viewport
/// origin. Lines are one or more pixels wide, without smoothing.
class CDC {
 public:
  CDC() = default;
  CDC(const CDC&) = delete;
  CDC& operator=(const CDC&) = delete;
  virtual ~CDC() = default;

  /// Drawing is no longer clipped to less than the whole surface.
  virtual void ResetClip() = 0;

  /// The pen of the lines that follow; returns the one before.
  virtual Pen SelectPen(const Pen& pen) = 0;

  /// The origin of the coordinates that follow; returns the one before.
  virtual ScreenPoint SetViewportOrg(ScreenPoint origin) = 0;

  /// The current position; a line goes from there and moves it.
  virtual void MoveTo(ScreenPoint point) = 0;
  virtual void LineTo(ScreenPoint point) = 0;

  /// An open line through the points; the current position stays.
  virtual void Polyline(std::span<const ScreenPoint> points) = 0;

  virtual void FillSolidRect(std::int32_t x, std::int32_t y, std::int32_t width,
                             std::int32_t height, ColorRef color) = 0;

  /// The whole picture, one pixel of it a pixel, with its top left corner at the point.
  virtual void StretchDIBits(ScreenPoint at, const IndexedPicture& picture) = 0;

  /// Whether the point lies within the clip region.
  [[nodiscard]] virtual bool PtVisible(ScreenPoint point) const = 0;
};

}  // namespace zando
