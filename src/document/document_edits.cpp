// What the mouse tools do to a level.
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "document/zando_doc.h"
#include "geometry/axes.h"

namespace zando {
namespace {

constexpr double kScalePerPixel = -0.005;
constexpr double kShearPerPixel = 0.005;
constexpr double kLeastScale = 0.1;

/// One degree.
constexpr double kFreeRotationStep = kRotationUnitsPerTurn / 360.0;

/// How far an entity may be from the point that picks it, and where the search begins, map units.
constexpr double kPickReach = 100.0;
constexpr double kBeyondAnyEntity = 200000.0;

/// Steps come from dialogs and double without a limit; one that is no step would leave no
/// coordinate.
double StepOr(double step, double fallback) {
  return step > 0.0 && std::isfinite(step) ? step : fallback;
}

void MarkSelected(std::int32_t& flags, std::int32_t bit, CZANDODoc::Selection selection) {
  flags = selection == CZANDODoc::Selection::Select ? flags | bit : flags & ~bit;
}

}  // namespace

std::vector<CZandoBrush*> CZANDODoc::EditedBrushes() {
  if (!EditsGroup()) return {CurrentBrush};
  std::vector<CZandoBrush*> members;
  if (!IsGroup(CurrentGroup)) return members;
  for (const auto& brush : BrushList.Brushes()) {
    if (brush->BGroup == CurrentGroup) members.push_back(brush.get());
  }
  return members;
}

/// The members may have come into the group with other pivots, or from a file with none.
void CZANDODoc::ShowGroupOperation(CZandoBrush& brush) {
  const Vector& pivot = Groups[static_cast<std::size_t>(CurrentGroup)].Centre;
  brush.Pos[kGroupSlot] = pivot;
  brush.WorkPos[kGroupSlot] = pivot;
  brush.UpdateGroupOperation(brush.GroupOperation());
}

void CZANDODoc::MoveBrush(const Vector& back, std::uint32_t axisMask) {
  LastDragWasRotate = 0;
  for (CZandoBrush* brush : EditedBrushes()) {
    Vector& place = brush->WorkPos[kOwnSlot];
    place = place - Masked(back, axisMask);
    brush->UpdateMove();
  }
}

void CZANDODoc::RotateBrush(const Vector& angles, std::uint32_t axisMask) {
  LastDragWasRotate = 1;
  const Vector turn = ByAxis(Masked(ByAxis(angles), axisMask));
  const std::size_t slot = EditsGroup() ? kGroupSlot : kOwnSlot;
  for (CZandoBrush* brush : EditedBrushes()) {
    brush->WorkRot[slot] = brush->WorkRot[slot] + turn;
    if (slot == kGroupSlot) ShowGroupOperation(*brush);
  }
}

void CZANDODoc::ScaleBrush(const Vector& pixels, std::uint32_t axisMask) {
  const std::size_t slot = EditsGroup() ? kGroupSlot : kOwnSlot;
  for (CZandoBrush* brush : EditedBrushes()) {
    Vector& scale = brush->Scl[slot];
    scale = scale + Masked(pixels, axisMask) * kScalePerPixel;
    scale = {std::max(scale.x, kLeastScale), std::max(scale.y, kLeastScale),
             std::max(scale.z, kLeastScale)};
    if (slot == kGroupSlot) ShowGroupOperation(*brush);
  }
}

void CZANDODoc::ShearBrush(const Vector& pixels, std::uint32_t axisMask) {
  const std::size_t slot = EditsGroup() ? kGroupSlot : kOwnSlot;
  for (CZandoBrush* brush : EditedBrushes()) {
    brush->Shr[slot] = brush->Shr[slot] + Masked(pixels, axisMask) * kShearPerPixel;
    if (slot == kGroupSlot) ShowGroupOperation(*brush);
  }
}

void CZANDODoc::MoveEntity(const Vector& back, std::uint32_t axisMask) {
  if (!IsEntity(CurrentEntity)) return;
  Entities[static_cast<std::size_t>(CurrentEntity)].Move(back, axisMask);
}

double CZANDODoc::GridStepSize() const { return UseGrid != 0 ? StepOr(GridSize, 1.0) : 1.0; }

void CZANDODoc::EndMoveBrush(std::uint32_t axisMask, Commit commit) {
  if (EditsGroup() && IsGroup(CurrentGroup)) {
    Groups[static_cast<std::size_t>(CurrentGroup)].ComputeCentre(BrushList.Head(), CurrentGroup);
  }
  for (CZandoBrush* brush : EditedBrushes()) {
    const Vector snapped = Snapped(brush->WorkPos[kOwnSlot], GridStepSize(), axisMask);
    brush->MoveTo(Committed(snapped, brush->Pos[kOwnSlot], commit));
    if (!EditsGroup()) continue;
    const Vector& pivot = Groups[static_cast<std::size_t>(CurrentGroup)].Centre;
    brush->Pos[kGroupSlot] = pivot;
    brush->WorkPos[kGroupSlot] = pivot;
  }
  SetModifiedFlag();
}

void CZANDODoc::EndRotateBrush(std::uint32_t axisMask, Commit commit) {
  const double step =
      UseRotationSnap != 0 ? StepOr(RotationSnap, kFreeRotationStep) : kFreeRotationStep;
  const std::size_t slot = EditsGroup() ? kGroupSlot : kOwnSlot;
  for (CZandoBrush* brush : EditedBrushes()) {
    const Vector snapped = Snapped(ByAxis(brush->WorkRot[slot]), step, axisMask);
    if (slot == kGroupSlot) {
      brush->WorkRot[slot] = ByAxis(snapped);
      brush->EndGroupOperation(brush->GroupOperation());
      continue;
    }
    brush->Rot[slot] = ByAxis(Committed(snapped, ByAxis(brush->Rot[slot]), commit));
    brush->WorkRot[slot] = brush->Rot[slot];
  }
  SetModifiedFlag();
}

void CZANDODoc::TurnBrush(const Vector& angles, std::uint32_t axisMask) {
  RotateBrush(angles, axisMask);
  for (CZandoBrush* brush : EditedBrushes()) {
    if (EditsGroup()) {
      brush->EndGroupOperation(brush->GroupOperation());
    } else {
      brush->Rot[kOwnSlot] = brush->WorkRot[kOwnSlot];
    }
  }
  SetModifiedFlag();
  Redraw();
}

void CZANDODoc::CommitScaleOrShear() {
  if (EditsGroup()) {
    for (CZandoBrush* brush : EditedBrushes()) brush->EndGroupOperation(brush->GroupOperation());
  }
  SetModifiedFlag();
}

void CZANDODoc::EndMoveEntity(std::uint32_t axisMask, Commit commit) {
  if (!IsEntity(CurrentEntity)) return;
  Entities[static_cast<std::size_t>(CurrentEntity)].EndMove(GridStepSize(), axisMask, commit);
  SetModifiedFlag();
}

void CZANDODoc::ResetBrush() {
  if (!EditsGroup()) {
    CurrentBrush->ResetSlot(kOwnSlot);
  } else if (IsGroup(CurrentGroup)) {
    Groups[static_cast<std::size_t>(CurrentGroup)].ResetGroupTransform();
  }
  SetModifiedFlag();
  Redraw();
}

void CZANDODoc::ToggleShowBrush() {
  ShowBrush = ShowBrush == 0 ? 1 : 0;
  Redraw();
}

void CZANDODoc::PickEntity(const Vector& point) {
  std::int32_t nearest = -1;
  double distance = kBeyondAnyEntity;
  for (std::size_t i = 0; i < Entities.size(); ++i) {
    const double candidate = Entities[i].Distance2D(point);
    if (!(candidate < distance)) continue;
    nearest = static_cast<std::int32_t>(i);
    distance = candidate;
  }
  if (distance > kPickReach) return;
  CurrentEntity = nearest;
  Redraw();
}

void CZANDODoc::BoxSelect(const Vector& low, const Vector& high, Selection selection) {
  for (CEntity& entity : Entities) {
    if (entity.IsShown() && entity.InRect(low, high)) {
      MarkSelected(entity.eFlags, EF_SELECTED, selection);
    }
  }
  CZandoBrush* brush = BrushList.Head();
  if (brush != nullptr) brush = brush->FirstShownNonEntity();
  for (; brush != nullptr; brush = brush->NextShown()) {
    brush->UpdateWorld();
    if (brush->InRect(low, high)) MarkSelected(brush->BFlags, BF_SELECTED, selection);
  }
  Redraw();
}

void CZANDODoc::ToggleCamera() {
  if (ToolMode == ID_TOOL_CAMERA) {
    ToolMode = SavedToolMode;
    return;
  }
  SavedToolMode = ToolMode;
  ToolMode = ID_TOOL_CAMERA;
}

}  // namespace zando
