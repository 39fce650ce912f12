#include "views/span_buffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/random_level.h"
#include "views/span_testing.h"

namespace zando {
namespace {

using testing::CRandom;
using testing::TagsOf;

TEST(SpanBuffer, EveryPixelBelongsToTheFirstSpanThatReachedItAndRunsAreWhole) {
  CRandom random(5);
  CSpanBuffer spans;
  for (int round = 0; round < 400; ++round) {
    const std::int32_t width = random.Between(0, 200);
    const std::int32_t height = random.Between(0, 3);
    std::vector<std::uint32_t> expected(static_cast<std::size_t>(width * height));
    spans.ResetSpans(width, height);
    for (std::uint32_t color = 1; color <= 60; ++color) {
      const std::int32_t y = random.Between(-1, height);
      const std::int32_t x0 = random.Between(-10, width + 10);
      const std::int32_t x1 =
          random.Percent(50) ? x0 + random.Between(-6, 6) : random.Between(-10, width + 10);
      const std::size_t before = spans.Spans().size();
      spans.InsertSpan(y, x0, x1, color, nullptr);
      const bool isRow = y >= 0 && y < height;
      for (std::int32_t x = std::min(x0, x1); isRow && x < std::max(x0, x1); ++x) {
        if (x < 0 || x >= width) continue;
        std::uint32_t& tag = expected[static_cast<std::size_t>(y * width + x)];
        if (tag == 0) tag = color;
      }
      ASSERT_EQ(TagsOf(spans), expected);
      for (std::size_t i = before + 1; i < spans.Spans().size(); ++i) {
        ASSERT_GT(spans.Spans()[i].x0, spans.Spans()[i - 1].x1);
      }
    }
  }
}

TEST(SpanBuffer, TakesMoreSpansThanItSetAside) {
  constexpr std::int32_t kWidth = 8192;
  CSpanBuffer spans;
  spans.ResetSpans(kWidth, 1);
  const BrushFace face{};
  for (std::int32_t x = kWidth - 2; x >= 0; x -= 2) spans.InsertSpan(0, x, x + 1, 1, &face);
  EXPECT_EQ(spans.Spans().size(), 4096U);
  spans.InsertSpan(0, -2'000'000'000, 2'000'000'000, 2, nullptr);
  EXPECT_TRUE(spans.ScreenFull());
  const std::vector<std::uint32_t> tags = TagsOf(spans);
  for (std::size_t x = 0; x < tags.size(); ++x) ASSERT_EQ(tags[x], 1 + x % 2);
  EXPECT_EQ(spans.Spans()[4095].face, &face);
  EXPECT_EQ(spans.Spans()[4096].face, nullptr);
}

}  // namespace
}  // namespace zando
