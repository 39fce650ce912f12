#pragma once

#include <QMouseEvent>
#include <QPainter>
#include <QPoint>
#include <QSize>
#include <QWidget>

namespace zando {

/// Qt measures in units that a scaled display shows as more than one pixel, or as one and a
/// quarter. Views know nothing of that: their pictures and positions are the pixels of the device.

/// The pixels that the widget reaches into.
[[nodiscard]] QSize DeviceSize(const QWidget& widget);

/// The pixel of the widget's picture at a place in its own units.
[[nodiscard]] QPoint ToDevicePixel(const QWidget& widget, const QPointF& position);

/// The same of a mouse event that came to the widget, whose position Qt has rounded to its units.
[[nodiscard]] QPoint ToDevicePixel(const QWidget& widget, const QMouseEvent& event);

/// Whether the second place is the first, rounded to whole units.
[[nodiscard]] bool IsRounded(const QPointF& exact, const QPointF& rounded);

/// From now on the painter, which has just begun on the widget, counts pixels from the top left
/// one.
void CountDevicePixels(QPainter& painter);

}  // namespace zando
