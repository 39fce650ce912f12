#include "desktop/tiling.h"

#include <algorithm>

namespace zando {
namespace {

int RootOf(int count) {
  int root = 1;
  while ((root + 1) * (root + 1) <= count) ++root;
  return root;
}

/// Where the part `index` of `parts` begins in `length` pixels: no pixel is lost between parts.
int Edge(int length, int index, int parts) { return length * index / parts; }

}  // namespace

std::vector<QRect> TileArea(const QRect& area, int count, TileOrder order) {
  std::vector<QRect> places;
  if (count <= 0) return places;
  const int few = RootOf(count);
  const int many = (count + few - 1) / few;
  const int columns = order == TileOrder::Stacked ? few : many;
  const int rows = (count + columns - 1) / columns;
  for (int i = 0; i < count; ++i) {
    const int row = i / columns;
    const int inRow = std::min(columns, count - row * columns);
    const int column = i - row * columns;
    const QPoint topLeft(Edge(area.width(), column, inRow), Edge(area.height(), row, rows));
    const QPoint end(Edge(area.width(), column + 1, inRow), Edge(area.height(), row + 1, rows));
    places.emplace_back(area.topLeft() + topLeft, area.topLeft() + end - QPoint(1, 1));
  }
  return places;
}

}  // namespace zando
