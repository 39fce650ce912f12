#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "csg/bsp_tree.h"
#include "document/brush_list.h"
#include "entities/entity.h"
#include "entities/group.h"
#include "geometry/brush.h"

namespace zando {

using CEntList = std::vector<CEntity>;
using CGroupList = std::vector<CBGroup>;

/// What a level is: its brushes, entities and groups, the brush that the primitives fill, and the
/// world made of the brushes. A value: it can be copied and compared.
struct Level {
  CZandoBrush WorkingBrush;  ///< never listed; additions append copies of it
  CBrushList BrushList;
  CConstructiveBsp World;
  CEntList Entities;
  CGroupList Groups;
  std::vector<EntityPair> WorldKeys;  ///< of worldspawn, beside those that every map is given
  std::int32_t NextBrushId = 0;

  Level() = default;
  Level(const Level& source);
  Level& operator=(Level source);
  ~Level() = default;

  friend bool operator==(const Level&, const Level&) = default;

  /// Appends a copy of the brush, with the next id, and returns its index in the list. The world
  /// does not take it.
  std::int32_t AddBrush(const CZandoBrush& brush);

  /// The same with the brush itself.
  std::int32_t AddBrush(std::unique_ptr<CZandoBrush> brush);

  /// Removes the listed brush with this id; the world's polygons of it stay, and belong to none.
  void RemoveBrush(std::int32_t id);

  /// The world's polygons name the brushes of this list by their ids.
  void LinkWorld();

  [[nodiscard]] bool IsGroup(std::int32_t index) const {
    return index >= 0 && index < static_cast<std::int32_t>(Groups.size());
  }
  [[nodiscard]] bool IsEntity(std::int32_t index) const {
    return index >= 0 && index < static_cast<std::int32_t>(Entities.size());
  }
};

}  // namespace zando
