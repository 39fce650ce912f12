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

namespace zando {
namespace {

using Texts = std::vector<std::string>;

/// Stands in the box form or the group form and writes down what it is told.
class CListeningDlg : public CDialog {
 public:
  explicit CListeningDlg(std::int32_t form) : form_(form) {}
  std::int32_t TemplateId() const override { return form_; }
  void OnSelectionChange(ControlId list) override { Tell("selected ", list); }
  void OnDoubleClick(ControlId list) override { Tell("double ", list); }
  double size = 128.0;
  Texts told;

 protected:
  void DoDataExchange(CDataExchange& exchange) override {
    if (form_ == 133) exchange.Text(1071, size);
  }
  void OnInitDialog() override {
    if (form_ == 145) Fill(0);
  }
  void OnButton(ControlId id) override { told.push_back("button " + std::to_string(id)); }

 private:
  void Tell(const std::string& what, ControlId list) {
    const std::int32_t selected = Form().SelectedLine(list);
    told.push_back(what + std::to_string(selected));
    Fill(selected);
  }
  void Fill(std::int32_t selected) {
    Form().ClearList(1064);
    Form().AddLine(1064, "walls", 0);
    Form().AddLine(1064, "Attic", 1);
    Form().AddLine(1064, "beams", 2);
    Form().SelectLine(1064, selected);
  }

  std::int32_t form_;
};

template <typename Control>
Control& Get(CQtForm& form, ControlId id) {
  for (auto* control : form.Window().findChildren<Control*>()) {
    if (control->property("controlId") == id) return *control;
  }
  throw std::out_of_range("no such control");
}

TEST(QtForm, EveryControlOfTheDialogsIsThere) {
  const struct {
    std::int32_t form;
    std::vector<int> controls;
  } cases[] = {
      {133, {1, 2, 1014, 1015, 1017, 1019, 1020, 1023, 1024, 1043, 1071, 1072}},
      {145, {1, 2, 1001, 1064, 1065, 1066, 1067}},
  };
  for (const auto& expected : cases) {
    CListeningDlg dialog(expected.form);
    CQtForm form(dialog, nullptr);
    std::vector<int> controls;
    for (const QWidget* control : form.Window().findChildren<QWidget*>()) {
      const QVariant id = control->property("controlId");
      if (id.isValid()) controls.push_back(id.toInt());
    }
    std::sort(controls.begin(), controls.end());
    EXPECT_EQ(controls, expected.controls);
  }
}

TEST(QtForm, TheFirstClickMayRefillTheListUnderADoubleClick) {
  CListeningDlg dialog(145);
  CQtForm form(dialog, nullptr);
  form.Window().show();
  auto& list = Get<QListWidget>(form, 1064);
  EXPECT_EQ(list.item(0)->text(), "Attic") << "sorted, ignoring case";
  const QPoint second = list.visualItemRect(list.item(1)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
  QCoreApplication::processEvents();
  list.setCurrentRow(0);
  QTest::mouseClick(&Get<QAbstractButton>(form, 1065), Qt::LeftButton);
  EXPECT_EQ(dialog.told, (Texts{"selected 2", "double 2", "selected 1", "button 1065"}));
}

TEST(QtForm, AFieldTakesOfWhatIsTypedOrPastedWhatALevelCanHold) {
  CListeningDlg dialog(145);
  CQtForm form(dialog, nullptr);
  auto& field = Get<QLineEdit>(form, 1001);
  QTest::keyClicks(&field, "a");
  for (const char16_t typed : {u'\u0416', u'\u00E9'}) {
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QChar(typed), Qt::NoModifier);
  }
  QGuiApplication::clipboard()->setText(QStringLiteral("\u0416b\nc\u00FF"));
  field.paste();
  EXPECT_EQ(form.GetText(1001),
            "a\xE9"
            "bc\xFF");
}

TEST(QtForm, AWrongNumberKeepsTheWindowAndLeadsToItsField) {
  CListeningDlg dialog(133);
  CQtForm form(dialog, nullptr);
  QTimer::singleShot(0, [&] {
    auto& field = Get<QLineEdit>(form, 1071);
    field.setText("wide");
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->text(), "Please enter a number.");
      box->accept();
    });
    QTest::keyClick(&form.Window(), Qt::Key_Return);
    EXPECT_TRUE(form.Window().isVisible());
    EXPECT_EQ(form.Window().focusWidget(), &field);
    EXPECT_EQ(field.selectedText(), "wide");
    QTest::keyClick(&form.Window(), Qt::Key_Escape);
  });
  EXPECT_EQ(form.Run(), IDCANCEL);
}

}  // namespace

namespace testing {
namespace {

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
  Texts LinesOf(ControlId list) {
    Texts lines;
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
  static bool Build(std::int32_t /*form*/, QDialog& window) {
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
}  // namespace testing

}  // namespace zando
