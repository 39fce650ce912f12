#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>

namespace zando {

/// The program's picture at start-up. Goes after two seconds, or at the first key or mouse press
/// anywhere in the application, which nothing else gets to see.
class CSplashWnd : public QWidget {
  Q_OBJECT

 public:
  /// Shows the picture in the middle of the main window's screen; it destroys itself in the end.
  static void ShowSplash(QWidget* mainWindow);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  explicit CSplashWnd(QWidget* mainWindow);
  void Hide();

  QPixmap picture_;
  QTimer timer_;
};

}  // namespace zando
