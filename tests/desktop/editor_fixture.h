#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QTemporaryDir>
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
#include "support/fake_main_window.h"

namespace zando::testing {

/// Asks a script what would wait for a person; forms and cursor are the real ones.
class CAnsweringDesktop : public CQtDesktop {
 public:
  using CQtDesktop::CQtDesktop;

  CScriptedDesktop Script;
  std::function<void()> WhileAsking;  ///< what happens while the question stands

  void ShowMessage(std::string_view text) override { Script.ShowMessage(text); }
  SaveAnswer AskSaveChanges(std::string_view name) override {
    if (WhileAsking) WhileAsking();
    return Script.AskSaveChanges(name);
  }
  std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override {
    return Script.ChooseFile(request);
  }
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

}  // namespace zando::testing
