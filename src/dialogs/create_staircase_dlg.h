#pragma once

#include <cstdint>

#include "dialogs/primitive_dlg.h"
#include "primitives/staircase.h"

namespace zando {

/// Asks for a staircase or a ramp.
class CCreateStaircaseDlg : public CPrimitiveDlg<StaircaseParameters> {
 public:
  using CPrimitiveDlg::CPrimitiveDlg;

  [[nodiscard]] std::int32_t TemplateId() const override { return 146; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnOK() override;
};

}  // namespace zando
