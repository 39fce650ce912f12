#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

#include "app/editor_app.h"
#include "app/main_window.h"
#include "desktop/command_actions.h"
#include "desktop/tiled_windows.h"
#include "desktop/window_list.h"

namespace zando {

class CChildFrame;
class CGroupBox;
class CStatusProgress;

/// The main frame on Qt: menus, toolbars and keys from the command table, a status bar, and an area
/// in which the views have their windows.
class CQtMainWindow : public QMainWindow, public CMainWindow {
 public:
  CQtMainWindow();
  CQtMainWindow(const CQtMainWindow&) = delete;
  CQtMainWindow& operator=(const CQtMainWindow&) = delete;
  ~CQtMainWindow() override;

  /// Commands go to the application from now on. It outlives the child frames, not the window: call
  /// CloseAllChildren before it goes.
  void SetApplication(CEditorApp& app);

  /// Runs what a window hands on to the core; what fails is told of, and goes no further.
  void RunGuarded(const std::function<void()>& operation);
  void CloseAllChildren();

  /// Shows in menus and buttons what the commands' targets say now.
  void RefreshCommands();

  /// A line in the status bar, until the next prompt takes its place.
  void SetStatusText(const QString& text);

  /// A line that comes back after every prompt, until ClearFailure.
  void ShowFailure(const QString& text);
  void ClearFailure();

  /// See CDesktop::ShowProgress. No command runs until it is destroyed.
  [[nodiscard]] std::unique_ptr<CProgress> ShowProgress(const QString& text);

  void OpenChild(std::unique_ptr<CZANDOView> view) override;
  void OpenChild(std::unique_ptr<CTextureView> view) override;
  void CloseChild(CChildView& view) override;
  [[nodiscard]] CChildView* ActiveView() const override;
  void Activate(CChildView& view) override;
  void Minimize(CChildView& view) override;
  [[nodiscard]] bool IsMinimized(const CChildView& view) const override;
  void TileHorizontally(const std::vector<CChildView*>& views) override;
  void Tile() override;
  void Cascade() override;
  void ArrangeIcons() override;
  void SetGroupItems(const std::vector<GroupItem>& items, std::int32_t selected) override;
  void SetGridPane(std::string_view text) override;
  void SetRecentFiles(const std::vector<std::filesystem::path>& files) override;
  void SetToolbarsVisible(bool visible) override;
  [[nodiscard]] bool AreToolbarsVisible() const override;
  void SetStatusBarVisible(bool visible) override;
  [[nodiscard]] bool IsStatusBarVisible() const override;
  void ShowAbout() override;
  void Close() override { close(); }

  /// For the child frames: whether one may close, that one is closing, and that its view is gone.
  [[nodiscard]] bool MayClose(CChildView& view);
  void Forget(CChildFrame& frame);
  void OnViewGone(CZANDODoc& document);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void BuildMenus();
  void BuildToolbars();
  void BuildGroupBox();
  void BuildStatusBar();
  void ShowMenusForDocuments();
  void OpenFrame(CChildFrame* frame);
  void FocusActiveView();
  void SetActiveFrame(CChildFrame* frame);
  void UpdateTitle();
  void ShowPrompt(const QString& prompt);
  [[nodiscard]] QString IdleText() const;
  void RunCommand(CommandId id);
  void RefreshWindowList();
  [[nodiscard]] QString NameOf(const CZANDODoc& document) const;
  void TileFrames(const std::vector<CChildFrame*>& frames, TileOrder order);
  [[nodiscard]] QRect TilingArea() const;
  [[nodiscard]] CChildFrame* FrameOf(const CChildView& view) const;
  [[nodiscard]] int HeightOfIcons() const;

  CEditorApp* app_ = nullptr;
  CCommandActions actions_;
  QMdiArea* area_;
  std::vector<QMenu*> emptyMenus_;
  std::vector<QMenu*> documentMenus_;
  QToolBar* mainToolbar_ = nullptr;
  QToolBar* secondToolbar_ = nullptr;
  CGroupBox* groupBox_ = nullptr;
  QLabel* promptPane_ = nullptr;
  QLabel* gridPane_ = nullptr;
  QString message_;  ///< until the next prompt
  QString failure_;  ///< until the next command
  QString shownTitle_;
  std::vector<CChildFrame*> frames_;  ///< in the order of opening
  CChildFrame* activeFrame_ = nullptr;
  CTiledWindows tiled_;
  CWindowList windowList_;
  QPointer<CStatusProgress> progress_;
  QObject connections_;  ///< ends what Qt would still tell us while the window goes
};

}  // namespace zando
