#pragma once

#include "document/editor_settings.h"
#include "document/zando_doc.h"
#include "platform/command.h"
#include "platform/desktop.h"

namespace zando {

/// The commands that change one level as a whole, with their order of effects, modified mark and
/// redraw, and what menus show of them.
class CDocumentCommands : public CCmdTarget {
 public:
  CDocumentCommands(CZANDODoc& document, const CEditorSettings& settings, CDesktop& desktop)
      : document_(document), settings_(settings), desktop_(desktop) {}

  bool OnCommand(CommandId id) override;
  bool OnUpdateCommandUI(CommandId id, CCmdUI& ui) override;

 private:
  CZANDODoc& document_;
  const CEditorSettings& settings_;
  CDesktop& desktop_;
};

}  // namespace zando
