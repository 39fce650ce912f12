#include "platform/document.h"

#include <algorithm>

namespace zando {

void CDocument::AddView(CView& view) {
  if (std::find(views_.begin(), views_.end(), &view) == views_.end()) views_.push_back(&view);
}

void CDocument::RemoveView(CView& view) {
  views_.erase(std::remove(views_.begin(), views_.end(), &view), views_.end());
}

void CDocument::UpdateAllViews(const CView* sender, int hint) {
  // A view may detach, or attach another, while it is told.
  const std::vector<CView*> told = views_;
  for (CView* view : told) {
    if (view == sender) continue;
    if (std::find(views_.begin(), views_.end(), view) == views_.end()) continue;
    view->OnUpdate(sender, hint);
  }
}

}  // namespace zando
