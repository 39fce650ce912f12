#include "document/entity_edits.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "document/change.h"
#include "document/visibility.h"
#include "platform/bits.h"
#include "platform/text.h"

namespace zando {
namespace {

/// How far an entity may be from the point that picks it, and where the search begins, map units.
constexpr double kPickReach = 100.0;
constexpr double kBeyondAnyEntity = 200000.0;

/// The entity at this index is gone, and later ones have moved down.
void ForgetEntity(CZandoBrush& brush, std::int32_t index) {
  if (!brush.BelongsToEntity()) return;
  if (brush.BEnt == index) {
    SetBit(brush.BFlags, BF_ENTITY, false);
  } else if (brush.BEnt > index) {
    --brush.BEnt;
  }
}

const EntityPair* PairOf(const Level& level, std::int32_t entity, std::int32_t pair) {
  if (!level.IsEntity(entity) || pair < 0) return nullptr;
  const std::vector<EntityPair>& pairs = level.Entities[static_cast<std::size_t>(entity)].Pairs;
  const auto index = static_cast<std::size_t>(pair);
  return index < pairs.size() ? &pairs[index] : nullptr;
}

void AppendCurrent(CChange& change, CEntity entity) {
  RefreshShown(entity, change.level, change.state);
  change.level.Entities.push_back(std::move(entity));
  change.state.CurrentEntity = static_cast<std::int32_t>(change.level.Entities.size()) - 1;
}

void GiveTo(CEntity& entity, std::int32_t index, CZandoBrush& brush) {
  SetBit(brush.BFlags, BF_SELECTED, false);
  SetBit(brush.BFlags, BF_ENTITY, true);
  brush.BEnt = index;
  brush.BGroup = entity.eGroup;
}

}  // namespace

void AddEntity(CZANDODoc& document, CEntity entity) {
  CChange change(document, kTouchedLevel);
  entity.eGroup = change.state.CurrentGroup;
  entity.ParseOrigin();
  AppendCurrent(change, std::move(entity));
}

void PlaceLight(CZANDODoc& document) {
  CEntity light;
  light.AddPair("classname", "light");
  light.AddPair("origin", "0 0 0");
  light.AddPair("light", "300");
  AddEntity(document, std::move(light));
}

void CopyCurrentEntity(CZANDODoc& document) {
  if (!document.GetLevel().IsEntity(document.State().CurrentEntity)) return;
  CChange change(document, kTouchedLevel);
  AppendCurrent(change, CEntity(change.CurrentEntity()));
}

void DeleteEntity(CZANDODoc& document, std::int32_t index) {
  if (!document.GetLevel().IsEntity(index)) return;
  // A brush that hid with its entity may be shown now.
  CChange change(document, kTouchedLevel | kTouchedVisible);
  CEntList& entities = change.level.Entities;
  entities.erase(entities.begin() + index);
  for (CZandoBrush& brush : change.level.BrushList) ForgetEntity(brush, index);
  // As a copy of an entity's brush it belongs to that entity too.
  ForgetEntity(change.level.WorkingBrush, index);
  std::int32_t& current = change.state.CurrentEntity;
  if (current == index) {
    current = -1;
  } else if (current > index) {
    --current;
  }
}

void DeleteCurrentEntity(CZANDODoc& document) {
  const std::int32_t current = document.State().CurrentEntity;
  if (!document.GetLevel().IsEntity(current)) return;
  const CCompoundChange whole(document);
  DeleteEntity(document, current);
  SetCurrentEntity(document, current - 1);
}

void SetCurrentEntity(CZANDODoc& document, std::int32_t index) {
  CChange change(document, kTouchedDisplay);
  change.state.CurrentEntity = change.level.IsEntity(index) ? index : -1;
}

void PickEntity(CZANDODoc& document, const Vector& point, const ViewAxes& axes) {
  if (document.State().ShowEntities == 0) return;
  const CEntList& entities = document.GetLevel().Entities;
  std::int32_t nearest = -1;
  double distance = kBeyondAnyEntity;
  for (std::size_t i = 0; i < entities.size(); ++i) {
    if (!entities[i].IsShown()) continue;
    const double candidate = entities[i].Distance2D(point, axes);
    if (!(candidate < distance)) continue;
    nearest = static_cast<std::int32_t>(i);
    distance = candidate;
  }
  if (distance <= kPickReach) SetCurrentEntity(document, nearest);
}

void SetEntityKey(CZANDODoc& document, std::int32_t index, std::string_view key,
                  std::string_view value) {
  if (!document.GetLevel().IsEntity(index)) return;
  const CEntity& old = document.GetLevel().Entities[static_cast<std::size_t>(index)];
  if (old.HasKey(key) && old.GetValue(key) == value) return;
  CChange change(document, kTouchedLevel);
  CEntity& entity = change.level.Entities[static_cast<std::size_t>(index)];
  if (entity.HasKey(key)) {
    entity.SetValue(key, value);
  } else {
    entity.AddPair(key, value);
  }
  entity.ParseOrigin();
}

void SetEntityPair(CZANDODoc& document, std::int32_t index, std::int32_t pair,
                   const EntityPair& value) {
  if (PairOf(document.GetLevel(), index, pair) == nullptr) return;
  if (*PairOf(document.GetLevel(), index, pair) == value) return;
  CChange change(document, kTouchedLevel);
  CEntity& entity = change.level.Entities[static_cast<std::size_t>(index)];
  entity.Pairs[static_cast<std::size_t>(pair)] = value;
}

void AddEntityPair(CZANDODoc& document, std::int32_t index, const EntityPair& value) {
  if (!document.GetLevel().IsEntity(index)) return;
  CChange change(document, kTouchedLevel);
  change.level.Entities[static_cast<std::size_t>(index)].Pairs.push_back(value);
}

void RemoveEntityPair(CZANDODoc& document, std::int32_t index, std::int32_t pair) {
  if (PairOf(document.GetLevel(), index, pair) == nullptr) return;
  CChange change(document, kTouchedLevel);
  std::vector<EntityPair>& pairs = change.level.Entities[static_cast<std::size_t>(index)].Pairs;
  pairs.erase(pairs.begin() + pair);
}

void ParseAllOrigins(CZANDODoc& document) {
  CChange change(document, kTouchedDisplay);
  for (CEntity& entity : change.level.Entities) {
    const std::pair before{entity.eOrigin, entity.eStyle};
    entity.ParseOrigin();
    if (before != std::pair{entity.eOrigin, entity.eStyle}) change.Touch(kTouchedLevel);
  }
}

void AssociateBrushGroup(CZANDODoc& document, std::int32_t index) {
  const std::int32_t group = document.State().CurrentGroup;
  if (group == -1 || !document.GetLevel().IsEntity(index)) return;
  CChange change(document, kTouchedLevel | kTouchedGroups);
  for (CZandoBrush& brush : change.level.BrushList) {
    if (brush.BGroup != group) continue;
    SetBit(brush.BFlags, BF_ENTITY, true);
    brush.BEnt = index;
  }
  change.level.Entities[static_cast<std::size_t>(index)].eGroup = group;
}

void AssociateSelectedBrushes(CZANDODoc& document, std::int32_t index) {
  if (!document.GetLevel().IsEntity(index)) return;
  CChange change(document, kTouchedLevel | kTouchedGroups);
  CEntity& entity = change.level.Entities[static_cast<std::size_t>(index)];
  for (CZandoBrush& brush : change.level.BrushList) {
    if (brush.IsSelected()) GiveTo(entity, index, brush);
  }
}

void AssociateBrush(CZANDODoc& document, std::int32_t index, std::int32_t id) {
  if (!document.GetLevel().IsEntity(index)) return;
  CChange change(document, kTouchedLevel | kTouchedGroups);
  CZandoBrush* brush = change.level.BrushList.Find(id);
  if (brush != nullptr)
    GiveTo(change.level.Entities[static_cast<std::size_t>(index)], index, *brush);
}

void DisassociateBrushes(CZANDODoc& document, std::int32_t index) {
  if (!document.GetLevel().IsEntity(index)) return;
  CChange change(document, kTouchedLevel | kTouchedGroups);
  for (CZandoBrush& brush : change.level.BrushList) {
    if (brush.BEnt == index) SetBit(brush.BFlags, BF_ENTITY, false);
  }
}

}  // namespace zando
