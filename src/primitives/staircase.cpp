#include "primitives/staircase.h"

#include <cmath>
#include <cstddef>
#include <initializer_list>

namespace zando {
namespace {

/// Half sizes.
struct Half {
  double w;
  double h;
  double l;
};

void Write(CZandoBrush& brush, std::size_t polygon, std::initializer_list<Vector> vertices) {
  CZandoPoly& written = brush.EditPoly(polygon);
  written.count = 0;
  for (const Vector& vertex : vertices) written.Append(vertex);
}

void WriteBackAndBottom(CZandoBrush& brush, const Half& half) {
  const auto& [w, h, l] = half;
  Write(brush, 0, {{-w, -h, l}, {w, -h, l}, {w, h, l}, {-w, h, l}});
  Write(brush, 1, {{w, -h, l}, {-w, -h, l}, {-w, -h, -l}, {w, -h, -l}});
}

void GenerateRamp(CZandoBrush& brush, const Half& half) {
  const auto& [w, h, l] = half;
  brush.SetPolyCount(5);
  WriteBackAndBottom(brush, half);
  Write(brush, 2, {{-w, h, l}, {w, h, l}, {w, -h, -l}, {-w, -h, -l}});
  Write(brush, 3, {{w, h, l}, {w, -h, l}, {w, -h, -l}});
  Write(brush, 4, {{-w, -h, -l}, {-w, -h, l}, {-w, h, l}});
}

void GenerateStairs(CZandoBrush& brush, const Half& half, const StaircaseParameters& staircase) {
  const auto& [w, h, l] = half;
  const auto stairs = static_cast<std::int32_t>(staircase.NumberOfStairs);
  brush.SetPolyCount(4 * stairs + 2);
  WriteBackAndBottom(brush, half);
  const double rise = staircase.Height / staircase.NumberOfStairs;
  const double run = staircase.Length / staircase.NumberOfStairs;
  double y0 = -h;
  double z0 = -l;
  for (std::int32_t i = 0; i < stairs; ++i) {
    const double y1 = y0 + rise;
    const double z1 = z0 + run;
    const auto first = std::size_t{2} + 4 * static_cast<std::size_t>(i);
    Write(brush, first, {{-w, y0, z0}, {-w, y1, z0}, {w, y1, z0}, {w, y0, z0}});
    Write(brush, first + 1, {{-w, y1, z0}, {-w, y1, z1}, {w, y1, z1}, {w, y1, z0}});
    Write(brush, first + 2, {{-w, y0, z0}, {-w, y0, l}, {-w, y1, l}, {-w, y1, z0}});
    Write(brush, first + 3, {{w, y1, z0}, {w, y1, l}, {w, y0, l}, {w, y0, z0}});
    y0 = y1;
    z0 = z1;
  }
}

}  // namespace

std::string Check(const StaircaseParameters& staircase) {
  if (staircase.MakeRamp != 0) return {};
  const double stairs = staircase.NumberOfStairs;
  const bool isNumber =
      0.0 <= stairs && stairs <= StaircaseParameters::kMostStairs && std::trunc(stairs) == stairs;
  return isNumber ? "" : "Please enter a whole number of stairs, from 0 to 4096.";
}

void Generate(const StaircaseParameters& staircase, CZandoBrush& brush) {
  if (!Check(staircase).empty()) return;
  const Half half{staircase.Width / 2.0, staircase.Height / 2.0, staircase.Length / 2.0};
  if (staircase.MakeRamp != 0) {
    GenerateRamp(brush, half);
  } else {
    GenerateStairs(brush, half, staircase);
  }
}

}  // namespace zando
