#include "views/span_buffer.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

namespace zando {
namespace {

constexpr std::size_t kSpansPerScanline = 64;
constexpr std::uint32_t kWordBits = 64;
constexpr std::uint64_t kAllBits = ~std::uint64_t{0};

/// The bits of a pixel's word from that pixel on, and up to that pixel.
std::uint64_t FromBit(std::uint32_t x) { return kAllBits << (x % kWordBits); }
std::uint64_t UpToBit(std::uint32_t x) { return kAllBits >> (kWordBits - 1 - x % kWordBits); }

}  // namespace

void CSpanBuffer::ResetSpans(std::int32_t width, std::int32_t height) {
  const auto rows = static_cast<std::size_t>(height);
  const auto words = (static_cast<std::size_t>(width) + kWordBits - 1) / kWordBits;
  spans_.clear();
  if (rows != coverage_.size() || words != wordsPerRow_) {
    coverage_ = {};
    taken_ = {};
    spans_ = {};
    spans_.reserve(rows * kSpansPerScanline);
    taken_.resize(rows * words);
    coverage_.resize(rows);
  }
  std::fill(coverage_.begin(), coverage_.end(), 0);
  std::fill(taken_.begin(), taken_.end(), 0U);
  width_ = width;
  wordsPerRow_ = words;
  covered_ = 0;
  pixels_ = std::int64_t{width} * height;
}

void CSpanBuffer::Append(const Span& span) {
  spans_.push_back(span);
  coverage_[static_cast<std::size_t>(span.y)] += span.x1 - span.x0;
  covered_ += span.x1 - span.x0;
}

void CSpanBuffer::InsertSpan(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t color,
                             const BrushFace* face) {
  if (y < 0 || y >= Height() || Coverage(y) == width_) return;
  if (x1 < x0) std::swap(x0, x1);
  x0 = std::max(x0, 0);
  x1 = std::min(x1, width_);
  if (x0 >= x1) return;
  const auto begin = static_cast<std::uint32_t>(x0);
  const auto end = static_cast<std::uint32_t>(x1);
  // Most of what a deep level sends here is hidden.
  if (HasFree(y, begin, end)) TakeFree(y, begin, end, color, face);
}

bool CSpanBuffer::HasFree(std::int32_t y, std::uint32_t x0, std::uint32_t x1) const {
  const std::uint64_t* const row = &taken_[static_cast<std::size_t>(y) * wordsPerRow_];
  const std::uint32_t last = (x1 - 1) / kWordBits;
  std::uint64_t range = FromBit(x0);
  for (std::uint32_t word = x0 / kWordBits; word < last; ++word, range = kAllBits) {
    if ((range & ~row[word]) != 0) return true;
  }
  return (range & UpToBit(x1 - 1) & ~row[last]) != 0;
}

void CSpanBuffer::TakeFree(std::int32_t y, std::uint32_t x0, std::uint32_t x1, std::uint32_t color,
                           const BrushFace* face) {
  std::uint64_t* const row = &taken_[static_cast<std::size_t>(y) * wordsPerRow_];
  const std::uint32_t last = (x1 - 1) / kWordBits;
  std::uint64_t range = FromBit(x0);
  bool open = false;         // whether a run of free pixels reaches into the current word
  std::uint32_t begin = x0;  // of that run
  const auto append = [&](std::uint32_t end) {
    Append({static_cast<std::int32_t>(begin), static_cast<std::int32_t>(end), y, color, face});
  };
  for (std::uint32_t word = x0 / kWordBits; word <= last; ++word, range = kAllBits) {
    if (word == last) range &= UpToBit(x1 - 1);
    std::uint64_t free = range & ~row[word];
    row[word] |= range;
    const std::uint32_t left = word * kWordBits;
    while (open || free != 0) {
      if (!open) {
        begin = left + static_cast<std::uint32_t>(std::countr_zero(free));
        free |= free - 1;
      }
      const auto end = static_cast<std::uint32_t>(std::countr_one(free));
      open = end == kWordBits;
      if (open) break;
      append(left + end);
      free &= kAllBits << end;
    }
  }
  if (open) append(x1);
}

}  // namespace zando
