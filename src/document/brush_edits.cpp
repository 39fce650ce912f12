#include "document/brush_edits.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <tuple>
#include <variant>

#include "document/change.h"
#include "document/visibility.h"
#include "document/world_edits.h"
#include "platform/bits.h"
#include "platform/text.h"

namespace zando {
namespace {

/// References to textures, as faces hold them: none, and the first of the level's archive.
constexpr std::int32_t kNoTexture = 0;
constexpr std::int32_t kFirstTexture = 1;

/// Extents are scaled down one by one, in this order, so that equal boxes compare equal everywhere.
double BoundsVolume(const CZandoBrush& brush) {
  const auto& [low, high] = brush.WorldBounds();
  return (high.y - low.y) * 0.001 * (high.z - low.z) * 0.001 * (high.x - low.x) * 0.001;
}

void CombineWithWorld(CZANDODoc& document, std::int32_t operation) {
  CChange change(document, kTouchedLevel);
  change.CurrentBrush().TranT = operation;
  if (document.BrushPicked()) {
    change.state.CurrentBrush = kWorkingBrush;
    return;
  }
  CZandoBrush& working = change.level.WorkingBrush;
  working.BGroup = change.state.CurrentGroup;
  working.SetFaceTextures(document.Textures().TextureCount() > 0 ? kFirstTexture : kNoTexture);
  // The listed copy, so that the world survives what happens to the working brush.
  InsertIntoWorld(document, change.level.BrushList[AddBrush(document, working)]);
}

template <typename Edit>
void EditPlacement(CZANDODoc& document, Edit&& edit) {
  Placement own = document.CurrentBrush().Own();
  edit(own);
  if (own == document.CurrentBrush().Own()) return;
  CChange change(document, kTouchedLevel);
  change.CurrentBrush().SetSlot(kOwnSlot, own);
}

}  // namespace

std::int32_t AddBrush(CZANDODoc& document, const CZandoBrush& brush) {
  CChange change(document, kTouchedLevel);
  const std::int32_t index = change.level.AddBrush(brush);
  RefreshShown(change.level.BrushList[index], change.level, change.state);
  return index;
}

void AddToWorld(CZANDODoc& document) { CombineWithWorld(document, kAddToWorld); }
void SubtractFromWorld(CZANDODoc& document) { CombineWithWorld(document, kSubtractFromWorld); }

void DeleteCurrentBrush(CZANDODoc& document) {
  if (!document.BrushPicked()) return;
  CChange change(document, kTouchedLevel);
  change.level.RemoveBrush(change.state.CurrentBrush);
  change.state.CurrentBrush = kWorkingBrush;
}

void PickBrush(CZANDODoc& document, const Vector& point, const ViewAxes& axes) {
  const CZandoBrush* smallest = nullptr;
  for (const CZandoBrush& brush : document.GetLevel().BrushList) {
    if (!brush.IsShown() || !brush.HitTest2D(point, axes)) continue;
    if (smallest == nullptr || BoundsVolume(brush) < BoundsVolume(*smallest)) smallest = &brush;
  }
  if (smallest != nullptr) PickBrush(document, smallest->BBid);
}

void PickBrush(CZANDODoc& document, std::int32_t id) {
  CChange change(document, kTouchedDisplay);
  change.state.ShowBrush = 1;
  change.state.ToolMode = ID_TOOL_MOVE_ROTATE_BRUSH;
  SetCurrentBrush(document, id);
}

void SetCurrentBrush(CZANDODoc& document, std::int32_t id) {
  CChange change(document, kTouchedDisplay);
  change.state.CurrentBrush = change.level.BrushList.Find(id) != nullptr ? id : kWorkingBrush;
}

void StepCurrentBrush(CZANDODoc& document, ListStep step) {
  if (!document.BrushPicked()) return;
  const CZandoBrush& current = document.CurrentBrush();
  const CZandoBrush* neighbour = step == ListStep::Next ? current.Next : current.Prev;
  SetCurrentBrush(document, neighbour != nullptr ? neighbour->BBid : current.BBid);
}

void CopyToCurrent(CZANDODoc& document) {
  if (!document.BrushPicked()) return;
  CChange change(document, kTouchedDisplay);
  CZandoBrush& working = change.level.WorkingBrush;
  working = change.CurrentBrush();
  // The picked one may be hidden by now; no filter would ever show the working brush again.
  SetBit(working.BFlags, BF_SHOWN, true);
  change.state.CurrentBrush = kWorkingBrush;
}

void GeneratePrimitive(CZANDODoc& document, const AnyPrimitive& primitive) {
  CChange change(document, kTouchedLevel);
  KeepParameters(document, primitive);
  CZandoBrush& brush = change.CurrentBrush();
  std::visit([&brush](const auto& parameters) { Generate(parameters, brush); }, primitive);
  for (BrushFace& face : brush.Faces) face.surface.reset();
  brush.ComputeFacePoints();
}

void KeepParameters(CZANDODoc& document, const AnyPrimitive& primitive) {
  CChange change(document, kTouchedDisplay);
  const auto keep = [&]<typename Parameters>(const Parameters& parameters) {
    std::get<Parameters>(change.state.LastUsed) = parameters;
  };
  std::visit(keep, primitive);
}

BrushAttributes AttributesOf(const CZANDODoc& document, std::int32_t id, std::size_t slot) {
  const CZandoBrush* listed = document.GetLevel().BrushList.Find(id);
  const CZandoBrush& brush = listed != nullptr ? *listed : document.GetLevel().WorkingBrush;
  const Placement& placement = brush.Slot(slot);
  return {placement.Pos, placement.Rot, placement.Scl, placement.Shr, brush.Name};
}

void SetBrushAttributes(CZANDODoc& document, std::int32_t id, std::size_t slot,
                        const BrushAttributes& attributes) {
  CChange change(document, kTouchedLevel);
  CZandoBrush* listed = change.level.BrushList.Find(id);
  CZandoBrush& brush = listed != nullptr ? *listed : change.level.WorkingBrush;
  const Vector& dragged = brush.Own().WorkPos;
  if (slot == kOwnSlot && (attributes.position != brush.Own().Pos || dragged != brush.Own().Pos)) {
    brush.MoveTo(attributes.position);
  }
  Placement placement = brush.Slot(slot);
  placement.Pos = placement.WorkPos = attributes.position;
  placement.Rot = placement.WorkRot = attributes.rotation;
  placement.Scl = attributes.scale;
  placement.Shr = attributes.shear;
  brush.SetSlot(slot, placement);
  brush.Name = attributes.name;
}

bool IsBrushName(std::string_view name) {
  return !name.empty() && std::ranges::none_of(name, IsWhiteSpace);
}

void SetBrushName(CZANDODoc& document, std::string_view name) {
  if (document.CurrentBrush().Name == name) return;
  CChange change(document, kTouchedLevel);
  change.CurrentBrush().Name = std::string(name);
}

void PlaceBrush(CZANDODoc& document, const Vector& position) {
  CChange change(document, kTouchedLevel);
  change.CurrentBrush().MoveTo(position);
}

void SetBrushRotation(CZANDODoc& document, const Vector& rotation) {
  EditPlacement(document, [&](Placement& own) { own.Rot = own.WorkRot = rotation; });
}

void SetBrushScale(CZANDODoc& document, const Vector& scale) {
  EditPlacement(document, [&](Placement& own) { own.Scl = scale; });
}

void SetBrushShear(CZANDODoc& document, const Vector& shear) {
  EditPlacement(document, [&](Placement& own) { own.Shr = shear; });
}

void ResetBrush(CZANDODoc& document) {
  CChange change(document, kTouchedLevel);
  if (change.state.GroupMovementMode == 0) {
    change.CurrentBrush().ResetSlot(kOwnSlot);
  } else if (change.level.IsGroup(change.state.CurrentGroup)) {
    change.level.Groups[static_cast<std::size_t>(change.state.CurrentGroup)].ResetGroupTransform();
  }
}

}  // namespace zando
