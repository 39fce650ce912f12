#include "desktop/splash_wnd.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QIcon>
#include <QPainter>
#include <QScreen>
#include <QWindow>

namespace zando {
namespace {

constexpr QSize kSize{480, 300};
constexpr int kMilliseconds = 2000;

/// Until the picture is taken not to come, in milliseconds.
constexpr int kLongestWait = 500;

}  // namespace

CSplashWnd::CSplashWnd(QWidget* mainWindow)
    : QWidget(mainWindow, Qt::SplashScreen | Qt::FramelessWindowHint),
      picture_(QIcon(QStringLiteral(":/pictures/splash.svg")).pixmap(kSize, devicePixelRatioF())) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFixedSize(kSize);
  const QScreen* screen =
      mainWindow != nullptr ? mainWindow->screen() : QGuiApplication::primaryScreen();
  if (screen != nullptr) {
    QRect place({0, 0}, kSize);
    place.moveCenter(screen->availableGeometry().center());
    move(place.topLeft());
  }
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &CSplashWnd::Hide);
  qApp->installEventFilter(this);
}

void CSplashWnd::ShowSplash(QWidget* mainWindow) {
  auto* splash = new CSplashWnd(mainWindow);
  splash->show();
  // What the program does next may leave no time to paint.
  const QDeadlineTimer patience(kLongestWait);
  while (!splash->timer_.isActive() && !patience.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
  }
}

bool CSplashWnd::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Expose:
      // The main window came up later, and window managers put the latest in front.
      if (parentWidget() != nullptr && watched == parentWidget()->windowHandle()) raise();
      break;
    case QEvent::WindowBlocked:
      // A question must not stand behind a picture, nor lose its first answer.
      if (watched == this) Hide();
      break;
    case QEvent::ShortcutOverride:
      // Comes before a key press: accepted, the key triggers no command.
      if (!timer_.isActive()) break;
      event->accept();
      return true;
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::NonClientAreaMouseButtonDblClick:
      if (!timer_.isActive()) break;
      Hide();
      return true;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void CSplashWnd::Hide() {
  qApp->removeEventFilter(this);
  timer_.stop();
  close();
  if (parentWidget() != nullptr) parentWidget()->update();
}

void CSplashWnd::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).drawPixmap(rect(), picture_);
  // It is seen from now on.
  if (!timer_.isActive()) timer_.start(kMilliseconds);
}

}  // namespace zando
