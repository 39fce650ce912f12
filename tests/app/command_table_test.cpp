#include "app/command_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
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

/// A menu of the program's table as the given texts spell it.
std::string TextOf(std::span<const MenuLine> menu) {
  std::string text;
  for (const MenuLine& line : menu) {
    text.append(static_cast<std::size_t>(line.depth), '>');
    switch (line.kind) {
      case MenuLine::Kind::Separator:
        text += "-";
        break;
      case MenuLine::Kind::RecentFiles:
        text += "recent files";
        break;
      case MenuLine::Kind::OpenWindows:
        text += "open windows";
        break;
      case MenuLine::Kind::Submenu:
        text += line.text;
        break;
      case MenuLine::Kind::Command:
        text += std::to_string(line.id) + ' ';
        text += line.text.empty() ? FindCommand(line.id)->menuText : line.text;
        break;
    }
    text += '|';
  }
  return text;
}

TEST(CommandTable, MenusToolbarsKeysAndPromptsAreAsTheyAreGiven) {
  EXPECT_EQ(TextOf(EmptyMenu()), testing::kGivenEmptyMenu);
  EXPECT_EQ(TextOf(DocumentMenu()), testing::kGivenDocumentMenu);
  EXPECT_TRUE(std::ranges::equal(MainToolbar(), testing::kGivenMainToolbar));
  EXPECT_TRUE(std::ranges::equal(SecondToolbar(), testing::kGivenSecondToolbar));
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
