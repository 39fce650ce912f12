#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
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

/// Faces without a surface of their own are not in the file.
void SerialiseSurfaces(CFileContext& file, CZandoBrush& brush) {
  std::optional<std::int32_t> index;
  const auto exchange = [&](FaceSurface& surface) {
    std::array<double, 5> numbers{surface.offsetX, surface.offsetY, surface.rotation,
                                  surface.scaleX, surface.scaleY};
    if (!file.Exchange("Face", index, numbers, surface.texture)) return false;
    surface = {surface.texture, numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]};
    return true;
  };
  if (file.storing) {
    index = 0;
    for (BrushFace& face : brush.Faces) {
      if (face.surface) exchange(*face.surface);
      ++*index;
    }
    return;
  }
  for (FaceSurface read; exchange(read);) {
    if (!index) continue;
    if (std::cmp_less(*index, brush.Faces.size()) && *index >= 0) {
      brush.Faces[static_cast<std::size_t>(*index)].surface = read;
    } else {
      file.Warn("a brush has no face " + std::to_string(*index));
    }
  }
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
  std::int32_t whole = 0;
  for (std::int32_t i = 0; i < count; ++i) {
    EntityPair pair;
    const bool hasKey = file.Exchange("K", pair.key);
    const bool hasValue = file.Exchange("V", pair.value);
    // Neither has moved on in the file: none of the pairs still announced can be there.
    if (!hasKey && !hasValue) break;
    pairs.push_back(std::move(pair));
    if (hasKey && hasValue) ++whole;
  }
  file.WarnIfFewer("ePairCount", count, whole);
}

/// What a section begins with. A file can do without the section, but no writer leaves it out.
bool TakeHead(CFileContext& file, std::string_view key) {
  const bool present = file.Header(key);
  if (!present) file.WarnMissing(key);
  return present;
}

/// The items of a list and the line that ends it, which reading leaves to be passed over.
template <typename Item>
void SerialiseItems(CFileContext& file, std::vector<Item>& items, std::int32_t count,
                    std::string_view itemKey, std::string_view endKey) {
  if (file.storing) {
    for (Item& item : items) Serialise(file, item);
    file.WriteKeyLine(endKey);
    return;
  }
  for (std::int32_t i = 0; i < count; ++i) {
    Item item;
    Serialise(file, item);
    items.push_back(std::move(item));
  }
  file.WarnUnlessEnded(endKey, itemKey);
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
  std::int32_t came = 0;
  for (std::int32_t i = 0; i < count; ++i) {
    Vector vertex{0.0, 0.0, 0.0};
    if (file.Exchange("V", vertex)) ++came;
    polygon.Append(vertex);
  }
  file.WarnIfFewer("NumVrts", count, came);
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
  SerialiseSurfaces(file, brush);
  if (!file.Header("End CZandoBrush")) file.WarnMissing("End CZandoBrush");
}

void SerialiseBrushList(CFileContext& file, Level& level) {
  constexpr std::string_view kEnd = "End Class CBrushList";
  file.EndMarker = kEnd;
  if (!TakeHead(file, "Class CBrushList")) return;
  const auto listed = static_cast<std::size_t>(level.BrushList.BrushCount());
  const std::int32_t count = file.RequiredCount("BrushCount", listed, "CZandoBrush");
  if (file.storing) {
    for (CZandoBrush& brush : level.BrushList) Serialise(file, brush);
    file.WriteKeyLine(kEnd);
    return;
  }
  for (std::int32_t i = 0; i < count; ++i) {
    CZandoBrush brush;
    Serialise(file, brush);
    level.AddBrush(brush);
  }
  file.WarnUnlessEnded(kEnd, "CZandoBrush");
}

void Serialise(CFileContext& file, CEntity& entity) {
  file.EndMarker = "End CEntity";
  if (!TakeHead(file, "CEntity")) return;
  file.Exchange("eStyle", entity.eStyle);
  file.Exchange("eOrigin", entity.eOrigin);
  file.Exchange("eFlags", entity.eFlags);
  file.Exchange("eGroup", entity.eGroup);
  SerialisePairs(file, entity.Pairs);
  if (!file.Header("End CEntity")) file.WarnMissing("End CEntity");
}

void Serialise(CFileContext& file, CEntList& entities, std::int32_t& current) {
  file.EndMarker = "End CEntList";
  if (!TakeHead(file, "Class CEntList")) return;
  const std::int32_t count = file.RequiredCount("EntCount", entities.size(), "CEntity");
  file.Exchange("CurEnt", current);
  SerialiseItems(file, entities, count, "CEntity", "End CEntList");
}

void Serialise(CFileContext& file, CBGroup& group) {
  file.EndMarker = "End CBGroup";
  if (!TakeHead(file, "CBGroup")) return;
  file.Exchange("gVis", group.gVis);
  file.Exchange("gName", group.gName);
  file.Exchange("gCol", group.gCol);
  if (!file.Header("End CBGroup")) file.WarnMissing("End CBGroup");
}

void Serialise(CFileContext& file, CGroupList& groups, std::int32_t& current) {
  file.EndMarker = "End CGroupList";
  if (!TakeHead(file, "Class CGroupList")) return;
  file.Exchange("CurGroup", current);
  const std::int32_t count = file.RequiredCount("GroupCount", groups.size(), "CBGroup");
  SerialiseItems(file, groups, count, "CBGroup", "End CGroupList");
}

void SerialiseWorldKeys(CFileContext& file, std::vector<EntityPair>& keys) {
  constexpr std::string_view kEnd = "End CWorldspawn";
  if (file.storing && keys.empty()) return;
  file.EndMarker = kEnd;
  if (!file.Header("Class CWorldspawn")) return;
  SerialisePairs(file, keys);
  if (!file.Header(kEnd)) file.WarnMissing(kEnd);
}

}  // namespace zando
