#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/draw_context.h"

namespace zando {

/// Controls are named by the numbers of their dialog's form; these two mean the same in all.
using ControlId = std::int32_t;
inline constexpr ControlId IDOK = 1;
inline constexpr ControlId IDCANCEL = 2;

/// The window of a dialog as its logic sees it: controls by number. A number that the form does not
/// have reads as empty, and what is sent to it is lost.
class CDialogForm {
 public:
  CDialogForm() = default;
  CDialogForm(const CDialogForm&) = delete;
  CDialogForm& operator=(const CDialogForm&) = delete;
  virtual ~CDialogForm() = default;

  [[nodiscard]] virtual std::string GetText(ControlId id) const = 0;
  virtual void SetText(ControlId id, std::string_view text) = 0;

  [[nodiscard]] virtual bool IsChecked(ControlId id) const = 0;
  virtual void SetChecked(ControlId id, bool checked) = 0;

  /// A list keeps a number with each line, and sorts the lines by their text, ignoring case. One
  /// that is told not to sort, while it is empty, keeps them in the order in which they come.
  virtual void SetSorted(ControlId id, bool sorted) = 0;
  virtual void ClearList(ControlId id) = 0;
  virtual void AddLine(ControlId id, std::string_view text, std::int32_t data) = 0;
  /// The number of the selected line, or -1 when none is selected.
  [[nodiscard]] virtual std::int32_t SelectedLine(ControlId id) const = 0;
  /// Selects the line with this number; none when there is no such line.
  virtual void SelectLine(ControlId id, std::int32_t data) = 0;

  /// Shows one of the program's pictures, by its name, in a picture control.
  virtual void SetPicture(ControlId id, std::string_view name) = 0;

  /// The colour of a colour button, 0x00BBGGRR.
  [[nodiscard]] virtual ColorRef GetColor(ControlId id) const = 0;
  virtual void SetColor(ControlId id, ColorRef color) = 0;

  virtual void Show(ControlId id, bool visible) = 0;
  virtual void Enable(ControlId id, bool enabled) = 0;

  /// Puts the keyboard focus there; the text of a field is selected, so that typing replaces it.
  virtual void SetFocus(ControlId id) = 0;

  /// A progress bar reaches from `low` to `high`, 0 to 100 at first. A new position, which is kept
  /// within them, is seen before the call returns.
  virtual void SetProgressRange(ControlId id, std::int32_t low, std::int32_t high) = 0;
  virtual void SetProgressPos(ControlId id, std::int32_t position) = 0;

  /// Lets the window paint and tell what the user does, in the middle of long work of the dialog.
  virtual void HandleEvents() {}

  /// Tells the user what is wrong with a field, and puts the focus there.
  virtual void ReportError(ControlId id, std::string_view message) = 0;

  /// Ends the dialog with a result.
  virtual void Close(ControlId result) = 0;
};

/// Carries values between the controls of a form and the members of a dialog, one way or the other.
/// The first field that fails ends an exchange from the controls: the user is told what is allowed,
/// and that field and those after it keep the members' values.
class CDataExchange {
 public:
  enum class Direction { ToControls, FromControls };

  CDataExchange(CDialogForm& form, Direction direction) : form_(form), direction_(direction) {}

  /// Numbers are decimal, in every locale with a point, with blanks around them allowed.
  void Text(ControlId id, double& value);
  void Text(ControlId id, std::int32_t& value);
  void Text(ControlId id, std::string& value);

  /// 0 or 1.
  void Check(ControlId id, std::int32_t& value);

  /// The index of the checked one of `count` buttons with consecutive numbers; -1 for none.
  void Radio(ControlId first, std::int32_t count, std::int32_t& value);

  /// Checks the value that Text has just brought from the control `id`; a value out of range is
  /// not kept.
  void MinMax(ControlId id, double value, double low, double high);
  void MinMax(ControlId id, std::int32_t value, std::int32_t low, std::int32_t high);

  [[nodiscard]] bool Failed() const { return failed_; }
  [[nodiscard]] bool IsSaving() const { return direction_ == Direction::FromControls; }

 private:
  void Fail(ControlId id, std::string_view message);
  void FailRange(ControlId id, std::string_view message);

  CDialogForm& form_;
  Direction direction_;
  bool failed_ = false;
  std::function<void()> takeBack_;  ///< gives the member of the last number its old value
};

/// The logic of a modal dialog: its values, their exchange with the controls, and what its buttons
/// do. It knows no window; the desktop builds one from the form of this number and calls back.
class CDialog {
 public:
  CDialog() = default;
  CDialog(const CDialog&) = delete;
  CDialog& operator=(const CDialog&) = delete;
  virtual ~CDialog() = default;

  /// The number of the form.
  [[nodiscard]] virtual std::int32_t TemplateId() const = 0;

  /// Called by the desktop once the form stands: fills the controls from the members.
  void Attach(CDialogForm& form);

  /// Called by the desktop when the form is gone.
  void Detach() { form_ = nullptr; }

  /// A push button or a radio button or check box was clicked. OK exchanges and closes unless a
  /// field fails; Cancel closes.
  void Click(ControlId id);

  /// The selection of a list changed, or a line of it was clicked twice.
  virtual void OnSelectionChange(ControlId /*list*/) {}
  virtual void OnDoubleClick(ControlId /*list*/) {}

  /// What shows while the pointer rests on the line with this number; nothing when it is empty.
  [[nodiscard]] virtual std::string LineTip(ControlId /*list*/, std::int32_t /*line*/) {
    return {};
  }

  /// The user changed the text of a field.
  virtual void OnChange(ControlId /*field*/) {}

  /// The user left a field that had the focus: for another control, or by a button, which acts
  /// after this. Cancelling with the keyboard leaves no field.
  virtual void OnKillFocus(ControlId /*field*/) {}

  /// Exchanges all values; false when a field failed.
  bool UpdateData(CDataExchange::Direction direction);

 protected:
  virtual void DoDataExchange(CDataExchange& exchange) = 0;

  /// After the controls were filled for the first time.
  virtual void OnInitDialog() {}

  /// Any button but OK and Cancel.
  virtual void OnButton(ControlId /*id*/) {}
  virtual void OnOK();
  virtual void OnCancel();

  /// The window, while the dialog runs.
  [[nodiscard]] CDialogForm& Form() { return *form_; }

 private:
  CDialogForm* form_ = nullptr;
};

}  // namespace zando
