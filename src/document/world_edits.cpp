#include "document/world_edits.h"

#include "document/change.h"

namespace zando {

void RebuildWorld(CZANDODoc& document, RebuildKind kind, WaterBrushes water, CProgress* progress) {
  CConstructiveBsp world;
  world.brushList = document.GetLevel().BrushList.Head();
  if (kind == RebuildKind::Quick) {
    RebuildQuick(world, progress, water);
  } else {
    RebuildOptimal(world, progress, water);
  }
  world.CountStats();
  CChange change(document, kTouchedLevel);
  change.level.World.Swap(world);
}

}  // namespace zando
