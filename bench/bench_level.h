#pragma once

#include <cstdint>

#include "document/brush_list.h"
#include "document/zando_doc.h"

namespace zando::bench {

/// How the brushes of a generated level are placed. Three in four are solid, the rest carve.
enum class Kind : std::int64_t {
  OnGrid,       ///< like a real level: on a grid of 16 units, few tapered, few turned by 45 degrees
  FreelyTurned  ///< any position, one in five tapered, one in five turned by any angle
};

/// A level of `count` convex brushes of 64 to 256 units in a cube that grows with their number, so
/// that each overlaps a handful of others. Ids are positions. The same every time.
[[nodiscard]] CBrushList MakeLevel(Kind kind, std::int32_t count);

/// Adds such a level to a document and makes its world.
void FillDocument(CZANDODoc& document, Kind kind, std::int32_t count);

/// How many others the bounds of a brush overlap, on average.
[[nodiscard]] double MeanNeighbours(const CBrushList& level);

}  // namespace zando::bench
