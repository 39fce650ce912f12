#pragma once

#include "document/zando_doc.h"
#include "platform/document.h"

namespace zando {

/// A view of a level that has a child frame of its own. Attaches itself to the document for its
/// lifetime.
class CChildView : public CView {
 public:
  explicit CChildView(CZANDODoc& document) : document_(document) { document_.AddView(*this); }
  CChildView(const CChildView&) = delete;
  CChildView& operator=(const CChildView&) = delete;
  ~CChildView() override { document_.RemoveView(*this); }

  [[nodiscard]] CZANDODoc& Document() const { return document_; }

  /// The first showing.
  virtual void OnInitialUpdate() = 0;

  /// The view became, or is no longer, the one that commands go to.
  enum class Activation { Activated, Deactivated };
  virtual void OnActivate(Activation activation) = 0;

  /// What the mouse began in this view is over now.
  virtual void EndDrag() {}

 protected:
  CZANDODoc& document_;
};

}  // namespace zando
