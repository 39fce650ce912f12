#include "app/command_table.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "document/command_ids.h"

namespace zando {
namespace {

/// The paths of a menu's commands, without the keyboard marks: "View/Tools/Camera".
std::vector<std::string> Paths(std::span<const MenuLine> menu) {
  std::vector<std::string> paths;
  std::vector<std::string> parents;
  const auto plain = [](std::string_view text) {
    std::string result(text);
    std::erase(result, '&');
    return result;
  };
  for (const MenuLine& line : menu) {
    EXPECT_LE(line.depth, static_cast<std::int32_t>(parents.size()));
    parents.resize(static_cast<std::size_t>(line.depth));
    if (line.kind == MenuLine::Kind::Submenu) parents.push_back(plain(line.text));
    if (line.kind != MenuLine::Kind::Command) continue;
    const CommandRow* row = FindCommand(line.id);
    if (row == nullptr) continue;
    std::string path;
    for (const std::string& parent : parents) path += parent + '/';
    paths.push_back(path + plain(row->menuText));
  }
  return paths;
}

TEST(CommandTable, EveryCommandOfMenusToolbarsAndKeysHasOneFullRow) {
  std::map<CommandId, int> rows;
  for (const CommandRow& row : CommandTable()) {
    EXPECT_EQ(++rows[row.id], 1) << row.id;
    EXPECT_FALSE(row.menuText.empty() || row.prompt.empty() || row.tip.empty()) << row.id;
    EXPECT_EQ(row.menuText.find('\t'), std::string_view::npos) << row.menuText;
  }
  for (const auto menu : {EmptyMenu(), DocumentMenu()}) {
    for (const MenuLine& line : menu) {
      EXPECT_EQ(rows.count(line.id), line.kind == MenuLine::Kind::Command ? 1U : 0U) << line.id;
      EXPECT_EQ(line.text.empty(), line.kind != MenuLine::Kind::Submenu);
    }
  }
  std::set<std::string_view> icons;
  for (const auto bar : {MainToolbar(), SecondToolbar()}) {
    for (const CommandId id : bar) {
      if (id == 0) continue;
      const CommandRow* row = FindCommand(id);
      ASSERT_NE(row, nullptr) << id;
      EXPECT_TRUE(!row->icon.empty() && icons.insert(row->icon).second) << id;
    }
  }
  std::set<std::string_view> keys;
  for (const Accelerator& accelerator : Accelerators()) {
    EXPECT_NE(FindCommand(accelerator.id), nullptr) << accelerator.keys;
    EXPECT_TRUE(keys.insert(accelerator.keys).second) << accelerator.keys;
  }
  EXPECT_EQ(keys.size(), 20U);
  EXPECT_EQ(FindCommand(0), nullptr);
}

TEST(CommandTable, MenusNeitherRepeatACommandNorBeginOrEndWithASeparator) {
  for (const auto menu : {EmptyMenu(), DocumentMenu()}) {
    std::set<CommandId> seen;
    for (std::size_t i = 0; i < menu.size(); ++i) {
      const MenuLine& line = menu[i];
      const bool isCommand = line.kind == MenuLine::Kind::Command;
      EXPECT_TRUE(!isCommand || seen.insert(line.id).second) << line.id;
      if (line.kind != MenuLine::Kind::Separator) continue;
      ASSERT_LT(i + 1, menu.size());
      EXPECT_EQ(menu[i + 1].depth, line.depth);
      EXPECT_NE(menu[i + 1].kind, MenuLine::Kind::Separator);
      EXPECT_GE(menu[i - 1].depth, line.depth) << i;
    }
  }
}

TEST(CommandTable, CommandsAreFoundWhereTheUserGuideSaysTheyAre) {
  const std::vector<std::string> empty{
      "File/New",        "File/Open...",     "File/Exit",           "View/Toolbar",
      "View/Status Bar", "Help/Help Topics", "Help/About ZANDO...",
  };
  EXPECT_EQ(Paths(EmptyMenu()), empty);
  const std::vector<std::string> full = Paths(DocumentMenu());
  const std::set<std::string> found(full.begin(), full.end());
  for (const char* path :
       {"File/Export to Quake (MAP) ...", "Edit/Redo", "View/4 Views", "View/Texture View",
        "View/Show/All Brushes", "View/Tools/Camera", "View/Tools/Brush/Shear Brush",
        "View/Tools/Move/Select Entity", "View/Tools/Bsp Manager...", "Brush/Selected/Delete",
        "Brush/Primitives/Staircase...", "Brush/Group Editor...", "Entities/Hide non lights",
        "Axis/Z", "Window/New Camera", "Help/Help Topics"}) {
    EXPECT_TRUE(found.contains(path)) << path;
  }
  EXPECT_EQ(full.size(), 72U);
}

}  // namespace
}  // namespace zando
