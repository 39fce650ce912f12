#pragma once

#include <cstdint>
#include <string>

#include "document/zando_doc.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Shows and changes the placement and the name of one brush.
class CBrushAttributesDlg : public CDialog {
 public:
  /// Starts with the values of one slot of the brush, angles in degrees.
  CBrushAttributesDlg(CZANDODoc& document, std::int32_t brush, std::size_t slot);

  /// Asks, and gives the brush the values that were agreed to; false when the user cancelled.
  bool Run(CDesktop& desktop);

  [[nodiscard]] std::int32_t TemplateId() const override { return 132; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnButton(ControlId id) override;
  void OnOK() override;

 private:
  CZANDODoc& document_;
  std::int32_t brush_;  ///< its id
  std::size_t slot_;
  Vector position_{0.0, 0.0, 0.0};
  Vector degrees_{0.0, 0.0, 0.0};  ///< yaw, pitch, roll
  Vector scale_{0.0, 0.0, 0.0};
  Vector shear_{0.0, 0.0, 0.0};
  std::string name_;
};

}  // namespace zando
