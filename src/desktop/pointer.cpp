#include "desktop/pointer.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>

#include "desktop/device_pixels.h"
#include "desktop/native_pointer.h"

namespace zando {
namespace {

/// Window systems may round the place of the pointer by this many pixels.
constexpr int kSlack = 2;

const QScreen& ScreenOf(const QPointF& position) {
  const QScreen* screen = QGuiApplication::screenAt(position.toPoint());
  return screen != nullptr ? *screen : *QGuiApplication::primaryScreen();
}

QPointF ToDevice(const QPointF& position) {
  const QScreen& screen = ScreenOf(position);
  const QPointF origin = screen.geometry().topLeft();
  return origin + (position - origin) * screen.devicePixelRatio();
}

/// `near` lies on the same screen.
QPointF FromDevice(const QPointF& pixel, const QPointF& near) {
  const QScreen& screen = ScreenOf(near);
  const QPointF origin = screen.geometry().topLeft();
  return origin + (pixel - origin) / screen.devicePixelRatio();
}

}  // namespace

CPointer::CPointer() { qApp->installEventFilter(this); }

bool CPointer::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  // On their way from the window to a widget events lose their fractions.
  if (watched->isWindowType() && (type == QEvent::MouseMove || type == QEvent::MouseButtonPress)) {
    latest_ = static_cast<const QMouseEvent*>(event)->globalPosition();
  }
  return QObject::eventFilter(watched, event);
}

QPointF CPointer::DevicePosition() const {
  // An event that waited in the queue tells where the pointer was.
  const QPoint now = QCursor::pos();
  return ToDevice(IsRounded(latest_, now) ? latest_ : now) + carry_;
}

ScreenPoint CPointer::Position() const {
  const QPoint position = NativePointer().value_or(DevicePosition().toPoint());
  return {position.x(), position.y()};
}

bool CPointer::MoveTo(ScreenPoint point) {
  const QPoint wanted(point.x, point.y);
  if (!PlaceNativePointer(wanted)) {
    const QPoint nearest = FromDevice(wanted, QCursor::pos()).toPoint();
    QCursor::setPos(nearest);
    latest_ = nearest;
    carry_ = wanted - ToDevice(nearest).toPoint();
  }
  const ScreenPoint reached = Position();
  return (QPoint(reached.x, reached.y) - wanted).manhattanLength() <= kSlack;
}

}  // namespace zando
