#include "app/command_table.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string_view>

#include "document/command_ids.h"

namespace zando {
namespace {

TEST(CommandTable, EveryCommandOfMenusToolbarsAndKeysHasOneFullRow) {
  std::map<CommandId, int> rows;
  for (const CommandRow& row : CommandTable()) {
    EXPECT_EQ(++rows[row.id], 1) << row.id;
    EXPECT_FALSE(row.menuText.empty() || row.prompt.empty() || row.tip.empty()) << row.id;
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
    EXPECT_EQ(rows.count(accelerator.id), 1U) << accelerator.keys;
    EXPECT_TRUE(keys.insert(accelerator.keys).second) << accelerator.keys;
  }
}

TEST(CommandTable, MenusAreTreesWithoutRepeatedCommandsOrStraySeparators) {
  for (const auto menu : {EmptyMenu(), DocumentMenu()}) {
    std::set<CommandId> seen;
    std::int32_t deepest = 0;  // that the next line may stand at
    for (std::size_t i = 0; i < menu.size(); ++i) {
      const MenuLine& line = menu[i];
      EXPECT_LE(line.depth, deepest) << i;
      deepest = line.depth + (line.kind == MenuLine::Kind::Submenu ? 1 : 0);
      if (line.kind == MenuLine::Kind::Command) {
        EXPECT_TRUE(FindCommand(line.id) != nullptr && seen.insert(line.id).second) << line.id;
      }
      if (line.kind != MenuLine::Kind::Separator) continue;
      ASSERT_LT(i + 1, menu.size());
      EXPECT_EQ(menu[i + 1].depth, line.depth) << i;
      EXPECT_NE(menu[i + 1].kind, MenuLine::Kind::Separator) << i;
      EXPECT_GE(menu[i - 1].depth, line.depth) << i;
    }
  }
}

TEST(CommandTable, EveryCommandIsInTheMenuOfALevelButThoseOfKeysAndTheQuickBuild) {
  std::set<CommandId> found{ID_QUICK_BSP, ID_NEXT_PANE, ID_PREV_PANE, ID_HELP, ID_CONTEXT_HELP};
  for (CommandId i = 0; i < 4; ++i) found.insert(ID_FILE_MRU_FIRST + i);
  for (const MenuLine& line : DocumentMenu()) {
    EXPECT_TRUE(line.id == 0 || found.insert(line.id).second) << line.id;
  }
  for (const CommandRow& row : CommandTable()) EXPECT_TRUE(found.contains(row.id)) << row.menuText;
}

}  // namespace
}  // namespace zando
