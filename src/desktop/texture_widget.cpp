#include "desktop/texture_widget.h"

#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <optional>
#include <utility>

#include "desktop/device_pixels.h"
#include "desktop/qt_text.h"
#include "paint/painter_dc.h"

namespace zando {
namespace {

/// Of a click on the arrow of a scroll bar, in pixels; a notch of the wheel is three of them.
constexpr int kLine = 32;

std::optional<CTextureView::Step> StepOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return CTextureView::Step::Left;
    case Qt::Key_Right:
      return CTextureView::Step::Right;
    case Qt::Key_Up:
      return CTextureView::Step::Up;
    case Qt::Key_Down:
      return CTextureView::Step::Down;
    case Qt::Key_Home:
      return CTextureView::Step::First;
    case Qt::Key_End:
      return CTextureView::Step::Last;
    default:
      return std::nullopt;
  }
}

void SetRange(QScrollBar& bar, std::int32_t whole, int shown) {
  bar.setRange(0, std::max(0, whole - shown));
  bar.setPageStep(shown);
  bar.setSingleStep(kLine);
}

void ScrollBarTo(QScrollBar& bar, std::int32_t begin, std::int32_t end) {
  // Of a part that is larger than the window the beginning is shown.
  bar.setValue(std::min(begin, std::max(bar.value(), end - bar.pageStep())));
}

}  // namespace

CTextureWidget::CTextureWidget(CTextureView& view, TitleSetter setTitle, Attempt attempt)
    : view_(&view), setTitle_(std::move(setTitle)), attempt_(std::move(attempt)) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Textures"));
  // Rows depend on the width: a bar that came and went with them could do so without end.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setCursor(Qt::ArrowCursor);
  view.SetWindow(this);
}

CTextureWidget::~CTextureWidget() { Detach(); }

void CTextureWidget::Detach() {
  if (view_ == nullptr) return;
  view_->SetWindow(nullptr);
  view_ = nullptr;
}

void CTextureWidget::Invalidate() { viewport()->update(); }

void CTextureWidget::RedrawNow() { viewport()->repaint(); }

void CTextureWidget::SetScrollSizes(std::int32_t width, std::int32_t height) {
  const QSize shown = DeviceSize(*viewport());
  SetRange(*horizontalScrollBar(), width, shown.width());
  SetRange(*verticalScrollBar(), height, shown.height());
}

void CTextureWidget::ScrollTo(const ScreenRect& part) {
  ScrollBarTo(*horizontalScrollBar(), part.left, part.right);
  ScrollBarTo(*verticalScrollBar(), part.top, part.bottom);
}

ScreenPoint CTextureWidget::ToPicture(const QPointF& position) const {
  return Scrolled(ToDevicePixel(*viewport(), position));
}

ScreenPoint CTextureWidget::Scrolled(const QPoint& pixel) const {
  return {pixel.x() + horizontalScrollBar()->value(), pixel.y() + verticalScrollBar()->value()};
}

void CTextureWidget::TellSize() {
  const QSize pixels = DeviceSize(*viewport());
  if (pixels == pixels_) return;
  pixels_ = pixels;
  if (view_ != nullptr) view_->OnSize(pixels.width());
}

void CTextureWidget::paintEvent(QPaintEvent* /*event*/) {
  // Textures go into an image of the program's own without a copy in between.
  TellSize();
  QImage picture(pixels_, QImage::Format_RGB32);
  picture.fill(Qt::black);
  if (view_ != nullptr) {
    QPainter painter(&picture);
    CPainterDC dc(painter, pixels_);
    const ScreenPoint corner = ToPicture({0, 0});
    view_->OnDraw(dc,
                  {corner.x, corner.y, corner.x + pixels_.width(), corner.y + pixels_.height()});
  }
  QPainter painter(viewport());
  CountDevicePixels(painter);
  painter.drawImage(0, 0, picture);
}

void CTextureWidget::resizeEvent(QResizeEvent* /*event*/) { TellSize(); }

void CTextureWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (view_ == nullptr || event->button() != Qt::LeftButton) return;
  view_->OnLeftButtonUp(Scrolled(ToDevicePixel(*viewport(), *event)));
}

void CTextureWidget::keyPressEvent(QKeyEvent* event) {
  const auto step = StepOf(event->key());
  const bool chosen = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                      event->key() == Qt::Key_Space;
  if (view_ == nullptr || (!step && !chosen)) {
    QAbstractScrollArea::keyPressEvent(event);
  } else if (step) {
    view_->MoveSelection(*step);
  } else {
    view_->UseSelected();
  }
}

bool CTextureWidget::event(QEvent* event) {
  bool known = true;
  attempt_([&] { known = QAbstractScrollArea::event(event); });
  return known;
}

bool CTextureWidget::viewportEvent(QEvent* event) {
  bool known = true;
  attempt_([&] {
    if (event->type() == QEvent::ToolTip) {
      const auto* help = static_cast<QHelpEvent*>(event);
      ShowToolTip(help->pos(), help->globalPos());
    } else {
      known = QAbstractScrollArea::viewportEvent(event);
    }
  });
  return known;
}

void CTextureWidget::ShowToolTip(const QPoint& position, const QPoint& onScreen) {
  const auto index = view_ == nullptr ? std::nullopt : view_->TextureAt(ToPicture(position));
  if (!index) {
    QToolTip::hideText();
    return;
  }
  const Texture& texture =
      view_->Document().Textures().Textures()[static_cast<std::size_t>(*index)];
  const QString text = QStringLiteral("%1, %2 x %3")
                           .arg(TextToQt(texture.name), QString::number(texture.width),
                                QString::number(texture.height));
  const ScreenRect place = view_->PlaceOf(*index);
  const ScreenPoint corner = ToPicture({0, 0});
  const double scale = devicePixelRatioF();
  const QRectF shown((place.left - corner.x) / scale, (place.top - corner.y) / scale,
                     texture.width / scale, texture.height / scale);
  QToolTip::showText(onScreen, PlainToolTip(text), viewport(), shown.toAlignedRect());
}

}  // namespace zando
