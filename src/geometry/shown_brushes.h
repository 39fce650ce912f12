#pragma once

#include <vector>

#include "geometry/brush.h"

namespace zando {

/// The brushes that a walk over a level takes: from the first that is shown and belongs to no
/// entity, every one that is shown. None for a list without a head.
[[nodiscard]] inline std::vector<const CZandoBrush*> ShownBrushes(const CZandoBrush* head) {
  std::vector<const CZandoBrush*> brushes;
  const CZandoBrush* brush = head == nullptr ? nullptr : head->FirstShownNonEntity();
  for (; brush != nullptr; brush = brush->NextShown()) brushes.push_back(brush);
  return brushes;
}

}  // namespace zando
