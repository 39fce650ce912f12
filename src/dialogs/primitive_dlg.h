#pragma once

#include <cstdint>
#include <optional>

#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Controls that the forms of several primitives have.
namespace primitive_controls {
inline constexpr ControlId kSolidButton = 1014;
inline constexpr ControlId kHollowButton = 1015;
inline constexpr ControlId kYSize = 1017;
inline constexpr ControlId kWallThickness = 1019;
inline constexpr ControlId kPicture = 1020;
inline constexpr ControlId kDefaultsButton = 1043;
}  // namespace primitive_controls

/// What the dialogs of all primitives have in common: they start from the parameters last used,
/// give those that were agreed to, and have a button that brings back the defaults.
template <typename Primitive>
class CPrimitiveDlg : public CDialog {
 public:
  using Parameters = Primitive;

  explicit CPrimitiveDlg(const Parameters& lastUsed) : parameters_(lastUsed), lastUsed_(lastUsed) {}

  /// Asks for the parameters; none when the user cancelled.
  [[nodiscard]] std::optional<Parameters> Run(CDesktop& desktop) {
    if (desktop.DoModal(*this) != IDOK) return std::nullopt;
    lastUsed_ = parameters_;
    return parameters_;
  }

  /// What was last left with OK, for the next dialog.
  [[nodiscard]] const Parameters& LastUsed() const { return lastUsed_; }

 protected:
  /// Shows the parameters that a new object has.
  void ShowDefaults() {
    parameters_ = Parameters();
    UpdateData(CDataExchange::Direction::ToControls);
  }

  // NOLINTNEXTLINE(cppcoreguidelines-non-private-member-variables-in-classes): exchanged by name
  Parameters parameters_;

 private:
  Parameters lastUsed_;
};

/// The dialog of a primitive that is solid or hollow, with a picture of each.
template <typename Parameters>
class CStyledPrimitiveDlg : public CPrimitiveDlg<Parameters> {
 public:
  using CPrimitiveDlg<Parameters>::CPrimitiveDlg;

 protected:
  /// The names of the pictures.
  [[nodiscard]] virtual const char* SolidPicture() const = 0;
  [[nodiscard]] virtual const char* HollowPicture() const = 0;

  void OnInitDialog() override { ShowPicture(this->parameters_.Style); }

  void OnButton(ControlId id) override {
    using namespace primitive_controls;
    if (id == kSolidButton) ShowPicture(Parameters::kSolid);
    if (id == kHollowButton) ShowPicture(Parameters::kHollow);
    if (id != kDefaultsButton) return;
    this->ShowDefaults();
    ShowPicture(this->parameters_.Style);
  }

 private:
  void ShowPicture(std::int32_t style) {
    this->Form().SetPicture(primitive_controls::kPicture,
                            style == Parameters::kSolid ? SolidPicture() : HollowPicture());
  }
};

}  // namespace zando
