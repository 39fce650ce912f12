#include "desktop/device_pixels.h"

#include <QTransform>
#include <cmath>

namespace zando {
namespace {

/// A size that is whole but for the rounding of the display's scale stays what it is.
int RoundUp(double pixels) { return static_cast<int>(std::ceil(pixels - 1e-6)); }

}  // namespace

QSize DeviceSize(const QWidget& widget) {
  const double scale = widget.devicePixelRatioF();
  return {RoundUp(widget.width() * scale), RoundUp(widget.height() * scale)};
}

QPoint ToDevicePixel(const QWidget& widget, const QPointF& position) {
  const double scale = widget.devicePixelRatioF();
  // A widget may begin in the middle of a pixel, its picture cannot.
  const QPointF corner = QPointF(widget.mapTo(widget.window(), QPoint(0, 0))) * scale;
  return (corner + position * scale).toPoint() - corner.toPoint();
}

QPoint ToDevicePixel(const QWidget& widget, const QMouseEvent& event) {
  // The place in the window is exact. An event that never came by the window has none.
  const QPointF exact =
      event.scenePosition() - QPointF(widget.mapTo(widget.window(), QPoint(0, 0)));
  const bool agrees = IsRounded(exact, event.position());
  return ToDevicePixel(widget, agrees ? exact : event.position());
}

bool IsRounded(const QPointF& exact, const QPointF& rounded) {
  constexpr double half = 0.5 + 1e-6;
  return std::abs(exact.x() - rounded.x()) <= half && std::abs(exact.y() - rounded.y()) <= half;
}

void CountDevicePixels(QPainter& painter) {
  const QTransform toDevice = painter.deviceTransform();
  const QTransform whole =
      QTransform::fromTranslate(std::round(toDevice.dx()), std::round(toDevice.dy()));
  painter.setWorldTransform(whole * toDevice.inverted(), true);
}

}  // namespace zando
