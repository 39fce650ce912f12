#pragma once

#include <cstdint>
#include <string>

#include "geometry/brush.h"
#include "geometry/vector.h"

namespace zando {

/// A named, coloured set of brushes and entities that are shown or hidden together; they refer to
/// it by index. Its centre is the pivot of group operations.
class CBGroup {
 public:
  std::int32_t gVis = 1;  ///< visible when non-zero
  std::string gName = "Unnamed Group";
  std::uint32_t gCol = 0x0000FF;  ///< 0x00BBGGRR; red at first
  Vector Centre{128.0, 128.0, 128.0};
  Vector WorkCentre{128.0, 128.0, 128.0};
  Vector Rotation{0.0, 0.0, 0.0};
  Vector WorkRotation{0.0, 0.0, 0.0};
  Vector Scale{1.0, 1.0, 1.0};
  Vector Shear{0.0, 0.0, 0.0};

  friend bool operator==(const CBGroup&, const CBGroup&) = default;

  [[nodiscard]] const std::string& GetName() const { return gName; }

  /// Centre and working centre become the mean world origin of the brushes of group `g`, or of the
  /// selected ones when g is -1; (0, 0, 0) when there are none. `head` is the first brush.
  void ComputeCentre(const CZandoBrush* head, std::int32_t g);

  /// Rotation, scale and shear back to neutral; the working centre becomes the centre.
  void ResetGroupTransform();
};

}  // namespace zando
