#pragma once

#include <QPoint>
#include <optional>

namespace zando {

/// The pointer in pixels, straight from the X server; none on other window systems.
[[nodiscard]] std::optional<QPoint> NativePointer();

/// Asks the X server to place the pointer; false on other window systems.
bool PlaceNativePointer(const QPoint& position);

}  // namespace zando
