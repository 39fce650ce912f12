#pragma once

#include <cstdint>
#include <string>

#include "document/zando_doc.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Creates, edits and deletes entities, and ties brushes to them. Everything takes effect at once;
/// closing the dialog ends it and no more.
class CEntityEditorDlg : public CDialog {
 public:
  CEntityEditorDlg(CZANDODoc& document, CDesktop& desktop)
      : document_(document), desktop_(desktop) {}

  /// Starts at the current entity, or at the first when there is none; the one edited last becomes
  /// current, and every origin is parsed anew. The level counts as modified after Close, else only
  /// when something was changed.
  void Run();

  [[nodiscard]] std::int32_t TemplateId() const override { return 143; }
  void OnSelectionChange(ControlId list) override;
  void OnKillFocus(ControlId field) override;

  /// Where an entity stands.
  [[nodiscard]] std::string LineTip(ControlId list, std::int32_t line) override;

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnInitDialog() override;
  void OnButton(ControlId id) override;

 private:
  /// The entity and the pair that are edited, or null.
  [[nodiscard]] const CEntity* Entity() const;
  [[nodiscard]] const EntityPair* Pair() const;

  void RefreshClasses();
  void RefreshPairs(std::int32_t selection);
  void ShowPair();
  void LeaveKey();
  void LeaveValue();
  void NewPair();
  void DeletePair();
  void NewEntity();
  void Add(CEntity entity);
  void DeleteCurrent();

  CZANDODoc& document_;
  CDesktop& desktop_;
  std::int32_t hideLights_ = 0;  ///< a check box that is not shown
  std::int32_t entity_ = 0;      ///< index, -1 for none
  std::int32_t pair_ = -1;
};

}  // namespace zando
