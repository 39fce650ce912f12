#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdlib>
#include <memory>

#include "desktop/native_pointer.h"

namespace zando {
namespace {

/// Null when the editor does not run on an X server.
xcb_connection_t* Connection() {
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_window_t RootOf(xcb_connection_t* connection) {
  return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

}  // namespace

std::optional<QPoint> NativePointer() {
  xcb_connection_t* connection = Connection();
  if (connection == nullptr) return std::nullopt;
  const xcb_query_pointer_cookie_t asked = xcb_query_pointer(connection, RootOf(connection));
  const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> reply(
      xcb_query_pointer_reply(connection, asked, nullptr), &std::free);
  if (reply == nullptr) return std::nullopt;
  return QPoint(reply->root_x, reply->root_y);
}

bool PlaceNativePointer(const QPoint& position) {
  xcb_connection_t* connection = Connection();
  if (connection == nullptr) return false;
  xcb_warp_pointer(connection, XCB_NONE, RootOf(connection), 0, 0, 0, 0,
                   static_cast<std::int16_t>(position.x()),
                   static_cast<std::int16_t>(position.y()));
  xcb_flush(connection);
  return true;
}

}  // namespace zando
