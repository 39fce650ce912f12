#pragma once

#include <cstdint>

#include "entities/class_defaults.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Asks for a class of the game's entities.
class CSelectClassnameDlg : public CDialog {
 public:
  /// The class chosen last, whatever ended the dialog; null for none.
  [[nodiscard]] const ClassDefaults* Run(CDesktop& desktop);

  [[nodiscard]] std::int32_t TemplateId() const override { return 144; }
  void OnSelectionChange(ControlId list) override;
  void OnDoubleClick(ControlId list) override;

 protected:
  void DoDataExchange(CDataExchange& /*exchange*/) override {}
  void OnInitDialog() override;

 private:
  std::int32_t chosen_ = -1;  ///< index in the table of classes
};

}  // namespace zando
