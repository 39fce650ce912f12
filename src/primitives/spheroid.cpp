#include "primitives/spheroid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "geometry/transform.h"
#include "primitives/rings.h"

namespace zando {
namespace {

/// Half a turn, in whole rotation units.
constexpr std::int32_t kHalfTurn = 4096;

struct Sizes {
  double x;
  double y;
  double z;
};

/// The pole at the top, the rings downwards, the pole at the bottom.
std::vector<Vector> PointsOf(const Sizes& sizes, std::int32_t bands, std::int32_t segments) {
  const double h = sizes.y / 2.0;
  const double a = sizes.x / 2.0;
  const double stretch = sizes.x != 0.0 ? sizes.z / sizes.x : 0.0;
  const std::int32_t units = kHalfTurn / bands;
  Transform step = Transform::Identity();
  step.RotateZ(units);
  std::vector<Vector> points{{0.0, h, 0.0}};
  Vector turned = points.front();
  for (std::int32_t ring = 1; ring < bands; ++ring) {
    step.TransformPoint(turned);
    // No height collapses the rings on the axis, as no width does.
    const double squared = h != 0.0 ? SquaredRatio(turned.y, h) : 1.0;
    const double rx = a * std::sqrt(std::max(1.0 - squared, 0.0));
    const double rz = std::isfinite(stretch) ? stretch * rx : 0.0;
    AppendRing(points, {{0.0, turned.y, 0.0}, rx, rz}, segments);
  }
  points.push_back({0.0, -h, 0.0});
  return points;
}

/// Writes the polygons of one shell in their order.
class CShellWriter {
 public:
  CShellWriter(CZandoBrush& brush, std::size_t firstPolygon, bool inward)
      : brush_(brush), next_(firstPolygon), inward_(inward) {}

  void Write(const std::vector<Vector>& points, std::size_t bands, std::size_t segments) {
    const auto at = [segments](std::size_t ring, std::size_t k) {
      return 1 + (ring - 1) * segments + k % segments;
    };
    for (std::size_t k = 0; k < segments; ++k) {
      WriteCorners(points, std::array{std::size_t{0}, at(1, k + 1), at(1, k)});
    }
    for (std::size_t ring = 1; ring + 1 < bands; ++ring) {
      for (std::size_t k = 0; k < segments; ++k) {
        WriteCorners(
            points, std::array{at(ring, k), at(ring, k + 1), at(ring + 1, k + 1), at(ring + 1, k)});
      }
    }
    for (std::size_t k = 0; k < segments; ++k) {
      WriteCorners(points, std::array{at(bands - 1, k), at(bands - 1, k + 1), points.size() - 1});
    }
  }

 private:
  template <std::size_t Count>
  void WriteCorners(const std::vector<Vector>& points, std::array<std::size_t, Count> corners) {
    if (inward_) std::ranges::reverse(corners);
    WritePolygon(brush_, next_++, points, corners);
  }

  CZandoBrush& brush_;
  std::size_t next_;
  bool inward_;
};

}  // namespace

std::string Check(const SpheroidParameters& spheroid) {
  using P = SpheroidParameters;
  const auto isWithin = [](std::int32_t stripes, std::int32_t fewest) {
    return fewest <= stripes && stripes <= P::kMostStripes;
  };
  if (!isWithin(spheroid.HorizontalStripes, P::kFewestHorizontal)) {
    return "a spheroid has 2 to 100 horizontal stripes";
  }
  if (!isWithin(spheroid.VerticalStripes, P::kFewestVertical)) {
    return "a spheroid has 3 to 100 vertical stripes";
  }
  return spheroid.HasEnoughVerticalStripes() ? "" : "There must be more vertical bands!";
}

void Generate(const SpheroidParameters& spheroid, CZandoBrush& brush) {
  if (!Check(spheroid).empty()) return;
  const std::int32_t bands = spheroid.HorizontalStripes;
  const std::int32_t segments = spheroid.VerticalStripes;
  const std::int32_t count = bands * segments;
  const bool solid = spheroid.Style == SpheroidParameters::kSolid;
  brush.SetPolyCount(solid ? count : 2 * count);
  const auto write = [&](double wall, std::size_t firstPolygon, bool inward) {
    const Sizes sizes{spheroid.XSize - 2.0 * wall, spheroid.YSize - 2.0 * wall,
                      spheroid.ZSize - 2.0 * wall};
    CShellWriter(brush, firstPolygon, inward)
        .Write(PointsOf(sizes, bands, segments), static_cast<std::size_t>(bands),
               static_cast<std::size_t>(segments));
  };
  write(0.0, 0, false);
  if (!solid) write(spheroid.WallThickness, static_cast<std::size_t>(count), true);
}

}  // namespace zando
