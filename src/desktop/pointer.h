#pragma once

#include <QObject>
#include <QPointF>

#include "platform/draw_context.h"

namespace zando {

/// The pointer on the screen, in pixels of the device, however the display is scaled. Qt itself
/// rounds to its own, larger units.
class CPointer : public QObject {
 public:
  CPointer();

  [[nodiscard]] ScreenPoint Position() const;

  /// Places the pointer; false when the desktop took it somewhere else.
  bool MoveTo(ScreenPoint point);

  /// Mouse events bring the only exact positions that some window systems give.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] QPointF DevicePosition() const;

  QPointF latest_;  ///< of the last mouse event, in Qt's units
  QPoint carry_;    ///< from where Qt placed the pointer to where it should be, in pixels
};

}  // namespace zando
