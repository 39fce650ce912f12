#include "document/world_edits.h"

#include <vector>

#include "csg/brush_sequence.h"
#include "document/change.h"

namespace zando {
namespace {

/// A sequence is faster, and begins with an empty world.
void InsertBrushes(CConstructiveBsp& world, const std::vector<WaitingBrush>& brushes) {
  if (world.root != nullptr) {
    for (const auto& [brush, id] : brushes) InsertBrush(world, brush, id);
    return;
  }
  CBrushSequence sequence(world);
  for (const auto& [brush, id] : brushes) {
    if (brush.HasVolume()) sequence.Insert(brush, id);
  }
}

}  // namespace

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
  if (change.waiting) change.waiting->clear();
  return true;
}

void InsertIntoWorld(CZANDODoc& document, const CZandoBrush& listed) {
  CChange change(document, kTouchedLevel);
  if (change.waiting) {
    change.waiting->push_back({listed, listed.BBid});
  } else {
    // The listed brush owns the new nodes.
    InsertBrush(change.level.World, listed, listed.BBid);
  }
}

CDeferredWorld::CDeferredWorld(CZANDODoc& document) : document_(document) {
  CChange(document, kTouchedNothing).waiting.emplace();
}

CDeferredWorld::~CDeferredWorld() { CChange(document_, kTouchedNothing).waiting.reset(); }

void CDeferredWorld::CatchUp() {
  CChange change(document_, kTouchedNothing);
  if (!change.waiting || change.waiting->empty()) return;
  InsertBrushes(change.level.World, *change.waiting);
  change.level.LinkWorld();
  change.waiting->clear();
}

}  // namespace zando
