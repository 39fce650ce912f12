#include "cli/level_info.h"

#include <algorithm>
#include <string_view>

#include "platform/number_text.h"
#include "platform/text.h"

namespace zando {
namespace {

std::string VectorText(const Vector& v) {
  std::string text;
  for (const double coordinate : {v.x, v.y, v.z}) {
    AppendNumber(text += text.empty() ? '(' : ' ', coordinate, Digits::Shortest);
  }
  return text + ')';
}

/// Without control characters, which a terminal would obey.
std::string Printable(std::string_view text) {
  std::string plain(text);
  const auto isControl = [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || (byte >= 0x7F && byte < 0xA0);
  };
  std::replace_if(plain.begin(), plain.end(), isControl, '?');
  return FromLatin1(plain);
}

void CountBrush(const CZandoBrush& brush, LevelInfo& info) {
  ++info.brushes;
  ++(brush.TranT == kAddToWorld ? info.solid : info.carving);
  if (brush.IsWater()) ++info.water;
  if (brush.BelongsToEntity()) ++info.ofEntities;
  if (brush.BGroup >= 0 && static_cast<std::size_t>(brush.BGroup) < info.groups.size()) {
    ++info.groups[static_cast<std::size_t>(brush.BGroup)].brushes;
  }

  if (!brush.HasVolume()) ++info.flat;
  if (brush.WorldBounds().IsEmpty()) return;
  if (!info.bounds) info.bounds.emplace();
  info.bounds->Include(brush.WorldBounds());
}

}  // namespace

LevelInfo CollectInfo(const Level& level) {
  LevelInfo info;
  for (const CBGroup& group : level.Groups) {
    info.groups.push_back({group.gName, group.gCol, group.gVis != 0});
  }
  for (const CZandoBrush& brush : level.BrushList) CountBrush(brush, info);

  info.entities = static_cast<std::int32_t>(level.Entities.size());
  for (const CEntity& entity : level.Entities) {
    ++info.classes[entity.GetClassname()];
    if (!level.IsGroup(entity.eGroup)) continue;
    ++info.groups[static_cast<std::size_t>(entity.eGroup)].entities;
  }
  info.world = level.World.Count();
  return info;
}

std::string InfoAsText(const LevelInfo& info) {
  std::string text =
      "brushes:  " + std::to_string(info.brushes) + " (" + std::to_string(info.solid) + " solid, " +
      std::to_string(info.carving) + " carving; " + std::to_string(info.water) + " water, " +
      std::to_string(info.ofEntities) + " of entities" +
      (info.flat > 0 ? ", " + std::to_string(info.flat) + " without volume" : "") + ")\n";
  text += "entities: " + std::to_string(info.entities) + '\n';
  for (const auto& [name, count] : info.classes) {
    text += "  " + (name.empty() ? "(no class)" : Printable(name)) + ": " + std::to_string(count) +
            '\n';
  }
  text += "groups:   " + std::to_string(info.groups.size()) + '\n';
  for (const LevelInfo::Group& group : info.groups) {
    text += "  " + Printable(group.name) + ": " + Counted(group.brushes, "brush", "brushes") +
            ", " + Counted(group.entities, "entity", "entities") + ", colour " +
            ColorAsHex(group.color) + (group.visible ? "\n" : ", hidden\n");
  }
  text += "world:    " + Counted(info.world.nodes, "node", "nodes") + ", " +
          std::to_string(info.world.coplanar) + " coplanar, " +
          std::to_string(info.world.inserted) + " inserted, " + std::to_string(info.world.splits) +
          " splits, " + std::to_string(info.world.visible) + " visible\n";
  text += "bounds:   " +
          (info.bounds ? VectorText(info.bounds->low) + " to " + VectorText(info.bounds->high)
                       : "none");
  return text + '\n';
}

std::string DescribeWorld(const CConstructiveBsp& world) {
  std::string text =
      Counted(world.nodes, "node", "nodes") + ", " + std::to_string(world.visible) + " visible";
  if (world.refused > 0) text += ", " + Counted(world.refused, "split", "splits") + " refused";
  return text;
}

std::string ColorAsHex(std::uint32_t color) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string hex;
  for (int channel = 0; channel < 3; ++channel) {
    hex += digits[(color >> 4) & 0xF];
    hex += digits[color & 0xF];
    color >>= 8;
  }
  return hex;
}

}  // namespace zando
