// The picture at start-up: where it stands, and what it keeps from the editor.
#include <QMessageBox>
#include <QPointer>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "desktop/editor_fixture.h"
#include "desktop/splash_wnd.h"

namespace zando::testing {
namespace {

/// A main window that does not show yet, and its picture.
class Splash : public QObject, public ::testing::Test {
 protected:
  Splash() {
    QObject::connect(&shortcut_, &QShortcut::activated, [this] { ++commands_; });
    CSplashWnd::ShowSplash(&window_);
    splash_ = window_.findChild<CSplashWnd*>();
    if (splash_ != nullptr) splash_->installEventFilter(this);
    window_.show();
    QApplication::setActiveWindow(&window_);
    QApplication::processEvents();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ZOrderChange) ++raised_;
    return QObject::eventFilter(watched, event);
  }
  [[nodiscard]] bool IsSeen() const { return splash_ != nullptr && splash_->isVisible(); }

  QWidget window_;
  QShortcut shortcut_{QKeySequence("F5"), &window_};
  int commands_ = 0;
  int raised_ = 0;
  QPointer<CSplashWnd> splash_;
};

TEST_F(Splash, StandsAboveTheMainWindowAndSwallowsOnlyTheFirstKey) {
  ASSERT_TRUE(IsSeen());
  EXPECT_EQ(splash_->windowHandle()->transientParent(), window_.windowHandle());
  EXPECT_GT(raised_, 0) << "the main window came up after it";
  QTest::keyClick(window_.windowHandle(), Qt::Key_F5);
  EXPECT_FALSE(IsSeen());
  EXPECT_EQ(commands_, 0);
  QTest::keyClick(window_.windowHandle(), Qt::Key_F5);
  EXPECT_EQ(commands_, 1);
}

TEST_F(Splash, MakesWayForAQuestionWithoutTakingItsAnswer) {
  ASSERT_TRUE(IsSeen());
  QMessageBox box(&window_);
  QTimer::singleShot(0, [&] {
    EXPECT_FALSE(IsSeen());
    QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(box.isVisible()) << "the first key answers";
    box.close();
  });
  box.exec();
}

}  // namespace
}  // namespace zando::testing
