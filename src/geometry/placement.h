#pragma once

#include <cstddef>

#include "geometry/vector.h"

namespace zando {

/// One slot of the parameters that place a brush: those committed, and the working values of a
/// drag in progress. Angles are rotation units: x yaw, y pitch, z roll.
struct Placement {
  Vector Pos{0.0, 0.0, 0.0};
  Vector WorkPos{0.0, 0.0, 0.0};
  Vector Rot{0.0, 0.0, 0.0};
  Vector WorkRot{0.0, 0.0, 0.0};
  Vector Scl{1.0, 1.0, 1.0};
  Vector Shr{0.0, 0.0, 0.0};

  friend bool operator==(const Placement&, const Placement&) = default;
};

/// Slot 0 is the brush's own placement; slot 1 is the scratch of a group operation, whose Pos and
/// WorkPos hold the pivot.
inline constexpr std::size_t kOwnSlot = 0;
inline constexpr std::size_t kGroupSlot = 1;

}  // namespace zando
