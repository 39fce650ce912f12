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

/// The world takes a listed brush that has just joined the level; at once, unless that is deferred.
void InsertIntoWorld(CZANDODoc& document, const CZandoBrush& listed);

/// While it lives, brushes that join the level wait, as they are then, to be taken into the world
/// together: that gives the same world in less time, and a rebuild needs none of them. Until
/// CatchUp nobody may read the world. There is one at a time for a document, which outlives it.
class CDeferredWorld {
 public:
  explicit CDeferredWorld(CZANDODoc& document);
  CDeferredWorld(const CDeferredWorld&) = delete;
  CDeferredWorld& operator=(const CDeferredWorld&) = delete;

  /// The world goes without what still waits.
  ~CDeferredWorld();

  /// The world is as if every brush had been taken at once.
  void CatchUp();

 private:
  CZANDODoc& document_;
};

}  // namespace zando
