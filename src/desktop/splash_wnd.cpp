#include "desktop/splash_wnd.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QScreen>

namespace zando {
namespace {

constexpr QSize kSize{480, 300};
constexpr int kMilliseconds = 2000;

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
  splash->timer_.start(kMilliseconds);
}

bool CSplashWnd::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      // Comes before a key press: accepted, the key triggers no command.
      event->accept();
      return true;
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::NonClientAreaMouseButtonDblClick:
      Hide();
      return true;
    default:
      return QWidget::eventFilter(watched, event);
  }
}

void CSplashWnd::Hide() {
  qApp->removeEventFilter(this);
  timer_.stop();
  close();
  if (parentWidget() != nullptr) parentWidget()->update();
}

void CSplashWnd::paintEvent(QPaintEvent* /*event*/) { QPainter(this).drawPixmap(rect(), picture_); }

}  // namespace zando
