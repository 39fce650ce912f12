#pragma once

#include <QImage>
#include <QRect>
#include <QWidget>
#include <functional>
#include <string_view>

#include "desktop/attempt.h"
#include "platform/desktop.h"
#include "views/zando_view.h"

namespace zando {

/// The window of one view: paints it and brings it size and mouse, in pixels of the device.
/// Outlives the view by Detach.
class CViewWidget : public QWidget, public CViewWindow {
 public:
  using TitleSetter = std::function<void(std::string_view)>;

  /// `setTitle` is called with every title that the view wants for its frame.
  CViewWidget(CZANDOView& view, TitleSetter setTitle, Attempt attempt = RunUnguarded);
  CViewWidget(const CViewWidget&) = delete;
  CViewWidget& operator=(const CViewWidget&) = delete;
  ~CViewWidget() override;

  /// The view is about to go: nothing is forwarded or painted from now on.
  void Detach();

  void Invalidate() override;
  void RedrawNow() override;
  void SetFrameTitle(std::string_view title) override { setTitle_(title); }
  void DrawDragRect(const ScreenRect& rect) override;
  void EraseDragRect() override;
  void SetCapture() override { captured_ = true; }
  void ReleaseCapture() override { captured_ = false; }
  [[nodiscard]] bool HasCapture() const override { return captured_; }

  [[nodiscard]] QSize sizeHint() const override { return {640, 480}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {64, 48}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  /// Everything comes in here; nothing that is thrown goes out.
  bool event(QEvent* event) override;

 private:
  [[nodiscard]] ScreenPoint PositionOf(const QMouseEvent& event) const;
  void TellSize();
  void LoseCapture();
  void DrawPicture();

  CZANDOView* view_;
  TitleSetter setTitle_;
  Attempt attempt_;
  QSize pixels_;       ///< the size that the view knows
  QImage picture_;     ///< what the view drew last
  bool stale_ = true;  ///< the picture is to be drawn anew
  QRect dragRect_;     ///< frame over the picture in its pixels, null when there is none
  bool captured_ = false;
};

}  // namespace zando
