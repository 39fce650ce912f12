#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "views/span_buffer.h"

namespace zando::testing {

/// The colour of the span that covers each pixel, row by row, 0 for none. Fails on spans that
/// overlap, are out of order, leave the viewport or disagree with what is counted.
inline std::vector<std::uint32_t> TagsOf(const CSpanBuffer& spans) {
  const auto width = static_cast<std::size_t>(spans.Width());
  std::vector<std::uint32_t> tags(width * static_cast<std::size_t>(spans.Height()));
  std::int64_t free = 0;
  std::size_t linked = 0;
  for (std::int32_t y = 0; y < spans.Height(); ++y) {
    std::int32_t end = 0;
    std::int32_t covered = 0;
    for (std::int32_t i = spans.Head(y); i != kNoSpan; ++linked) {
      const Span& span = spans.Spans()[static_cast<std::size_t>(i)];
      const bool fits =
          span.y == y && end <= span.x0 && span.x0 < span.x1 && span.x1 <= spans.Width();
      EXPECT_TRUE(fits) << "row " << y << ": " << span.x0 << " to " << span.x1;
      if (!fits) return tags;
      const auto row =
          tags.begin() + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(y) * width);
      std::fill(row + span.x0, row + span.x1, span.color);
      covered += span.x1 - span.x0;
      end = span.x1;
      i = span.next;
    }
    EXPECT_EQ(spans.Coverage(y), covered) << "row " << y;
    free += spans.Width() - covered;
  }
  EXPECT_EQ(linked, spans.Spans().size());
  EXPECT_EQ(spans.ScreenFull(), free == 0);
  return tags;
}

}  // namespace zando::testing
