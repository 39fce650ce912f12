#include "support/random_level.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

namespace zando::testing {
namespace {

/// Corner i of a box: bit 0 is x, bit 1 y, bit 2 z.
using Corners = std::array<Vector, 8>;

constexpr std::array<std::array<std::size_t, 4>, 6> kBoxFaces{
    {{0, 4, 6, 2}, {1, 3, 7, 5}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 2, 3, 1}, {4, 5, 7, 6}}};

Corners BoxCorners(const Vector& half) {
  Corners corners{};
  for (std::size_t i = 0; i < corners.size(); ++i) {
    corners[i] = {(i & 1U) != 0 ? half.x : -half.x, (i & 2U) != 0 ? half.y : -half.y,
                  (i & 4U) != 0 ? half.z : -half.z};
  }
  return corners;
}

/// Draws the top in, each way by its own factor; the four sides stay planar.
void Taper(Corners& corners, double factorX, double factorZ) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    if ((i & 2U) == 0) continue;
    corners[i].x *= factorX;
    corners[i].z *= factorZ;
  }
}

std::unique_ptr<CZandoBrush> MakeBrush(const Corners& corners, const Vector& centre) {
  auto brush = std::make_unique<CZandoBrush>();
  brush->SetPolyCount(static_cast<std::int32_t>(kBoxFaces.size()));
  for (std::size_t face = 0; face < kBoxFaces.size(); ++face) {
    for (const std::size_t corner : kBoxFaces[face]) brush->Polys[face].Append(corners[corner]);
  }
  brush->ComputeFacePoints();
  brush->MoveTo(centre);
  return brush;
}

Vector HalfSize(const GridBox& box) {
  return {(box.high[0] - box.low[0]) / 2.0, (box.high[1] - box.low[1]) / 2.0,
          (box.high[2] - box.low[2]) / 2.0};
}

Vector Centre(const GridBox& box) {
  return {(box.high[0] + box.low[0]) / 2.0, (box.high[1] + box.low[1]) / 2.0,
          (box.high[2] + box.low[2]) / 2.0};
}

void Turn(CZandoBrush& brush, CRandom& random) {
  brush.Rot[kOwnSlot] = {random.Real(0.0, kRotationUnitsPerTurn),
                         random.Real(0.0, kRotationUnitsPerTurn),
                         random.Real(0.0, kRotationUnitsPerTurn)};
  brush.WorkRot[kOwnSlot] = brush.Rot[kOwnSlot];
  brush.Scl[kOwnSlot] = {random.Real(0.5, 1.5), random.Real(0.5, 1.5), random.Real(0.5, 1.5)};
  brush.Shr[kOwnSlot] = {random.Real(-0.4, 0.4), random.Real(-0.4, 0.4), random.Real(-0.4, 0.4)};
}

using Span = std::pair<std::int32_t, std::int32_t>;

/// Pairs of coordinates of one axis, none of which occurs twice.
std::vector<Span> DistinctSpans(CRandom& random, const LevelOptions& options) {
  std::vector<std::int32_t> free(static_cast<std::size_t>(options.extent) + 1);
  std::iota(free.begin(), free.end(), 0);
  const auto pick = [&random](std::size_t from, std::size_t to) {
    return static_cast<std::size_t>(
        random.Between(static_cast<std::int32_t>(from), static_cast<std::int32_t>(to)));
  };
  std::vector<Span> spans;
  for (std::int32_t i = 0; i < options.brushes; ++i) {
    const std::size_t a = pick(0, free.size() - 2);
    const auto limit = std::upper_bound(free.begin(), free.end(), free[a] + options.maxSize);
    const auto last = static_cast<std::size_t>(limit - free.begin()) - 1;
    const std::size_t b = pick(a + 1, std::max(last, a + 1));
    spans.emplace_back(free[a], free[b]);
    free.erase(free.begin() + static_cast<std::ptrdiff_t>(b));
    free.erase(free.begin() + static_cast<std::ptrdiff_t>(a));
  }
  return spans;
}

std::vector<Span> GridSpans(CRandom& random, const LevelOptions& options) {
  const std::int32_t steps = options.extent / options.grid;
  const std::int32_t maxSteps = std::max(options.maxSize / options.grid, 1);
  std::vector<Span> spans;
  for (std::int32_t i = 0; i < options.brushes; ++i) {
    const std::int32_t low = random.Between(0, steps - 1);
    const std::int32_t high = random.Between(low + 1, std::min(low + maxSteps, steps));
    spans.emplace_back(low * options.grid, high * options.grid);
  }
  return spans;
}

std::vector<GridBox> RandomBoxes(CRandom& random, const LevelOptions& options) {
  std::vector<GridBox> boxes(static_cast<std::size_t>(options.brushes));
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const std::vector<Span> spans = options.layout == LevelOptions::Layout::General
                                        ? DistinctSpans(random, options)
                                        : GridSpans(random, options);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      boxes[i].low[axis] = spans[i].first;
      boxes[i].high[axis] = spans[i].second;
    }
  }
  return boxes;
}

}  // namespace

// SplitMix64: a counter put through a mixing function.
std::uint64_t CRandom::Next() {
  state_ += 0x9E3779B97F4A7C15U;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
  return mixed ^ (mixed >> 31U);
}

std::int32_t CRandom::Between(std::int32_t low, std::int32_t high) {
  const auto count = static_cast<std::uint64_t>(static_cast<std::int64_t>(high) - low + 1);
  return static_cast<std::int32_t>(low + static_cast<std::int64_t>(Next() % count));
}

double CRandom::Real(double low, double high) {
  return low + (high - low) * static_cast<double>(Next() >> 11U) * 0x1.0p-53;
}

std::unique_ptr<CZandoBrush> MakeBoxBrush(const GridBox& box, std::int32_t operation) {
  std::unique_ptr<CZandoBrush> brush = MakeBrush(BoxCorners(HalfSize(box)), Centre(box));
  brush->TranT = operation;
  return brush;
}

GridBox BoxOfBrush(CZandoBrush& brush) {
  brush.UpdateWorld();
  const auto whole = [](double value) { return static_cast<std::int32_t>(std::lround(value)); };
  const Vector& low = brush.BoundsMin;
  const Vector& high = brush.BoundsMax;
  return {{whole(low.x), whole(low.y), whole(low.z)},
          {whole(high.x), whole(high.y), whole(high.z)}};
}

CBrushList RandomLevel(std::uint64_t seed, const LevelOptions& options) {
  CRandom random(seed);
  CBrushList level;
  for (const GridBox& box : RandomBoxes(random, options)) {
    Corners corners = BoxCorners(HalfSize(box));
    if (random.Percent(options.tapered)) {
      Taper(corners, random.Real(0.2, 0.9), random.Real(0.2, 0.9));
    }
    std::unique_ptr<CZandoBrush> brush = MakeBrush(corners, Centre(box));
    if (random.Percent(options.turned)) Turn(*brush, random);
    const bool carves = random.Percent(options.carving) && level.BrushCount() > 0;
    brush->TranT = carves ? kSubtractFromWorld : kAddToWorld;
    if (random.Percent(options.water)) brush->Name = "*water";
    brush->BBid = level.BrushCount();
    level.Append(std::move(brush));
  }
  return level;
}

}  // namespace zando::testing
