#include "app/frame_commands.h"

#include <cstddef>

#include "app/command_table.h"

namespace zando {
namespace {

bool IsRecentFile(CommandId id) {
  return id >= ID_FILE_MRU_FIRST && id < ID_FILE_MRU_FIRST + CommandId{kMostRecentFiles};
}

std::size_t RecentFileIndex(CommandId id) {
  return static_cast<std::size_t>(id - ID_FILE_MRU_FIRST);
}

}  // namespace

bool CEditorApp::CFrameCommands::OnCommand(CommandId id) {
  CMainWindow& window = app_.window_;
  CZANDODoc* document = app_.ActiveDocument();
  switch (id) {
    case ID_VIEW_TOOLBAR:
      window.SetToolbarsVisible(!window.AreToolbarsVisible());
      return true;
    case ID_VIEW_STATUS_BAR:
      window.SetStatusBarVisible(!window.IsStatusBarVisible());
      return true;
    case ID_FOUR_VIEWS:
      if (document != nullptr) app_.OpenFourViews(*document);
      return true;
    case ID_TEXTURE_BROWSER:
      if (document != nullptr) app_.OpenTextureBrowser(*document);
      return true;
    case ID_WINDOW_NEW:
      if (document != nullptr) app_.OpenView(*document);
      return true;
    case ID_WINDOW_CASCADE:
      window.Cascade();
      return true;
    case ID_WINDOW_TILE:
      window.Tile();
      return true;
    case ID_WINDOW_ARRANGE:
      window.ArrangeIcons();
      return true;
    default:
      return false;
  }
}

bool CEditorApp::CFrameCommands::OnUpdateCommandUI(CommandId id, CCmdUI& ui) {
  switch (id) {
    case ID_VIEW_TOOLBAR:
      ui.SetCheck(app_.window_.AreToolbarsVisible());
      return true;
    case ID_VIEW_STATUS_BAR:
      ui.SetCheck(app_.window_.IsStatusBarVisible());
      return true;
    case ID_FOUR_VIEWS:
    case ID_TEXTURE_BROWSER:
    case ID_WINDOW_NEW:
    case ID_WINDOW_CASCADE:
    case ID_WINDOW_TILE:
    case ID_WINDOW_ARRANGE:
      ui.Enable(app_.ActiveDocument() != nullptr);
      return true;
    default:
      return false;
  }
}

bool CEditorApp::CApplicationCommands::OnCommand(CommandId id) {
  if (IsRecentFile(id)) {
    app_.OpenRecentFile(RecentFileIndex(id));
    return true;
  }
  switch (id) {
    case ID_FILE_NEW:
      app_.NewDocument();
      return true;
    case ID_FILE_OPEN:
      app_.AskAndOpen();
      return true;
    case ID_APP_ABOUT:
      app_.window_.ShowAbout();
      return true;
    case ID_APP_EXIT:
      app_.window_.Close();
      return true;
    default:
      return OnDocumentCommand(id);
  }
}

bool CEditorApp::CApplicationCommands::OnDocumentCommand(CommandId id) {
  CZANDODoc* document = app_.ActiveDocument();
  if (document == nullptr) return false;
  switch (id) {
    case ID_FILE_CLOSE:
      app_.CloseDocument(*document);
      return true;
    case ID_FILE_SAVE:
      app_.Save(*document);
      return true;
    case ID_FILE_SAVE_AS:
      app_.SaveAs(*document);
      return true;
    default:
      return false;
  }
}

bool CEditorApp::CApplicationCommands::OnUpdateCommandUI(CommandId id, CCmdUI& ui) {
  if (IsRecentFile(id)) {
    ui.Enable(RecentFileIndex(id) < app_.recentFiles_.size());
    return true;
  }
  switch (id) {
    case ID_FILE_NEW:
    case ID_FILE_OPEN:
    case ID_APP_ABOUT:
    case ID_APP_EXIT:
      return true;
    case ID_FILE_CLOSE:
    case ID_FILE_SAVE:
    case ID_FILE_SAVE_AS:
      ui.Enable(app_.ActiveDocument() != nullptr);
      return true;
    default:
      return false;
  }
}

}  // namespace zando
