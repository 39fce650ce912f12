#pragma once

#include <QElapsedTimer>
#include <QObject>

#include "platform/progress.h"

class QProgressBar;
class QStatusBar;

namespace zando {

/// A progress bar in a status bar, with a text of its own. Its steps let the windows paint, some
/// twenty times a second, and keep from the program what the user does meanwhile; Escape, or
/// closing a window, cancels.
class CStatusProgress : public QObject, public CPercentProgress {
 public:
  CStatusProgress(QStatusBar& statusBar, const QString& text);
  CStatusProgress(const CStatusProgress&) = delete;
  CStatusProgress& operator=(const CStatusProgress&) = delete;
  ~CStatusProgress() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  bool Advance(std::int32_t percent) override;

 private:
  QProgressBar* bar_;
  QElapsedTimer sinceEvents_;
  bool cancelled_ = false;
};

}  // namespace zando
