#include "entities/class_defaults.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zando {
namespace {

std::string PairsAfterClassName(const ClassDefaults& record) {
  std::string text;
  for (const DefaultPair& pair : record.pairs.subspan(1)) {
    text.append(pair.key).append("=").append(pair.value).append(" ");
  }
  return text;
}

TEST(ClassDefaults, ClassesStandInTheirOrder) {
  std::vector<std::pair<std::string, int>> families;
  std::set<std::string_view> names;
  for (const ClassDefaults& record : ClassDefaultTable()) {
    ASSERT_EQ(record.pairs.front().key, "classname");
    names.insert(record.ClassName());
    const std::string family(record.ClassName().substr(0, record.ClassName().find('_')));
    if (families.empty() || families.back().first != family) families.emplace_back(family, 0);
    ++families.back().second;
  }
  EXPECT_EQ(names.size(), 71U);
  const std::vector<std::pair<std::string, int>> expected{
      {"info", 6},    {"air", 1},  {"ambient", 5}, {"func", 7}, {"item", 15},    {"light", 7},
      {"monster", 9}, {"misc", 2}, {"path", 1},    {"trap", 2}, {"trigger", 10}, {"weapon", 6}};
  EXPECT_EQ(families, expected);
  const std::map<std::size_t, std::string_view> places{
      {0, "info_intermission"}, {4, "info_player_start2"}, {13, "func_door_secret"},
      {17, "func_plat"},        {30, "item_armor1"},       {39, "light_fluoro"},
      {45, "monster_zombie"},   {53, "trap_spikeshooter"}, {56, "trigger_changelevel"},
      {64, "trigger_relay"},    {70, "weapon_lightning"}};
  for (const auto& [place, name] : places) EXPECT_EQ(ClassDefaultTable()[place].ClassName(), name);
}

TEST(ClassDefaults, EveryClassStartsWithThePairsOfItsFamily) {
  const std::map<std::string_view, std::string_view> ofFamily{
      {"func", "angle=0 speed=100 sounds=1 wait=4 "},
      {"light", "origin=1 1 1 light=300 "},
      {"path", "origin=1 1 1 target= targetname= "},
      {"trigger", "style=32 target= wait= delay= "}};
  const std::map<std::string_view, std::string_view> ofClass{
      {"func_door_secret", "angle=0 speed=10 sounds=1 wait=4 "},
      {"func_plat", "angle=-1 speed=100 sounds=1 wait=4 height=128 "},
      {"trigger_changelevel", "style=32 wait= delay= "},
      {"trigger_setskill", "style=32 wait= delay= "}};
  for (const ClassDefaults& record : ClassDefaultTable()) {
    const std::string_view name = record.ClassName();
    std::string_view expected = "origin=1 1 1 ";
    if (const auto found = ofFamily.find(name.substr(0, name.find('_'))); found != ofFamily.end()) {
      expected = found->second;
    }
    if (const auto found = ofClass.find(name); found != ofClass.end()) expected = found->second;
    EXPECT_EQ(PairsAfterClassName(record), expected) << name;
  }
}

TEST(ClassDefaults, ANewEntityOfAClassHasItsPairsAndItsOriginParsed) {
  ASSERT_NE(FindClassDefaults("path_corner"), nullptr);
  const CEntity corner = MakeEntity(*FindClassDefaults("path_corner"));
  EXPECT_EQ(corner.Pairs.size(), 4U);
  EXPECT_EQ(corner.GetClassname(), "path_corner");
  EXPECT_EQ(corner.eOrigin, (Vector{1, 1, 1}));
  EXPECT_EQ(MakeEntity(*FindClassDefaults("func_door")).eStyle, 1);
  EXPECT_EQ(FindClassDefaults("Light"), nullptr);
}

}  // namespace
}  // namespace zando
