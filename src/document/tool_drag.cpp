#include "document/tool_drag.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "document/change.h"

namespace zando {
namespace {

constexpr double kScalePerPixel = -0.005;
constexpr double kShearPerPixel = 0.005;
constexpr double kLeastScale = 0.1;

/// One degree.
constexpr double kFreeRotationStep = kRotationUnitsPerTurn / 360.0;

/// Steps come from dialogs; one that is no step would leave no coordinate.
double StepOr(double step, double fallback) {
  return step > 0.0 && std::isfinite(step) ? step : fallback;
}

double MoveStep(const EditingState& state) {
  return state.UseGrid != 0 ? StepOr(state.GridSize, 1.0) : 1.0;
}

double RotationStep(const EditingState& state) {
  return state.UseRotationSnap != 0 ? StepOr(state.RotationSnap, kFreeRotationStep)
                                    : kFreeRotationStep;
}

/// The axes of the mask along which something changed.
std::uint32_t ChangedAxes(const Vector& change, std::uint32_t axisMask) {
  std::uint32_t changed = 0;
  for (std::size_t i = 0; i < kAxes.size(); ++i) {
    if (change.*kCoordinates[i] != 0.0) changed |= kAxes[i];
  }
  return changed & axisMask;
}

}  // namespace

CToolDrag::CToolDrag(CZANDODoc& document, DragOperation operation)
    : document_(document), operation_(operation) {
  CChange change(document, kTouchedNothing);
  Level& level = change.level;
  const EditingState& state = change.state;
  if (MovesEntity()) {
    if (!level.IsEntity(state.CurrentEntity) || change.CurrentEntity().eStyle != 0) return;
    entity_ = state.CurrentEntity;
    entityBefore_ = change.CurrentEntity().WorkOrigin;
    return;
  }
  if (state.GroupMovementMode == 0) {
    members_.push_back({state.CurrentBrush, change.CurrentBrush().Slots()});
    return;
  }
  if (!level.IsGroup(state.CurrentGroup)) return;
  group_ = state.CurrentGroup;
  for (const CZandoBrush& brush : level.BrushList) {
    if (brush.BGroup == group_) members_.push_back({brush.BBid, brush.Slots()});
  }
  if (operation_ == DragOperation::MoveBrush || members_.empty()) return;
  // The centre as it is now, whatever moved since it was last computed, is the pivot of them all.
  CBGroup& group = level.Groups[static_cast<std::size_t>(group_)];
  groupBefore_ = group;
  group.ComputeCentre(level.BrushList.Head(), group_);
  ForEachMember(kTouchedNothing, [&](CZandoBrush& brush, const Member&) {
    brush.BeginGroupOperation(group.Centre);
  });
}

template <typename Edit>
void CToolDrag::ForEachMember(std::uint32_t touched, Edit&& edit) {
  CChange change(document_, touched);
  for (const Member& member : members_) {
    CZandoBrush* brush = member.id == kWorkingBrush ? &change.level.WorkingBrush
                                                    : change.level.BrushList.Find(member.id);
    if (brush != nullptr) edit(*brush, member);
  }
}

void CToolDrag::Step(const Vector& amount, std::uint32_t axisMask) {
  const bool turns = operation_ == DragOperation::RotateBrush;
  const Vector allowed =
      turns ? ByAxis(Masked(ByAxis(amount), axisMask)) : Masked(amount, axisMask);
  const bool nothing = entity_ < 0 && members_.empty();
  if (nothing || allowed == Vector{0.0, 0.0, 0.0}) return;
  changed_ = true;
  if (MovesEntity()) {
    CChange change(document_, kTouchedNothing);
    if (CEntity* entity = DraggedEntity(change.level)) entity->Move(allowed, axisMask);
    return;
  }
  moved_ = moved_ - allowed;
  ForEachMember(kTouchedNothing,
                [&](CZandoBrush& brush, const Member&) { StepBrush(brush, allowed); });
}

CEntity* CToolDrag::DraggedEntity(Level& level) const {
  return level.IsEntity(entity_) ? &level.Entities[static_cast<std::size_t>(entity_)] : nullptr;
}

void CToolDrag::StepBrush(CZandoBrush& brush, const Vector& amount) const {
  if (operation_ == DragOperation::MoveBrush) {
    brush.UpdateMove(brush.Own().WorkPos - amount);
    return;
  }
  const std::size_t index = group_ >= 0 ? kGroupSlot : kOwnSlot;
  Placement slot = brush.Slot(index);
  if (operation_ == DragOperation::RotateBrush) {
    slot.WorkRot = slot.WorkRot + amount;
  } else if (operation_ == DragOperation::ScaleBrush) {
    const Vector scale = slot.Scl + amount * kScalePerPixel;
    slot.Scl = {std::max(scale.x, kLeastScale), std::max(scale.y, kLeastScale),
                std::max(scale.z, kLeastScale)};
  } else {
    slot.Shr = slot.Shr + amount * kShearPerPixel;
  }
  brush.SetSlot(index, slot);
  if (group_ >= 0) brush.UpdateGroupOperation(brush.GroupOperation());
}

void CToolDrag::End(std::uint32_t axisMask, Commit commit) {
  if (!changed_) {
    Cancel();
    return;
  }
  switch (operation_) {
    case DragOperation::MoveBrush:
      group_ >= 0 ? EndGroupMove(axisMask, commit) : EndMove(axisMask, commit);
      break;
    case DragOperation::RotateBrush:
      EndRotation(axisMask, commit);
      break;
    case DragOperation::ScaleBrush:
    case DragOperation::ShearBrush:
      EndUnsnapped();
      break;
    case DragOperation::MoveEntity:
      EndEntity(axisMask, commit);
      break;
  }
}

void CToolDrag::EndMove(std::uint32_t axisMask, Commit commit) {
  const double step = MoveStep(document_.State());
  ForEachMember(kTouchedLevel, [&](CZandoBrush& brush, const Member&) {
    const Placement& own = brush.Own();
    const std::uint32_t axes = ChangedAxes(own.WorkPos - own.Pos, axisMask);
    brush.MoveTo(Committed(Snapped(own.WorkPos, step, axes), own.Pos, commit));
  });
}

/// The displacement that all have in common snaps, so that the members keep their places to one
/// another.
void CToolDrag::EndGroupMove(std::uint32_t axisMask, Commit commit) {
  const double step = MoveStep(document_.State());
  const Vector snapped = Snapped(moved_, step, axisMask);
  const Vector offset = Committed(snapped, {0.0, 0.0, 0.0}, commit);
  CChange change(document_, kTouchedLevel);
  ForEachMember(kTouchedLevel,
                [&](CZandoBrush& brush, const Member&) { brush.MoveTo(brush.Own().Pos + offset); });
  CBGroup& group = change.level.Groups[static_cast<std::size_t>(group_)];
  group.ComputeCentre(change.level.BrushList.Head(), group_);
  ForEachMember(kTouchedLevel, [&](CZandoBrush& brush, const Member&) {
    brush.BeginGroupOperation(group.Centre);
  });
}

void CToolDrag::EndRotation(std::uint32_t axisMask, Commit commit) {
  const double step = RotationStep(document_.State());
  const std::size_t index = group_ >= 0 ? kGroupSlot : kOwnSlot;
  const CCompoundChange whole(document_);
  ForEachMember(kTouchedLevel, [&](CZandoBrush& brush, const Member&) {
    Placement slot = brush.Slot(index);
    const std::uint32_t axes = ChangedAxes(ByAxis(slot.WorkRot - slot.Rot), axisMask);
    const Vector snapped = Snapped(ByAxis(slot.WorkRot), step, axes);
    // A group turns by what it was turned, whatever the keys say.
    const bool all = group_ >= 0 || commit == Commit::AllAxes;
    slot.WorkRot =
        ByAxis(Committed(snapped, ByAxis(slot.Rot), all ? Commit::AllAxes : Commit::DominantAxis));
    brush.SetSlot(index, slot);
  });
  EndUnsnapped();
}

void CToolDrag::EndUnsnapped() {
  if (!changed_) {
    Cancel();
    return;
  }
  if (group_ >= 0) {
    CommitGroupOperation();
    return;
  }
  ForEachMember(kTouchedLevel, [](CZandoBrush& brush, const Member&) {
    Placement own = brush.Own();
    own.Rot = own.WorkRot;
    brush.SetSlot(kOwnSlot, own);
  });
}

void CToolDrag::CommitGroupOperation() {
  ForEachMember(kTouchedLevel, [](CZandoBrush& brush, const Member&) {
    brush.EndGroupOperation(brush.GroupOperation());
  });
}

void CToolDrag::EndEntity(std::uint32_t axisMask, Commit commit) {
  CChange change(document_, kTouchedLevel);
  CEntity* entity = DraggedEntity(change.level);
  if (entity == nullptr) return;
  const std::uint32_t axes = ChangedAxes(entity->WorkOrigin - entity->eOrigin, axisMask);
  entity->EndMove(MoveStep(change.state), axes, commit);
}

void CToolDrag::Cancel() {
  CChange change(document_, changed_ ? kTouchedDisplay : kTouchedNothing);
  ForEachMember(kTouchedNothing,
                [](CZandoBrush& brush, const Member& member) { brush.CancelDrag(member.before); });
  if (groupBefore_) change.level.Groups[static_cast<std::size_t>(group_)] = *groupBefore_;
  if (CEntity* entity = DraggedEntity(change.level)) entity->WorkOrigin = entityBefore_;
}

void TurnBrush(CZANDODoc& document, const Vector& angles, std::uint32_t axisMask) {
  CToolDrag turn(document, DragOperation::RotateBrush);
  turn.Step(angles, axisMask);
  turn.EndUnsnapped();
}

}  // namespace zando
