#include "document/import_edits.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "document/change.h"
#include "document/visibility.h"
#include "platform/text.h"

namespace zando {
namespace {

void SetWorldKey(Level& level, EntityPair pair) {
  const auto same = std::ranges::find_if(level.WorldKeys, [&](const EntityPair& known) {
    return EqualIgnoringCase(known.key, pair.key);
  });
  if (same == level.WorldKeys.end()) {
    level.WorldKeys.push_back(std::move(pair));
  } else {
    *same = std::move(pair);
  }
}

}  // namespace

void AppendLevel(CZANDODoc& document, ImportedLevel imported) {
  CChange change(document, kTouchedLevel);
  Level& level = change.level;
  const auto firstEntity = static_cast<std::int32_t>(level.Entities.size());
  level.Entities.reserve(level.Entities.size() + imported.entities.size());
  for (CEntity& entity : imported.entities) {
    RefreshShown(entity, level, change.state);
    level.Entities.push_back(std::move(entity));
  }
  for (std::unique_ptr<CZandoBrush>& brush : imported.brushes) {
    if (brush->BelongsToEntity()) brush->BEnt += firstEntity;
    RefreshShown(*brush, level, change.state);
    level.AddBrush(std::move(brush));
  }
  for (EntityPair& pair : imported.worldKeys) SetWorldKey(level, std::move(pair));
  if (!imported.entities.empty()) {
    change.state.CurrentEntity = static_cast<std::int32_t>(level.Entities.size()) - 1;
  }
}

}  // namespace zando
