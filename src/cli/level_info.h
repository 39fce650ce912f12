#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "document/zando_doc.h"
#include "formats/map_writer.h"
#include "geometry/vector.h"

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
  struct World {
    std::int32_t nodes = 0;
    std::int32_t coplanar = 0;
    std::int32_t inserted = 0;
    std::int32_t splits = 0;
    std::int32_t visible = 0;
  };
  struct Bounds {
    Vector low;
    Vector high;
  };

  std::int32_t brushes = 0;
  std::int32_t solid = 0;
  std::int32_t carving = 0;
  std::int32_t water = 0;                       ///< brushes named as water, solid or carving
  std::int32_t ofEntities = 0;                  ///< brushes that belong to an entity
  std::map<std::string, std::int32_t> classes;  ///< entities by class name
  std::int32_t entities = 0;
  std::vector<Group> groups;
  World world;
  std::optional<Bounds> bounds;  ///< of all brushes; none in a level without polygons
};

/// Counts what the level holds. World polygons of the brushes and the counts of the world tree are
/// brought up to date.
[[nodiscard]] LevelInfo CollectInfo(CZANDODoc& document);

/// Lines of a name and its figures, for people.
[[nodiscard]] std::string InfoAsText(const LevelInfo& info);

/// One JSON object, in UTF-8, its keys in a fixed order.
[[nodiscard]] std::string InfoAsJson(const LevelInfo& info);

/// One line about a world tree whose counts are current.
[[nodiscard]] std::string DescribeWorld(const CConstructiveBsp& world);

/// One line about an export; what was left out is named only when there is any.
[[nodiscard]] std::string DescribeExport(const MapExportReport& report);

/// The colour as six hexadecimal digits, red first.
[[nodiscard]] std::string ColorAsHex(std::uint32_t color);

}  // namespace zando
