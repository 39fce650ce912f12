#include "desktop/view_widget.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRegion>
#include <algorithm>
#include <optional>
#include <utility>

#include "desktop/device_pixels.h"
#include "paint/painter_dc.h"

namespace zando {
namespace {

/// Of the frame that follows a drag.
constexpr int kFrameThickness = 2;

std::optional<CZANDOView::MouseButton> ButtonOf(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return CZANDOView::MouseButton::Left;
    case Qt::MiddleButton:
      return CZANDOView::MouseButton::Middle;
    case Qt::RightButton:
      return CZANDOView::MouseButton::Right;
    default:
      return std::nullopt;
  }
}

MouseFlags FlagsOf(Qt::MouseButtons buttons) {
  return {.left = buttons.testFlag(Qt::LeftButton), .right = buttons.testFlag(Qt::RightButton)};
}

std::optional<CZANDOView::Key> KeyOf(const QKeyEvent& event) {
  const bool onKeypad = event.modifiers().testFlag(Qt::KeypadModifier);
  switch (event.key()) {
    case Qt::Key_Space:
      return CZANDOView::Key::Space;
    case Qt::Key_Delete:
      return CZANDOView::Key::Delete;
    case Qt::Key_Plus:
      return onKeypad ? std::optional(CZANDOView::Key::KeypadPlus) : std::nullopt;
    case Qt::Key_Minus:
      return onKeypad ? std::optional(CZANDOView::Key::KeypadMinus) : std::nullopt;
    default:
      return std::nullopt;
  }
}

}  // namespace

CViewWidget::CViewWidget(CZANDOView& view, TitleSetter setTitle, Attempt attempt)
    : view_(&view), setTitle_(std::move(setTitle)), attempt_(std::move(attempt)) {
  // Every paint covers the whole widget, and Qt shows it only when it is complete.
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::ArrowCursor);
  view.SetWindow(this);
}

CViewWidget::~CViewWidget() { Detach(); }

void CViewWidget::Detach() {
  if (view_ == nullptr) return;
  LoseCapture();
  view_->SetWindow(nullptr);
  view_ = nullptr;
}

void CViewWidget::Invalidate() {
  stale_ = true;
  update();
}

void CViewWidget::RedrawNow() {
  stale_ = true;
  repaint();
}

void CViewWidget::DrawDragRect(const ScreenRect& rect) {
  // A frame around nothing is still seen.
  dragRect_ = QRect(rect.left, rect.top, std::max(rect.right - rect.left, kFrameThickness),
                    std::max(rect.bottom - rect.top, kFrameThickness));
  update();
}

void CViewWidget::EraseDragRect() {
  dragRect_ = {};
  update();
}

void CViewWidget::DrawPicture() {
  // Lines drawn into an image of the program's own are several times as quick as on the widget.
  TellSize();
  if (picture_.size() != pixels_) picture_ = QImage(pixels_, QImage::Format_RGB32);
  if (view_ == nullptr || view_->ErasesBackground()) picture_.fill(Qt::black);
  if (view_ == nullptr) return;
  QPainter painter(&picture_);
  CPainterDC dc(painter, pixels_);
  view_->OnDraw(dc);
}

void CViewWidget::paintEvent(QPaintEvent* /*event*/) {
  // The window may have come to a screen of another scale.
  if (stale_ || picture_.size() != DeviceSize(*this)) DrawPicture();
  stale_ = false;
  QPainter painter(this);
  CountDevicePixels(painter);
  painter.drawImage(0, 0, picture_);
  if (dragRect_.isNull()) return;
  constexpr int t = kFrameThickness;
  const QRegion frame = QRegion(dragRect_).subtracted(dragRect_.adjusted(t, t, -t, -t));
  painter.setCompositionMode(QPainter::RasterOp_NotDestination);
  for (const QRect& side : frame) painter.fillRect(side, Qt::white);
}

void CViewWidget::resizeEvent(QResizeEvent* /*event*/) { TellSize(); }

void CViewWidget::TellSize() {
  const QSize pixels = DeviceSize(*this);
  if (pixels == pixels_) return;
  pixels_ = pixels;
  if (view_ != nullptr) view_->OnSize(pixels.width(), pixels.height());
}

ScreenPoint CViewWidget::PositionOf(const QMouseEvent& event) const {
  const QPoint pixel = ToDevicePixel(*this, event);
  return {pixel.x(), pixel.y()};
}

void CViewWidget::mousePressEvent(QMouseEvent* event) {
  const auto button = ButtonOf(event->button());
  if (view_ == nullptr || !button) return;
  view_->OnButtonDown(*button, FlagsOf(event->buttons()), PositionOf(*event));
}

void CViewWidget::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void CViewWidget::mouseReleaseEvent(QMouseEvent* event) {
  const auto button = ButtonOf(event->button());
  if (view_ == nullptr || !button) return;
  view_->OnButtonUp(*button, FlagsOf(event->buttons()), PositionOf(*event));
}

void CViewWidget::mouseMoveEvent(QMouseEvent* event) {
  if (view_ != nullptr) view_->OnMouseMove(FlagsOf(event->buttons()), PositionOf(*event));
}

void CViewWidget::keyPressEvent(QKeyEvent* event) {
  const auto key = KeyOf(*event);
  // A key that is kept down steps the grid on and on, but does nothing else twice.
  const bool repeats =
      event->isAutoRepeat() && (key == CZANDOView::Key::Space || key == CZANDOView::Key::Delete);
  if (view_ == nullptr || !key || repeats) {
    QWidget::keyPressEvent(event);
    return;
  }
  view_->OnKeyDown(*key, FlagsOf(QGuiApplication::mouseButtons()));
}

void CViewWidget::LoseCapture() {
  if (!captured_) return;
  captured_ = false;
  if (view_ != nullptr) view_->EndDrag();
}

void CViewWidget::focusOutEvent(QFocusEvent* event) {
  LoseCapture();
  QWidget::focusOutEvent(event);
}

void CViewWidget::hideEvent(QHideEvent* event) {
  LoseCapture();
  QWidget::hideEvent(event);
}

bool CViewWidget::event(QEvent* event) {
  bool known = true;
  attempt_([&] {
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowDeactivate) {
      LoseCapture();
    }
    known = QWidget::event(event);
  });
  return known;
}

}  // namespace zando
