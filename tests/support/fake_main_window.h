#pragma once

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/editor_app.h"
#include "app/main_window.h"
#include "support/scripted_desktop.h"

namespace zando::testing {

class CMemoryRecentFiles : public CRecentFileStore {
 public:
  std::vector<std::filesystem::path> files;
  std::vector<std::filesystem::path> Load() override { return files; }
  void Save(const std::vector<std::filesystem::path>& saved) override { files = saved; }
};

/// A main frame without a desktop: keeps the child frames in the order of opening and remembers
/// what it was told to show. As the real one it tells the application of views that are gone.
class CFakeMainWindow : public CMainWindow {
 public:
  struct Child {
    std::unique_ptr<CFakeViewWindow> window;  ///< outlives the view
    std::unique_ptr<CChildView> view;
    bool minimized = false;
  };

  CEditorApp* App = nullptr;
  std::vector<Child> Children;
  std::vector<GroupItem> GroupItems;
  std::int32_t SelectedGroup = -2;
  std::string GridPane;
  std::vector<std::filesystem::path> RecentFiles;
  std::string Arrangement;         ///< "H" for each horizontal tiling, "T", "C", "A" for the others
  std::vector<CChildView*> Tiled;  ///< by the last horizontal tiling
  int Abouts = 0;
  int Closes = 0;

  /// The view of a child frame that holds an editing view.
  CZANDOView& Editing(std::size_t index) {
    return dynamic_cast<CZANDOView&>(*Children.at(index).view);
  }

  /// Does what the close button of a child frame does.
  bool UserCloses(CChildView& view) {
    if (!App->MayClose(view)) return false;
    CloseChild(view);
    return true;
  }

  void OpenChild(std::unique_ptr<CZANDOView> view) override { Open(std::move(view)); }
  void OpenChild(std::unique_ptr<CTextureView> view) override { Open(std::move(view)); }
  void CloseChild(CChildView& view) override {
    CZANDODoc& document = view.Document();
    if (active_ == &view) active_ = nullptr;
    const auto closed = Find(view);
    closed->view.reset();  // before its window
    Children.erase(closed);
    App->OnViewClosed(document);
    if (active_ == nullptr && !Children.empty()) SetActive(Children.back().view.get());
  }
  CChildView* ActiveView() const override { return active_; }
  void Activate(CChildView& view) override {
    Find(view)->minimized = false;
    SetActive(&view);
  }
  void Minimize(CChildView& view) override { Find(view)->minimized = true; }
  bool IsMinimized(const CChildView& view) const override {
    return std::any_of(Children.begin(), Children.end(), [&](const Child& child) {
      return child.view.get() == &view && child.minimized;
    });
  }
  void TileHorizontally(const std::vector<CChildView*>& views) override {
    Arrangement += 'H';
    Tiled = views;
  }
  void Tile() override { Arrangement += 'T'; }
  void Cascade() override { Arrangement += 'C'; }
  void ArrangeIcons() override { Arrangement += 'A'; }
  void SetGroupItems(const std::vector<GroupItem>& items, std::int32_t selected) override {
    GroupItems = items;
    SelectedGroup = selected;
  }
  void SetGridPane(std::string_view text) override { GridPane = text; }
  void SetRecentFiles(const std::vector<std::filesystem::path>& files) override {
    RecentFiles = files;
  }
  void SetToolbarsVisible(bool visible) override { toolbars_ = visible; }
  bool AreToolbarsVisible() const override { return toolbars_; }
  void SetStatusBarVisible(bool visible) override { statusBar_ = visible; }
  bool IsStatusBarVisible() const override { return statusBar_; }
  void ShowAbout() override { ++Abouts; }
  void Close() override { ++Closes; }

 private:
  template <typename View>
  void Open(std::unique_ptr<View> view) {
    View* opened = view.get();
    Children.push_back({std::make_unique<CFakeViewWindow>(), std::move(view)});
    opened->SetWindow(Children.back().window.get());
    opened->OnInitialUpdate();
    SetActive(opened);
  }
  std::vector<Child>::iterator Find(const CChildView& view) {
    return std::find_if(Children.begin(), Children.end(),
                        [&](const Child& child) { return child.view.get() == &view; });
  }
  void SetActive(CChildView* view) {
    if (active_ != nullptr) active_->OnActivate(CChildView::Activation::Deactivated);
    active_ = view;
    active_->OnActivate(CChildView::Activation::Activated);
    App->OnActiveViewChanged();
  }

  CChildView* active_ = nullptr;
  bool toolbars_ = true;
  bool statusBar_ = true;
};

}  // namespace zando::testing
