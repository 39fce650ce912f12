#pragma once

#include <cstdint>
#include <string>

#include "geometry/brush.h"

namespace zando {

/// What describes a cylinder, sizes in map units: a top and a bottom ellipse, each with an offset
/// from the axis, so that it may taper and lean.
struct CylinderParameters {
  static constexpr std::int32_t kSolid = 0;
  static constexpr std::int32_t kHollow = 1;
  static constexpr std::int32_t kRing = 2;  ///< the same as hollow

  static constexpr double kLeastWall = 1.0;
  static constexpr double kMostWall = 10000.0;
  static constexpr double kFewestStripes = 3.0;
  static constexpr double kMostStripes = 31.0;

  double BottomXOffset = 0.0;
  double BottomXSize = 128.0;
  double BottomZOffset = 0.0;
  double BottomZSize = 128.0;
  std::int32_t Style = kSolid;
  double WallThickness = 16.0;  ///< kLeastWall to kMostWall
  double TopXOffset = 0.0;
  double TopXSize = 128.0;
  double TopZOffset = 0.0;
  double TopZSize = 128.0;
  double Stripes = 6.0;  ///< sides, kFewestStripes to kMostStripes; the fraction does not count
  double YSize = 512.0;

  friend bool operator==(const CylinderParameters&, const CylinderParameters&) = default;
};

/// What is wrong with the parameters, in one line, or nothing.
[[nodiscard]] std::string Check(const CylinderParameters& cylinder);

/// Replaces the brush's local polygons by the cylinder, its middle at the height of the origin: top
/// cap, bottom cap and sides, then, unless it is solid, those of the cavity, which look into it.
/// Parameters with which something is wrong generate nothing.
void Generate(const CylinderParameters& cylinder, CZandoBrush& brush);

}  // namespace zando
