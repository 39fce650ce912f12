#include "entities/class_defaults.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace zando {
namespace {

TEST(ClassDefaults, EveryClassStartsWithThePairsOfItsFamily) {
  const std::map<std::string_view, std::string_view> pairs{
      {"func", "angle=0 speed=100 sounds=1 wait=4 "},
      {"light", "origin=1 1 1 light=300 "},
      {"path", "origin=1 1 1 target= targetname= "},
      {"trigger", "style=32 target= wait= delay= "},
      {"func_door_secret", "angle=0 speed=10 sounds=1 wait=4 "},
      {"func_plat", "angle=-1 speed=100 sounds=1 wait=4 height=128 "},
      {"trigger_changelevel", "style=32 wait= delay= "},
      {"trigger_setskill", "style=32 wait= delay= "}};
  std::set<std::string_view> names;
  for (const ClassDefaults& record : ClassDefaultTable()) {
    const std::string_view name = record.ClassName();
    names.insert(name);
    auto expected = pairs.find(name);
    if (expected == pairs.end()) expected = pairs.find(name.substr(0, name.find('_')));
    std::string text;
    for (const DefaultPair& pair : record.pairs.subspan(1)) {
      text.append(pair.key).append("=").append(pair.value).append(" ");
    }
    EXPECT_EQ(text, expected == pairs.end() ? "origin=1 1 1 " : expected->second) << name;
  }
  EXPECT_EQ(names.size(), 71U);
}

}  // namespace
}  // namespace zando
