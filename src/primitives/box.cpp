#include "primitives/box.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zando {
namespace {

struct HalfSizes {
  double topX;
  double topZ;
  double bottomX;
  double bottomZ;
  double y;

  [[nodiscard]] HalfSizes Inset(double wall) const {
    return {topX - wall, topZ - wall, bottomX - wall, bottomZ - wall, y - wall};
  }
};

using Corners = std::array<Vector, 8>;

/// Four corners each: top, bottom, +Z, -Z, -X, +X.
constexpr std::array<std::array<std::size_t, 4>, 6> kFaces{{
    {0, 1, 2, 3},
    {4, 5, 6, 7},
    {1, 7, 6, 2},
    {0, 3, 5, 4},
    {0, 4, 7, 1},
    {3, 2, 6, 5},
}};

Corners CornersOf(const HalfSizes& half) {
  return {{
      {-half.topX, half.y, -half.topZ},
      {-half.topX, half.y, half.topZ},
      {half.topX, half.y, half.topZ},
      {half.topX, half.y, -half.topZ},
      {-half.bottomX, -half.y, -half.bottomZ},
      {half.bottomX, -half.y, -half.bottomZ},
      {half.bottomX, -half.y, half.bottomZ},
      {-half.bottomX, -half.y, half.bottomZ},
  }};
}

}  // namespace

void Generate(const BoxParameters& box, CZandoBrush& brush) {
  const bool hollow = box.Style != BoxParameters::kSolid;
  const HalfSizes half{box.TopXSize / 2.0, box.TopZSize / 2.0, box.BottomXSize / 2.0,
                       box.BottomZSize / 2.0, box.YSize / 2.0};
  const Corners outer = CornersOf(half);
  const Corners inner = CornersOf(half.Inset(box.WallThickness));

  brush.SetPolyCount(static_cast<std::int32_t>(hollow ? 2 * kFaces.size() : kFaces.size()));
  for (std::size_t i = 0; i < kFaces.size(); ++i) {
    const auto& face = kFaces[i];
    CZandoPoly& shell = brush.EditPoly(i);
    shell.count = 0;
    for (const std::size_t corner : face) shell.Append(outer[corner]);
    if (!hollow) continue;
    CZandoPoly& cavity = brush.EditPoly(i + kFaces.size());
    cavity.count = 0;
    for (const std::size_t corner : face) cavity.Append(inner[corner]);
    std::reverse(cavity.Vertices().begin(), cavity.Vertices().end());
  }
}

}  // namespace zando
