#include "desktop/qt_form.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/splash_wnd.h"

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

TEST(QtForm, AFieldTakesWhatTheLevelCanHold) {
  CListeningDlg dialog(145);
  CQtForm form(dialog, nullptr);
  auto& field = Get<QLineEdit>(form, 1001);
  QTest::keyClicks(&field, "a");
  QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QChar(0x0416), Qt::NoModifier);
  QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QChar(0x00E9), Qt::NoModifier);
  EXPECT_EQ(form.GetText(1001), "a\xE9");
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

TEST(Splash, TheFirstKeyHidesItAndGoesNoFurther) {
  QLineEdit window;
  int commands = 0;
  QShortcut shortcut(QKeySequence("F5"), &window);
  QObject::connect(&shortcut, &QShortcut::activated, [&] { ++commands; });
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  CSplashWnd::ShowSplash(&window);
  const QPointer<CSplashWnd> splash = window.findChild<CSplashWnd*>();
  window.activateWindow();
  QTest::keyClick(window.windowHandle(), Qt::Key_F5);
  EXPECT_TRUE(splash == nullptr || !splash->isVisible());
  EXPECT_EQ(commands, 0);
  QTest::keyClick(window.windowHandle(), Qt::Key_F5);
  EXPECT_EQ(commands, 1);
}

}  // namespace
}  // namespace zando
