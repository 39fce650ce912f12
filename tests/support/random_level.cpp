#include "support/random_level.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <tuple>
#include <utility>

#include "primitives/box.h"
#include "primitives/cylinder.h"
#include "primitives/spheroid.h"
#include "primitives/staircase.h"

namespace zando::testing {
namespace {

/// Corners of the faces; of a corner's number bit 0 tells the end in x, bit 1 in y, bit 2 in z.
constexpr std::array<std::array<std::size_t, 4>, 6> kBoxFaces{
    {{0, 4, 6, 2}, {1, 3, 7, 5}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 2, 3, 1}, {4, 5, 7, 6}}};

Vector AsVector(const std::array<std::int32_t, 3>& corner) {
  return {double(corner[0]), double(corner[1]), double(corner[2])};
}

/// A box whose top is drawn in, each way by its own factor; the four sides stay planar.
std::unique_ptr<CZandoBrush> MakeFrustum(const GridBox& box, double topX, double topZ) {
  const Vector low = AsVector(box.low);
  const Vector high = AsVector(box.high);
  const Vector half = (high - low) * 0.5;
  auto brush = std::make_unique<CZandoBrush>();
  brush->SetPolyCount(static_cast<std::int32_t>(kBoxFaces.size()));
  for (std::size_t face = 0; face < kBoxFaces.size(); ++face) {
    for (const std::size_t corner : kBoxFaces[face]) {
      const bool top = (corner & 2U) != 0;
      const double x = (corner & 1U) != 0 ? half.x : -half.x;
      const double z = (corner & 4U) != 0 ? half.z : -half.z;
      brush->EditPoly(face).Append(top ? Vector{x * topX, half.y, z * topZ}
                                       : Vector{x, -half.y, z});
    }
  }
  brush->ComputeFacePoints();
  brush->MoveTo((low + high) * 0.5);
  return brush;
}

/// One brush that fills the box and is not convex, or is round, or a ramp. The walls and stairs of
/// grid shapes end on a quarter of the grid.
std::unique_ptr<CZandoBrush> MakeShape(const GridBox& box, const LevelOptions& options,
                                       CRandom& random) {
  const Vector size = AsVector(box.high) - AsVector(box.low);
  const bool general = options.layout == LevelOptions::Layout::General;
  const double wall =
      general ? std::min({size.x, size.y, size.z}) * random.Real(0.1, 0.4) : options.grid / 4.0;
  if (std::min({size.x, size.y, size.z}) < 16.0) return MakeFrustum(box, 1.0, 1.0);
  auto brush = std::make_unique<CZandoBrush>();
  const std::int32_t kinds = options.shapes == LevelOptions::Shapes::Any ? 4 : 1;
  const std::int32_t kind = random.Between(0, kinds);
  const std::int32_t style = random.Between(0, 1);
  if (kind == 0) {
    Generate(BoxParameters{size.y, BoxParameters::kHollow, wall, size.x, size.x, size.z, size.z},
             *brush);
  } else if (kind <= 2) {  // stairs, ramps
    Generate(StaircaseParameters{size.y, size.z, style == 0 ? 4.0 : 2.0, size.x, kind - 1}, *brush);
  } else if (kind == 3) {
    const double sides = random.Between(4, 9);
    Generate(CylinderParameters{0.0, size.x, 0.0, size.z, style, wall, 0.0, size.x, 0.0, size.z,
                                sides, size.y},
             *brush);
  } else {
    Generate(SpheroidParameters{random.Between(2, 4), random.Between(4, 8), size.x, size.y, size.z,
                                style, wall},
             *brush);
  }
  brush->ComputeFacePoints();
  brush->MoveTo((AsVector(box.low) + AsVector(box.high)) * 0.5);
  return brush;
}

void Turn(CZandoBrush& brush, CRandom& random) {
  const auto any = [&random](double low, double high) {
    return Vector{random.Real(low, high), random.Real(low, high), random.Real(low, high)};
  };
  Placement own = brush.Own();
  own.Rot = own.WorkRot = any(0.0, kRotationUnitsPerTurn);
  own.Scl = any(0.5, 1.5);
  own.Shr = any(-0.4, 0.4);
  brush.SetSlot(kOwnSlot, own);
}

/// The coordinates of a box along one axis. General takes none that are in use.
std::pair<std::int32_t, std::int32_t> RandomSpan(CRandom& random, const LevelOptions& options,
                                                 std::set<std::int32_t>& used) {
  const bool general = options.layout == LevelOptions::Layout::General;
  const std::int32_t step = general ? 1 : options.grid;
  while (true) {
    const std::int32_t low = random.Between(0, options.extent / step) * step;
    const std::int32_t high = low + random.Between(1, options.maxSize / step) * step;
    if (high > options.extent) continue;
    if (general && (used.contains(low) || used.contains(high))) continue;
    used.insert({low, high});
    return {low, high};
  }
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
  std::unique_ptr<CZandoBrush> brush = MakeFrustum(box, 1.0, 1.0);
  brush->TranT = operation;
  return brush;
}

CBrushList RandomLevel(std::uint64_t seed, const LevelOptions& options) {
  CRandom random(seed);
  CBrushList level;
  std::array<std::set<std::int32_t>, 3> used;
  for (std::int32_t i = 0; i < options.brushes; ++i) {
    GridBox box;
    for (std::size_t axis = 0; axis < 3; ++axis) {
      std::tie(box.low[axis], box.high[axis]) = RandomSpan(random, options, used[axis]);
    }
    const bool tapers = random.Percent(options.tapered);
    const double topX = tapers ? random.Real(0.2, 0.9) : 1.0;
    const double topZ = tapers ? random.Real(0.2, 0.9) : 1.0;
    std::unique_ptr<CZandoBrush> brush = MakeFrustum(box, topX, topZ);
    const bool shaped = options.shaped > 0 && random.Percent(options.shaped);
    if (shaped) brush = MakeShape(box, options, random);
    if (random.Percent(options.turned)) Turn(*brush, random);
    if (i > 0 && random.Percent(options.carving)) brush->TranT = kSubtractFromWorld;
    if (random.Percent(options.water)) brush->Name = "*water";
    brush->BBid = i;
    level.Append(std::move(brush));
  }
  return level;
}

}  // namespace zando::testing
