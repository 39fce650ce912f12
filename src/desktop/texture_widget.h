#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <string_view>

#include "desktop/attempt.h"
#include "platform/desktop.h"
#include "views/texture_view.h"

namespace zando {

/// The window of a texture browser: paints it, scrolls it and brings it size, mouse and keys.
/// Outlives the view by Detach.
class CTextureWidget : public QAbstractScrollArea, public CScrollWindow {
 public:
  using TitleSetter = std::function<void(std::string_view)>;

  /// `setTitle` is called with every title that the view wants for its frame.
  CTextureWidget(CTextureView& view, TitleSetter setTitle, Attempt attempt = RunUnguarded);
  CTextureWidget(const CTextureWidget&) = delete;
  CTextureWidget& operator=(const CTextureWidget&) = delete;
  ~CTextureWidget() override;

  /// The view is about to go: nothing is forwarded or painted from now on.
  void Detach();

  void Invalidate() override;
  void RedrawNow() override;
  void SetFrameTitle(std::string_view title) override { setTitle_(title); }
  void SetScrollSizes(std::int32_t width, std::int32_t height) override;
  void ScrollTo(const ScreenRect& part) override;

  [[nodiscard]] QSize sizeHint() const override { return {640, 480}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {64, 48}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  /// All that comes in comes through these two; nothing that is thrown goes out.
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void TellSize();
  [[nodiscard]] ScreenPoint ToPicture(const QPointF& position) const;
  [[nodiscard]] ScreenPoint Scrolled(const QPoint& pixel) const;
  void ShowToolTip(const QPoint& position, const QPoint& onScreen);

  CTextureView* view_;
  TitleSetter setTitle_;
  Attempt attempt_;
  QSize pixels_;  ///< the size that the view knows
};

}  // namespace zando
