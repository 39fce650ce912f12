#include "app/command_table.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/given_texts.h"

namespace zando {
namespace {

using Lines = std::vector<std::string>;

std::string LineOf(std::int32_t depth, std::string_view text, CommandId id) {
  return std::string(static_cast<std::size_t>(depth), '>') + std::string(text) + '|' +
         std::to_string(id);
}

std::string TextOf(CommandId id) {
  const CommandRow* row = FindCommand(id);
  if (row == nullptr) return "no row";
  return std::string(row->menuText) +
         (row->keys[0].empty() ? "" : '\t' + std::string(row->keys[0]));
}

TEST(CommandTable, MenusHoldTheGivenTextsKeysAndNumbersInOrder) {
  const auto expectGiven = [](auto menu, auto given) {
    Lines held;
    for (const MenuLine& line : menu) {
      const bool isCommand = line.kind == MenuLine::Kind::Command;
      if (!isCommand && line.kind != MenuLine::Kind::Submenu) continue;
      held.push_back(LineOf(line.depth, isCommand ? TextOf(line.id) : line.text, line.id));
    }
    Lines expected;
    for (const testing::GivenLine& line : given) {
      expected.push_back(LineOf(line.depth, line.text, line.id));
    }
    EXPECT_EQ(held, expected);
  };
  expectGiven(EmptyMenu(), testing::kGivenEmptyMenu);
  expectGiven(DocumentMenu(), testing::kGivenDocumentMenu);
}

TEST(CommandTable, ToolbarsHoldTheGivenButtonsInOrderEachWithAPictureOfItsOwn) {
  using Ids = std::vector<CommandId>;
  const auto main = MainToolbar();
  const auto second = SecondToolbar();
  EXPECT_EQ(Ids(main.begin(), main.end()),
            Ids(testing::kGivenMainToolbar.begin(), testing::kGivenMainToolbar.end()));
  EXPECT_EQ(Ids(second.begin(), second.end()),
            Ids(testing::kGivenSecondToolbar.begin(), testing::kGivenSecondToolbar.end()));
  std::set<std::string_view> icons;
  for (const auto bar : {main, second}) {
    for (const CommandId id : bar) {
      if (id == 0) continue;
      const std::string_view icon = FindCommand(id)->icon;
      EXPECT_TRUE(!icon.empty() && icons.insert(icon).second) << id;
    }
  }
}

TEST(CommandTable, KeysAreTheGivenOnes) {
  std::map<std::string_view, CommandId> held;
  for (const Accelerator& key : Accelerators()) EXPECT_TRUE(held.emplace(key.keys, key.id).second);
  std::map<std::string_view, CommandId> given;
  for (const testing::GivenKey& key : testing::kGivenKeys) given.emplace(key.keys, key.id);
  EXPECT_EQ(held, given);
}

TEST(CommandTable, EveryCommandHasOneFullRowAndTheGivenPromptAndTip) {
  std::set<CommandId> ids;
  for (const CommandRow& row : CommandTable()) {
    EXPECT_TRUE(ids.insert(row.id).second) << row.id;
    EXPECT_FALSE(row.menuText.empty() || row.prompt.empty() || row.tip.empty()) << row.id;
  }
  for (const testing::GivenPrompt& given : testing::kGivenPrompts) {
    EXPECT_EQ(FindCommand(given.id)->prompt, given.prompt);
    if (!given.tip.empty()) EXPECT_EQ(FindCommand(given.id)->tip, given.tip);
  }
}

TEST(CommandTable, SeparatorsStandBetweenLinesOfTheirMenu) {
  for (const auto menu : {EmptyMenu(), DocumentMenu()}) {
    for (std::size_t i = 0; i < menu.size(); ++i) {
      if (menu[i].kind != MenuLine::Kind::Separator) continue;
      ASSERT_LT(i + 1, menu.size());
      EXPECT_EQ(menu[i + 1].depth, menu[i].depth) << i;
      EXPECT_NE(menu[i + 1].kind, MenuLine::Kind::Separator) << i;
      EXPECT_GE(menu[i - 1].depth, menu[i].depth) << i;
    }
  }
}

}  // namespace
}  // namespace zando
