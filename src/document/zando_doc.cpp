#include "document/zando_doc.h"

#include <algorithm>
#include <exception>

#include "document/change.h"
#include "document/visibility.h"

namespace zando {

CZANDODoc::CZANDODoc() {
  Generate(std::get<BoxParameters>(state_.LastUsed), level_.WorkingBrush);
  level_.WorkingBrush.ComputeFacePoints();
}

const CZandoBrush& CZANDODoc::CurrentBrush() const {
  const CZandoBrush* picked = BrushPicked() ? level_.BrushList.Find(state_.CurrentBrush) : nullptr;
  return picked != nullptr ? *picked : level_.WorkingBrush;
}

bool CZANDODoc::AnySelected() const {
  return std::ranges::any_of(level_.BrushList, &CZandoBrush::IsSelected) ||
         std::ranges::any_of(level_.Entities, &CEntity::IsSelected);
}

void CZANDODoc::LoadTextures(const std::filesystem::path& palette,
                             const std::filesystem::path& archive) {
  textures_.Create(palette, archive);
}

void CZANDODoc::EndChange() {
  if (--depth_ != 0 || touched_ == kTouchedNothing) return;
  try {
    TellOfChange();
    touched_ = kTouchedNothing;
  } catch (const std::exception&) {
    // The change stands. What could not be told for want of memory is told with the next one.
    return;
  }
}

void CZANDODoc::TellOfChange() {
  if ((touched_ & kTouchedLevel) != 0) SetModifiedFlag();
  if ((touched_ & kTouchedGroups) != 0) {
    RefreshColors(level_, state_);
  } else if ((touched_ & kTouchedVisible) != 0) {
    ApplyShowFilter(level_, state_);
  }
  if (frame_ != nullptr && (touched_ & kTouchedGroups) != 0) frame_->RefreshGroups();
  if (frame_ != nullptr && (touched_ & kTouchedGrid) != 0) frame_->RefreshGrid();
  UpdateAllViews(nullptr);
}

CZandoBrush& CChange::CurrentBrush() {
  CZandoBrush* picked = level.BrushList.Find(state.CurrentBrush);
  return picked != nullptr ? *picked : level.WorkingBrush;
}

}  // namespace zando
