#pragma once

#include "app/editor_app.h"

namespace zando {

/// Commands of the main frame and its child frames.
class CEditorApp::CFrameCommands : public CCmdTarget {
 public:
  explicit CFrameCommands(CEditorApp& app) : app_(app) {}

  bool OnCommand(CommandId id) override;
  bool OnUpdateCommandUI(CommandId id, CCmdUI& ui) override;

 private:
  CEditorApp& app_;
};

/// Commands on files and on the program itself.
class CEditorApp::CApplicationCommands : public CCmdTarget {
 public:
  explicit CApplicationCommands(CEditorApp& app) : app_(app) {}

  bool OnCommand(CommandId id) override;
  bool OnUpdateCommandUI(CommandId id, CCmdUI& ui) override;

 private:
  bool OnDocumentCommand(CommandId id);

  CEditorApp& app_;
};

}  // namespace zando
