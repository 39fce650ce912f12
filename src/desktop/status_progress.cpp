#include "desktop/status_progress.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QProgressBar>
#include <QStatusBar>

namespace zando {
namespace {

/// Room in the bar beside its text, for the percents.
constexpr int kMargin = 80;

/// Milliseconds until the windows paint again.
constexpr int kEventInterval = 40;

bool IsEscape(QEvent& event) {
  const bool isKey = event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride;
  return isKey && static_cast<QKeyEvent&>(event).key() == Qt::Key_Escape;
}

bool IsFromUser(const QEvent& event) {
  switch (event.type()) {
    case QEvent::Close:
    case QEvent::Shortcut:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return true;
    default:
      return event.isInputEvent();
  }
}

}  // namespace

CStatusProgress::CStatusProgress(QStatusBar& statusBar, const QString& text)
    : bar_(new QProgressBar) {
  bar_->setAccessibleName(text);
  bar_->setFormat(text + QLatin1String(" %p%"));
  bar_->setAlignment(Qt::AlignCenter);
  bar_->setFixedWidth(bar_->fontMetrics().horizontalAdvance(text) + kMargin);
  // Before the panes, which stay where they are.
  statusBar.insertPermanentWidget(1, bar_);
  QCoreApplication::instance()->installEventFilter(this);
  sinceEvents_.start();
}

CStatusProgress::~CStatusProgress() { delete bar_; }

bool CStatusProgress::eventFilter(QObject* watched, QEvent* event) {
  if (!IsFromUser(*event)) return QObject::eventFilter(watched, event);
  cancelled_ = cancelled_ || event->type() == QEvent::Close || IsEscape(*event);
  // A key that is a shortcut otherwise comes as a key; a window that is closed stays open.
  event->setAccepted(event->type() == QEvent::ShortcutOverride);
  return true;
}

/// Short work does not pay for a bar, and ends before one is seen.
bool CStatusProgress::Advance(std::int32_t percent) {
  if (sinceEvents_.elapsed() < kEventInterval) return !cancelled_;
  sinceEvents_.start();
  bar_->setValue(percent);
  QCoreApplication::processEvents();
  return !cancelled_;
}

}  // namespace zando
