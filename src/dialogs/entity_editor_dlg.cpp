#include "dialogs/entity_editor_dlg.h"

#include <cstddef>
#include <string>
#include <utility>

#include "dialogs/select_classname_dlg.h"
#include "dialogs/world_keys_dlg.h"
#include "document/entity_edits.h"

namespace zando {
namespace {

constexpr ControlId kPairs = 1047;
constexpr ControlId kHideLights = 1052;
constexpr ControlId kNewPair = 1054;
constexpr ControlId kKey = 1055;
constexpr ControlId kValue = 1056;
constexpr ControlId kClasses = 1057;
constexpr ControlId kAssociateSelected = 1058;
constexpr ControlId kAssociateGroup = 1059;
constexpr ControlId kNewEntity = 1060;
constexpr ControlId kNewLight = 1061;
constexpr ControlId kDeletePair = 1062;
constexpr ControlId kDeleteEntity = 1063;
constexpr ControlId kDisassociate = 1094;
constexpr ControlId kEditWorldKeys = 2000;

CEntity MakeLight() {
  CEntity light;
  light.AddPair("classname", "light");
  light.AddPair("light", "300");
  light.AddPair("origin", "1 1 1");
  return light;
}

}  // namespace

void CEntityEditorDlg::Run() {
  const CCompoundChange whole(document_);
  const std::int32_t current = document_.State().CurrentEntity;
  if (current != -1) entity_ = current;
  if (desktop_.DoModal(*this) == IDOK) document_.SetModifiedFlag();
  SetCurrentEntity(document_, entity_);
  ParseAllOrigins(document_);
}

const CEntity* CEntityEditorDlg::Entity() const {
  const Level& level = document_.GetLevel();
  return level.IsEntity(entity_) ? &level.Entities[static_cast<std::size_t>(entity_)] : nullptr;
}

const EntityPair* CEntityEditorDlg::Pair() const {
  const CEntity* entity = Entity();
  const auto index = static_cast<std::size_t>(pair_);
  if (entity == nullptr || pair_ < 0 || index >= entity->Pairs.size()) return nullptr;
  return &entity->Pairs[index];
}

void CEntityEditorDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Check(kHideLights, hideLights_);
}

void CEntityEditorDlg::OnInitDialog() {
  Form().SetSorted(kPairs, false);
  RefreshClasses();
}

void CEntityEditorDlg::RefreshClasses() {
  Form().ClearList(kClasses);
  const CEntList& entities = document_.GetLevel().Entities;
  std::int32_t index = 0;
  for (const CEntity& entity : entities) {
    Form().AddLine(kClasses, entity.GetClassname(), index++);
  }
  Form().SelectLine(kClasses, entity_);
  if (entities.empty()) entity_ = -1;
  RefreshPairs(0);
}

void CEntityEditorDlg::RefreshPairs(std::int32_t selection) {
  Form().ClearList(kPairs);
  const CEntity* entity = Entity();
  std::int32_t index = 0;
  if (entity != nullptr) {
    for (const EntityPair& pair : entity->Pairs) Form().AddLine(kPairs, QuotedPair(pair), index++);
    Form().SelectLine(kPairs, selection);
  }
  ShowPair();
}

void CEntityEditorDlg::ShowPair() {
  pair_ = Form().SelectedLine(kPairs);
  const EntityPair* pair = Pair();
  Form().SetText(kKey, pair != nullptr ? pair->key : "");
  Form().SetText(kValue, pair != nullptr ? pair->value : "");
}

void CEntityEditorDlg::OnSelectionChange(ControlId list) {
  if (list == kPairs) ShowPair();
  if (list != kClasses) return;
  entity_ = Form().SelectedLine(kClasses);
  RefreshPairs(0);
}

std::string CEntityEditorDlg::LineTip(ControlId list, std::int32_t line) {
  if (list != kClasses || !document_.GetLevel().IsEntity(line)) return {};
  CEntity entity = document_.GetLevel().Entities[static_cast<std::size_t>(line)];
  // What was typed counts, before the entity goes there.
  entity.ParseOrigin();
  if (entity.eStyle != 0) return "No origin";
  return "Origin " + FormatWholeNumbers(entity.eOrigin.x, entity.eOrigin.y, entity.eOrigin.z);
}

void CEntityEditorDlg::OnKillFocus(ControlId field) {
  if (Pair() == nullptr) return;
  if (field == kKey) LeaveKey();
  if (field == kValue) LeaveValue();
}

void CEntityEditorDlg::LeaveKey() {
  SetEntityPair(document_, entity_, pair_, {Form().GetText(kKey), Pair()->value});
  RefreshPairs(pair_);
}

void CEntityEditorDlg::LeaveValue() {
  const std::int32_t pair = pair_;
  SetEntityPair(document_, entity_, pair, {Pair()->key, Form().GetText(kValue)});
  if (Pair()->key == "classname") RefreshClasses();
  RefreshPairs(pair);
}

void CEntityEditorDlg::OnButton(ControlId id) {
  switch (id) {
    case kNewPair:
      return NewPair();
    case kDeletePair:
      return DeletePair();
    case kNewEntity:
      return NewEntity();
    case kNewLight:
      return Add(MakeLight());
    case kDeleteEntity:
      return DeleteCurrent();
    case kAssociateSelected:
      return AssociateSelectedBrushes(document_, entity_);
    case kAssociateGroup:
      return AssociateBrushGroup(document_, entity_);
    case kDisassociate:
      return DisassociateBrushes(document_, entity_);
    case kEditWorldKeys:
      return CWorldKeysDlg(document_).Run(desktop_);
    default:
      return;
  }
}

void CEntityEditorDlg::NewPair() {
  const CEntity* entity = Entity();
  if (entity == nullptr) return;
  AddEntityPair(document_, entity_, {"NewKey", "NewValue"});
  RefreshPairs(static_cast<std::int32_t>(entity->Pairs.size()) - 1);
  Form().SetFocus(kKey);
}

void CEntityEditorDlg::DeletePair() {
  if (Pair() == nullptr) return;
  RemoveEntityPair(document_, entity_, pair_);
  RefreshPairs(0);
}

void CEntityEditorDlg::NewEntity() {
  const ClassDefaults* chosen = CSelectClassnameDlg().Run(desktop_);
  if (chosen != nullptr) Add(MakeEntity(*chosen));
}

void CEntityEditorDlg::Add(CEntity entity) {
  AddEntity(document_, std::move(entity));
  entity_ = document_.State().CurrentEntity;
  RefreshClasses();
}

void CEntityEditorDlg::DeleteCurrent() {
  if (Entity() == nullptr) return;
  DeleteEntity(document_, entity_);
  entity_ = 0;
  RefreshClasses();
}

}  // namespace zando
