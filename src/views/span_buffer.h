#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "geometry/brush.h"

namespace zando {

/// A run of pixels of one scanline: x0 <= x < x1.
struct Span {
  std::int32_t x0;
  std::int32_t x1;
  std::int32_t y;
  std::uint32_t color;    ///< the low byte is the palette index
  const BrushFace* face;  ///< the source face of the polygon, or null
  std::int32_t next;      ///< index of the next span of the scanline, in increasing x, or kNoSpan
};

inline constexpr std::int32_t kNoSpan = -1;

/// Which pixels of a viewport are covered, and by what: a list of spans for each scanline. A span
/// gets only pixels that none before it has taken, so what is nearer goes in first.
class CSpanBuffer {
 public:
  /// Empties the buffer for a viewport of that size in pixels; neither side is negative. Memory is
  /// taken only when the height changes; should a frame need more than 64 spans a scanline, the
  /// array grows.
  void ResetSpans(std::int32_t width, std::int32_t height);

  /// Covers those pixels between x0 and x1 of row y that are free and within the viewport. The ends
  /// may come in either order; a row outside the viewport takes nothing.
  void InsertSpan(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t color,
                  const BrushFace* face);

  /// Whether every pixel of the viewport is covered.
  [[nodiscard]] bool ScreenFull() const { return covered_ == pixels_; }

  [[nodiscard]] std::int32_t Width() const { return width_; }
  [[nodiscard]] std::int32_t Height() const { return static_cast<std::int32_t>(heads_.size()); }

  /// In the order in which they went in.
  [[nodiscard]] std::span<const Span> Spans() const { return spans_; }

  /// The index of a scanline's first span, or kNoSpan.
  [[nodiscard]] std::int32_t Head(std::int32_t y) const {
    return heads_[static_cast<std::size_t>(y)];
  }

  /// The number of covered pixels of a scanline.
  [[nodiscard]] std::int32_t Coverage(std::int32_t y) const {
    return coverage_[static_cast<std::size_t>(y)];
  }

 private:
  void Append(std::int32_t before, const Span& span);

  std::int32_t width_ = 0;
  std::vector<Span> spans_;
  std::vector<std::int32_t> heads_;
  std::vector<std::int32_t> coverage_;
  std::int64_t covered_ = 0;
  std::int64_t pixels_ = 0;
};

}  // namespace zando
