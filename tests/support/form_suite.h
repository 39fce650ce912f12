#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/dialog.h"
#include "platform/form_progress.h"

namespace zando::testing {

/// The controls of the form that every kind of form is tried with.
inline constexpr ControlId kField = 10;
inline constexpr ControlId kOtherField = 11;
inline constexpr ControlId kBox = 12;
inline constexpr ControlId kList = 13;
inline constexpr ControlId kBar = 14;
inline constexpr ControlId kButton = 15;
inline constexpr ControlId kMissing = 99;

/// Writes down what it is told, and refills its list at once. Fields that change again and again
/// are told of once.
class CTellingDlg : public CDialog {
 public:
  explicit CTellingDlg(std::int32_t form = 1) : form_(form) {}
  std::vector<std::string> Told;
  std::string Text = "before";
  double Number = 0.0;

  using CDialog::Form;
  std::int32_t TemplateId() const override { return form_; }
  void OnSelectionChange(ControlId list) override { TellAndFill("selected", list); }
  void OnDoubleClick(ControlId list) override { TellAndFill("double", list); }
  std::string LineTip(ControlId list, std::int32_t line) override {
    return list == kList && line == 'b' ? "<b>" : "";
  }
  void OnChange(ControlId field) override { Tell("changed", field); }
  void OnKillFocus(ControlId field) override { Tell("left", field); }

  void Fill(std::int32_t selected) {
    Form().ClearList(kList);
    EXPECT_EQ(Form().SelectedLine(kList), -1);
    for (const char* line : {"walls", "Attic", "beams", "attic"}) {
      Form().AddLine(kList, line, static_cast<std::int32_t>(*line));
    }
    Form().SelectLine(kList, selected);
  }

 protected:
  void DoDataExchange(CDataExchange& exchange) override {
    exchange.Text(kField, Text);
    exchange.Text(kOtherField, Number);
  }
  void OnButton(ControlId id) override { Tell("button", id); }

 private:
  void Tell(const std::string& what, std::int32_t number) {
    std::string line = what + ' ' + std::to_string(number);
    if (Told.empty() || Told.back() != line) Told.push_back(std::move(line));
  }
  void TellAndFill(const std::string& what, ControlId list) {
    const std::int32_t selected = Form().SelectedLine(list);
    Tell(what, selected);
    Fill(selected);
  }

  std::int32_t form_;
};

using Lines = std::vector<std::string>;

/// What holds for every kind of form. A Person stands in front of one: Type, Press, Choose,
/// DoubleClick, Cancel (by the keyboard); sees LinesOf, TipOf, Focus, IsVisible, IsEnabled, BarAt,
/// Result.
template <typename Person>
class FormSuite : public ::testing::Test {
 protected:
  CTellingDlg dialog_;
  Person person_{dialog_};
  CDialogForm& form_ = dialog_.Form();
};
TYPED_TEST_SUITE_P(FormSuite);

TYPED_TEST_P(FormSuite, AListSortsUnlessToldNotToAndKeepsANumberWithEachLine) {
  this->dialog_.Fill('b');
  EXPECT_EQ(this->person_.LinesOf(kList), (Lines{"Attic", "attic", "beams", "walls"}));
  EXPECT_EQ(this->form_.SelectedLine(kList), 'b');
  this->dialog_.Fill('x');
  EXPECT_EQ(this->form_.SelectedLine(kList), -1);
  this->form_.ClearList(kList);
  this->form_.SetSorted(kList, false);
  this->dialog_.Fill('A');
  EXPECT_EQ(this->person_.LinesOf(kList), (Lines{"walls", "Attic", "beams", "attic"}));
  EXPECT_EQ(this->person_.TipOf(kList, "walls"), "");
  EXPECT_EQ(this->person_.TipOf(kList, "beams"), "<b>");
  EXPECT_EQ(this->dialog_.Told, Lines()) << "only the user is told of";

  this->person_.Choose(kList, "walls");
  this->person_.DoubleClick(kList, "beams");
  EXPECT_EQ(this->dialog_.Told, (Lines{"selected 119", "selected 98", "double 98"}));
}

TYPED_TEST_P(FormSuite, AFieldTellsWhenItChangesAndOnceWhenItIsLeft) {
  this->person_.Type(kField, "caf\xE9");
  this->person_.Type(kOtherField, "4");
  this->person_.Press(kButton);
  this->person_.Press(kButton);
  EXPECT_EQ(this->form_.GetText(kField), "caf\xE9");
  this->form_.SetFocus(kField);
  EXPECT_EQ(this->person_.Focus(), kField);
  this->form_.SetFocus(kOtherField);
  EXPECT_EQ(this->dialog_.Told,
            (Lines{"changed 10", "left 10", "changed 11", "left 11", "button 15", "left 10"}));
  this->dialog_.Told.clear();
  this->person_.Type(kField, "z");
  this->person_.Press(IDOK);
  EXPECT_EQ(this->dialog_.Told, (Lines{"left 11", "changed 10", "left 10"}));
  EXPECT_EQ(this->dialog_.Text, "z");
  EXPECT_EQ(this->person_.Result(), IDOK);
}

TYPED_TEST_P(FormSuite, CancellingWithTheKeyboardLeavesNoField) {
  this->person_.Type(kField, "z");
  this->person_.Cancel();
  EXPECT_EQ(this->dialog_.Told, Lines{"changed 10"});
  EXPECT_EQ(this->dialog_.Text, "before");
  EXPECT_EQ(this->person_.Result(), IDCANCEL);
}

TYPED_TEST_P(FormSuite, ControlsHideAndRestAndABarStepsWithinItsRange) {
  this->form_.Show(kBar, false);
  this->form_.Enable(kButton, false);
  EXPECT_FALSE(this->person_.IsVisible(kBar) || this->person_.IsEnabled(kButton));
  this->form_.Show(kBar, true);
  this->form_.Enable(kButton, true);
  EXPECT_TRUE(this->person_.IsVisible(kBar) && this->person_.IsEnabled(kButton));

  CFormProgress bar(this->form_, kBar);
  for (int i = 0; i < 10; ++i) bar.StepIt();
  EXPECT_EQ(this->person_.BarAt(kBar), 100);
  bar.StepIt();
  EXPECT_EQ(this->person_.BarAt(kBar), 0) << "begins anew";
  bar.SetRange(20, 26);
  bar.SetStep(4);
  EXPECT_EQ(this->person_.BarAt(kBar), 20);
  bar.StepIt();
  EXPECT_EQ(this->person_.BarAt(kBar), 24);
  bar.SetPos(99);
  EXPECT_EQ(this->person_.BarAt(kBar), 26);
}

TYPED_TEST_P(FormSuite, MarksAndTextsComeBackAndAMissingControlReadsAsEmpty) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) {
    if (byte != '\n' && byte != '\r') all += static_cast<char>(byte);
  }
  this->form_.SetText(kField, all);
  EXPECT_EQ(this->form_.GetText(kField), all);
  this->form_.SetChecked(kBox, true);
  EXPECT_TRUE(this->form_.IsChecked(kBox));
  this->form_.SetChecked(kBox, false);
  EXPECT_FALSE(this->form_.IsChecked(kBox));

  this->form_.SetFocus(kMissing);
  this->form_.SelectLine(kMissing, 1);
  EXPECT_EQ(this->form_.GetText(kMissing), "");
  EXPECT_FALSE(this->form_.IsChecked(kMissing));
  EXPECT_EQ(this->form_.SelectedLine(kMissing), -1);
}

REGISTER_TYPED_TEST_SUITE_P(FormSuite, AListSortsUnlessToldNotToAndKeepsANumberWithEachLine,
                            AFieldTellsWhenItChangesAndOnceWhenItIsLeft,
                            CancellingWithTheKeyboardLeavesNoField,
                            ControlsHideAndRestAndABarStepsWithinItsRange,
                            MarksAndTextsComeBackAndAMissingControlReadsAsEmpty);

}  // namespace zando::testing
