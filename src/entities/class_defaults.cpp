#include "entities/class_defaults.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zando {
namespace {

constexpr std::size_t kClassCount = 71;

/// Classes that start with the same pairs, each record spelled out with its class name first.
template <std::size_t Classes, std::size_t Pairs>
using Family = std::array<std::array<DefaultPair, Pairs + 1>, Classes>;

template <std::size_t Classes, std::size_t Pairs>
constexpr Family<Classes, Pairs> MakeFamily(const std::string_view (&names)[Classes],
                                            const DefaultPair (&pairs)[Pairs]) {
  Family<Classes, Pairs> family;
  for (std::size_t i = 0; i < Classes; ++i) {
    family[i][0] = {"classname", names[i]};
    std::copy(std::begin(pairs), std::end(pairs), family[i].begin() + 1);
  }
  return family;
}

constexpr DefaultPair kPlaced[] = {{"origin", "1 1 1"}};
constexpr DefaultPair kMoving[] = {
    {"angle", "0"}, {"speed", "100"}, {"sounds", "1"}, {"wait", "4"}};
constexpr DefaultPair kTriggering[] = {
    {"style", "32"}, {"target", ""}, {"wait", ""}, {"delay", ""}};
constexpr DefaultPair kWithoutTarget[] = {{"style", "32"}, {"wait", ""}, {"delay", ""}};

constexpr auto kPoints = MakeFamily(
    {"info_intermission", "info_player_start", "info_player_deathmatch", "info_player_coop",
     "info_player_start2", "info_teleport_destination", "air_bubbles", "ambient_drip",
     "ambient_drone", "ambient_comp_hum", "ambient_swamp1", "ambient_swamp2"},
    kPlaced);

constexpr auto kDoor = MakeFamily({"func_door"}, kMoving);
constexpr auto kSecretDoor = MakeFamily(
    {"func_door_secret"}, {{"angle", "0"}, {"speed", "10"}, {"sounds", "1"}, {"wait", "4"}});
constexpr auto kMovers = MakeFamily({"func_wall", "func_button", "func_train"}, kMoving);
constexpr auto kPlatform = MakeFamily(
    {"func_plat"},
    {{"angle", "-1"}, {"speed", "100"}, {"sounds", "1"}, {"wait", "4"}, {"height", "128"}});
constexpr auto kDeathmatchWall = MakeFamily({"func_dm_only"}, kMoving);

constexpr auto kItems =
    MakeFamily({"item_cells", "item_rockets", "item_shells", "item_spikes", "item_health",
                "item_artifact_envirosuit", "item_artifact_super_damage",
                "item_artifact_invulnerability", "item_artifact_invisibility", "item_armorInv",
                "item_armor2", "item_armor1", "item_key1", "item_key2", "item_sigil"},
               kPlaced);

constexpr auto kLights = MakeFamily(
    {"light", "light_torch_small_walltorch", "light_flame_large_yellow", "light_flame_small_yellow",
     "light_flame_small_white", "light_fluoro", "light_fluorospark"},
    {{"origin", "1 1 1"}, {"light", "300"}});

constexpr auto kMonstersAndMisc =
    MakeFamily({"monster_army", "monster_dog", "monster_ogre", "monster_knight", "monster_zombie",
                "monster_wizard", "monster_demon1", "monster_shambler", "monster_boss",
                "misc_fireball", "misc_explobox"},
               kPlaced);

constexpr auto kPath =
    MakeFamily({"path_corner"}, {{"origin", "1 1 1"}, {"target", ""}, {"targetname", ""}});

constexpr auto kTraps = MakeFamily({"trap_spikeshooter", "trap_shooter"}, kPlaced);

constexpr auto kTeleport = MakeFamily({"trigger_teleport"}, kTriggering);
constexpr auto kLevelTriggers =
    MakeFamily({"trigger_changelevel", "trigger_setskill"}, kWithoutTarget);
constexpr auto kTriggers =
    MakeFamily({"trigger_counter", "trigger_once", "trigger_multiple", "trigger_onlyregistered",
                "trigger_secret", "trigger_monsterjump", "trigger_relay"},
               kTriggering);

constexpr auto kWeapons =
    MakeFamily({"weapon_supershotgun", "weapon_nailgun", "weapon_supernailgun",
                "weapon_grenadelauncher", "weapon_rocketlauncher", "weapon_lightning"},
               kPlaced);

template <typename... Families>
constexpr std::array<ClassDefaults, kClassCount> Concatenate(const Families&... families) {
  static_assert((std::tuple_size_v<Families> + ...) == kClassCount);
  std::array<ClassDefaults, kClassCount> table{};
  std::size_t next = 0;
  const auto append = [&](const auto& family) {
    for (const auto& record : family) table[next++].pairs = record;
  };
  (append(families), ...);
  return table;
}

constexpr auto kTable =
    Concatenate(kPoints, kDoor, kSecretDoor, kMovers, kPlatform, kDeathmatchWall, kItems, kLights,
                kMonstersAndMisc, kPath, kTraps, kTeleport, kLevelTriggers, kTriggers, kWeapons);

}  // namespace

std::span<const ClassDefaults> ClassDefaultTable() { return kTable; }

const ClassDefaults* FindClassDefaults(std::string_view className) {
  const auto found = std::find_if(
      kTable.begin(), kTable.end(),
      [className](const ClassDefaults& record) { return record.ClassName() == className; });
  return found == kTable.end() ? nullptr : &*found;
}

CEntity MakeEntity(const ClassDefaults& defaults) {
  CEntity entity;
  for (const DefaultPair& pair : defaults.pairs) entity.AddPair(pair.key, pair.value);
  entity.ParseOrigin();
  return entity;
}

}  // namespace zando
