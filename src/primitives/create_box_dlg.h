#pragma once

#include "geometry/brush.h"

namespace zando {

/// The box: a solid whose rectangular top and bottom have sizes of their own, so that it may taper.
/// Holds the values last used; every level has its own. Sizes in map units. No value is refused:
/// sizes of zero or less, and walls that meet, give the polygons that the numbers say.
class CCreateBoxDlg {
 public:
  static constexpr int kSolid = 0;
  static constexpr int kHollow = 1;

  double YSize = 128.0;
  int Style = kSolid;
  double WallThickness = 16.0;  ///< of a hollow box, along each axis
  double BottomXSize = 128.0;
  double TopXSize = 128.0;
  double BottomZSize = 128.0;
  double TopZSize = 128.0;

  /// Puts every parameter back to the value of a new object.
  void SetDefaults();

  /// Replaces the brush's local polygons by the box, centred on the origin: 6 faces, or 12 when
  /// hollow (the outer shell, then the cavity's faces, which look into the cavity). Face records
  /// start afresh when the brush had fewer polygons; nothing else on the brush changes.
  void Generate(CZandoBrush& brush) const;
};

}  // namespace zando
