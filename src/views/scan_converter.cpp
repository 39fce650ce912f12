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

std::int64_t Ceiling(double value) { return static_cast<std::int64_t>(std::ceil(value)); }

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

/// Indices of the first of the least and of the first of the greatest.
struct Extremes {
  std::int32_t least;
  std::int32_t greatest;
};

Extremes FindExtremes(const CProjectedPoly& polygon, double Point::*coordinate) {
  Extremes result{0, 0};
  const auto at = [&](std::int32_t i) {
    return polygon.points[static_cast<std::size_t>(i)].*coordinate;
  };
  for (std::int32_t i = 1; i < polygon.count; ++i) {
    if (at(i) < at(result.least)) result.least = i;
    if (at(i) > at(result.greatest)) result.greatest = i;
  }
  return result;
}

bool AreFinite(std::span<const Point> points) {
  return std::all_of(points.begin(), points.end(), [](const Point& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
  });
}

}  // namespace

void CScanConverter::TraceChain(const CProjectedPoly& polygon, std::int32_t top,
                                std::int32_t bottom, std::int32_t step, std::int32_t height,
                                CChain& chain) {
  const auto at = [&](std::int32_t i) -> const Point& {
    return polygon.points[static_cast<std::size_t>(i)];
  };
  for (std::int32_t i = top; i != bottom;) {
    const std::int32_t next = (i + step + polygon.count) % polygon.count;
    TraceEdge(at(i), at(next), height, chain);
    i = next;
  }
}

void CScanConverter::ScanConvert(const CProjectedPoly& polygon, const BrushFace* face,
                                 CSpanBuffer& spans) {
  if (polygon.count < 3 || !AreFinite(polygon.Points())) return;
  const Extremes across = FindExtremes(polygon, &Point::x);
  const Extremes down = FindExtremes(polygon, &Point::y);
  if (across.least == across.greatest || down.least == down.greatest) return;

  const auto at = [&](std::int32_t i) { return polygon.points[static_cast<std::size_t>(i)]; };
  const double top = at(down.least).y;
  const double bottom = at(down.greatest).y;
  const std::int32_t width = spans.Width();
  const std::int32_t height = spans.Height();
  if (std::floor(at(across.least).x) >= width || std::floor(at(across.greatest).x) < 0.0) return;
  if (std::floor(top) >= height || std::floor(bottom) < 0.0) return;
  const double first = std::ceil(top);
  const double last = std::ceil(bottom);
  if (first == last) return;

  const auto rows = static_cast<std::size_t>(height);
  if (left_.size() < rows) {
    left_.resize(rows);
    right_.resize(rows);
  }
  TraceChain(polygon, down.least, down.greatest, -1, height, left_);
  TraceChain(polygon, down.least, down.greatest, 1, height, right_);
  const auto y1 = static_cast<std::int32_t>(std::min<double>(last, height));
  for (auto y = static_cast<std::int32_t>(std::max(first, 0.0)); y < y1; ++y) {
    const auto row = static_cast<std::size_t>(y);
    const std::int64_t x0 = std::max<std::int64_t>(left_[row], 0);
    const std::int64_t x1 = std::min<std::int64_t>(right_[row], width);
    if (x0 >= x1) continue;
    spans.InsertSpan(y, static_cast<std::int32_t>(x0), static_cast<std::int32_t>(x1), polygon.color,
                     face);
  }
}

}  // namespace zando
