#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "app/editor_app.h"
#include "document/brush_edits.h"
#include "document/document_file.h"
#include "support/fake_main_window.h"

namespace zando::testing {

class EditorAppTest : public ::testing::Test {
 protected:
  EditorAppTest() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    Restart();
  }
  ~EditorAppTest() override {
    app.reset();
    EXPECT_TRUE(window.Children.empty());
    std::filesystem::remove_all(folder);
  }

  /// A program that has just begun, with the same files and recent files.
  void Restart(const std::filesystem::path& file = {}) {
    app.reset();
    app = std::make_unique<CEditorApp>(window, desktop, store);
    window.App = app.get();
    ASSERT_TRUE(app->Start(file));
  }

  CZANDODoc& Active() { return window.ActiveView()->Document(); }
  bool UserCloses(std::size_t child) { return window.UserCloses(*window.Children[child].view); }

  /// A saved level of some brushes in the folder.
  std::filesystem::path Sample(const std::string& name, int brushes = 1) {
    CZANDODoc level;
    for (int i = 0; i < brushes; ++i) AddToWorld(level);
    EXPECT_EQ(SaveDocumentFile(level, folder / name).Error(), "");
    return folder / name;
  }
  static std::int32_t BrushesIn(const std::filesystem::path& path) {
    return LoadDocumentFile(path)->document->GetLevel().BrushList.BrushCount();
  }

  std::string Check(CommandId id) {
    const CCmdUI ui = app->Query(id);
    return !ui.IsEnabled() ? "disabled" : ui.IsChecked() ? "checked" : "enabled";
  }

  std::filesystem::path folder =
      ::testing::TempDir() + "zando_app_test_" + std::to_string(::getpid());
  CFakeMainWindow window;
  CScriptedDesktop desktop;
  CMemoryRecentFiles store;
  std::unique_ptr<CEditorApp> app;
};

}  // namespace zando::testing
