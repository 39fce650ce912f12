#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "document/command_ids.h"
#include "platform/command.h"

namespace zando {

class CEditorApp;
class CZANDOView;
struct ActiveLevel;
struct MainFrame;

/// What a command does with its target, and how it shows.
template <typename Target>
struct CommandRule {
  void (*run)(Target&);
  bool (*enabled)(const Target&) = nullptr;  ///< null: always
  bool (*checked)(const Target&) = nullptr;  ///< null: never
};
using OfView = CommandRule<CZANDOView>;
using OfLevel = CommandRule<ActiveLevel>;
using OfFrame = CommandRule<MainFrame>;
using OfApplication = CommandRule<CEditorApp>;

/// All that there is to say of a command but its places in the menus and toolbars.
struct CommandRow {
  /// None for a command that nobody answers, which is always disabled.
  using Rule = std::variant<std::monostate, OfView, OfLevel, OfFrame, OfApplication>;

  CommandId id;
  std::string_view menuText;  ///< with '&' before the keyboard mark, without the key
  std::string_view prompt;    ///< for the status bar
  std::string_view tip;       ///< for the toolbar button
  std::string_view icon;      ///< name of the button's picture, empty for none
  /// Spelled "Ctrl+N", "Alt+Backspace", "G"; of two keys the menu shows the first.
  std::array<std::string_view, 2> keys;
  Rule rule;
};
[[nodiscard]] std::span<const CommandRow> CommandTable();

/// The row of a command, or null.
[[nodiscard]] const CommandRow* FindCommand(CommandId id);

/// A line of a menu. A submenu holds the lines that follow it at a greater depth.
struct MenuLine {
  enum class Kind { Command, Submenu, Separator, RecentFiles, OpenWindows };
  Kind kind;
  std::int32_t depth;     ///< 0 for the menus of the bar
  CommandId id;           ///< of a command, else 0
  std::string_view text;  ///< of a submenu; of a command whose text here is another than its row's
};
/// The bar while no document is open, and with one.
[[nodiscard]] std::span<const MenuLine> EmptyMenu();
[[nodiscard]] std::span<const MenuLine> DocumentMenu();

/// Buttons from left to right; 0 is a separator.
[[nodiscard]] std::span<const CommandId> MainToolbar();
/// The group combo box stands before its first button.
[[nodiscard]] std::span<const CommandId> SecondToolbar();

/// A key and its command, as in the rows and in their order.
struct Accelerator {
  std::string_view keys;
  CommandId id;
};
[[nodiscard]] std::span<const Accelerator> Accelerators();

}  // namespace zando
