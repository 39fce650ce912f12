#pragma once

#include <string>

#include "document/change.h"
#include "document/zando_doc.h"

namespace zando::testing {

/// The level, and its editing state, to be written past the operations: a test makes what it needs.
[[nodiscard]] inline Level& Edit(CZANDODoc& document) {
  return CChange(document, kTouchedNothing).level;
}
[[nodiscard]] inline EditingState& EditState(CZANDODoc& document) {
  return CChange(document, kTouchedNothing).state;
}

/// Changes parameters of a brush's own placement.
template <typename Change>
void Place(CZandoBrush& brush, Change&& change) {
  Placement own = brush.Own();
  change(own);
  brush.SetSlot(kOwnSlot, own);
}

/// Notes what a document tells: r to redraw, g of groups, s of grid steps.
class CListener : public CView, public CFrameDisplay {
 public:
  void OnUpdate(const CView* /*sender*/, int /*hint*/) override { told += 'r'; }
  void RefreshGroups() override { told += 'g'; }
  void RefreshGrid() override { told += 's'; }
  std::string told;
};

}  // namespace zando::testing
