#pragma once

#include <cstdint>
#include <string>

#include "geometry/brush.h"

namespace zando {

/// What describes a box, sizes in map units; at first a solid cube. Top and bottom are rectangles
/// with sizes of their own, so that it may taper. Every finite number is allowed: sizes of zero or
/// less, and walls that meet, give the polygons that the numbers say.
struct BoxParameters {
  static constexpr std::int32_t kSolid = 0;
  static constexpr std::int32_t kHollow = 1;

  double YSize = 128.0;
  std::int32_t Style = kSolid;
  double WallThickness = 16.0;  ///< of a hollow box, along each axis
  double BottomXSize = 128.0;
  double TopXSize = 128.0;
  double BottomZSize = 128.0;
  double TopZSize = 128.0;

  friend bool operator==(const BoxParameters&, const BoxParameters&) = default;
};

/// Nothing is wrong with any box: every number makes one.
[[nodiscard]] inline std::string Check(const BoxParameters& /*box*/) { return {}; }

/// Replaces the brush's local polygons by the box, centred on the origin: 6 faces, or 12 when
/// hollow (the outer shell, then the cavity's faces, which look into the cavity). Face records
/// start afresh when the brush had fewer polygons; nothing else on the brush changes.
void Generate(const BoxParameters& box, CZandoBrush& brush);

}  // namespace zando
