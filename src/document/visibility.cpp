#include "document/visibility.h"

#include <cstddef>
#include <cstdint>

#include "platform/bits.h"

namespace zando {
namespace {

bool PassesFilter(std::int32_t group, const Level& level, const EditingState& state) {
  switch (state.ShowFilter) {
    case ID_SHOW_VISIBLE_GROUPS:
      return level.IsGroup(group) && level.Groups[static_cast<std::size_t>(group)].gVis != 0;
    case ID_SHOW_CURRENT_GROUP:
      return group == state.CurrentGroup;
    default:
      return true;
  }
}

std::uint32_t GroupColor(std::int32_t group, const Level& level) {
  return level.IsGroup(group) ? level.Groups[static_cast<std::size_t>(group)].gCol : kWhite;
}

void Filter(CZandoBrush& brush, const Level& level, const EditingState& state) {
  const bool hiddenWithEntities = brush.BelongsToEntity() && state.ShowEntities == 0;
  SetBit(brush.BFlags, BF_SHOWN, PassesFilter(brush.BGroup, level, state) && !hiddenWithEntities);
}

void Filter(CEntity& entity, const Level& level, const EditingState& state) {
  SetBit(entity.eFlags, EF_SHOWN, PassesFilter(entity.eGroup, level, state));
}

}  // namespace

void RefreshShown(CZandoBrush& brush, const Level& level, const EditingState& state) {
  brush.Color = GroupColor(brush.BGroup, level);
  Filter(brush, level, state);
}

void RefreshShown(CEntity& entity, const Level& level, const EditingState& state) {
  entity.Color = GroupColor(entity.eGroup, level);
  Filter(entity, level, state);
}

void RefreshColors(Level& level, const EditingState& state) {
  for (CZandoBrush& brush : level.BrushList) RefreshShown(brush, level, state);
  for (CEntity& entity : level.Entities) RefreshShown(entity, level, state);
}

void ApplyShowFilter(Level& level, const EditingState& state) {
  for (CZandoBrush& brush : level.BrushList) Filter(brush, level, state);
  for (CEntity& entity : level.Entities) Filter(entity, level, state);
}

}  // namespace zando
