#pragma once

#include <cstdint>

#include "dialogs/primitive_dlg.h"
#include "primitives/box.h"

namespace zando {

/// Asks for a box.
class CCreateBoxDlg : public CStyledPrimitiveDlg<BoxParameters> {
 public:
  using CStyledPrimitiveDlg::CStyledPrimitiveDlg;

  [[nodiscard]] std::int32_t TemplateId() const override { return 133; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  [[nodiscard]] const char* SolidPicture() const override { return "solid_box"; }
  [[nodiscard]] const char* HollowPicture() const override { return "hollow_box"; }
};

}  // namespace zando
