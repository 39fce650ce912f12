#include "dialogs/create_cylinder_dlg.h"

namespace zando {
namespace {

constexpr ControlId kStripes = 1021;
constexpr ControlId kTopXSize = 1025;
constexpr ControlId kTopXOffset = 1026;
constexpr ControlId kTopZOffset = 1027;
constexpr ControlId kBottomXSize = 1028;
constexpr ControlId kBottomZSize = 1029;
constexpr ControlId kBottomXOffset = 1030;
constexpr ControlId kBottomZOffset = 1031;
constexpr ControlId kTopZSize = 1032;

}  // namespace

void CCreateCylinderDlg::DoDataExchange(CDataExchange& exchange) {
  using namespace primitive_controls;
  CylinderParameters& p = parameters_;
  exchange.Text(kBottomXOffset, p.BottomXOffset);
  exchange.Text(kBottomXSize, p.BottomXSize);
  exchange.Text(kBottomZOffset, p.BottomZOffset);
  exchange.Text(kBottomZSize, p.BottomZSize);
  exchange.Radio(kSolidButton, 3, p.Style);
  exchange.Text(kWallThickness, p.WallThickness);
  exchange.MinMax(kWallThickness, p.WallThickness, CylinderParameters::kLeastWall,
                  CylinderParameters::kMostWall);
  exchange.Text(kTopXOffset, p.TopXOffset);
  exchange.Text(kTopXSize, p.TopXSize);
  exchange.Text(kTopZOffset, p.TopZOffset);
  exchange.Text(kTopZSize, p.TopZSize);
  exchange.Text(kStripes, p.Stripes);
  exchange.MinMax(kStripes, p.Stripes, CylinderParameters::kFewestStripes,
                  CylinderParameters::kMostStripes);
  exchange.Text(kYSize, p.YSize);
}

void CCreateCylinderDlg::OnInitDialog() {
  Form().SetPicture(primitive_controls::kPicture, "cylinder_parameters");
}

void CCreateCylinderDlg::OnButton(ControlId id) {
  if (id == primitive_controls::kDefaultsButton) ShowDefaults();
}

}  // namespace zando
