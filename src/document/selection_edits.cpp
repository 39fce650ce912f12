#include "document/selection_edits.h"

#include <cstddef>

#include "document/change.h"
#include "platform/bits.h"

namespace zando {
namespace {

bool ShowsEntity(const CEntity& entity, const EditingState& state) {
  return entity.IsShown() && state.ShowEntities != 0;
}

}  // namespace

void BoxSelect(CZANDODoc& document, const ViewRect& rect, Selection selection) {
  SelectShown(
      document, [&](const CEntity& entity) { return entity.InRect(rect); },
      [&](const CZandoBrush& brush) { return brush.InRect(rect); }, selection);
}

void SelectShown(CZANDODoc& document, const std::function<bool(const CEntity&)>& holdsEntity,
                 const std::function<bool(const CZandoBrush&)>& holdsBrush, Selection selection) {
  CChange change(document, kTouchedDisplay);
  const bool select = selection == Selection::Select;
  for (CEntity& entity : change.level.Entities) {
    const bool isDrawn = ShowsEntity(entity, change.state) && entity.eStyle == 0;
    if (isDrawn && holdsEntity(entity)) SetBit(entity.eFlags, EF_SELECTED, select);
  }
  // From the first brush of the world on, brushes of entities are taken like any other.
  bool reached = false;
  for (CZandoBrush& brush : change.level.BrushList) {
    reached |= brush.IsShown() && !brush.BelongsToEntity();
    if (reached && brush.IsShown() && holdsBrush(brush)) {
      SetBit(brush.BFlags, BF_SELECTED, select);
    }
  }
}

void SelectAll(CZANDODoc& document) {
  CChange change(document, kTouchedDisplay);
  for (CZandoBrush& brush : change.level.BrushList) {
    if (brush.IsShown()) SetBit(brush.BFlags, BF_SELECTED, true);
  }
  for (CEntity& entity : change.level.Entities) {
    if (ShowsEntity(entity, change.state)) SetBit(entity.eFlags, EF_SELECTED, true);
  }
}

void SelectNone(CZANDODoc& document) {
  CChange change(document, kTouchedDisplay);
  for (CZandoBrush& brush : change.level.BrushList) SetBit(brush.BFlags, BF_SELECTED, false);
  for (CEntity& entity : change.level.Entities) SetBit(entity.eFlags, EF_SELECTED, false);
}

void SelectBrush(CZANDODoc& document, std::int32_t id, Selection selection) {
  CChange change(document, kTouchedDisplay);
  CZandoBrush* brush = change.level.BrushList.Find(id);
  if (brush != nullptr && brush->IsShown()) {
    SetBit(brush->BFlags, BF_SELECTED, selection == Selection::Select);
  }
}

void SelectEntity(CZANDODoc& document, std::int32_t index, Selection selection) {
  if (!document.GetLevel().IsEntity(index)) return;
  CChange change(document, kTouchedDisplay);
  CEntity& entity = change.level.Entities[static_cast<std::size_t>(index)];
  if (ShowsEntity(entity, change.state)) {
    SetBit(entity.eFlags, EF_SELECTED, selection == Selection::Select);
  }
}

}  // namespace zando
