#pragma once

#include <optional>

#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// What the dialogs of all primitives have in common: they start from the parameters last used,
/// give those that were agreed to, and have a button that brings back the defaults.
template <typename Parameters>
class CPrimitiveDlg : public CDialog {
 public:
  explicit CPrimitiveDlg(const Parameters& lastUsed) : parameters_(lastUsed) {}

  /// Asks for the parameters; none when the user cancelled.
  [[nodiscard]] std::optional<Parameters> Run(CDesktop& desktop) {
    if (desktop.DoModal(*this) != IDOK) return std::nullopt;
    return parameters_;
  }

 protected:
  /// Shows the parameters that a new object has.
  void ShowDefaults() {
    parameters_ = Parameters();
    UpdateData(CDataExchange::Direction::ToControls);
  }

  // NOLINTNEXTLINE(cppcoreguidelines-non-private-member-variables-in-classes): exchanged by name
  Parameters parameters_;
};

}  // namespace zando
