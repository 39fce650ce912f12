#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/dialog.h"

namespace zando::testing {

/// A dialog's window made of maps, and the person in front of it: types, presses, chooses.
class CFakeForm : public CDialogForm {
 public:
  struct Line {
    std::string text;
    std::int32_t data;
  };
  std::map<ControlId, std::string> Texts;
  std::map<ControlId, bool> Checks;
  std::map<ControlId, std::vector<Line>> Lists;
  std::map<ControlId, std::int32_t> Selections;
  std::map<ControlId, std::string> Pictures;
  std::map<ControlId, ColorRef> Colors;
  std::map<ControlId, bool> Visible;
  std::string Error;  ///< the last one
  ControlId Focus = 0;
  ControlId Result = 0;  ///< 0 while the dialog is open

  explicit CFakeForm(CDialog& dialog) : dialog_(dialog) { dialog_.Attach(*this); }
  ~CFakeForm() override { dialog_.Detach(); }

  void Type(ControlId id, std::string_view text) { Texts[id] = text; }

  void Press(ControlId id) {
    ASSERT_EQ(Result, 0) << "the dialog is closed";
    dialog_.Click(id);
  }

  /// A radio button of the group of `count` from `first` on.
  void PressRadio(ControlId first, std::int32_t count, ControlId id) {
    for (std::int32_t i = 0; i < count; ++i) Checks[first + i] = first + i == id;
    Press(id);
  }

  void Choose(ControlId list, std::string_view text) {
    Selections[list] = DataOf(list, text);
    dialog_.OnSelectionChange(list);
  }

  void DoubleClick(ControlId list, std::string_view text) {
    if (GetLine(list, Selections[list]) != text) Choose(list, text);
    dialog_.OnDoubleClick(list);
  }

  [[nodiscard]] std::vector<std::string> LinesOf(ControlId list) const {
    std::vector<std::string> texts;
    if (const auto found = Lists.find(list); found != Lists.end()) {
      for (const Line& line : found->second) texts.push_back(line.text);
    }
    return texts;
  }

  [[nodiscard]] std::string GetText(ControlId id) const override { return Get(Texts, id, {}); }
  void SetText(ControlId id, std::string_view text) override { Texts[id] = text; }
  [[nodiscard]] bool IsChecked(ControlId id) const override { return Get(Checks, id, false); }
  void SetChecked(ControlId id, bool checked) override { Checks[id] = checked; }
  void ClearList(ControlId id) override {
    Lists[id].clear();
    Selections[id] = -1;
  }
  void AddLine(ControlId id, std::string_view text, std::int32_t data) override {
    std::vector<Line>& lines = Lists[id];
    const auto place = std::upper_bound(
        lines.begin(), lines.end(), text,
        [](std::string_view a, const Line& b) { return Folded(a) < Folded(b.text); });
    lines.insert(place, {std::string(text), data});
  }
  [[nodiscard]] std::int32_t SelectedLine(ControlId id) const override {
    return Get(Selections, id, std::int32_t{-1});
  }
  void SelectLine(ControlId id, std::int32_t data) override {
    Selections[id] = GetLine(id, data).empty() ? -1 : data;
  }
  void SetPicture(ControlId id, std::string_view name) override { Pictures[id] = name; }
  [[nodiscard]] ColorRef GetColor(ControlId id) const override {
    return Get(Colors, id, 0xFF00FFU);
  }
  void SetColor(ControlId id, ColorRef color) override { Colors[id] = color; }
  void Show(ControlId id, bool visible) override { Visible[id] = visible; }
  void ReportError(ControlId id, std::string_view message) override {
    Error = message;
    Focus = id;
  }
  void Close(ControlId result) override { Result = result; }

 private:
  template <typename Value>
  static Value Get(const std::map<ControlId, Value>& values, ControlId id, Value fallback) {
    const auto found = values.find(id);
    return found != values.end() ? found->second : std::move(fallback);
  }
  static std::string Folded(std::string_view text) {
    std::string folded(text);
    for (char& c : folded) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return folded;
  }
  [[nodiscard]] std::string GetLine(ControlId list, std::int32_t data) const {
    const auto found = Lists.find(list);
    if (found == Lists.end()) return {};
    for (const Line& line : found->second) {
      if (line.data == data) return line.text;
    }
    return {};
  }
  std::int32_t DataOf(ControlId list, std::string_view text) {
    for (const Line& line : Lists[list]) {
      if (line.text == text) return line.data;
    }
    ADD_FAILURE() << "no line " << text;
    return -1;
  }

  CDialog& dialog_;
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
