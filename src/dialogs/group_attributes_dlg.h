#pragma once

#include <cstdint>
#include <string>

#include "document/zando_doc.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Names, colours and shows the groups of a level. A group is changed as soon as another one is
/// chosen, or twice clicked; that stays when the dialog is cancelled.
class CGroupAttributesDlg : public CDialog {
 public:
  CGroupAttributesDlg(CZANDODoc& document, CDesktop& desktop)
      : document_(document), desktop_(desktop) {}

  /// Starts at the current group; the one chosen last becomes it, whatever closed the dialog. The
  /// level counts as modified after OK, else only when a group was changed.
  void Run();

  [[nodiscard]] std::int32_t TemplateId() const override { return 145; }
  void OnSelectionChange(ControlId list) override;
  void OnDoubleClick(ControlId list) override;

  /// Where a brush stands, and how large it is.
  [[nodiscard]] std::string LineTip(ControlId list, std::int32_t line) override;

 protected:
  void DoDataExchange(CDataExchange& /*exchange*/) override {}
  void OnInitDialog() override { FillGroups(); }
  void OnButton(ControlId id) override;
  void OnOK() override;

 private:
  [[nodiscard]] const CGroupList& Groups() const { return document_.GetLevel().Groups; }
  [[nodiscard]] const CBGroup* Selected() const;
  void FillGroups();
  void FillFields();
  void FillBrushes();
  bool ApplyFields();
  void EditBrush();

  CZANDODoc& document_;
  CDesktop& desktop_;
  std::int32_t selected_ = -1;
};

}  // namespace zando
