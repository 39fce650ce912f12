#pragma once

#include <QAction>
#include <QMenuBar>
#include <QShortcut>
#include <QToolBar>
#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <vector>

#include "app/command_table.h"
#include "platform/command.h"

namespace zando {

/// The command table as menus, buttons and keys of one window. Every command has one action, which
/// menus and toolbars share. All of it belongs to the window.
class CCommandActions {
 public:
  using Runner = std::function<void(CommandId)>;
  using Query = std::function<CCmdUI(CommandId)>;

  /// `run` is called for every command that the user gives.
  CCommandActions(QWidget& window, Runner run);

  /// The menus of one bar, in order. `refresh` is called before one of them opens.
  [[nodiscard]] std::vector<QMenu*> BuildMenus(std::span<const MenuLine> lines,
                                               const std::function<void()>& refresh);

  /// Appends the buttons; 0 is a separator.
  void FillToolbar(QToolBar& bar, std::span<const CommandId> buttons);

  /// The accelerators work from now on. They rest while the keys are wanted for typing.
  void BindKeys();

  /// The menu that ends with the open windows; null before it is built.
  [[nodiscard]] QMenu* WindowMenu() const { return windowMenu_; }

  void SetRecentFiles(const std::vector<std::filesystem::path>& files);

  /// Enables and checks every action as the commands' targets say.
  void Refresh(const Query& query);

 private:
  static constexpr int kRecentFiles = 4;

  QAction* ActionOf(CommandId id, std::string_view text);
  QAction* NewAction(CommandId id, const QString& text);
  void AddLine(QMenu& menu, const MenuLine& line);
  void AddRecentFiles(QMenu& menu);
  void LetKeysRest(bool rest);

  struct Entry {
    CommandId id;
    QAction* action;
  };

  QWidget& window_;
  Runner run_;
  std::vector<Entry> entries_;
  std::vector<Entry> recentFiles_;
  std::vector<QShortcut*> keys_;
  QMenu* windowMenu_ = nullptr;
  QObject connections_;  ///< ends what Qt would still tell us while the window goes
};

}  // namespace zando
