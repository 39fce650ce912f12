#include "dialogs/create_box_dlg.h"

namespace zando {
namespace {

constexpr ControlId kBottomX = 1023;
constexpr ControlId kBottomZ = 1024;
constexpr ControlId kTopX = 1071;
constexpr ControlId kTopZ = 1072;

}  // namespace

void CCreateBoxDlg::DoDataExchange(CDataExchange& exchange) {
  using namespace primitive_controls;
  exchange.Text(kYSize, parameters_.YSize);
  exchange.Radio(kSolidButton, 2, parameters_.Style);
  exchange.Text(kWallThickness, parameters_.WallThickness);
  exchange.Text(kBottomX, parameters_.BottomXSize);
  exchange.Text(kTopX, parameters_.TopXSize);
  exchange.Text(kBottomZ, parameters_.BottomZSize);
  exchange.Text(kTopZ, parameters_.TopZSize);
}

}  // namespace zando
