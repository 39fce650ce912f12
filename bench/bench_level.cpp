#include "bench_level.h"

#include <cmath>
#include <memory>
#include <utility>

#include "document/brush_edits.h"
#include "document/world_edits.h"
#include "primitives/box.h"
#include "support/random_level.h"

namespace zando::bench {
namespace {

using testing::CRandom;

constexpr std::int32_t kGrid = 16;
constexpr double kEighthTurn = kRotationUnitsPerTurn / 8.0;

/// The side of a cube in which `count` brushes meet a handful of others each.
std::int32_t SideOfLevel(Kind kind, std::int32_t count) {
  const double sideOfOne = kind == Kind::OnGrid ? 215.0 : 180.0;
  return static_cast<std::int32_t>(sideOfOne * std::cbrt(static_cast<double>(count)));
}

Vector CentreOnGrid(CRandom& random, const BoxParameters& box, std::int32_t side) {
  const auto corner = [&] { return static_cast<double>(random.Between(0, side / kGrid) * kGrid); };
  const double x = corner() + box.TopXSize / 2.0;
  const double y = corner() + box.YSize / 2.0;
  return {x, y, corner() + box.TopZSize / 2.0};
}

void Turn(CZandoBrush& brush, const Vector& rotation) {
  Placement own = brush.Own();
  own.Rot = own.WorkRot = rotation;
  brush.SetSlot(kOwnSlot, own);
}

/// Faces of boxes lie on the grid, as they do when a level is built by hand.
void ShapeOnGrid(CZandoBrush& brush, CRandom& random, std::int32_t side) {
  const auto size = [&random] { return static_cast<double>(random.Between(4, 16) * kGrid); };
  BoxParameters box;
  box.YSize = size();
  box.BottomXSize = box.TopXSize = size();
  box.BottomZSize = box.TopZSize = size();
  if (random.Percent(10)) {
    box.TopXSize = box.BottomXSize / 2.0;
    box.TopZSize = box.BottomZSize / 2.0;
  }
  Generate(box, brush);
  if (random.Percent(10)) Turn(brush, {random.Between(1, 7) * kEighthTurn, 0.0, 0.0});
  brush.MoveTo(CentreOnGrid(random, box, side));
}

void ShapeFreely(CZandoBrush& brush, CRandom& random, std::int32_t side) {
  const auto size = [&random] { return static_cast<double>(random.Between(64, 256)); };
  BoxParameters box;
  box.YSize = size();
  box.BottomXSize = box.TopXSize = size();
  box.BottomZSize = box.TopZSize = size();
  if (random.Percent(20)) {
    box.BottomXSize += 64.0;
    box.BottomZSize += 32.0;
  }
  Generate(box, brush);
  if (random.Percent(20)) {
    const double yaw = random.Between(0, 8191);
    Turn(brush, {yaw, static_cast<double>(random.Between(0, 1023)), 0.0});
  }
  const double x = random.Between(0, side);
  const double y = random.Between(0, side);
  brush.MoveTo({x, y, static_cast<double>(random.Between(0, side))});
}

}  // namespace

CBrushList MakeLevel(Kind kind, std::int32_t count) {
  CRandom random(static_cast<std::uint64_t>(count));
  const std::int32_t side = SideOfLevel(kind, count);
  CBrushList level;
  for (std::int32_t i = 0; i < count; ++i) {
    auto brush = std::make_unique<CZandoBrush>();
    if (kind == Kind::OnGrid) {
      ShapeOnGrid(*brush, random, side);
    } else {
      ShapeFreely(*brush, random, side);
    }
    brush->ComputeFacePoints();
    brush->TranT = random.Percent(25) ? kSubtractFromWorld : kAddToWorld;
    brush->BBid = i;
    level.Append(std::move(brush));
  }
  return level;
}

void FillDocument(CZANDODoc& document, Kind kind, std::int32_t count) {
  const CBrushList level = MakeLevel(kind, count);
  const CCompoundChange whole(document);
  for (const CZandoBrush& brush : level) AddBrush(document, brush);
  RebuildWorld(document, RebuildKind::Optimal, WaterBrushes::Build, nullptr);
}

double MeanNeighbours(const CBrushList& level) {
  std::int64_t pairs = 0;
  for (std::int32_t i = 0; i < level.BrushCount(); ++i) {
    for (std::int32_t j = 0; j < i; ++j) pairs += BoundsOverlap(level[i], level[j]) ? 1 : 0;
  }
  return 2.0 * static_cast<double>(pairs) / static_cast<double>(level.BrushCount());
}

}  // namespace zando::bench
