#include "dialogs/grid_settings_dlg.h"

#include "geometry/transform.h"

namespace zando {
namespace {

constexpr ControlId kGridSize = 1033;
constexpr ControlId kCoarseGrid = 1082;
constexpr ControlId kUseRotationSnap = 1083;
constexpr ControlId kFineGrid = 1088;
constexpr ControlId kRotationSnap = 1089;

/// A button that sets one of the two numbers.
struct Preset {
  ControlId button;
  double value;
};
constexpr Preset kGridPresets[] = {
    {1090, 4.0}, {1081, 8.0}, {1078, 16.0}, {1079, 32.0}, {1080, 64.0}};
constexpr Preset kRotationPresets[] = {{1084, 15.0}, {1085, 30.0}, {1086, 45.0}, {1087, 60.0}};

}  // namespace

CGridSettingsDlg::CGridSettingsDlg(CZANDODoc& document)
    : document_(document),
      settings_(GridSettingsOf(document)),
      degrees_(UnitsToDegrees(settings_.rotationSnap)) {}

void CGridSettingsDlg::Run(CDesktop& desktop) {
  if (desktop.DoModal(*this) != IDOK) {
    SetGridSettings(document_, GridSettingsOf(document_));
    return;
  }
  // Degrees that nobody changed keep the units that they came from.
  if (degrees_ != UnitsToDegrees(settings_.rotationSnap)) {
    settings_.rotationSnap = DegreesToUnits(degrees_);
  }
  SetGridSettings(document_, settings_);
}

void CGridSettingsDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(kGridSize, settings_.size);
  exchange.MinMax(kGridSize, settings_.size, kSmallestGrid, kLargestGrid);
  exchange.Text(kRotationSnap, degrees_);
  exchange.Check(kCoarseGrid, settings_.showCoarse);
  exchange.Check(kFineGrid, settings_.showFine);
  exchange.Check(kUseRotationSnap, settings_.useRotationSnap);
}

/// A preset takes what the fields hold first; a field that fails is told of, and passed over.
void CGridSettingsDlg::OnButton(ControlId id) {
  const auto apply = [&](const auto& presets, double& value) {
    for (const Preset& preset : presets) {
      if (preset.button != id) continue;
      UpdateData(CDataExchange::Direction::FromControls);
      value = preset.value;
      UpdateData(CDataExchange::Direction::ToControls);
    }
  };
  apply(kGridPresets, settings_.size);
  apply(kRotationPresets, degrees_);
}

}  // namespace zando
