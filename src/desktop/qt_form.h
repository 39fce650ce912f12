#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "desktop/attempt.h"
#include "platform/dialog.h"

class QDialog;
class QLineEdit;
class QListWidget;
class QWidget;

namespace zando {

/// A dialog's window, built from the form of the dialog's number. Controls carry their own numbers
/// in the property "controlId".
class CQtForm : public CDialogForm {
 public:
  /// Puts the controls of a form into an empty window; false when there is no such form.
  using Builder = std::function<bool(std::int32_t templateId, QDialog& window)>;

  /// Fills the form from the dialog, which must outlive it.
  CQtForm(CDialog& dialog, QWidget* parent, Attempt attempt = RunUnguarded);
  CQtForm(CDialog& dialog, QWidget* parent, const Builder& build, Attempt attempt = RunUnguarded);
  CQtForm(const CQtForm&) = delete;
  CQtForm& operator=(const CQtForm&) = delete;
  ~CQtForm() override;

  [[nodiscard]] QDialog& Window();

  /// Shows the window until it closes; the number it closed with.
  ControlId Run();

  [[nodiscard]] std::string GetText(ControlId id) const override;
  void SetText(ControlId id, std::string_view text) override;
  [[nodiscard]] bool IsChecked(ControlId id) const override;
  void SetChecked(ControlId id, bool checked) override;
  void SetSorted(ControlId id, bool sorted) override;
  void ClearList(ControlId id) override;
  void AddLine(ControlId id, std::string_view text, std::int32_t data) override;
  [[nodiscard]] std::int32_t SelectedLine(ControlId id) const override;
  void SelectLine(ControlId id, std::int32_t data) override;
  void SetPicture(ControlId id, std::string_view name) override;
  [[nodiscard]] ColorRef GetColor(ControlId id) const override;
  void SetColor(ControlId id, ColorRef color) override;
  void Show(ControlId id, bool visible) override;
  void Enable(ControlId id, bool enabled) override;
  void SetFocus(ControlId id) override;
  void SetProgressRange(ControlId id, std::int32_t low, std::int32_t high) override;
  void SetProgressPos(ControlId id, std::int32_t position) override;
  void HandleEvents() override;
  void ReportError(ControlId id, std::string_view message) override;
  void Close(ControlId result) override;

 private:
  class CWindow;
  class CListEvents;
  class CFieldFocus;

  template <typename Control>
  [[nodiscard]] Control* Find(ControlId id) const;
  void ConnectControls();
  void ConnectField(ControlId id, QLineEdit& field);
  void ConnectList(ControlId id, QListWidget& list);
  void Click(ControlId id);
  void Cancel();
  void TellSelections();
  void LeaveField();

  CDialog& dialog_;
  Attempt attempt_;
  std::unique_ptr<CWindow> window_;
  std::map<ControlId, QWidget*> controls_;
  std::map<ControlId, int> scrolled_;  ///< where lists stood before they were emptied
  std::set<ControlId> unsorted_;
  std::set<ControlId> changedLists_;  ///< the dialog must still hear of their new selections
  std::optional<ControlId> entered_;  ///< the field that the dialog must still hear is left
  std::optional<ControlId> result_;   ///< once the dialog has closed
};

/// Runs the dialog over its parent window; the number it closed with.
ControlId RunModal(CDialog& dialog, QWidget* parent, Attempt attempt);

}  // namespace zando
