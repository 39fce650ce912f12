#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

#include "app/main_window.h"
#include "document/editor_settings.h"
#include "document/zando_doc.h"
#include "platform/command.h"
#include "platform/desktop.h"
#include "platform/frame_display.h"

namespace zando {

/// Keeps the recent files between runs: the only thing that is remembered.
class CRecentFileStore {
 public:
  CRecentFileStore() = default;
  CRecentFileStore(const CRecentFileStore&) = delete;
  CRecentFileStore& operator=(const CRecentFileStore&) = delete;
  virtual ~CRecentFileStore() = default;

  [[nodiscard]] virtual std::vector<std::filesystem::path> Load() = 0;
  virtual void Save(const std::vector<std::filesystem::path>& files) = 0;
};

/// The program: settings, open documents, the road of a command from the active view to its
/// document, the frame and the application, and the files of a level. Owns the documents; each
/// lives as long as it has a view.
class CEditorApp : public CFrameDisplay {
 public:
  CEditorApp(CMainWindow& window, CDesktop& desktop, CRecentFileStore& recent);
  ~CEditorApp() override;

  /// The first document: the named file, or a new level when the path is empty. False when the file
  /// could not be opened; the user has been told.
  bool Start(const std::filesystem::path& file);

  [[nodiscard]] CEditorSettings& Settings() { return settings_; }
  [[nodiscard]] const std::vector<std::unique_ptr<CZANDODoc>>& Documents() const {
    return documents_;
  }

  /// Carries out a command; nothing happens when no target knows it or it is disabled.
  void Run(CommandId id);

  /// How a command shows now. A command that no target knows is disabled.
  [[nodiscard]] CCmdUI Query(CommandId id);

  /// Opens a level file, or activates the window of it when it is open already. False when that
  /// failed; the user has been told, and what is open is as it was.
  bool OpenDocument(const std::filesystem::path& path);

  /// Whether the view's window may be closed: asks for unsaved changes when it is the last one of
  /// its document, and saves when the user wants that.
  [[nodiscard]] bool MayClose(CZANDOView& view);

  /// The same for all documents, before the program ends.
  [[nodiscard]] bool MayExit();

  /// The window of a view is gone: its document goes with the last one.
  void OnViewClosed(CZANDODoc& document);

  /// Another view became the active one.
  void OnActiveViewChanged();

  /// A line of the group combo box was chosen.
  void SelectGroup(std::int32_t group);

  void RefreshGroups() override;
  void RefreshGrid() override;

 private:
  class CFrameCommands;
  class CApplicationCommands;

  std::vector<CCmdTarget*> Targets();
  CZANDODoc* ActiveDocument() const;
  CZANDODoc& Adopt(std::unique_ptr<CZANDODoc> document);
  void NewDocument();
  void AskAndOpen();
  bool Save(CZANDODoc& document);
  bool SaveAs(CZANDODoc& document);
  bool WriteTo(CZANDODoc& document, const std::filesystem::path& path);
  bool AskSaveChanges(CZANDODoc& document);
  void CloseDocument(CZANDODoc& document);
  void OpenView(CZANDODoc& document);
  void OpenFourViews(CZANDODoc& document);
  void NoteRecentFile(const std::filesystem::path& path);

  CMainWindow& window_;
  CDesktop& desktop_;
  CRecentFileStore& recentStore_;
  CEditorSettings settings_;
  std::vector<std::unique_ptr<CZANDODoc>> documents_;
  std::vector<std::filesystem::path> recentFiles_;
  std::unique_ptr<CFrameCommands> frameCommands_;
  std::unique_ptr<CApplicationCommands> applicationCommands_;
};

}  // namespace zando
