#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMdiArea>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "app/editor_app.h"
#include "desktop/child_frame.h"
#include "desktop/qt_desktop.h"
#include "desktop/qt_main_window.h"
#include "desktop/qt_text.h"
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

/// The line of a command in menus and their submenus; null when none has it.
inline QAction* FindIn(const QList<QAction*>& actions, CommandId id) {
  for (QAction* action : actions) {
    if (action->data().isValid() && action->data().toInt() == id) return action;
    if (action->menu() == nullptr) continue;
    if (QAction* found = FindIn(action->menu()->actions(), id)) return found;
  }
  return nullptr;
}

/// The editor with its real main window.
class EditorTest : public ::testing::Test {
 protected:
  EditorTest() {
    window_.SetApplication(app_);
    window_.resize(1200, 800);
    window_.show();
    QApplication::setActiveWindow(&window_);
  }
  ~EditorTest() override { window_.CloseAllChildren(); }

  /// The menu line of a command, as it is offered now; null when no menu has it.
  QAction* MenuItem(CommandId id) const { return FindIn(window_.menuBar()->actions(), id); }
  /// Chooses it; fails the test when it is not there or greyed.
  void Choose(CommandId id) {
    window_.RefreshCommands();
    QAction* action = MenuItem(id);
    ASSERT_TRUE(action != nullptr && action->isEnabled()) << id;
    action->trigger();
  }

  [[nodiscard]] CZANDODoc& Document() const { return *app_.Documents().back(); }
  [[nodiscard]] std::vector<CChildFrame*> Frames() const {
    std::vector<CChildFrame*> frames;
    for (QMdiSubWindow* window : window_.findChild<QMdiArea*>()->subWindowList()) {
      frames.push_back(static_cast<CChildFrame*>(window));
    }
    return frames;
  }
  [[nodiscard]] CZANDOView& ActiveEditingView() const {
    return dynamic_cast<CZANDOView&>(*window_.ActiveView());
  }
  [[nodiscard]] CViewWidget& ActiveWidget() const {
    const auto frames = Frames();
    const auto active = std::ranges::find(frames, window_.ActiveView(), &CChildFrame::View);
    return dynamic_cast<CViewWidget&>(*(*active)->widget());
  }
  [[nodiscard]] std::filesystem::path FileIn(const char* name) const {
    return PathFromQt(folder_.filePath(QLatin1String(name)));
  }

  /// Calls this with the next modal dialog, once that runs.
  static void WithNextDialog(std::function<void(QDialog&)> act) {
    QTimer::singleShot(1, [act = std::move(act)] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      dialog != nullptr ? act(*dialog) : WithNextDialog(act);
    });
  }

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
