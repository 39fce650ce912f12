#include "views/span_buffer.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zando {
namespace {

constexpr std::size_t kSpansPerScanline = 64;

}  // namespace

void CSpanBuffer::ResetSpans(std::int32_t width, std::int32_t height) {
  const auto rows = static_cast<std::size_t>(height);
  spans_.clear();
  if (rows != heads_.size()) {
    heads_ = {};
    coverage_ = {};
    spans_ = {};
    spans_.reserve(rows * kSpansPerScanline);
    coverage_.resize(rows);
    heads_.resize(rows);
  }
  std::fill(heads_.begin(), heads_.end(), kNoSpan);
  std::fill(coverage_.begin(), coverage_.end(), 0);
  width_ = width;
  covered_ = 0;
  pixels_ = std::int64_t{width} * height;
}

/// Takes a slot for the span and links it behind the one at index `before`, or as the head.
void CSpanBuffer::Append(std::int32_t before, const Span& span) {
  const auto index = static_cast<std::int32_t>(spans_.size());
  const auto row = static_cast<std::size_t>(span.y);
  spans_.push_back(span);
  if (before == kNoSpan) {
    heads_[row] = index;
  } else {
    spans_[static_cast<std::size_t>(before)].next = index;
  }
  coverage_[row] += span.x1 - span.x0;
  covered_ += span.x1 - span.x0;
}

void CSpanBuffer::InsertSpan(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t color,
                             const BrushFace* face) {
  if (y < 0 || y >= Height() || Coverage(y) == width_) return;
  if (x1 < x0) std::swap(x0, x1);
  x0 = std::max(x0, 0);
  x1 = std::min(x1, width_);
  if (x0 >= x1) return;
  std::int32_t before = kNoSpan;
  for (std::int32_t at = Head(y); at != kNoSpan;) {
    const Span s = spans_[static_cast<std::size_t>(at)];
    if (s.x0 <= x0 && x1 <= s.x1) return;
    if (x1 <= s.x0) {
      Append(before, {x0, x1, y, color, face, at});
      return;
    }
    if (x0 < s.x0) {
      Append(before, {x0, s.x0, y, color, face, at});
      x0 = s.x1;
    } else if (x0 < s.x1) {
      x0 = s.x1;
    }
    if (x1 <= x0) return;
    before = at;
    at = s.next;
  }
  Append(before, {x0, x1, y, color, face, kNoSpan});
}

}  // namespace zando
