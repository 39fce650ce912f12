#include "dialogs/create_spheroid_dlg.h"

namespace zando {
namespace {

constexpr ControlId kXSize = 1016;
constexpr ControlId kZSize = 1018;
constexpr ControlId kVerticalStripes = 1021;
constexpr ControlId kHorizontalStripes = 1022;

}  // namespace

std::optional<SpheroidParameters> CCreateSpheroidDlg::Run(CDesktop& desktop) {
  auto agreed = CPrimitiveDlg::Run(desktop);
  while (agreed && !agreed->HasEnoughVerticalStripes()) {
    desktop.ShowMessage("There must be more vertical bands!");
    agreed = CPrimitiveDlg::Run(desktop);
  }
  return agreed;
}

void CCreateSpheroidDlg::DoDataExchange(CDataExchange& exchange) {
  using namespace primitive_controls;
  SpheroidParameters& p = parameters_;
  exchange.Text(kHorizontalStripes, p.HorizontalStripes);
  exchange.MinMax(kHorizontalStripes, p.HorizontalStripes, SpheroidParameters::kFewestHorizontal,
                  SpheroidParameters::kMostStripes);
  exchange.Text(kVerticalStripes, p.VerticalStripes);
  exchange.MinMax(kVerticalStripes, p.VerticalStripes, SpheroidParameters::kFewestVertical,
                  SpheroidParameters::kMostStripes);
  exchange.Text(kXSize, p.XSize);
  exchange.Text(kYSize, p.YSize);
  exchange.Text(kZSize, p.ZSize);
  exchange.Radio(kSolidButton, 2, p.Style);
  exchange.Text(kWallThickness, p.WallThickness);
}

}  // namespace zando
