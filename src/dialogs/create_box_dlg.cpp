#include "dialogs/create_box_dlg.h"

namespace zando {
namespace {

constexpr ControlId kYSize = 1017;
constexpr ControlId kWallThickness = 1019;
constexpr ControlId kBottomXSize = 1023;
constexpr ControlId kBottomZSize = 1024;
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

}  // namespace zando
