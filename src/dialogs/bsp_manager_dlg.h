#pragma once

#include <cstdint>

#include "document/world_edits.h"
#include "document/zando_doc.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Shows the size of a level's world and builds it anew. The figures are those of the world as it
/// stood when the dialog opened; a rebuild closes the dialog. While one runs, Cancel ends it, and
/// the world stays as it was.
class CBspManagerDlg : public CDialog {
 public:
  explicit CBspManagerDlg(CZANDODoc& document)
      : document_(document), counts_(document.GetLevel().World.Count()) {}

  [[nodiscard]] std::int32_t TemplateId() const override { return 142; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnInitDialog() override;
  void OnButton(ControlId id) override;
  void OnOK() override;
  void OnCancel() override;

 private:
  class CBar;

  void Rebuild(RebuildKind kind);
  void EnableButtons(bool enabled);

  CZANDODoc& document_;
  BspCounts counts_;
  std::int32_t buildWater_ = 0;
  bool running_ = false;
  bool cancelled_ = false;
};

}  // namespace zando
