#pragma once

#include <cstdint>

#include "dialogs/primitive_dlg.h"
#include "primitives/cylinder.h"

namespace zando {

/// Asks for a cylinder.
class CCreateCylinderDlg : public CPrimitiveDlg<CylinderParameters> {
 public:
  using CPrimitiveDlg::CPrimitiveDlg;

  [[nodiscard]] std::int32_t TemplateId() const override { return 139; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnInitDialog() override;
  void OnButton(ControlId id) override;
};

}  // namespace zando
