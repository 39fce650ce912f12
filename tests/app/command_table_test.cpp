#include "app/command_table.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string_view>

#include "support/given_texts.h"

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
}

TEST(CommandTable, KeysAndPromptsAreAsTheyAreGiven) {
  std::map<std::string_view, CommandId> keys;
  for (const Accelerator& key : Accelerators()) EXPECT_TRUE(keys.emplace(key.keys, key.id).second);
  std::map<std::string_view, CommandId> given;
  for (const auto& key : testing::kGivenKeys) given.emplace(key.keys, key.id);
  EXPECT_EQ(keys, given);
  for (const auto& [id, prompt, tip] : testing::kGivenTips) {
    EXPECT_EQ(FindCommand(id)->prompt, prompt);
    EXPECT_EQ(FindCommand(id)->tip, tip);
  }
}

}  // namespace
}  // namespace zando
