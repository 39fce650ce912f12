#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/dialog.h"
#include "platform/text.h"

namespace zando::testing {

/// A dialog's window made of maps, and the person in front of it: types, presses, chooses.
class CFakeForm : public CDialogForm {
 public:
  struct Line {
    std::string text;
    std::int32_t data;
  };
  struct Progress {
    std::int32_t low = 0, high = 100, position = 0;
  };
  mutable std::map<ControlId, std::string> Texts;
  mutable std::map<ControlId, bool> Checks;
  mutable std::map<ControlId, std::vector<Line>> Lists;
  mutable std::map<ControlId, std::int32_t> Selections;
  std::map<ControlId, std::string> Pictures;
  mutable std::map<ControlId, ColorRef> Colors;
  std::map<ControlId, Progress> Bars;
  std::set<ControlId> Hidden, Disabled;
  std::string Error;  ///< the last one
  ControlId Focus = 0;
  ControlId Result = 0;                ///< 0 while the dialog is open
  std::function<void()> WhileWorking;  ///< what the person does during long work

  explicit CFakeForm(CDialog& dialog) : dialog_(dialog) { dialog_.Attach(*this); }
  ~CFakeForm() override { dialog_.Detach(); }

  void Type(ControlId id, std::string_view text) {
    if (entered_ != id) LeaveField();
    entered_ = Focus = id;
    Texts[id] = text;
    dialog_.OnChange(id);
  }

  void Press(ControlId id) {
    ASSERT_EQ(Result, 0) << "the dialog is closed";
    ASSERT_FALSE(Disabled.contains(id)) << "the button is disabled";
    if (id == IDCANCEL) entered_ = 0;
    LeaveField();
    dialog_.Click(id);
  }

  /// A radio button of the group of `count` from `first` on.
  void PressRadio(ControlId first, std::int32_t count, ControlId id) {
    for (std::int32_t i = 0; i < count; ++i) Checks[first + i] = first + i == id;
    Press(id);
  }

  void Choose(ControlId list, std::string_view text) {
    LeaveField();
    Focus = list;
    Selections[list] = DataOf(list, text);
    dialog_.OnSelectionChange(list);
  }

  void DoubleClick(ControlId list, std::string_view text) {
    if (!text.empty() && Selections[list] != DataOf(list, text)) Choose(list, text);
    dialog_.OnDoubleClick(list);
  }

  [[nodiscard]] std::string TipOf(ControlId list, std::string_view text) const {
    return dialog_.LineTip(list, DataOf(list, text));
  }

  [[nodiscard]] std::vector<std::string> LinesOf(ControlId list) const {
    std::vector<std::string> texts;
    for (const Line& line : Lists[list]) texts.push_back(line.text);
    return texts;
  }

  [[nodiscard]] std::string GetText(ControlId id) const override { return Texts[id]; }
  void SetText(ControlId id, std::string_view text) override { Texts[id] = text; }
  [[nodiscard]] bool IsChecked(ControlId id) const override { return Checks[id]; }
  void SetChecked(ControlId id, bool checked) override { Checks[id] = checked; }
  void SetSorted(ControlId id, bool sorted) override {
    sorted ? void(unsorted_.erase(id)) : void(unsorted_.insert(id));
  }
  void ClearList(ControlId id) override {
    Lists[id].clear();
    Selections[id] = -1;
  }
  void AddLine(ControlId id, std::string_view text, std::int32_t data) override {
    Lists[id].push_back({std::string(text), data});
    if (unsorted_.contains(id)) return;
    std::stable_sort(Lists[id].begin(), Lists[id].end(), [](const Line& a, const Line& b) {
      return std::lexicographical_compare(
          a.text.begin(), a.text.end(), b.text.begin(), b.text.end(),
          [](char x, char y) { return LowerCase(x) < LowerCase(y); });
    });
  }
  [[nodiscard]] std::int32_t SelectedLine(ControlId id) const override {
    return Selections.try_emplace(id, -1).first->second;
  }
  void SelectLine(ControlId id, std::int32_t data) override {
    const auto found = std::ranges::find(Lists[id], data, &Line::data);
    Selections[id] = found != Lists[id].end() ? data : -1;
  }
  void SetPicture(ControlId id, std::string_view name) override { Pictures[id] = name; }
  [[nodiscard]] ColorRef GetColor(ControlId id) const override { return Colors[id]; }
  void SetColor(ControlId id, ColorRef color) override { Colors[id] = color; }
  void Show(ControlId id, bool visible) override {
    visible ? void(Hidden.erase(id)) : void(Hidden.insert(id));
  }
  void Enable(ControlId id, bool enabled) override {
    enabled ? void(Disabled.erase(id)) : void(Disabled.insert(id));
  }
  void SetFocus(ControlId id) override {
    if (entered_ != id) LeaveField();
    Focus = id;
    if (Texts.contains(id)) entered_ = id;
  }
  void SetProgressRange(ControlId id, std::int32_t low, std::int32_t high) override {
    Bars[id] = {low, high, low};
  }
  void SetProgressPos(ControlId id, std::int32_t position) override {
    Bars[id].position = std::clamp(position, Bars[id].low, Bars[id].high);
  }
  void HandleEvents() override {
    if (WhileWorking) WhileWorking();
  }
  void ReportError(ControlId id, std::string_view message) override {
    Error = message;
    Focus = id;
  }
  void Close(ControlId result) override { Result = result; }

 private:
  [[nodiscard]] std::int32_t DataOf(ControlId list, std::string_view text) const {
    const auto found = std::ranges::find(Lists[list], text, &Line::text);
    EXPECT_NE(found, Lists[list].end()) << "no line " << text;
    return found != Lists[list].end() ? found->data : -1;
  }

  void LeaveField() {
    const ControlId field = std::exchange(entered_, 0);
    if (field != 0 && Result == 0) dialog_.OnKillFocus(field);
  }

  CDialog& dialog_;
  ControlId entered_ = 0;  ///< the field that has the focus, or 0
  std::set<ControlId> unsorted_;
};

/// For CScriptedDesktop::Dialogs: what the person does in front of a dialog. One who leaves it open
/// is taken to cancel it.
inline std::function<ControlId(CDialog&)> InDialog(std::function<void(CFakeForm&)> person) {
  return [person = std::move(person)](CDialog& dialog) {
    CFakeForm form(dialog);
    person(form);
    if (form.Result == 0) form.Press(IDCANCEL);
    return form.Result;
  };
}

}  // namespace zando::testing
