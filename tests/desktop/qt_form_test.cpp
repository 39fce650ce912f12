#include "desktop/qt_form.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <set>
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

/// What a screen reader calls a control.
QString NameOf(QWidget& control) {
  return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name);
}

/// The letters that lead to controls of a window, as they are underlined.
QString MarksOf(const QDialog& window) {
  QString marks;
  const auto take = [&marks](const QString& text) {
    const qsizetype at = text.indexOf('&');
    if (at >= 0) marks += text[at + 1].toUpper();
  };
  for (const auto* label : window.findChildren<QLabel*>()) take(label->text());
  for (const auto* button : window.findChildren<QAbstractButton*>()) take(button->text());
  for (const auto* box : window.findChildren<QGroupBox*>()) take(box->title());
  return marks;
}

TEST(QtForm, EveryFormHasItsControlsEachWithANameAndALetterOfItsOwn) {
  for (const auto& [dialogForm, expected] :
       {std::pair{132,
                  std::vector<int>{1,    2,    1000, 1001, 1003, 1004, 1005, 1006, 1007, 1008,
                                   1009, 1010, 1011, 1012, 1013, 1014, 1015, 1016, 1017, 1068}},
        {133, {1, 2, 1014, 1015, 1017, 1019, 1020, 1023, 1024, 1043, 1071, 1072}},
        {136, {1, 2, 1014, 1015, 1016, 1017, 1018, 1019, 1020, 1021, 1022, 1043}},
        {139,
         {1, 2, 1014, 1015, 1016, 1017, 1019, 1020, 1021, 1025, 1026, 1027, 1028, 1029, 1030, 1031,
          1032, 1043}},
        {141,
         {1, 2, 1033, 1078, 1079, 1080, 1081, 1082, 1083, 1084, 1085, 1086, 1087, 1088, 1089,
          1090}},
        {142, {1, 2, 1035, 1036, 1037, 1038, 1039, 1040, 1041, 1046, 1077}},
        {143,
         {1, 1047, 1052, 1054, 1055, 1056, 1057, 1058, 1059, 1060, 1061, 1062, 1063, 1094, 2000}},
        {144, {1, 1064}},
        {145, {1, 2, 1001, 1064, 1065, 1066, 1067}},
        {146, {1, 2, 1066, 1073, 1074, 1075, 1076}},
        {148, {1, 2, 1090, 1091, 1092, 1093}},
        {201, {1, 2001, 2002, 2003, 2004, 2005}}}) {
    SCOPED_TRACE(dialogForm);
    CTellingDlg dialog(dialogForm);
    CQtForm form(dialog, nullptr);
    std::vector<int> controls;
    std::set<QString> names;
    for (QWidget* control : form.Window().findChildren<QWidget*>()) {
      const QVariant id = control->property("controlId");
      if (!id.isValid()) continue;
      controls.push_back(id.toInt());
      const QString name = NameOf(*control);
      EXPECT_TRUE(!name.isEmpty() && names.insert(name).second) << id.toInt() << TextFromQt(name);
      const auto* button = qobject_cast<QPushButton*>(control);
      EXPECT_EQ(button != nullptr && button->isDefault(), id == IDOK) << id.toInt();
    }
    std::sort(controls.begin(), controls.end());
    EXPECT_EQ(controls, expected);
    const QString marks = MarksOf(form.Window());
    EXPECT_EQ(std::set<QChar>(marks.begin(), marks.end()).size(), marks.size())
        << TextFromQt(marks);
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
    auto& widget = Get<QListWidget>(form_, list);
    const QPoint at = widget.visualItemRect(Line(list, text)).center();
    QHelpEvent rests(QEvent::ToolTip, at, widget.viewport()->mapToGlobal(at));
    QApplication::sendEvent(widget.viewport(), &rests);
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    return QToolTip::isVisible() ? TextFromQt(shown.toPlainText()) : std::string();
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
