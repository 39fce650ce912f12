#pragma once

#include <cstdint>

#include "dialogs/primitive_dlg.h"
#include "primitives/box.h"

namespace zando {

/// Asks for a box.
class CCreateBoxDlg : public CPrimitiveDlg<BoxParameters> {
 public:
  using CPrimitiveDlg::CPrimitiveDlg;

  [[nodiscard]] std::int32_t TemplateId() const override { return 133; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnInitDialog() override { ShowPicture(parameters_.Style); }
  void OnButton(ControlId id) override;

 private:
  void ShowPicture(std::int32_t style);
};

}  // namespace zando
