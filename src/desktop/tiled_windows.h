#pragma once

#include <QMdiSubWindow>
#include <vector>

#include "desktop/tiling.h"

namespace zando {

/// Windows that share an area, and go on to share it when its size changes. One that the user moves
/// or sizes is his own from then on; the others keep their parts.
class CTiledWindows {
 public:
  /// Puts them there, in order; none is minimized. Those of before stay where they are.
  void Tile(const std::vector<QMdiSubWindow*>& windows, const QRect& area, TileOrder order);

  /// The area has this size now, or a window is back from being minimized or maximized.
  void Follow(const QRect& area);

  void Forget(const QMdiSubWindow* window);
  void Clear() { tiles_.clear(); }

 private:
  struct Part {
    QMdiSubWindow* window;  ///< null when nobody stands there any more
    QRect place;            ///< where it was put last
  };

  std::vector<Part> tiles_;
  TileOrder order_ = TileOrder::Stacked;
};

}  // namespace zando
