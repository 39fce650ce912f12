#pragma once

#include <memory>
#include <vector>

#include "document/zando_doc.h"

namespace zando {

/// What an import adds to a level.
struct ImportedLevel {
  std::vector<EntityPair> worldKeys;
  /// Those that belong to an entity count it from the first of `entities`.
  std::vector<std::unique_ptr<CZandoBrush>> brushes;
  std::vector<CEntity> entities;
};

/// Appends brushes and entities to those of the level, as one change; the last entity becomes
/// current. Keys of the world replace those of the same name. The world tree stays as it
/// is until it is rebuilt.
void AppendLevel(CZANDODoc& document, ImportedLevel imported);

}  // namespace zando
