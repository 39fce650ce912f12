#pragma once

#include <string>

#include "csg/csg_world.h"
#include "document/zando_doc.h"
#include "platform/progress.h"

namespace zando {

enum class RebuildKind { Quick, Optimal };

/// Builds the world of a level anew from its shown brushes and brings its counts up to date. A
/// rebuild that fails for want of memory, or is cancelled, leaves the world as it was; false when
/// it was cancelled.
bool RebuildWorld(CZANDODoc& document, RebuildKind kind, WaterBrushes water, CProgress* progress);

}  // namespace zando
