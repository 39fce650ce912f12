#include "primitives/cylinder.h"

#include <cstddef>
#include <vector>

#include "primitives/rings.h"

namespace zando {
namespace {

/// Two rings of a shell, the top one first. With a wall they are those of the cavity.
std::vector<Vector> ShellOf(const CylinderParameters& c, std::int32_t sides, double wall) {
  const auto half = [wall](double size) { return (size - 2.0 * wall) / 2.0; };
  std::vector<Vector> points;
  points.reserve(2 * static_cast<std::size_t>(sides));
  AppendRing(points,
             {{c.TopXOffset, half(c.YSize), c.TopZOffset}, half(c.TopXSize), half(c.TopZSize)},
             sides);
  AppendRing(points,
             {{c.BottomXOffset, -half(c.YSize), c.BottomZOffset},
              half(c.BottomXSize),
              half(c.BottomZSize)},
             sides);
  return points;
}

/// The shell from its first ring to its second: the first cap against the order of the ring, the
/// other along it, and the sides between. Seen from the other side the shell is a cavity.
void WriteShell(CZandoBrush& brush, std::size_t polygon, const std::vector<Vector>& points,
                std::size_t first, std::size_t second, std::size_t sides) {
  std::vector<std::size_t> corners;
  for (std::size_t k = sides; k > 0; --k) corners.push_back(first + k - 1);
  WritePolygon(brush, polygon++, points, corners);
  corners.clear();
  for (std::size_t k = 0; k < sides; ++k) corners.push_back(second + k);
  WritePolygon(brush, polygon++, points, corners);
  for (std::size_t k = 0; k < sides; ++k) {
    const std::size_t next = (k + 1) % sides;
    const std::size_t side[] = {first + k, first + next, second + next, second + k};
    WritePolygon(brush, polygon++, points, side);
  }
}

}  // namespace

std::string Check(const CylinderParameters& cylinder) {
  using P = CylinderParameters;
  if (!(P::kLeastWall <= cylinder.WallThickness && cylinder.WallThickness <= P::kMostWall)) {
    return "the wall of a cylinder is 1 to 10000 thick";
  }
  const bool inRange = P::kFewestStripes <= cylinder.Stripes && cylinder.Stripes <= P::kMostStripes;
  return inRange ? "" : "a cylinder has 3 to 31 stripes";
}

void Generate(const CylinderParameters& cylinder, CZandoBrush& brush) {
  if (!Check(cylinder).empty()) return;
  const auto sides = static_cast<std::int32_t>(cylinder.Stripes);
  const auto count = static_cast<std::size_t>(sides);
  const bool solid = cylinder.Style == CylinderParameters::kSolid;
  brush.SetPolyCount(solid ? sides + 2 : 2 * sides + 4);
  WriteShell(brush, 0, ShellOf(cylinder, sides, 0.0), 0, count, count);
  if (solid) return;
  WriteShell(brush, count + 2, ShellOf(cylinder, sides, cylinder.WallThickness), count, 0, count);
}

}  // namespace zando
