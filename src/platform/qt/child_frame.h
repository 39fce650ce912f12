#pragma once

#include <QMdiSubWindow>
#include <memory>
#include <string_view>

#include "views/zando_view.h"

namespace zando {

class CQtMainWindow;
class CViewWidget;

/// A window of the main frame with one view, which it owns until it closes.
class CChildFrame : public QMdiSubWindow {
 public:
  CChildFrame(CQtMainWindow& main, std::unique_ptr<CZANDOView> view);
  CChildFrame(const CChildFrame&) = delete;
  CChildFrame& operator=(const CChildFrame&) = delete;
  ~CChildFrame() override;

  /// The view, or null once the frame has closed.
  [[nodiscard]] CZANDOView* View() const { return view_.get(); }

  /// Takes a title that begins with "-"; any other leaves the one it has.
  void SetTitle(std::string_view title);

  /// Closes without asking: the view is destroyed before this returns, the window soon after.
  void CloseNow();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void DestroyView();

  CQtMainWindow& main_;
  std::unique_ptr<CZANDOView> view_;
  CViewWidget* widget_;
  QString title_;
};

}  // namespace zando
