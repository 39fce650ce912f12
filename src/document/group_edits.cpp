#include "document/group_edits.h"

#include <cstddef>

#include "document/change.h"
#include "platform/bits.h"

namespace zando {
namespace {

/// The pivot of a brush that was taken out of its group.
constexpr Vector kDefaultPivot{128.0, 128.0, 128.0};

void MoveSelectionToGroup(CZANDODoc& document, std::int32_t group, const Vector& pivot) {
  if (!document.AnySelected()) return;
  CChange change(document, kTouchedLevel | kTouchedGroups);
  for (CZandoBrush& brush : change.level.BrushList) {
    if (!brush.IsSelected()) continue;
    brush.BGroup = group;
    brush.BeginGroupOperation(pivot);
    SetBit(brush.BFlags, BF_SELECTED, false);
  }
  for (CEntity& entity : change.level.Entities) {
    if (!entity.IsSelected()) continue;
    entity.eGroup = group;
    SetBit(entity.eFlags, EF_SELECTED, false);
  }
}

}  // namespace

void CreateNewGroup(CZANDODoc& document) {
  if (!document.AnySelected()) return;
  const CCompoundChange whole(document);
  CreateEmptyGroup(document);
  AddSelectedToGroup(document);
}

void CreateEmptyGroup(CZANDODoc& document) {
  CChange change(document, kTouchedLevel | kTouchedGroups);
  change.level.Groups.emplace_back();
  change.state.CurrentGroup = static_cast<std::int32_t>(change.level.Groups.size()) - 1;
  change.level.Groups.back().ComputeCentre(change.level.BrushList.Head(),
                                           change.state.CurrentGroup);
}

void AddSelectedToGroup(CZANDODoc& document) {
  const std::int32_t group = document.State().CurrentGroup;
  const Level& level = document.GetLevel();
  const Vector pivot = level.IsGroup(group) ? level.Groups[static_cast<std::size_t>(group)].Centre
                                            : Vector{0.0, 0.0, 0.0};
  MoveSelectionToGroup(document, group, pivot);
}

void RemoveSelectedFromGroup(CZANDODoc& document) {
  MoveSelectionToGroup(document, -1, kDefaultPivot);
}

void SetCurrentGroup(CZANDODoc& document, std::int32_t group) {
  CChange change(document, kTouchedGroups);
  change.state.CurrentGroup = change.level.IsGroup(group) ? group : -1;
}

GroupLook LookOf(const CBGroup& group) { return {group.gName, group.gCol, group.gVis != 0}; }

void SetGroupLook(CZANDODoc& document, std::int32_t group, const GroupLook& look) {
  if (!document.GetLevel().IsGroup(group)) return;
  const CBGroup& before = document.GetLevel().Groups[static_cast<std::size_t>(group)];
  const bool same =
      before.gName == look.name && before.gCol == look.color && (before.gVis != 0) == look.visible;
  if (same) return;
  CChange change(document, kTouchedLevel | kTouchedGroups);
  CBGroup& changed = change.level.Groups[static_cast<std::size_t>(group)];
  changed.gName = look.name;
  changed.gCol = look.color;
  changed.gVis = look.visible ? 1 : 0;
}

void MoveGroup(CZANDODoc& document, std::int32_t group, const Vector& offset) {
  if (!document.GetLevel().IsGroup(group)) return;
  CChange change(document, kTouchedLevel);
  for (CZandoBrush& brush : change.level.BrushList) {
    if (brush.BGroup == group) brush.MoveTo(brush.Own().Pos + offset);
  }
}

void TransformGroup(CZANDODoc& document, std::int32_t group, const Transform& operation) {
  if (!document.GetLevel().IsGroup(group)) return;
  CChange change(document, kTouchedLevel);
  CBGroup& transformed = change.level.Groups[static_cast<std::size_t>(group)];
  transformed.ComputeCentre(change.level.BrushList.Head(), group);
  for (CZandoBrush& brush : change.level.BrushList) {
    if (brush.BGroup != group) continue;
    brush.BeginGroupOperation(transformed.Centre);
    brush.EndGroupOperation(operation);
  }
}

}  // namespace zando
