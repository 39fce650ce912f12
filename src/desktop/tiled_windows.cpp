#include "desktop/tiled_windows.h"

namespace zando {

void CTiledWindows::Tile(const std::vector<QMdiSubWindow*>& windows, const QRect& area,
                         TileOrder order) {
  tiles_.clear();
  order_ = order;
  for (QMdiSubWindow* window : windows) {
    window->showNormal();
    tiles_.push_back({window, window->geometry()});
  }
  Follow(area);
}

void CTiledWindows::Follow(const QRect& area) {
  const std::vector<QRect> places = TileArea(area, static_cast<int>(tiles_.size()), order_);
  for (std::size_t i = 0; i < tiles_.size(); ++i) {
    auto& [window, place] = tiles_[i];
    if (window == nullptr || window->isMinimized() || window->isMaximized()) continue;
    if (window->geometry() != place) {
      window = nullptr;
      continue;
    }
    window->setGeometry(places[i]);
    // A window may refuse to be that small.
    place = window->geometry();
  }
}

void CTiledWindows::Forget(const QMdiSubWindow* window) {
  for (Part& part : tiles_) {
    if (part.window == window) part.window = nullptr;
  }
}

}  // namespace zando
