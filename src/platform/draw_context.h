#pragma once

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

  /// Whether the point lies within the clip region.
  [[nodiscard]] virtual bool PtVisible(ScreenPoint point) const = 0;
};

}  // namespace zando
