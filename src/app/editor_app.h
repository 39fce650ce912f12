#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/file_stamp.h"
#include "app/guard.h"
#include "app/main_window.h"
#include "document/editor_settings.h"
#include "document/zando_doc.h"
#include "platform/command.h"
#include "platform/desktop.h"
#include "platform/frame_display.h"
#include "platform/result.h"

namespace zando {

inline constexpr std::size_t kMostRecentFiles = 4;

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

class CEditorApp;

/// What the commands of the frame work on.
struct MainFrame {
  CEditorApp& app;
  CMainWindow& window;
};

/// The program: settings, open documents, the road of a command from the active view to its
/// document, the frame and the application, and the files of a level. Owns the documents; each
/// lives as long as it has a view.
class CEditorApp : public CFrameDisplay {
 public:
  CEditorApp(CMainWindow& window, CDesktop& desktop, CRecentFileStore& recent);
  CEditorApp(const CEditorApp&) = delete;
  CEditorApp& operator=(const CEditorApp&) = delete;
  ~CEditorApp() override;

  /// The first document: the named file, or a new level when the path is empty. False when the file
  /// could not be opened; the user has been told.
  bool Start(const std::filesystem::path& file);

  [[nodiscard]] CEditorSettings& Settings() { return settings_; }
  [[nodiscard]] const std::vector<std::unique_ptr<CZANDODoc>>& Documents() const {
    return documents_;
  }

  /// What the windows hand on to anything but this object goes through here: to views and dialogs.
  /// The operations of this object that windows call do so themselves.
  [[nodiscard]] CGuard& Guard() { return guard_; }

  /// Carries out a command; nothing happens when no target knows it or it is disabled. What the
  /// last one had to say of a failure is taken back.
  void Run(CommandId id);

  /// How a command shows now. A command that no target knows is disabled.
  [[nodiscard]] CCmdUI Query(CommandId id);

  /// Opens a level file, or activates the window of it when it is open already. False when that
  /// failed; the user has been told, and what is open is as it was.
  bool OpenDocument(const std::filesystem::path& path);

  /// Whether the view's window may be closed: asks for unsaved changes when it is the last one of
  /// its document, and saves when the user wants that. Not when anything of this fails.
  [[nodiscard]] bool MayClose(CChildView& view);

  /// The same for all documents, before the program ends.
  [[nodiscard]] bool MayExit();

  /// The window of a view is gone: its document goes with the last one. Saying so twice, or for a
  /// view that CloseChild destroyed, does no harm.
  void OnViewClosed(CZANDODoc& document);

  /// Another view became the active one.
  void OnActiveViewChanged();

  /// What a level is called in titles and questions: its file's name, or the one that a level
  /// without a file was given.
  [[nodiscard]] std::string NameOf(const CZANDODoc& document) const;

  /// A line of the group combo box was chosen.
  void SelectGroup(std::int32_t group);

  void RefreshGroups() override;
  void RefreshGrid() override;

  // ---- what the commands of the frame and the application do

  /// The level of the active view, or null.
  [[nodiscard]] CZANDODoc* ActiveDocument() const;

  void OpenView(CZANDODoc& document);
  void OpenTextureBrowser(CZANDODoc& document);

  /// Minimizes the views that the level has and tiles four new ones.
  void OpenFourViews(CZANDODoc& document);

  void NewDocument();
  void AskAndOpen();

  /// The newest is the first. Opening one that is no longer there takes it out.
  [[nodiscard]] const std::vector<std::filesystem::path>& RecentFiles() const {
    return recentFiles_;
  }
  void OpenRecentFile(std::size_t index);

  /// False when the user cancelled, or when it failed and the user has been told.
  bool Save(CZANDODoc& document);
  bool SaveAs(CZANDODoc& document);

  /// Closes all windows of a level, once its changes are saved or given up.
  void CloseDocument(CZANDODoc& document);

  void ShowAbout() { window_.ShowAbout(); }
  void Exit() { window_.Close(); }

 private:
  /// What the application keeps beside a document.
  struct OpenLevel {
    std::string untitledName;  ///< proposed until the level has a file
    FileStamp stamp;           ///< of the file as we read or wrote it last
    CReport damage;            ///< what was wrong with the file when we read it
  };

  template <typename Ask>
  bool Offer(Ask&& ask);
  [[nodiscard]] CZANDODoc* FindByPath(const std::filesystem::path& path) const;
  OpenLevel& LevelOf(const CZANDODoc& document) { return levels_.at(&document); }

  /// Opens it in a window; without one, when that fails, it is not open.
  void Adopt(std::unique_ptr<CZANDODoc> document, OpenLevel level);
  void Activate(CZANDODoc& document);
  void LoadTextures(CZANDODoc& document);

  /// OpenDocument without the guard.
  bool Open(const std::filesystem::path& path);

  /// Where the newest recent file lies; empty when that is not known or no longer there.
  [[nodiscard]] std::filesystem::path LastUsedFolder() const;
  bool WriteTo(CZANDODoc& document, const std::filesystem::path& path);
  bool MayOverwrite(const CZANDODoc& document);
  bool AskSaveChanges(CZANDODoc& document);
  std::unique_ptr<CZANDODoc> Release(const CZANDODoc& document);

  void LoadRecentFiles();
  void NoteRecentFile(const std::filesystem::path& path);
  void PublishRecentFiles();

  CMainWindow& window_;
  CDesktop& desktop_;
  CRecentFileStore& recentStore_;
  CGuard guard_{desktop_};
  CEditorSettings settings_;
  std::vector<std::unique_ptr<CZANDODoc>> documents_;
  std::map<const CZANDODoc*, OpenLevel> levels_;
  std::vector<std::filesystem::path> recentFiles_;
  int untitledCount_ = 0;
};

}  // namespace zando
