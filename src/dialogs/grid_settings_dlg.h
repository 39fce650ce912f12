#pragma once

#include <cstdint>

#include "document/view_edits.h"
#include "document/zando_doc.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Shows and changes the grid of a level and the step to which rotations snap.
class CGridSettingsDlg : public CDialog {
 public:
  explicit CGridSettingsDlg(CZANDODoc& document);

  /// Asks, and gives the level the settings that were agreed to.
  void Run(CDesktop& desktop);

  [[nodiscard]] std::int32_t TemplateId() const override { return 141; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnButton(ControlId id) override;

 private:
  CZANDODoc& document_;
  GridSettings settings_;
  double degrees_;  ///< of the rotation snap
};

}  // namespace zando
