#pragma once

#include <cstddef>
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
};

/// Which pixels of a viewport are covered, and by what. A span gets only pixels that none before it
/// has taken, so what is nearer goes in first.
class CSpanBuffer {
 public:
  /// Empties the buffer for a viewport of that size in pixels; neither side is negative. Memory is
  /// taken only when the size changes; should a frame need more than 64 spans a scanline, the
  /// array grows.
  void ResetSpans(std::int32_t width, std::int32_t height);

  /// Covers those pixels between x0 and x1 of row y that are free and within the viewport, with a
  /// span for each run of free pixels from left to right. The ends may come in either order; a row
  /// outside the viewport takes nothing.
  void InsertSpan(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t color,
                  const BrushFace* face);

  /// Whether every pixel of the viewport is covered.
  [[nodiscard]] bool ScreenFull() const { return covered_ == pixels_; }

  [[nodiscard]] std::int32_t Width() const { return width_; }
  [[nodiscard]] std::int32_t Height() const { return static_cast<std::int32_t>(coverage_.size()); }

  /// In the order in which they went in.
  [[nodiscard]] std::span<const Span> Spans() const { return spans_; }

  /// The number of covered pixels of a scanline.
  [[nodiscard]] std::int32_t Coverage(std::int32_t y) const {
    return coverage_[static_cast<std::size_t>(y)];
  }

 private:
  [[nodiscard]] bool HasFree(std::int32_t y, std::uint32_t x0, std::uint32_t x1) const;
  void TakeFree(std::int32_t y, std::uint32_t x0, std::uint32_t x1, std::uint32_t color,
                const BrushFace* face);
  void Append(const Span& span);

  std::int32_t width_ = 0;
  std::vector<Span> spans_;
  std::vector<std::int32_t> coverage_;
  std::vector<std::uint64_t> taken_;  ///< a bit a pixel; each scanline begins a new word
  std::size_t wordsPerRow_ = 0;
  std::int64_t covered_ = 0;
  std::int64_t pixels_ = 0;
};

}  // namespace zando
