#pragma once

#include <QRect>
#include <vector>

namespace zando {

/// How up to three windows share an area; more of them stand in rows and columns, and only which of
/// the two gets more differs.
enum class TileOrder { Stacked, SideBySide };

/// The places of `count` windows that cover the area, row by row; the last row may hold fewer,
/// wider ones.
[[nodiscard]] std::vector<QRect> TileArea(const QRect& area, int count, TileOrder order);

}  // namespace zando
