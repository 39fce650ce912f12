#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>

namespace zando {

/// The program's picture at start-up, above the main window. Goes two seconds after it came to be
/// seen, or at the first key or mouse press anywhere in the application, which nothing else gets to
/// see. A press before the picture is there is no concern of its own.
class CSplashWnd : public QWidget {
  Q_OBJECT

 public:
  /// Shows the picture in the middle of the main window's screen, whether or not that window shows
  /// already; it destroys itself in the end. Returns when it can be seen, or soon.
  static void ShowSplash(QWidget* mainWindow);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  explicit CSplashWnd(QWidget* mainWindow);
  void Hide();

  QPixmap picture_;
  QTimer timer_;  ///< runs while the picture is seen
};

}  // namespace zando
