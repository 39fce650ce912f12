#pragma once

#include <cstdint>

#include "document/zando_doc.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Shows and edits the keys of worldspawn that a level has beside those of every map. Everything
/// takes effect at once.
class CWorldKeysDlg : public CDialog {
 public:
  explicit CWorldKeysDlg(CZANDODoc& document) : document_(document) {}

  void Run(CDesktop& desktop) { desktop.DoModal(*this); }

  [[nodiscard]] std::int32_t TemplateId() const override { return 201; }
  void OnSelectionChange(ControlId list) override;

 protected:
  void DoDataExchange(CDataExchange& /*exchange*/) override {}
  void OnInitDialog() override;
  void OnButton(ControlId id) override;

 private:
  /// Lists the keys, and shows the one at the index.
  void Refresh(std::int32_t selection);
  void ShowPair();
  void Set();

  CZANDODoc& document_;
};

}  // namespace zando
