#include "dialogs/create_staircase_dlg.h"

namespace zando {
namespace {

constexpr ControlId kMakeRamp = 1066;
constexpr ControlId kHeight = 1073;
constexpr ControlId kWidth = 1074;
constexpr ControlId kLength = 1075;
constexpr ControlId kNumberOfStairs = 1076;

}  // namespace

void CCreateStaircaseDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(kHeight, parameters_.Height);
  exchange.Text(kLength, parameters_.Length);
  exchange.Text(kNumberOfStairs, parameters_.NumberOfStairs);
  exchange.Text(kWidth, parameters_.Width);
  exchange.Check(kMakeRamp, parameters_.MakeRamp);
}

void CCreateStaircaseDlg::OnOK() {
  if (!UpdateData(CDataExchange::Direction::FromControls)) return;
  const std::string problem = Check(parameters_);
  if (problem.empty()) {
    Form().Close(IDOK);
  } else {
    Form().ReportError(kNumberOfStairs, problem);
  }
}

}  // namespace zando
