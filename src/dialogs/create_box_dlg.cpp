#include "dialogs/create_box_dlg.h"

namespace zando {
namespace {

constexpr ControlId kSolidButton = 1014;
constexpr ControlId kHollowButton = 1015;
constexpr ControlId kYSize = 1017;
constexpr ControlId kWallThickness = 1019;
constexpr ControlId kPicture = 1020;
constexpr ControlId kBottomXSize = 1023;
constexpr ControlId kBottomZSize = 1024;
constexpr ControlId kDefaultsButton = 1043;
constexpr ControlId kTopXSize = 1071;
constexpr ControlId kTopZSize = 1072;

}  // namespace

void CCreateBoxDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(kYSize, parameters_.YSize);
  exchange.Radio(kSolidButton, 2, parameters_.Style);
  exchange.Text(kWallThickness, parameters_.WallThickness);
  exchange.Text(kBottomXSize, parameters_.BottomXSize);
  exchange.Text(kTopXSize, parameters_.TopXSize);
  exchange.Text(kBottomZSize, parameters_.BottomZSize);
  exchange.Text(kTopZSize, parameters_.TopZSize);
}

void CCreateBoxDlg::OnButton(ControlId id) {
  switch (id) {
    case kSolidButton:
      ShowPicture(BoxParameters::kSolid);
      break;
    case kHollowButton:
      ShowPicture(BoxParameters::kHollow);
      break;
    case kDefaultsButton:
      ShowDefaults();
      ShowPicture(parameters_.Style);
      break;
    default:
      break;
  }
}

void CCreateBoxDlg::ShowPicture(std::int32_t style) {
  Form().SetPicture(kPicture, style == BoxParameters::kSolid ? "solid_box" : "hollow_box");
}

}  // namespace zando
