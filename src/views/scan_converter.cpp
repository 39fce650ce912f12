#include "views/scan_converter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zando {
namespace {

using Point = CProjectedPoly::Point;

constexpr int kFractionBits = 14;
constexpr double kOne = 16384.0;
constexpr std::int64_t kRoundUp = 16383;

/// Coordinates are cut off here, far beyond what a level can give, so that every sum below stays
/// under 2^56. The exception is an edge less than a row high, which can be as flat as it likes: its
/// step is added once, after the last use of the sum. Its slope must only stay finite.
constexpr double kFarthest = 1099511627776.0;           // 2^40
constexpr double kLongestStep = 1152921504606846976.0;  // 2^60
constexpr double kSteepest = 1e300;

double Limited(double coordinate) { return std::clamp(coordinate, -kFarthest, kFarthest); }

/// Of a coordinate within the limits.
std::int64_t Ceiling(double value) {
  const auto whole = static_cast<std::int64_t>(value);
  return whole + (static_cast<double>(whole) < value ? 1 : 0);
}

std::int64_t ToStep(double slope) {
  return static_cast<std::int64_t>(std::clamp(slope * kOne, -kLongestStep, kLongestStep));
}

void TraceEdge(const Point& from, const Point& to, std::int32_t height,
               std::vector<std::int64_t>& chain) {
  const Point a{Limited(from.x), Limited(from.y), from.depth};
  const Point b{Limited(to.x), Limited(to.y), to.depth};
  std::int64_t y = Ceiling(a.y);
  const std::int64_t end = Ceiling(b.y);
  if (end <= 0 || end <= y) return;
  const double slope = std::clamp((b.x - a.x) / (b.y - a.y), -kSteepest, kSteepest);
  const std::int64_t step = ToStep(slope);
  auto x =
      static_cast<std::int64_t>((a.x + (static_cast<double>(y) - a.y) * slope) * kOne) + kRoundUp;
  if (y < 0) {
    x -= y * step;
    y = 0;
  }
  for (const std::int64_t last = std::min<std::int64_t>(end, height); y < last; ++y) {
    chain[static_cast<std::size_t>(y)] = x >> kFractionBits;
    x += step;
  }
}

/// Indices of the first of the points with the least and the greatest coordinates.
struct Extremes {
  std::size_t left = 0;
  std::size_t right = 0;
  std::size_t top = 0;
  std::size_t bottom = 0;
  bool finite = true;
};

Extremes FindExtremes(std::span<const Point> points) {
  Extremes result;
  double sum = 0.0;  // of zeros, unless a coordinate is not finite
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Point& point = points[i];
    if (point.x < points[result.left].x) result.left = i;
    if (point.x > points[result.right].x) result.right = i;
    if (point.y < points[result.top].y) result.top = i;
    if (point.y > points[result.bottom].y) result.bottom = i;
    sum += point.x * 0.0 + point.y * 0.0;
  }
  result.finite = sum == 0.0;
  return result;
}

}  // namespace

void CScanConverter::ScanConvert(const CProjectedPoly& polygon, const BrushFace* face,
                                 CSpanBuffer& spans) {
  const std::span<const Point> points = polygon.Points();
  if (points.size() < 3) return;
  const Extremes extremes = FindExtremes(points);
  if (!extremes.finite) return;
  if (extremes.left == extremes.right || extremes.top == extremes.bottom) return;

  const double top = points[extremes.top].y;
  const double bottom = points[extremes.bottom].y;
  const std::int32_t width = spans.Width();
  const std::int32_t height = spans.Height();
  if (points[extremes.left].x >= width || points[extremes.right].x < 0.0) return;
  if (top >= height || bottom < 0.0) return;
  const std::int64_t first = Ceiling(Limited(top));
  const std::int64_t last = Ceiling(Limited(bottom));
  if (first == last) return;

  const auto rows = static_cast<std::size_t>(height);
  if (left_.size() < rows) {
    left_.resize(rows);
    right_.resize(rows);
  }
  const std::size_t count = points.size();
  for (std::size_t i = extremes.top; i != extremes.bottom;) {
    const std::size_t previous = (i == 0 ? count : i) - 1;
    TraceEdge(points[i], points[previous], height, left_);
    i = previous;
  }
  for (std::size_t i = extremes.top; i != extremes.bottom;) {
    const std::size_t next = i + 1 == count ? 0 : i + 1;
    TraceEdge(points[i], points[next], height, right_);
    i = next;
  }
  const auto y1 = static_cast<std::int32_t>(std::min<std::int64_t>(last, height));
  for (auto y = static_cast<std::int32_t>(std::max<std::int64_t>(first, 0)); y < y1; ++y) {
    const auto row = static_cast<std::size_t>(y);
    const std::int64_t x0 = std::max<std::int64_t>(left_[row], 0);
    const std::int64_t x1 = std::min<std::int64_t>(right_[row], width);
    if (x0 >= x1) continue;
    spans.InsertSpan(y, static_cast<std::int32_t>(x0), static_cast<std::int32_t>(x1), polygon.color,
                     face);
  }
}

}  // namespace zando
