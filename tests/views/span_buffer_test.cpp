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

/// What a span buffer does, pixel by pixel.
struct PixelModel {
  PixelModel(std::int32_t width, std::int32_t height)
      : Width(width), Height(height), Tags(static_cast<std::size_t>(width * height)) {}

  void Insert(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t color) {
    if (y < 0 || y >= Height) return;
    bool open = false;  // whether the last record ends at this pixel
    for (std::int32_t x = std::max(std::min(x0, x1), 0); x < std::min(std::max(x0, x1), Width);
         ++x) {
      std::uint32_t& tag = Tags[static_cast<std::size_t>(y * Width + x)];
      const bool free = tag == 0;
      if (free && !open) Records.push_back({x, x, y, color, nullptr});
      if (free) {
        tag = color;
        Records.back().x1 = x + 1;
      }
      open = free;
    }
  }

  std::int32_t Width;
  std::int32_t Height;
  std::vector<std::uint32_t> Tags;
  std::vector<Span> Records;
};

TEST(SpanBuffer, EveryPixelBelongsToTheFirstSpanThatReachedIt) {
  CRandom random(5);
  CSpanBuffer spans;
  for (int round = 0; round < 400; ++round) {
    const std::int32_t width = random.Between(0, 200);
    const std::int32_t height = random.Between(0, 3);
    PixelModel model(width, height);
    spans.ResetSpans(width, height);
    for (std::uint32_t color = 1; color <= 60; ++color) {
      const std::int32_t y = random.Between(-1, height);
      const std::int32_t x0 = random.Between(-10, width + 10);
      const std::int32_t x1 =
          random.Percent(50) ? x0 + random.Between(-6, 6) : random.Between(-10, width + 10);
      spans.InsertSpan(y, x0, x1, color, nullptr);
      model.Insert(y, x0, x1, color);
      ASSERT_EQ(TagsOf(spans), model.Tags);
    }
    const bool sameRecords =
        std::equal(spans.Spans().begin(), spans.Spans().end(), model.Records.begin(),
                   model.Records.end(), [](const Span& a, const Span& b) {
                     return a.x0 == b.x0 && a.x1 == b.x1 && a.y == b.y && a.color == b.color;
                   });
    ASSERT_TRUE(sameRecords) << "round " << round;
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
