#include "desktop/qt_form.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/qt_text.h"
#include "support/form_suite.h"

namespace zando::testing {
namespace {

template <typename Control>
Control& Get(CQtForm& form, ControlId id) {
  for (auto* control : form.Window().findChildren<Control*>()) {
    if (control->property("controlId") == id) return *control;
  }
  throw std::out_of_range("no such control");
}

/// A window that holds a control of every kind.
bool Build(std::int32_t /*form*/, QDialog& window) {
  auto* layout = new QVBoxLayout(&window);
  const auto add = [layout](ControlId id, QWidget* control) {
    control->setProperty("controlId", id);
    layout->addWidget(control);
  };
  add(kField, new QLineEdit);
  add(kOtherField, new QLineEdit);
  add(kBox, new QCheckBox);
  add(kList, new QListWidget);
  add(kBar, new QProgressBar);
  for (const ControlId id : {kButton, IDOK, IDCANCEL}) add(id, new QPushButton);
  return true;
}

TEST(QtForm, EveryControlOfTheDialogsIsThere) {
  for (const auto& [dialogForm, expected] :
       {std::pair{133, std::vector<int>{1, 2, 1014, 1015, 1017, 1019, 1020, 1023, 1024, 1043, 1071,
                                        1072}},
        {145, {1, 2, 1001, 1064, 1065, 1066, 1067}}}) {
    CTellingDlg dialog(dialogForm);
    CQtForm form(dialog, nullptr);
    std::vector<int> controls;
    for (const QWidget* control : form.Window().findChildren<QWidget*>()) {
      const QVariant id = control->property("controlId");
      if (id.isValid()) controls.push_back(id.toInt());
    }
    std::sort(controls.begin(), controls.end());
    EXPECT_EQ(controls, expected);
  }
}

TEST(QtForm, AFieldTakesOfWhatIsTypedOrPastedWhatALevelCanHold) {
  CTellingDlg dialog;
  dialog.Text = "a";
  CQtForm form(dialog, nullptr, Build);
  auto& field = Get<QLineEdit>(form, kField);
  for (const char16_t typed : {u'\u0416', u'\u00E9'}) {
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QChar(typed), Qt::NoModifier);
  }
  QGuiApplication::clipboard()->setText(QStringLiteral("\u0416b\nc\u00FF"));
  field.paste();
  EXPECT_EQ(form.GetText(kField),
            "a\xE9"
            "bc\xFF");
}

TEST(QtForm, AWrongNumberKeepsTheWindowAndLeadsToItsField) {
  CTellingDlg dialog;
  CQtForm form(dialog, nullptr, Build);
  QTimer::singleShot(0, [&] {
    auto& field = Get<QLineEdit>(form, kOtherField);
    field.setText("wide");
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->text(), "Please enter a number.");
      box->accept();
    });
    Get<QAbstractButton>(form, IDOK).click();
    EXPECT_TRUE(form.Window().isVisible());
    EXPECT_EQ(form.Window().focusWidget(), &field);
    EXPECT_EQ(field.selectedText(), "wide");
    QTest::keyClick(&form.Window(), Qt::Key_Escape);
  });
  EXPECT_EQ(form.Run(), IDCANCEL);
}

/// A person in front of a real window that holds a control of every kind.
class CQtPerson {
 public:
  explicit CQtPerson(CDialog& dialog) : form_(dialog, nullptr, Build) {
    Get<QWidget>(form_, kButton).setFocus();
    form_.Window().show();
    QApplication::setActiveWindow(&form_.Window());
  }

  void Type(ControlId id, std::string_view text) {
    auto& field = Get<QLineEdit>(form_, id);
    QTest::mouseClick(&field, Qt::LeftButton);
    field.setFocus(Qt::MouseFocusReason);
    field.selectAll();
    for (const QChar c : TextToQt(text)) {
      QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, c, Qt::NoModifier);
    }
  }
  /// With the keyboard, which leaves the focus where it is; a letter underlined would do the same.
  void Press(ControlId id) { Get<QAbstractButton>(form_, id).click(); }
  void Cancel() { QTest::keyClick(&form_.Window(), Qt::Key_Escape); }
  void Choose(ControlId list, std::string_view text) {
    Mouse(list, text, [](QWidget* w, QPoint at) { QTest::mouseClick(w, Qt::LeftButton, {}, at); });
  }
  void DoubleClick(ControlId list, std::string_view text) {
    Choose(list, text);
    Mouse(list, text, [](QWidget* w, QPoint at) { QTest::mouseDClick(w, Qt::LeftButton, {}, at); });
  }
  Lines LinesOf(ControlId list) {
    Lines lines;
    auto& widget = Get<QListWidget>(form_, list);
    for (int i = 0; i < widget.count(); ++i) lines.push_back(TextFromQt(widget.item(i)->text()));
    return lines;
  }
  std::string TipOf(ControlId list, std::string_view text) {
    return TextFromQt(Line(list, text)->toolTip());
  }
  ControlId Focus() { return form_.Window().focusWidget()->property("controlId").toInt(); }
  bool IsVisible(ControlId id) { return Get<QWidget>(form_, id).isVisible(); }
  bool IsEnabled(ControlId id) { return Get<QWidget>(form_, id).isEnabled(); }
  std::int32_t BarAt(ControlId id) { return Get<QProgressBar>(form_, id).value(); }
  ControlId Result() { return form_.Window().result(); }

 private:
  QListWidgetItem* Line(ControlId list, std::string_view text) {
    return Get<QListWidget>(form_, list).findItems(TextToQt(text), Qt::MatchCaseSensitive).front();
  }
  template <typename Act>
  void Mouse(ControlId list, std::string_view text, Act act) {
    auto& widget = Get<QListWidget>(form_, list);
    act(widget.viewport(), widget.visualItemRect(Line(list, text)).center());
    QCoreApplication::processEvents();
  }

  CQtForm form_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, FormSuite, CQtPerson);

}  // namespace
}  // namespace zando::testing
