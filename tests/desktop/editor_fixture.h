#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QTemporaryDir>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/editor_app.h"
#include "desktop/child_frame.h"
#include "desktop/qt_desktop.h"
#include "desktop/qt_main_window.h"
#include "desktop/view_widget.h"

namespace zando::testing {

/// Answers the choosers and boxes that would wait for a person; forms and cursor are the real ones.
class CAnsweringDesktop : public CQtDesktop {
 public:
  using CQtDesktop::CQtDesktop;

  std::deque<std::optional<std::filesystem::path>> Files;
  std::deque<SaveAnswer> SaveAnswers;
  std::function<void()> WhileAsking;  ///< what happens while the question stands
  std::vector<std::string> Messages;
  std::vector<std::string> SaveQuestions;

  void ShowMessage(std::string_view text) override { Messages.emplace_back(text); }
  SaveAnswer AskSaveChanges(std::string_view name) override;
  std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override;
};

class CMemoryRecentFiles : public CRecentFileStore {
 public:
  std::vector<std::filesystem::path> Files;
  std::vector<std::filesystem::path> Load() override { return Files; }
  void Save(const std::vector<std::filesystem::path>& files) override { Files = files; }
};

/// The editor with its real main window.
class EditorTest : public ::testing::Test {
 protected:
  EditorTest();
  ~EditorTest() override;

  /// The menu line of a command, as it is offered now; null when no menu has it.
  QAction* MenuItem(CommandId id) const;
  /// Chooses it; fails the test when it is not there or greyed.
  void Choose(CommandId id);

  [[nodiscard]] CZANDODoc& Document() const { return *app_.Documents().back(); }
  [[nodiscard]] std::vector<CChildFrame*> Frames() const;
  [[nodiscard]] CZANDOView& ActiveEditingView() const;
  [[nodiscard]] CViewWidget& ActiveWidget() const;
  [[nodiscard]] std::filesystem::path FileIn(const char* name) const;

  /// Calls this with the next modal dialog, once that runs.
  static void WithNextDialog(std::function<void(QDialog&)> act);

  /// Fills in "Create Box", which the command opens, and presses OK.
  void CreateBox(const QString& height);

  QTemporaryDir folder_;
  CMemoryRecentFiles recent_;
  CQtMainWindow window_;
  CAnsweringDesktop desktop_{window_};
  CEditorApp app_{window_, desktop_, recent_};
};

/// The same with a new level open.
class LevelTest : public EditorTest {
 protected:
  LevelTest() { app_.Start({}); }
};

[[nodiscard]] std::string BytesOf(const std::filesystem::path& path);

}  // namespace zando::testing
