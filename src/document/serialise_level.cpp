#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "document/serialise.h"

namespace zando {
namespace {

bool PrintsTheSame(const Transform& a, const Transform& b) {
  for (std::size_t row = 0; row < a.m.size(); ++row) {
    for (std::size_t column = 0; column < a.m[row].size(); ++column) {
      if (!zando::PrintsTheSame(a.m[row][column], b.m[row][column])) return false;
    }
  }
  return true;
}

/// The polygons are appended as they are read, with a face record for each.
void SerialisePolygons(CFileContext& file, CZandoBrush& brush) {
  const std::int32_t count = file.Count("NumfBPolys", brush.Polys().size(), kPolygonHeader);
  if (file.storing) {
    for (CZandoPoly polygon : brush.Polys()) Serialise(file, polygon);
    return;
  }
  brush.SetPolyCount(0);
  brush.ReservePolys(file.LinesAhead(kPolygonHeader, static_cast<std::size_t>(count)));
  for (std::int32_t i = 0; i < count; ++i) {
    CZandoPoly polygon;
    Serialise(file, polygon);
    brush.AppendPoly(polygon);
  }
  brush.ComputeFacePoints();
}

/// A placement that is no more than the translation by Pos is not in the file.
void SerialisePlacement(CFileContext& file, CZandoBrush& brush) {
  Transform byPosition = Transform::Identity();
  byPosition.Translate(brush.Own().Pos);
  Transform placed = brush.BMatrix();
  if (file.storing && PrintsTheSame(placed, byPosition)) return;
  if (!file.Exchange("BMatrix", placed)) placed.Multiply(byPosition);
  if (!file.storing) brush.SetBMatrix(placed);
}

void SerialisePairs(CFileContext& file, std::vector<EntityPair>& pairs) {
  const std::int32_t count = file.Count("ePairCount", pairs.size(), "K");
  if (file.storing) {
    for (EntityPair& pair : pairs) {
      file.Exchange("K", pair.key);
      file.Exchange("V", pair.value);
    }
    return;
  }
  for (std::int32_t i = 0; i < count; ++i) {
    EntityPair pair;
    const bool hasKey = file.Exchange("K", pair.key);
    const bool hasValue = file.Exchange("V", pair.value);
    // Neither has moved on in the file: none of the pairs still announced can be there.
    if (!hasKey && !hasValue) return;
    pairs.push_back(std::move(pair));
  }
}

template <typename Item>
void SerialiseItems(CFileContext& file, std::vector<Item>& items, std::int32_t count) {
  if (file.storing) {
    for (Item& item : items) Serialise(file, item);
    return;
  }
  for (std::int32_t i = 0; i < count; ++i) {
    Item item;
    Serialise(file, item);
    items.push_back(std::move(item));
  }
}

}  // namespace

void Serialise(CFileContext& file, CZandoPoly& polygon) {
  file.RequiredHeader(kPolygonHeader);
  const std::int32_t count = file.Count("NumVrts", static_cast<std::size_t>(polygon.count), "V");
  if (count > MAX_POLY_VERTS) file.RefuseLine("a polygon has more than 32 vertices");
  if (file.storing) {
    for (Vector& vertex : polygon.Vertices()) file.Exchange("V", vertex);
    file.WriteKeyLine("End CZandoPoly");
    return;
  }
  polygon.count = 0;
  for (std::int32_t i = 0; i < count; ++i) {
    Vector vertex{0.0, 0.0, 0.0};
    file.Exchange("V", vertex);
    polygon.Append(vertex);
  }
}

void Serialise(CFileContext& file, CZandoBrush& brush) {
  file.EndMarker = "End CZandoBrush";
  file.RequiredHeader("CZandoBrush");
  file.Exchange("TranT", brush.TranT);
  file.Exchange("Name", brush.Name);
  file.Exchange("BGroup", brush.BGroup);
  file.Exchange("BFlags", brush.BFlags);
  file.Exchange("BEnt", brush.BEnt);
  std::int32_t id = file.storing ? file.PositionOf(&brush, brush.BBid) : -1;
  file.Exchange("BBid", id);
  if (!file.storing) brush.BBid = id;
  Placement own = brush.Own();
  file.Exchange("Pos", own.Pos);
  file.Exchange("Rot", own.Rot);
  file.Exchange("Scl", own.Scl);
  file.Exchange("Shr", own.Shr);
  if (!file.storing) {
    own.WorkPos = own.Pos;
    own.WorkRot = own.Rot;
    brush.SetSlot(kOwnSlot, own);
  }
  SerialisePolygons(file, brush);
  SerialisePlacement(file, brush);
  file.Header("End CZandoBrush");
}

void SerialiseBrushList(CFileContext& file, Level& level) {
  file.EndMarker = "End Class CBrushList";
  if (!file.Header("Class CBrushList")) return;
  const auto listed = static_cast<std::size_t>(level.BrushList.BrushCount());
  const std::int32_t count = file.RequiredCount("BrushCount", listed, "CZandoBrush");
  if (file.storing) {
    for (CZandoBrush& brush : level.BrushList) Serialise(file, brush);
    file.WriteKeyLine("End Class CBrushList");
    return;
  }
  for (std::int32_t i = 0; i < count; ++i) {
    CZandoBrush brush;
    Serialise(file, brush);
    level.AddBrush(brush);
  }
}

void Serialise(CFileContext& file, CEntity& entity) {
  file.EndMarker = "End CEntity";
  if (!file.Header("CEntity")) return;
  file.Exchange("eStyle", entity.eStyle);
  file.Exchange("eOrigin", entity.eOrigin);
  file.Exchange("eFlags", entity.eFlags);
  file.Exchange("eGroup", entity.eGroup);
  SerialisePairs(file, entity.Pairs);
  file.Header("End CEntity");
}

void Serialise(CFileContext& file, CEntList& entities, std::int32_t& current) {
  file.EndMarker = "End CEntList";
  if (!file.Header("Class CEntList")) return;
  const std::int32_t count = file.RequiredCount("EntCount", entities.size(), "CEntity");
  file.Exchange("CurEnt", current);
  SerialiseItems(file, entities, count);
  if (file.storing) file.WriteKeyLine("End CEntList");
}

void Serialise(CFileContext& file, CBGroup& group) {
  file.EndMarker = "End CBGroup";
  if (!file.Header("CBGroup")) return;
  file.Exchange("gVis", group.gVis);
  file.Exchange("gName", group.gName);
  file.Exchange("gCol", group.gCol);
  file.Header("End CBGroup");
}

void Serialise(CFileContext& file, CGroupList& groups, std::int32_t& current) {
  file.EndMarker = "End CGroupList";
  if (!file.Header("Class CGroupList")) return;
  file.Exchange("CurGroup", current);
  const std::int32_t count = file.RequiredCount("GroupCount", groups.size(), "CBGroup");
  SerialiseItems(file, groups, count);
  if (file.storing) file.WriteKeyLine("End CGroupList");
}

}  // namespace zando
