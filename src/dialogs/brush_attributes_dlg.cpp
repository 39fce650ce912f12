#include "dialogs/brush_attributes_dlg.h"

#include "document/brush_edits.h"
#include "geometry/transform.h"

namespace zando {
namespace {

constexpr ControlId kResetAll = 1000;
constexpr ControlId kPositionX = 1001;
constexpr ControlId kPositionY = 1003;
constexpr ControlId kPositionZ = 1004;
constexpr ControlId kYaw = 1005;
constexpr ControlId kPitch = 1006;
constexpr ControlId kRoll = 1007;
constexpr ControlId kScaleX = 1008;
constexpr ControlId kScaleY = 1009;
constexpr ControlId kScaleZ = 1010;
constexpr ControlId kResetPosition = 1011;
constexpr ControlId kResetRotation = 1012;
constexpr ControlId kResetScale = 1013;
constexpr ControlId kShearX = 1014;
constexpr ControlId kShearY = 1015;
constexpr ControlId kShearZ = 1016;
constexpr ControlId kResetShear = 1017;
constexpr ControlId kName = 1068;

constexpr Vector kZero{0.0, 0.0, 0.0};
constexpr Vector kOne{1.0, 1.0, 1.0};

Vector ToDegrees(const Vector& units) {
  return {UnitsToDegrees(units.x), UnitsToDegrees(units.y), UnitsToDegrees(units.z)};
}

/// Degrees that nobody changed give the units that they came from, to the last bit.
double ToUnits(double degrees, double before) {
  return degrees == UnitsToDegrees(before) ? before : DegreesToUnits(degrees);
}

}  // namespace

CBrushAttributesDlg::CBrushAttributesDlg(CZANDODoc& document, std::int32_t brush, std::size_t slot)
    : document_(document), brush_(brush), slot_(slot) {
  const BrushAttributes attributes = AttributesOf(document, brush, slot);
  position_ = attributes.position;
  degrees_ = ToDegrees(attributes.rotation);
  scale_ = attributes.scale;
  shear_ = attributes.shear;
  name_ = attributes.name;
}

bool CBrushAttributesDlg::Run(CDesktop& desktop) {
  if (desktop.DoModal(*this) != IDOK) return false;
  const Vector before = AttributesOf(document_, brush_, slot_).rotation;
  const Vector rotation{ToUnits(degrees_.x, before.x), ToUnits(degrees_.y, before.y),
                        ToUnits(degrees_.z, before.z)};
  SetBrushAttributes(document_, brush_, slot_, {position_, rotation, scale_, shear_, name_});
  return true;
}

void CBrushAttributesDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(kPositionX, position_.x);
  exchange.Text(kPositionY, position_.y);
  exchange.Text(kPositionZ, position_.z);
  exchange.Text(kYaw, degrees_.x);
  exchange.Text(kPitch, degrees_.y);
  exchange.Text(kRoll, degrees_.z);
  exchange.Text(kScaleX, scale_.x);
  exchange.Text(kScaleY, scale_.y);
  exchange.Text(kScaleZ, scale_.z);
  exchange.Text(kShearZ, shear_.z);
  exchange.Text(kShearX, shear_.x);
  exchange.Text(kShearY, shear_.y);
  exchange.Text(kName, name_);
}

/// The name is also that of the faces' texture in an exported map, where a blank would end it. One
/// that nobody touched is as it came.
void CBrushAttributesDlg::OnOK() {
  const std::string before = AttributesOf(document_, brush_, slot_).name;
  if (!UpdateData(CDataExchange::Direction::FromControls)) return;
  if (name_ == before || IsBrushName(name_)) {
    Form().Close(IDOK);
  } else {
    Form().ReportError(kName, "Please enter a name without blanks.");
  }
}

/// Each reset takes what the fields hold first; a field that fails is told of, and passed over.
void CBrushAttributesDlg::OnButton(ControlId id) {
  const bool all = id == kResetAll;
  UpdateData(CDataExchange::Direction::FromControls);
  if (all || id == kResetPosition) position_ = kZero;
  if (all || id == kResetRotation) degrees_ = kZero;
  if (all || id == kResetScale) scale_ = kOne;
  if (all || id == kResetShear) shear_ = kZero;
  UpdateData(CDataExchange::Direction::ToControls);
}

}  // namespace zando
