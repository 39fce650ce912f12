#include "cli/level_json.h"

#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>

#include "cli/level_info.h"
#include "geometry/transform.h"
#include "platform/text.h"

namespace zando {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const Vector& v) { return Json::array({v.x, v.y, v.z}); }

Json JsonOf(const Bounds& bounds) {
  return {{"min", JsonOf(bounds.low)}, {"max", JsonOf(bounds.high)}};
}

/// An index, or null when it names nothing.
Json IndexOrNull(std::int32_t index, bool names) { return names ? Json(index) : Json(nullptr); }

/// The faces that have a surface of their own.
Json SurfacesAsJson(const CZandoBrush& brush) {
  Json surfaces = Json::array();
  std::size_t index = 0;
  for (const BrushFace& face : brush.Faces) {
    const std::size_t place = index++;
    if (!face.surface) continue;
    surfaces.push_back({{"face", place},
                        {"texture", FromLatin1(face.surface->texture)},
                        {"offset", Json::array({face.surface->offsetX, face.surface->offsetY})},
                        {"rotation", face.surface->rotation},
                        {"scale", Json::array({face.surface->scaleX, face.surface->scaleY})}});
  }
  return surfaces;
}

Json JsonOf(const CZandoBrush& brush, std::int32_t index, const Level& level) {
  const Placement& own = brush.Own();
  const Bounds& bounds = brush.WorldBounds();
  return {{"index", index},
          {"name", FromLatin1(brush.Name)},
          {"operation", brush.TranT == kAddToWorld ? "add" : "subtract"},
          {"position", JsonOf(own.Pos)},
          {"rotation", JsonOf(Vector{UnitsToDegrees(own.Rot.x), UnitsToDegrees(own.Rot.y),
                                     UnitsToDegrees(own.Rot.z)})},
          {"scale", JsonOf(own.Scl)},
          {"shear", JsonOf(own.Shr)},
          {"faces", brush.PolyCount()},
          {"surfaces", SurfacesAsJson(brush)},
          {"bounds", bounds.IsEmpty() ? Json(nullptr) : JsonOf(bounds)},
          {"size", bounds.IsEmpty() ? Json(nullptr) : JsonOf(bounds.high - bounds.low)},
          {"group", IndexOrNull(brush.BGroup, level.IsGroup(brush.BGroup))},
          {"entity", IndexOrNull(brush.BEnt, brush.BelongsToEntity())},
          {"shown", brush.IsShown()},
          {"selected", brush.IsSelected()}};
}

Json BrushesAsJson(const LevelInfo& info, const Level& level) {
  Json list = Json::array();
  std::int32_t index = 0;
  for (const CZandoBrush& brush : level.BrushList) list.push_back(JsonOf(brush, index++, level));
  return {{"total", info.brushes},          {"solid", info.solid},
          {"carving", info.carving},        {"water", info.water},
          {"of_entities", info.ofEntities}, {"without_volume", info.flat},
          {"list", std::move(list)}};
}

/// The indices of the brushes of each entity.
std::vector<Json> OwnedBrushes(const Level& level) {
  std::vector<Json> owned(level.Entities.size(), Json::array());
  std::int32_t index = 0;
  for (const CZandoBrush& brush : level.BrushList) {
    if (brush.BelongsToEntity() && level.IsEntity(brush.BEnt)) {
      owned[static_cast<std::size_t>(brush.BEnt)].push_back(index);
    }
    ++index;
  }
  return owned;
}

/// Keys may repeat, and their order counts.
Json PairsAsJson(const std::vector<EntityPair>& list) {
  Json pairs = Json::array();
  for (const EntityPair& pair : list) {
    pairs.push_back({{"key", FromLatin1(pair.key)}, {"value", FromLatin1(pair.value)}});
  }
  return pairs;
}

Json JsonOf(const CEntity& entity, std::size_t index, Json brushes, const Level& level) {
  return {{"index", index},
          {"classname", FromLatin1(entity.GetClassname())},
          {"origin", entity.eStyle == 0 ? JsonOf(entity.eOrigin) : Json(nullptr)},
          {"group", IndexOrNull(entity.eGroup, level.IsGroup(entity.eGroup))},
          {"brushes", std::move(brushes)},
          {"pairs", PairsAsJson(entity.Pairs)},
          {"shown", entity.IsShown()},
          {"selected", entity.IsSelected()}};
}

Json EntitiesAsJson(const LevelInfo& info, const Level& level, std::int32_t current) {
  Json classes = Json::object();
  for (const auto& [name, count] : info.classes) classes[FromLatin1(name)] = count;
  std::vector<Json> owned = OwnedBrushes(level);
  Json list = Json::array();
  for (std::size_t i = 0; i < level.Entities.size(); ++i) {
    list.push_back(JsonOf(level.Entities[i], i, std::move(owned[i]), level));
  }
  return {{"total", info.entities},
          {"classes", std::move(classes)},
          {"current", IndexOrNull(current, level.IsEntity(current))},
          {"list", std::move(list)}};
}

/// How many faces of listed brushes each texture covers.
Json TexturesAsJson(const Level& level) {
  std::map<std::string, std::int32_t> faces;
  for (const CZandoBrush& brush : level.BrushList) {
    for (const BrushFace& face : brush.Faces) {
      ++faces[face.surface ? face.surface->texture : brush.Name];
    }
  }
  Json textures = Json::object();
  for (const auto& [name, count] : faces) textures[FromLatin1(name)] = count;
  return textures;
}

Json GroupsAsJson(const LevelInfo& info) {
  Json groups = Json::array();
  for (const LevelInfo::Group& group : info.groups) {
    groups.push_back({{"name", FromLatin1(group.name)},
                      {"color", ColorAsHex(group.color)},
                      {"visible", group.visible},
                      {"brushes", group.brushes},
                      {"entities", group.entities}});
  }
  return groups;
}

}  // namespace

std::string LevelAsJson(const CZANDODoc& document) {
  const Level& level = document.GetLevel();
  const LevelInfo info = CollectInfo(level);
  const std::int32_t group = document.State().CurrentGroup;
  const Json json = {{"brushes", BrushesAsJson(info, level)},
                     {"entities", EntitiesAsJson(info, level, document.State().CurrentEntity)},
                     {"groups", GroupsAsJson(info)},
                     {"current_group", IndexOrNull(group, level.IsGroup(group))},
                     {"world",
                      {{"nodes", info.world.nodes},
                       {"coplanar", info.world.coplanar},
                       {"inserted", info.world.inserted},
                       {"splits", info.world.splits},
                       {"visible", info.world.visible}}},
                     {"world_keys", PairsAsJson(level.WorldKeys)},
                     {"textures", TexturesAsJson(level)},
                     {"bounds", info.bounds ? JsonOf(*info.bounds) : Json(nullptr)}};
  return json.dump(2) + '\n';
}

}  // namespace zando
