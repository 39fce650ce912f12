#include "document/zando_doc.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

#include "csg/csg_world.h"

namespace zando {
namespace {

/// References to textures, as faces hold them: none, and the first of the level's archive.
constexpr std::int32_t kNoTexture = 0;
constexpr std::int32_t kFirstTexture = 1;

/// The pivot of a brush that was taken out of its group.
constexpr Vector kDefaultPivot{128.0, 128.0, 128.0};

constexpr double kSmallestHalvedGrid = 2.0;

/// Extents are scaled down one by one, in this order, so that equal boxes compare equal everywhere.
double BoundsVolume(const CZandoBrush& brush) {
  const Vector& low = brush.BoundsMin;
  const Vector& high = brush.BoundsMax;
  return (high.y - low.y) * 0.001 * (high.z - low.z) * 0.001 * (high.x - low.x) * 0.001;
}

void SetBit(std::int32_t& flags, std::int32_t bit, bool on) {
  flags = on ? flags | bit : flags & ~bit;
}

/// The entity at this index is gone, and later ones have moved down.
void ForgetEntity(CZandoBrush& brush, std::int32_t index) {
  if (!brush.BelongsToEntity()) return;
  if (brush.BEnt == index) {
    SetBit(brush.BFlags, BF_ENTITY, false);
  } else if (brush.BEnt > index) {
    --brush.BEnt;
  }
}

}  // namespace

CZANDODoc::CZANDODoc() {
  Generate(LastBox, WorkingBrush);
  WorkingBrush.ComputeFacePoints();
}

std::int32_t CZANDODoc::AddBrush(const CZandoBrush& brush) {
  auto listed = std::make_unique<CZandoBrush>(brush);
  listed->Document = this;
  listed->BBid = NextBrushId++;
  const std::int32_t index = BrushList.Append(std::move(listed));
  World.brushList = BrushList.Head();
  return index;
}

void CZANDODoc::DeleteCurrentBrush() {
  if (CurrentBrush == &WorkingBrush) return;
  const CZandoBrush* deleted = std::exchange(CurrentBrush, &WorkingBrush);
  BrushPicked = 0;
  BrushList.Remove(deleted);
  World.brushList = BrushList.Head();
  World.LinkBrushes(World.brushList);
  Redraw();
  SetModifiedFlag();
}

CZandoBrush* CZANDODoc::FindBrushById(std::int32_t id) const {
  return zando::FindBrushById(BrushList.Head(), id);
}

void CZANDODoc::PickBrush(const Vector& point) {
  CZandoBrush* smallest = nullptr;
  for (const auto& brush : BrushList.Brushes()) {
    if (!brush->IsShown()) continue;
    brush->UpdateWorld();
    if (!brush->HitTest2D(point.x, point.y, point.z)) continue;
    if (smallest == nullptr || BoundsVolume(*brush) < BoundsVolume(*smallest)) {
      smallest = brush.get();
    }
  }
  if (smallest == nullptr) return;
  ShowBrush = 1;
  ToolMode = ID_TOOL_MOVE_ROTATE_BRUSH;
  SetCurrentBrush(*smallest);
}

void CZANDODoc::SetCurrentBrush(CZandoBrush& brush) {
  CurrentBrush = &brush;
  BrushPicked = CurrentBrush == &WorkingBrush ? 0 : 1;
  Redraw();
}

void CZANDODoc::StepCurrentBrush(ListStep step) {
  if (BrushPicked == 0) return;
  CZandoBrush* neighbour = step == ListStep::Next ? CurrentBrush->Next : CurrentBrush->Prev;
  SetCurrentBrush(neighbour != nullptr ? *neighbour : *CurrentBrush);
}

void CZANDODoc::CopyToCurrent() {
  if (BrushPicked == 0) return;
  WorkingBrush = *CurrentBrush;
  // The picked one may be hidden by now; no filter would ever show the working brush again.
  SetBit(WorkingBrush.BFlags, BF_SHOWN, true);
  SetCurrentBrush(WorkingBrush);
}

void CZANDODoc::RefreshColors() {
  for (const auto& brush : BrushList.Brushes()) brush->Color = GroupColor(brush->BGroup);
  for (CEntity& entity : Entities) entity.Color = GroupColor(entity.eGroup);
  ApplyShowFilter();
  if (Frame != nullptr) Frame->RefreshGroups();
}

void CZANDODoc::ApplyShowFilter() {
  for (const auto& brush : BrushList.Brushes()) {
    const bool hiddenWithEntities = brush->BelongsToEntity() && ShowEntities == 0;
    SetBit(brush->BFlags, BF_SHOWN, PassesFilter(brush->BGroup) && !hiddenWithEntities);
  }
  for (CEntity& entity : Entities) SetBit(entity.eFlags, EF_SHOWN, PassesFilter(entity.eGroup));
}

void CZANDODoc::SetShowFilter(std::int32_t filter) {
  ShowFilter = filter;
  ApplyShowFilter();
  Redraw();
}

bool CZANDODoc::AnySelected() const {
  const auto& brushes = BrushList.Brushes();
  return std::any_of(brushes.begin(), brushes.end(),
                     [](const auto& brush) { return brush->IsSelected(); }) ||
         std::any_of(Entities.begin(), Entities.end(),
                     [](const CEntity& entity) { return entity.IsSelected(); });
}

void CZANDODoc::DeleteEntity(std::int32_t index) {
  if (!IsEntity(index)) return;
  Entities.erase(Entities.begin() + index);
  for (const auto& brush : BrushList.Brushes()) ForgetEntity(*brush, index);
  // As a copy of an entity's brush it belongs to that entity too.
  ForgetEntity(WorkingBrush, index);
  if (CurrentEntity == index) {
    CurrentEntity = -1;
  } else if (CurrentEntity > index) {
    --CurrentEntity;
  }
  // A brush that hid with its entity may be shown now.
  ApplyShowFilter();
  Redraw();
  SetModifiedFlag();
}

void CZANDODoc::DeleteCurrentEntity() {
  if (!IsEntity(CurrentEntity)) return;
  const std::int32_t before = CurrentEntity - 1;
  DeleteEntity(CurrentEntity);
  CurrentEntity = before;
}

void CZANDODoc::ParseAllOrigins() {
  for (CEntity& entity : Entities) entity.ParseOrigin();
}

void CZANDODoc::ToggleUseGrid() {
  UseGrid = UseGrid == 0 ? 1 : 0;
  if (Frame != nullptr) Frame->RefreshGrid();
  Redraw();
}

void CZANDODoc::StepGrid(GridStep step) {
  if (step == GridStep::Up) {
    GridSize *= 2.0;
  } else if (GridSize >= kSmallestHalvedGrid) {
    GridSize /= 2.0;
  }
  if (Frame != nullptr) Frame->RefreshGrid();
  Redraw();
}

void CZANDODoc::CombineWithWorld(std::int32_t operation) {
  SetModifiedFlag();
  CurrentBrush->TranT = operation;
  if (BrushPicked != 0) {
    SetCurrentBrush(WorkingBrush);
    return;
  }
  WorkingBrush.BGroup = CurrentGroup;
  WorkingBrush.SetFaceTextures(Textures.TextureCount() > 0 ? kFirstTexture : kNoTexture);
  const std::int32_t index = AddBrush(WorkingBrush);
  RefreshColors();
  // The listed copy owns the new nodes, so that they survive what happens to the working brush.
  CZandoBrush& listed = *BrushList.Brushes()[static_cast<std::size_t>(index)];
  InsertBrush(World, listed, listed.BBid);
  Redraw();
}

void CZANDODoc::CreateNewGroup() {
  if (!AnySelected()) return;
  Groups.emplace_back();
  CurrentGroup = static_cast<std::int32_t>(Groups.size()) - 1;
  Groups.back().ComputeCentre(BrushList.Head(), CurrentGroup);
  AddSelectedToGroup();
}

void CZANDODoc::AddSelectedToGroup() {
  const bool grouped = IsGroup(CurrentGroup);
  const Vector pivot =
      grouped ? Groups[static_cast<std::size_t>(CurrentGroup)].Centre : Vector{0.0, 0.0, 0.0};
  MoveSelectionToGroup(CurrentGroup, pivot);
}

void CZANDODoc::RemoveSelectedFromGroup() { MoveSelectionToGroup(-1, kDefaultPivot); }

void CZANDODoc::MoveSelectionToGroup(std::int32_t group, const Vector& pivot) {
  if (!AnySelected()) return;
  for (const auto& brush : BrushList.Brushes()) {
    if (!brush->IsSelected()) continue;
    brush->BGroup = group;
    brush->BeginGroupOperation(pivot);
    SetBit(brush->BFlags, BF_SELECTED, false);
  }
  for (CEntity& entity : Entities) {
    if (!entity.IsSelected()) continue;
    entity.eGroup = group;
    SetBit(entity.eFlags, EF_SELECTED, false);
  }
  RefreshColors();
  Redraw();
  SetModifiedFlag();
}

void CZANDODoc::SetCurrentGroup(std::int32_t group) {
  CurrentGroup = IsGroup(group) ? group : -1;
  RefreshColors();
  Redraw();
}

void CZANDODoc::PlaceLight() {
  CEntity light;
  light.AddPair("classname", "light");
  light.AddPair("origin", "0 0 0");
  light.AddPair("light", "300");
  AddEntity(std::move(light));
}

void CZANDODoc::AddEntity(CEntity entity) {
  entity.eGroup = CurrentGroup;
  entity.ParseOrigin();
  Entities.push_back(std::move(entity));
  CurrentEntity = static_cast<std::int32_t>(Entities.size()) - 1;
  RefreshColors();
  Redraw();
  SetModifiedFlag();
}

void CZANDODoc::CopyCurrentEntity() {
  if (!IsEntity(CurrentEntity)) return;
  CEntity copy = Entities[static_cast<std::size_t>(CurrentEntity)];
  Entities.push_back(std::move(copy));
  CurrentEntity = static_cast<std::int32_t>(Entities.size()) - 1;
  Redraw();
  SetModifiedFlag();
}

void CZANDODoc::ToggleShowEntities() {
  ShowEntities = ShowEntities == 0 ? 1 : 0;
  RefreshColors();
  Redraw();
}

bool CZANDODoc::PassesFilter(std::int32_t group) const {
  switch (ShowFilter) {
    case ID_SHOW_VISIBLE_GROUPS:
      return IsGroup(group) && Groups[static_cast<std::size_t>(group)].gVis != 0;
    case ID_SHOW_CURRENT_GROUP:
      return group == CurrentGroup;
    default:
      return true;
  }
}

std::uint32_t CZANDODoc::GroupColor(std::int32_t group) const {
  return IsGroup(group) ? Groups[static_cast<std::size_t>(group)].gCol : kWhite;
}

}  // namespace zando
