#pragma once

#include <cstdint>
#include <string>

#include "geometry/brush.h"

namespace zando {

/// What describes a spheroid, sizes in map units: bands from pole to pole and segments around.
struct SpheroidParameters {
  static constexpr std::int32_t kSolid = 0;
  static constexpr std::int32_t kHollow = 1;

  static constexpr std::int32_t kFewestHorizontal = 2;
  static constexpr std::int32_t kFewestVertical = 3;
  static constexpr std::int32_t kMostStripes = 100;

  std::int32_t HorizontalStripes = 4;  ///< bands, kFewestHorizontal to kMostStripes
  std::int32_t VerticalStripes = 8;    ///< segments, kFewestVertical to kMostStripes
  double XSize = 256.0;
  double YSize = 256.0;
  double ZSize = 256.0;
  std::int32_t Style = kSolid;
  double WallThickness = 16.0;  ///< of a hollow spheroid

  /// A spheroid needs at least as many segments as bands.
  [[nodiscard]] bool HasEnoughVerticalStripes() const {
    return HorizontalStripes <= VerticalStripes;
  }

  friend bool operator==(const SpheroidParameters&, const SpheroidParameters&) = default;
};

/// What is wrong with the parameters, in one line, or nothing.
[[nodiscard]] std::string Check(const SpheroidParameters& spheroid);

/// Replaces the brush's local polygons by the spheroid, centred on the origin: the fan at the top,
/// the bands downwards, the fan at the bottom, and when hollow those of the cavity, which look into
/// it. Parameters with which something is wrong generate nothing.
void Generate(const SpheroidParameters& spheroid, CZandoBrush& brush);

}  // namespace zando
