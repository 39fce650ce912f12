#include "document/brush_list.h"

#include <algorithm>
#include <utility>

namespace zando {

CBrushList::CBrushList(const CBrushList& source) {
  brushes_.reserve(source.brushes_.size());
  for (const CZandoBrush& brush : source) {
    auto copy = std::make_unique<CZandoBrush>();
    copy->CopyWhole(brush);
    Append(std::move(copy));
  }
}

bool operator==(const CBrushList& a, const CBrushList& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

std::int32_t CBrushList::Append(std::unique_ptr<CZandoBrush> brush) {
  CZandoBrush* last = brushes_.empty() ? nullptr : brushes_.back().get();
  CZandoBrush* added = brush.get();
  brushes_.push_back(std::move(brush));
  added->Prev = last;
  added->Next = nullptr;
  if (last != nullptr) last->Next = added;
  return BrushCount() - 1;
}

CBrushList::Owned::const_iterator CBrushList::PlaceOf(std::int32_t id) const {
  const auto place =
      std::lower_bound(brushes_.begin(), brushes_.end(), id,
                       [](const auto& brush, std::int32_t wanted) { return brush->BBid < wanted; });
  return place != brushes_.end() && (*place)->BBid == id ? place : brushes_.end();
}

const CZandoBrush* CBrushList::Find(std::int32_t id) const {
  const auto place = PlaceOf(id);
  return place == brushes_.end() ? nullptr : place->get();
}

CZandoBrush* CBrushList::Find(std::int32_t id) {
  const auto place = PlaceOf(id);
  return place == brushes_.end() ? nullptr : place->get();
}

void CBrushList::Remove(std::int32_t id) {
  const auto place = PlaceOf(id);
  if (place == brushes_.end()) return;
  const CZandoBrush& brush = **place;
  if (brush.Prev != nullptr) brush.Prev->Next = brush.Next;
  if (brush.Next != nullptr) brush.Next->Prev = brush.Prev;
  brushes_.erase(place);
}

}  // namespace zando
