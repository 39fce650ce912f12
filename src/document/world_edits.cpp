#include "document/world_edits.h"

#include "document/change.h"

namespace zando {

bool RebuildWorld(CZANDODoc& document, RebuildKind kind, WaterBrushes water, CProgress* progress) {
  CConstructiveBsp world;
  world.brushList = document.GetLevel().BrushList.Head();
  try {
    if (kind == RebuildKind::Quick) {
      RebuildQuick(world, progress, water);
    } else {
      RebuildOptimal(world, progress, water);
    }
  } catch (const CCancelled&) {
    return false;
  }
  world.CountStats();
  CChange change(document, kTouchedLevel);
  change.level.World.Swap(world);
  return true;
}

}  // namespace zando
