#pragma once

#include <cstdint>
#include <optional>

#include "dialogs/primitive_dlg.h"
#include "primitives/spheroid.h"

namespace zando {

/// Asks for a spheroid, again and again while it has more horizontal stripes than vertical ones.
class CCreateSpheroidDlg : public CPrimitiveDlg<SpheroidParameters> {
 public:
  using CPrimitiveDlg::CPrimitiveDlg;

  [[nodiscard]] std::optional<SpheroidParameters> Run(CDesktop& desktop);

  [[nodiscard]] std::int32_t TemplateId() const override { return 136; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnInitDialog() override { ShowPicture(parameters_.Style); }
  void OnButton(ControlId id) override;

 private:
  void ShowPicture(std::int32_t style);
};

}  // namespace zando
