#pragma once

#include <cstdint>

#include "geometry/brush.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// What describes a box, sizes in map units; at first a solid cube.
struct BoxParameters {
  double YSize = 128.0;
  std::int32_t Style = 0;
  double WallThickness = 16.0;  ///< of a hollow box, along each axis
  double BottomXSize = 128.0;
  double TopXSize = 128.0;
  double BottomZSize = 128.0;
  double TopZSize = 128.0;
};

/// The box: a solid whose rectangular top and bottom have sizes of their own, so that it may taper.
/// Holds the values last used; every level has its own. No value is refused: sizes of zero or less,
/// and walls that meet, give the polygons that the numbers say.
class CCreateBoxDlg : public CDialog, public BoxParameters {
 public:
  static constexpr std::int32_t kSolid = 0;
  static constexpr std::int32_t kHollow = 1;

  /// Puts every parameter back to the value of a new object.
  void SetDefaults();

  /// Asks for the parameters, then generates the box into the brush. False when the user cancelled:
  /// the parameters and the brush are then as they were.
  bool Run(CZandoBrush& brush, CDesktop& desktop);

  /// Replaces the brush's local polygons by the box, centred on the origin: 6 faces, or 12 when
  /// hollow (the outer shell, then the cavity's faces, which look into the cavity). Face records
  /// start afresh when the brush had fewer polygons; nothing else on the brush changes.
  void Generate(CZandoBrush& brush) const;

  [[nodiscard]] std::int32_t TemplateId() const override { return 133; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnInitDialog() override { ShowPicture(Style); }
  void OnButton(ControlId id) override;

 private:
  void ShowPicture(std::int32_t style);
};

}  // namespace zando
