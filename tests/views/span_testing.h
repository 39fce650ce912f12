#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "views/span_buffer.h"

namespace zando::testing {

/// The colour of the span that covers each pixel, row by row, 0 for none. Fails on spans that
/// overlap, leave the viewport or disagree with what is counted.
inline std::vector<std::uint32_t> TagsOf(const CSpanBuffer& spans) {
  const auto width = static_cast<std::size_t>(spans.Width());
  std::vector<std::uint32_t> tags(width * static_cast<std::size_t>(spans.Height()));
  for (const Span& span : spans.Spans()) {
    const bool fits = span.y >= 0 && span.y < spans.Height() && 0 <= span.x0 && span.x0 < span.x1 &&
                      span.x1 <= spans.Width();
    EXPECT_TRUE(fits) << "row " << span.y << ": " << span.x0 << " to " << span.x1;
    if (!fits) return tags;
    const auto row = tags.begin() + std::ptrdiff_t{span.y} * spans.Width();
    EXPECT_EQ(std::count(row + span.x0, row + span.x1, 0U), span.x1 - span.x0) << "overlap";
    std::fill(row + span.x0, row + span.x1, span.color);
  }
  for (std::int32_t y = 0; y < spans.Height(); ++y) {
    const auto row = tags.begin() + std::ptrdiff_t{y} * spans.Width();
    EXPECT_EQ(spans.Width() - spans.Coverage(y), std::count(row, row + spans.Width(), 0U));
  }
  EXPECT_EQ(spans.ScreenFull(), std::count(tags.begin(), tags.end(), 0U) == 0);
  return tags;
}

}  // namespace zando::testing
