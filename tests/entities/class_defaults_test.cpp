#include "entities/class_defaults.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace zando {
namespace {

TEST(ClassDefaults, ClassesStandInTheirOrder) {
  std::string names;
  for (const ClassDefaults& record : ClassDefaultTable()) {
    names.append(names.empty() ? "" : " ").append(record.ClassName());
  }
  EXPECT_EQ(
      names,
      "info_intermission info_player_start info_player_deathmatch info_player_coop "
      "info_player_start2 info_teleport_destination air_bubbles ambient_drip ambient_drone "
      "ambient_comp_hum ambient_swamp1 ambient_swamp2 func_door func_door_secret func_wall "
      "func_button func_train func_plat func_dm_only item_cells item_rockets item_shells "
      "item_spikes item_health item_artifact_envirosuit item_artifact_super_damage "
      "item_artifact_invulnerability item_artifact_invisibility item_armorInv item_armor2 "
      "item_armor1 item_key1 item_key2 item_sigil light light_torch_small_walltorch "
      "light_flame_large_yellow light_flame_small_yellow light_flame_small_white light_fluoro "
      "light_fluorospark monster_army monster_dog monster_ogre monster_knight monster_zombie "
      "monster_wizard monster_demon1 monster_shambler monster_boss misc_fireball "
      "misc_explobox path_corner trap_spikeshooter trap_shooter trigger_teleport "
      "trigger_changelevel trigger_setskill trigger_counter trigger_once trigger_multiple "
      "trigger_onlyregistered trigger_secret trigger_monsterjump trigger_relay "
      "weapon_supershotgun weapon_nailgun weapon_supernailgun weapon_grenadelauncher "
      "weapon_rocketlauncher weapon_lightning");
}

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
  for (const ClassDefaults& record : ClassDefaultTable()) {
    const std::string_view name = record.ClassName();
    auto expected = pairs.find(name);
    if (expected == pairs.end()) expected = pairs.find(name.substr(0, name.find('_')));
    std::string text;
    for (const DefaultPair& pair : record.pairs.subspan(1)) {
      text.append(pair.key).append("=").append(pair.value).append(" ");
    }
    EXPECT_EQ(text, expected == pairs.end() ? "origin=1 1 1 " : expected->second) << name;
  }
}

}  // namespace
}  // namespace zando
