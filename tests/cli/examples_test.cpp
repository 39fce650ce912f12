#include "cli/cli_fixture.h"
#include "support/map_solids.h"

namespace zando {
namespace {

class Examples : public CCliTest {};

TEST_F(Examples, EveryScriptStillGivesItsLevel) {
  int scripts = 0;
  for (const auto& entry : std::filesystem::directory_iterator(ZANDO_SOURCE_DIR "/examples")) {
    if (entry.path().extension() != ".zscript") continue;
    ++scripts;
    ASSERT_EQ(Run("run " + entry.path().string() + " made.3dz").err, "");
    std::filesystem::path committed = entry.path();
    committed.replace_extension(".3dz");
    EXPECT_TRUE(Read("made.3dz") == Read(committed)) << committed;
    EXPECT_EQ(Run("info made.3dz").err, "");
  }
  EXPECT_GE(scripts, 2);
}

TEST_F(Examples, TheKeepIsALevelToPlay) {
  const Outcome exported = Run("export-map " ZANDO_SOURCE_DIR "/examples/keep.3dz keep.map");
  EXPECT_EQ(exported.status, kCliDone);
  EXPECT_EQ(exported.out.find("left out"), std::string::npos) << exported.out;
  const std::string map = Read("keep.map");
  for (const char* wanted : {"info_player_start", "func_door", "monster_ogre", " *water1 "}) {
    EXPECT_NE(map.find(wanted), std::string::npos) << wanted;
  }
  const auto entities = testing::ParseMap(map);
  ASSERT_TRUE(entities.has_value());
  for (const testing::MapEntity& entity : *entities) {
    for (const testing::MapBrush& cell : entity.brushes) {
      EXPECT_TRUE(testing::SolidOf(cell).closed) << cell.front().texture;
    }
  }
}

}  // namespace
}  // namespace zando
