#include "dialogs/create_spheroid_dlg.h"

namespace zando {
namespace {

constexpr ControlId kSolidButton = 1014;
constexpr ControlId kHollowButton = 1015;
constexpr ControlId kXSize = 1016;
constexpr ControlId kYSize = 1017;
constexpr ControlId kZSize = 1018;
constexpr ControlId kWallThickness = 1019;
constexpr ControlId kPicture = 1020;
constexpr ControlId kVerticalStripes = 1021;
constexpr ControlId kHorizontalStripes = 1022;
constexpr ControlId kDefaultsButton = 1043;

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

void CCreateSpheroidDlg::OnButton(ControlId id) {
  switch (id) {
    case kSolidButton:
      ShowPicture(SpheroidParameters::kSolid);
      break;
    case kHollowButton:
      ShowPicture(SpheroidParameters::kHollow);
      break;
    case kDefaultsButton:
      ShowDefaults();
      ShowPicture(parameters_.Style);
      break;
    default:
      break;
  }
}

void CCreateSpheroidDlg::ShowPicture(std::int32_t style) {
  Form().SetPicture(kPicture,
                    style == SpheroidParameters::kSolid ? "solid_spheroid" : "hollow_spheroid");
}

}  // namespace zando
