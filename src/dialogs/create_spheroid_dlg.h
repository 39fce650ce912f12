#pragma once

#include <cstdint>
#include <optional>

#include "dialogs/primitive_dlg.h"
#include "primitives/spheroid.h"

namespace zando {

/// Asks for a spheroid, again and again while it has more horizontal stripes than vertical ones.
class CCreateSpheroidDlg : public CStyledPrimitiveDlg<SpheroidParameters> {
 public:
  using CStyledPrimitiveDlg::CStyledPrimitiveDlg;

  [[nodiscard]] std::optional<SpheroidParameters> Run(CDesktop& desktop);

  [[nodiscard]] std::int32_t TemplateId() const override { return 136; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  [[nodiscard]] const char* SolidPicture() const override { return "solid_spheroid"; }
  [[nodiscard]] const char* HollowPicture() const override { return "hollow_spheroid"; }
};

}  // namespace zando
