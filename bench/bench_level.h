#pragma once

#include <cstdint>

#include "document/brush_list.h"

namespace zando::bench {

/// A level of `count` brushes spread like a real one: sizes of 64 to 256 units, each overlapping a
/// handful of others; three in four solid, the rest carving; boxes, tapered boxes and turned ones.
/// The same seed gives the same level.
void FillLevel(CBrushList& list, std::int32_t count, std::uint32_t seed);

}  // namespace zando::bench
