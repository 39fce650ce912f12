#include "document/import_edits.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "document/change.h"
#include "document/visibility.h"
#include "platform/text.h"

namespace zando {
namespace {

std::string InLowerCase(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), LowerCase);
  return lower;
}

/// A file may hold any number of keys.
void ReplaceWorldKeys(std::vector<EntityPair>& keys, std::vector<EntityPair> imported) {
  if (keys.empty()) {
    keys = std::move(imported);
    return;
  }
  std::vector<std::string> names;
  names.reserve(imported.size());
  for (const EntityPair& pair : imported) names.push_back(InLowerCase(pair.key));
  std::ranges::sort(names);
  std::erase_if(keys, [&](const EntityPair& pair) {
    return std::ranges::binary_search(names, InLowerCase(pair.key));
  });
  keys.insert(keys.end(), std::make_move_iterator(imported.begin()),
              std::make_move_iterator(imported.end()));
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
  ReplaceWorldKeys(level.WorldKeys, std::move(imported.worldKeys));
  if (!imported.entities.empty()) {
    change.state.CurrentEntity = static_cast<std::int32_t>(level.Entities.size()) - 1;
  }
}

}  // namespace zando
