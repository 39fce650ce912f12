#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "views/texture_view.h"
#include "views/zando_view.h"

namespace zando {

/// A line of the group combo box.
struct GroupItem {
  std::string name;
  std::int32_t group;  ///< -1 for none
};

/// The main frame with its child frames, as the application sees it. Every child frame holds one
/// view, which it owns from OpenChild until CloseChild or until the user closes it (after
/// CEditorApp::MayClose has said so).
class CMainWindow {
 public:
  CMainWindow() = default;
  CMainWindow(const CMainWindow&) = delete;
  CMainWindow& operator=(const CMainWindow&) = delete;
  virtual ~CMainWindow() = default;

  /// Opens a child frame with the view, active, and gives the view its window and first update.
  virtual void OpenChild(std::unique_ptr<CZANDOView> view) = 0;
  virtual void OpenChild(std::unique_ptr<CTextureView> view) = 0;

  /// Closes the child frame of a view without asking; the view is destroyed.
  virtual void CloseChild(CChildView& view) = 0;

  /// The view that commands go to, or null when no child frame is open.
  [[nodiscard]] virtual CChildView* ActiveView() const = 0;
  virtual void Activate(CChildView& view) = 0;

  virtual void Minimize(CChildView& view) = 0;
  [[nodiscard]] virtual bool IsMinimized(const CChildView& view) const = 0;
  /// Lets these views share the area, or all that are open. Minimized ones stay so, and windows
  /// that share it go on to do so when the main window changes its size.
  virtual void TileHorizontally(const std::vector<CChildView*>& views) = 0;
  virtual void Tile() = 0;
  virtual void Cascade() = 0;
  virtual void ArrangeIcons() = 0;

  virtual void SetGroupItems(const std::vector<GroupItem>& items, std::int32_t selected) = 0;
  virtual void SetGridPane(std::string_view text) = 0;
  virtual void SetRecentFiles(const std::vector<std::filesystem::path>& files) = 0;

  virtual void SetToolbarsVisible(bool visible) = 0;
  [[nodiscard]] virtual bool AreToolbarsVisible() const = 0;
  virtual void SetStatusBarVisible(bool visible) = 0;
  [[nodiscard]] virtual bool IsStatusBarVisible() const = 0;

  virtual void ShowAbout() = 0;

  /// Closes the main window once every document agrees.
  virtual void Close() = 0;
};

}  // namespace zando
