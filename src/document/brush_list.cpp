#include "document/brush_list.h"

#include <algorithm>
#include <utility>

namespace zando {

std::int32_t CBrushList::Append(std::unique_ptr<CZandoBrush> brush) {
  CZandoBrush* last = brushes_.empty() ? nullptr : brushes_.back().get();
  brush->Prev = last;
  brush->Next = nullptr;
  if (last != nullptr) last->Next = brush.get();
  brushes_.push_back(std::move(brush));
  return BrushCount() - 1;
}

void CBrushList::Remove(const CZandoBrush* brush) {
  const auto found = std::find_if(brushes_.begin(), brushes_.end(),
                                  [brush](const auto& owned) { return owned.get() == brush; });
  if (found == brushes_.end()) return;
  if (brush->Prev != nullptr) brush->Prev->Next = brush->Next;
  if (brush->Next != nullptr) brush->Next->Prev = brush->Prev;
  brushes_.erase(found);
}

}  // namespace zando
