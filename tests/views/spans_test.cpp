#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "support/random_level.h"
#include "views/scan_converter.h"
#include "views/span_testing.h"

namespace zando {
namespace {

using testing::CRandom;
using testing::TagsOf;
using Points = std::vector<CProjectedPoly::Point>;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

CProjectedPoly Polygon(const Points& points) {
  CProjectedPoly polygon;
  polygon.color = 1;
  for (const auto& point : points) {
    polygon.points[static_cast<std::size_t>(polygon.count++)] = point;
  }
  return polygon;
}

TEST(ScanConverter, FillsThePixelsWhoseTopLeftCornerIsWithin) {
  struct Case {
    Points points;
    std::string rows;  ///< of 4, 8 pixels wide: "row: from-to; "
  };
  CScanConverter converter;
  CSpanBuffer spans;
  for (const Case& c :
       {// On whole pixels the right and the bottom edge are outside.
        Case{{{1, 1, 1}, {4, 1, 1}, {4, 3, 1}, {1, 3, 1}}, "1: 1-4; 2: 1-4; "},
        Case{{{0.1, 0.1, 1}, {2.1, 0.1, 1}, {2.1, 1.1, 1}, {0.1, 1.1, 1}}, "1: 1-3; "},
        Case{{{0, 0, 1}, {8, 0, 1}, {0, 4, 1}}, "0: 0-8; 1: 0-6; 2: 0-4; 3: 0-2; "},
        // Cut by every side.
        Case{{{-5, -5, 1}, {5, -5, 1}, {15, 5, 1}, {5, 15, 1}, {-5, 5, 1}},
             "0: 0-8; 1: 0-8; 2: 0-8; 3: 0-8; "},
        // The other way round; between two rows, two columns; on one line; beside it.
        Case{{{1, 1, 1}, {1, 3, 1}, {4, 3, 1}, {4, 1, 1}}, ""},
        Case{{{0, 0.2, 1}, {7, 0.4, 1}, {3, 0.9, 1}}, ""},
        Case{{{0.2, 0, 1}, {0.9, 2, 1}, {0.4, 3, 1}}, ""},
        Case{{{0, 1, 1}, {7, 1, 1}, {3, 1, 1}}, ""}, Case{{{1, 0, 1}, {1, 3, 1}, {1, 2, 1}}, ""},
        Case{{{-9, 0, 1}, {-0.5, 0, 1}, {-0.5, 4, 1}}, ""},
        Case{{{8, 0, 1}, {12, 0, 1}, {8, 4, 1}}, ""},
        // Two points; no numbers.
        Case{{{0, 0, 1}, {7, 3, 1}}, ""}, Case{{{0, 0, 1}, {8, kNaN, 1}, {0, 4, 1}}, ""},
        Case{{{0, 0, 1}, {kInf, 0, 1}, {0, 4, 1}}, ""}}) {
    spans.ResetSpans(8, 4);
    converter.ScanConvert(Polygon(c.points), nullptr, spans);
    std::string rows;
    for (const Span& span : spans.Spans()) {
      rows += std::to_string(span.y) + ": " + std::to_string(span.x0) + "-" +
              std::to_string(span.x1) + "; ";
    }
    EXPECT_EQ(rows, c.rows) << c.points[0].x << " " << c.points[0].y;
  }
}

TEST(ScanConverter, HostileCoordinatesStayWithinTheViewport) {
  constexpr double kOdd[] = {0.0,   -0.0,   5e-324,  -5e-324,  1e-300, 0.5,   -0.5,  3.0,   7.999,
                             8.0,   1e5,    -1e5,    2e9,      -2e9,   1e18,  -1e18, 1e100, -1e100,
                             1e300, -1e300, 1.7e308, -1.7e308, kInf,   -kInf, kNaN};
  CRandom random(3);
  CScanConverter converter;
  CSpanBuffer spans;
  const auto odd = [&] { return kOdd[random.Next() % std::size(kOdd)]; };
  std::int64_t covered = 0;
  for (int round = 0; round < 50'000; ++round) {
    spans.ResetSpans(random.Between(1, 9), random.Between(1, 9));
    Points points(static_cast<std::size_t>(random.Between(3, 6)));
    for (auto& point : points) point = {odd(), odd(), 16.0};
    converter.ScanConvert(Polygon(points), nullptr, spans);
    for (const std::uint32_t tag : TagsOf(spans)) covered += tag;
  }
  EXPECT_GT(covered, 10'000);
}

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
