#pragma once

#include <cstdint>
#include <string>

#include "geometry/brush.h"

namespace zando {

/// What describes a staircase, which rises along +z, or a ramp of the same outline; sizes in map
/// units.
struct StaircaseParameters {
  static constexpr double kMostStairs = 4096.0;

  double Height = 128.0;
  double Length = 128.0;
  double NumberOfStairs = 8.0;  ///< whole, 0 to kMostStairs; of a ramp any
  double Width = 64.0;
  std::int32_t MakeRamp = 0;

  friend bool operator==(const StaircaseParameters&, const StaircaseParameters&) = default;
};

/// What is wrong with the parameters, in one line, or nothing.
[[nodiscard]] std::string Check(const StaircaseParameters& staircase);

/// Replaces the brush's local polygons by the staircase or ramp, centred on the origin: back wall
/// and bottom, then riser, tread and both sides of each stair; of a ramp slope and sides. A number
/// of stairs that cannot be generates nothing.
void Generate(const StaircaseParameters& staircase, CZandoBrush& brush);

}  // namespace zando
