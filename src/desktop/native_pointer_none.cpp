// For builds without the library of the X server's protocol.
#include "desktop/native_pointer.h"

namespace zando {

std::optional<QPoint> NativePointer() { return std::nullopt; }

bool PlaceNativePointer(const QPoint& /*position*/) { return false; }

}  // namespace zando
