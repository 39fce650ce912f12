#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "csg/bsp_tree.h"
#include "document/level.h"
#include "geometry/bounds.h"

namespace zando {

/// What `zando-cli info` tells of a level.
struct LevelInfo {
  struct Group {
    std::string name;
    std::uint32_t color = 0;  ///< 0x00BBGGRR
    bool visible = true;
    std::int32_t brushes = 0;
    std::int32_t entities = 0;
  };

  std::int32_t brushes = 0;
  std::int32_t solid = 0;
  std::int32_t carving = 0;
  std::int32_t water = 0;                       ///< brushes named as water, solid or carving
  std::int32_t ofEntities = 0;                  ///< brushes that belong to an entity
  std::int32_t flat = 0;                        ///< brushes without volume
  std::map<std::string, std::int32_t> classes;  ///< entities by class name
  std::int32_t entities = 0;
  std::vector<Group> groups;
  BspCounts world;
  std::optional<Bounds> bounds;  ///< of all brushes; none in a level without polygons
};

/// Counts what the level holds.
[[nodiscard]] LevelInfo CollectInfo(const Level& level);

/// Lines of a name and its figures, for people.
[[nodiscard]] std::string InfoAsText(const LevelInfo& info);

/// One line about a world tree whose counts are current.
[[nodiscard]] std::string DescribeWorld(const CConstructiveBsp& world);

/// The colour as six hexadecimal digits, red first.
[[nodiscard]] std::string ColorAsHex(std::uint32_t color);

}  // namespace zando
