#pragma once

#include <QMdiSubWindow>
#include <functional>
#include <memory>
#include <string_view>

#include "views/texture_view.h"
#include "views/zando_view.h"

namespace zando {

class CQtMainWindow;

/// A window of the main frame with one view, which it owns until it closes.
class CChildFrame : public QMdiSubWindow {
 public:
  CChildFrame(CQtMainWindow& main, std::unique_ptr<CZANDOView> view);
  CChildFrame(CQtMainWindow& main, std::unique_ptr<CTextureView> view);
  CChildFrame(const CChildFrame&) = delete;
  CChildFrame& operator=(const CChildFrame&) = delete;
  ~CChildFrame() override;

  /// The view, or null once the frame has closed.
  [[nodiscard]] CChildView* View() const { return view_.get(); }

  /// Takes a title that begins with "-"; any other leaves the one it has.
  void SetTitle(std::string_view title);

  /// Closes without asking: the view is destroyed before this returns, the window soon after.
  void CloseNow();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  template <typename Widget, typename Held>
  void Hold(std::unique_ptr<Held> view);
  void DestroyView();

  CQtMainWindow& main_;
  std::unique_ptr<CChildView> view_;
  std::function<void()> detachWidget_;  ///< parts the widget from the view
  QString title_;
};

}  // namespace zando
