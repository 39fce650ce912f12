#pragma once

#include <cstdint>
#include <vector>

#include "entities/group.h"
#include "geometry/brush.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Names, colours and shows the groups of a level. A group is changed as soon as another one is
/// chosen, or twice clicked; that stays when the dialog is cancelled.
class CGroupAttributesDlg : public CDialog {
 public:
  /// Starts at group `current` (-1 for none) and returns the one chosen last, whatever closed the
  /// dialog. `firstBrush` heads the brush list; null for an empty one.
  std::int32_t Run(std::vector<CBGroup>& groups, std::int32_t current, CZandoBrush* firstBrush,
                   CDesktop& desktop);

  [[nodiscard]] std::int32_t TemplateId() const override { return 145; }
  void OnSelectionChange(ControlId list) override;
  void OnDoubleClick(ControlId list) override;

 protected:
  void DoDataExchange(CDataExchange& /*exchange*/) override {}
  void OnInitDialog() override { FillGroups(); }
  void OnButton(ControlId id) override;
  void OnOK() override;

 private:
  [[nodiscard]] CBGroup* Selected();
  void FillGroups();
  void FillFields();
  bool ApplyFields();

  std::vector<CBGroup>* groups_ = nullptr;
  std::int32_t selected_ = -1;
  CZandoBrush* firstBrush_ = nullptr;
  CDesktop* desktop_ = nullptr;
};

}  // namespace zando
