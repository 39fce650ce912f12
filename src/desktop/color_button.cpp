#include "desktop/color_button.h"

#include <QPainter>

namespace zando {
namespace {

QColor ToQt(ColorRef color) {
  return {static_cast<int>(color & 0xFFU), static_cast<int>(color >> 8U & 0xFFU),
          static_cast<int>(color >> 16U & 0xFFU)};
}

}  // namespace

CColorButton::CColorButton(QWidget* parent) : QPushButton(parent) {
  SetColor(color_);
  setAutoDefault(false);
}

void CColorButton::SetColor(ColorRef color) {
  color_ = color;
  setAccessibleDescription(ToQt(color).name());
  setToolTip(ToQt(color).name());
  repaint();
}

QSize CColorButton::sizeHint() const {
  const int line = fontMetrics().height();
  return {line * 6, line + line / 2};
}

void CColorButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor color = ToQt(color_);
  painter.fillRect(rect(), color);
  painter.setPen(palette().color(isDown() ? QPalette::Highlight : QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (!hasFocus()) return;
  // Black or white, whichever stands out from the colour.
  painter.setPen(QPen(qGray(color.rgb()) > 128 ? Qt::black : Qt::white, 2, Qt::DotLine));
  painter.drawRect(rect().adjusted(4, 4, -5, -5));
}

}  // namespace zando
