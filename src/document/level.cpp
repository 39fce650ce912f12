#include "document/level.h"

#include <memory>
#include <utility>

namespace zando {

Level::Level(const Level& source)
    : BrushList(source.BrushList),
      World(source.World),
      Entities(source.Entities),
      Groups(source.Groups),
      WorldKeys(source.WorldKeys),
      NextBrushId(source.NextBrushId) {
  WorkingBrush.CopyWhole(source.WorkingBrush);
  LinkWorld();
}

Level& Level::operator=(Level source) {
  WorkingBrush.CopyWhole(source.WorkingBrush);
  BrushList = std::move(source.BrushList);
  World.Swap(source.World);
  Entities.swap(source.Entities);
  Groups.swap(source.Groups);
  WorldKeys.swap(source.WorldKeys);
  NextBrushId = source.NextBrushId;
  return *this;
}

std::int32_t Level::AddBrush(const CZandoBrush& brush) {
  return AddBrush(std::make_unique<CZandoBrush>(brush));
}

std::int32_t Level::AddBrush(std::unique_ptr<CZandoBrush> brush) {
  brush->BBid = NextBrushId++;
  const std::int32_t index = BrushList.Append(std::move(brush));
  World.brushList = BrushList.Head();
  return index;
}

void Level::RemoveBrush(std::int32_t id) {
  BrushList.Remove(id);
  LinkWorld();
}

void Level::LinkWorld() {
  World.brushList = BrushList.Head();
  World.LinkBrushes(World.brushList);
}

}  // namespace zando
