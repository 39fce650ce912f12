#include "primitives/create_box_dlg.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zando {
namespace {

struct HalfSizes {
  double topX;
  double topZ;
  double bottomX;
  double bottomZ;
  double y;

  [[nodiscard]] HalfSizes Inset(double wall) const {
    return {topX - wall, topZ - wall, bottomX - wall, bottomZ - wall, y - wall};
  }
};

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

using Corners = std::array<Vector, 8>;

/// Four corners each: top, bottom, +Z, -Z, -X, +X.
constexpr std::array<std::array<std::size_t, 4>, 6> kFaces{{
    {0, 1, 2, 3},
    {4, 5, 6, 7},
    {1, 7, 6, 2},
    {0, 3, 5, 4},
    {0, 4, 7, 1},
    {3, 2, 6, 5},
}};

Corners CornersOf(const HalfSizes& half) {
  return {{
      {-half.topX, half.y, -half.topZ},
      {-half.topX, half.y, half.topZ},
      {half.topX, half.y, half.topZ},
      {half.topX, half.y, -half.topZ},
      {-half.bottomX, -half.y, -half.bottomZ},
      {half.bottomX, -half.y, -half.bottomZ},
      {half.bottomX, -half.y, half.bottomZ},
      {-half.bottomX, -half.y, half.bottomZ},
  }};
}

}  // namespace

void CCreateBoxDlg::SetDefaults() { static_cast<BoxParameters&>(*this) = BoxParameters(); }

bool CCreateBoxDlg::Run(CZandoBrush& brush, CDesktop& desktop) {
  const BoxParameters before = static_cast<const BoxParameters&>(*this);
  if (desktop.DoModal(*this) != IDOK) {
    static_cast<BoxParameters&>(*this) = before;
    return false;
  }
  Generate(brush);
  return true;
}

void CCreateBoxDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(kYSize, YSize);
  exchange.Radio(kSolidButton, 2, Style);
  exchange.Text(kWallThickness, WallThickness);
  exchange.Text(kBottomXSize, BottomXSize);
  exchange.Text(kTopXSize, TopXSize);
  exchange.Text(kBottomZSize, BottomZSize);
  exchange.Text(kTopZSize, TopZSize);
}

void CCreateBoxDlg::OnButton(ControlId id) {
  switch (id) {
    case kSolidButton:
      ShowPicture(kSolid);
      break;
    case kHollowButton:
      ShowPicture(kHollow);
      break;
    case kDefaultsButton:
      SetDefaults();
      ShowPicture(Style);
      UpdateData(CDataExchange::Direction::ToControls);
      break;
    default:
      break;
  }
}

void CCreateBoxDlg::ShowPicture(std::int32_t style) {
  Form().SetPicture(kPicture, style == kSolid ? "solid_box" : "hollow_box");
}

void CCreateBoxDlg::Generate(CZandoBrush& brush) const {
  const bool hollow = Style != kSolid;
  const HalfSizes half{TopXSize / 2.0, TopZSize / 2.0, BottomXSize / 2.0, BottomZSize / 2.0,
                       YSize / 2.0};
  const Corners outer = CornersOf(half);
  const Corners inner = CornersOf(half.Inset(WallThickness));

  brush.SetPolyCount(static_cast<std::int32_t>(hollow ? 2 * kFaces.size() : kFaces.size()));
  for (std::size_t i = 0; i < kFaces.size(); ++i) {
    const auto& face = kFaces[i];
    CZandoPoly& shell = brush.Polys[i];
    shell.count = 0;
    for (const std::size_t corner : face) shell.Append(outer[corner]);
    if (!hollow) continue;
    CZandoPoly& cavity = brush.Polys[i + kFaces.size()];
    cavity.count = 0;
    for (const std::size_t corner : face) cavity.Append(inner[corner]);
    std::reverse(cavity.Vertices().begin(), cavity.Vertices().end());
  }
}

}  // namespace zando
