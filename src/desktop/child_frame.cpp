#include "desktop/child_frame.h"

#include <QCloseEvent>
#include <utility>

#include "desktop/qt_main_window.h"
#include "desktop/qt_text.h"
#include "desktop/texture_widget.h"
#include "desktop/view_widget.h"

namespace zando {

CChildFrame::CChildFrame(CQtMainWindow& main, std::unique_ptr<CZANDOView> view) : main_(main) {
  Hold<CViewWidget>(std::move(view));
}

CChildFrame::CChildFrame(CQtMainWindow& main, std::unique_ptr<CTextureView> view) : main_(main) {
  Hold<CTextureWidget>(std::move(view));
}

template <typename Widget, typename Held>
void CChildFrame::Hold(std::unique_ptr<Held> view) {
  setAttribute(Qt::WA_DeleteOnClose);
  auto* widget = new Widget(
      *view, [this](std::string_view title) { SetTitle(title); },
      [this](const std::function<void()>& operation) { main_.RunGuarded(operation); });
  detachWidget_ = [widget] { widget->Detach(); };
  setWidget(widget);
  setFocusProxy(widget);
  view_ = std::move(view);
}

CChildFrame::~CChildFrame() { detachWidget_(); }

void CChildFrame::SetTitle(std::string_view title) {
  if (!title.starts_with('-')) return;
  title_ = TextToQt(title);
  setWindowTitle(title_);
}

bool CChildFrame::event(QEvent* event) {
  // The widget inside and the window system may offer titles of their own.
  if (event->type() == QEvent::WindowTitleChange && windowTitle() != title_) {
    setWindowTitle(title_);
    return true;
  }
  return QMdiSubWindow::event(event);
}

void CChildFrame::closeEvent(QCloseEvent* event) {
  if (view_ != nullptr && !main_.MayClose(*view_) && view_ != nullptr) {
    event->ignore();
    return;
  }
  // The question, or what the user did about it, may have taken the view away already.
  DestroyView();
  QMdiSubWindow::closeEvent(event);
}

void CChildFrame::CloseNow() {
  DestroyView();
  close();
}

void CChildFrame::DestroyView() {
  if (view_ == nullptr) return;
  CZANDODoc& document = view_->Document();
  detachWidget_();
  main_.Forget(*this);
  view_.reset();
  main_.OnViewGone(document);
}

}  // namespace zando
