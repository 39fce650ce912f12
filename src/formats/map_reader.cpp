#include "formats/map_reader.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "formats/map_brush.h"
#include "platform/text.h"

namespace zando {
namespace {

std::string_view ReasonOf(BrushFault fault) {
  switch (fault) {
    case BrushFault::NoVolume:
      return "no volume";
    case BrushFault::TooManyPlanes:
      return "more than 100 planes";
    case BrushFault::TooManyVertices:
      return "a face of more than 32 vertices";
    case BrushFault::NoPlane:
      return "three points on one line";
    case BrushFault::OutOfRange:
      return "coordinates beyond 32 bits";
    case BrushFault::None:
      break;
  }
  return {};
}

std::string_view ReasonOf(PlaneFault fault) {
  switch (fault) {
    case PlaneFault::NoPlane:
      return "three points on one line";
    case PlaneFault::Outside:
      return "outside of the brush";
    case PlaneFault::Duplicate:
      return "the same as an earlier plane";
  }
  return {};
}

std::string_view TextureOf(const MapBrush& brush) {
  return brush.planes.empty() ? std::string_view() : brush.planes.front().texture;
}

class CMapImporter {
 public:
  MapImport Import(const MapSource& source);

 private:
  void TakeWorldKeys(const std::vector<MapPair>& pairs);
  void TakeEntity(const MapEntity& source);
  void TakeBrush(const MapBrush& source, std::int32_t entity);
  void NotePlanes(const MapBrush& source, const MapBrushResult& built);

  MapImport import_;
};

/// Stands for the world where an entity is named by its index.
constexpr std::int32_t kWorld = -1;

MapImport CMapImporter::Import(const MapSource& source) {
  TakeWorldKeys(source.world.pairs);
  for (const MapBrush& brush : source.world.brushes) TakeBrush(brush, kWorld);
  import_.level.entities.reserve(source.entities.size());
  for (const MapEntity& entity : source.entities) TakeEntity(entity);
  MapImportReport& report = import_.report;
  report.entities = static_cast<std::int64_t>(import_.level.entities.size());
  report.emptyEntities += source.emptyEntities;
  report.oddPlaces = source.oddPlaces;
  report.firstOddLine = source.firstOddLine;
  return std::move(import_);
}

void CMapImporter::TakeWorldKeys(const std::vector<MapPair>& pairs) {
  for (const MapPair& pair : pairs) {
    if (EqualIgnoringCase(pair.key, "classname")) continue;
    import_.level.worldKeys.push_back({std::string(pair.key), std::string(pair.value)});
  }
  import_.report.worldKeys = static_cast<std::int64_t>(import_.level.worldKeys.size());
}

void CMapImporter::TakeEntity(const MapEntity& source) {
  CEntity entity;
  entity.Pairs.reserve(source.pairs.size());
  for (const MapPair& pair : source.pairs) entity.AddPair(pair.key, pair.value);
  entity.ParseOriginAndNormalise();
  const auto index = static_cast<std::int32_t>(import_.level.entities.size());
  const std::int64_t before = import_.report.brushes;
  for (const MapBrush& brush : source.brushes) TakeBrush(brush, index);
  if (entity.Pairs.empty() && import_.report.brushes == before) {
    ++import_.report.emptyEntities;
    return;
  }
  import_.level.entities.push_back(std::move(entity));
}

void CMapImporter::TakeBrush(const MapBrush& source, std::int32_t entity) {
  MapImportReport& report = import_.report;
  CZandoBrush brush;
  const MapBrushResult built = BuildMapBrush(source, brush);
  if (built.fault != BrushFault::None) {
    report.skippedBrushes.Add(source.line, ReasonOf(built.fault), TextureOf(source));
    return;
  }
  if (entity != kWorld) {
    brush.BEnt = entity;
    brush.BFlags |= BF_ENTITY;
  }
  ++report.brushes;
  report.faces += brush.PolyCount();
  report.ownSurfaces += std::ranges::count_if(
      brush.Faces, [](const BrushFace& face) { return face.surface.has_value(); });
  if (built.open) report.openBrushes.Add(source.line, "not closed", TextureOf(source));
  NotePlanes(source, built);
  // A copy has no more room than it needs, and nothing of what was derived.
  import_.level.brushes.push_back(std::make_unique<CZandoBrush>(brush));
}

void CMapImporter::NotePlanes(const MapBrush& source, const MapBrushResult& built) {
  for (const auto& [index, fault] : built.faceless) {
    const MapPlane& plane = source.planes[index];
    import_.report.facelessPlanes.Add(plane.line, ReasonOf(fault), plane.texture);
  }
}

void AddNotes(CReport& report, const CMapNotes& notes, std::string_view outcome) {
  for (const MapNote& note : notes.Kept()) {
    std::string line =
        "line " + std::to_string(note.line) + ": " + std::string(outcome) + ": " + note.what;
    if (!note.texture.empty()) line += " (" + note.texture + ')';
    report.Add(std::move(line));
  }
}

}  // namespace

std::string DescribeImport(const MapImportReport& report) {
  std::string text = Counted(report.brushes, "brush", "brushes") + " and " +
                     Counted(report.entities, "entity", "entities") + " read";
  const auto also = [&text](std::int64_t count, std::string_view one, std::string_view many,
                            std::string_view outcome) {
    if (count > 0) text += ", " + Counted(count, one, many) + ' ' + std::string(outcome);
  };
  also(report.skippedBrushes.Count(), "brush", "brushes", "skipped");
  if (report.skippedBrushes.Count() > 0) {
    text += " (" + report.skippedBrushes.DescribeCounts() + ')';
  }
  also(report.openBrushes.Count(), "brush", "brushes", "not closed");
  also(report.facelessPlanes.Count(), "plane", "planes", "without a face");
  also(report.emptyEntities, "empty entity", "empty entities", "left out");
  also(report.oddPlaces, "place", "places", "not in the form of a map");
  return text;
}

CReport NotesOf(const MapImportReport& report) {
  CReport notes;
  AddNotes(notes, report.skippedBrushes, "brush skipped");
  AddNotes(notes, report.openBrushes, "brush read");
  if (report.oddPlaces > 0) {
    notes.Add("line " + std::to_string(report.firstOddLine) + ": the first of " +
              Counted(report.oddPlaces, "place", "places") +
              " that are not in the form of a map and may be misread");
  }
  AddNotes(notes, report.facelessPlanes, "plane without a face");
  return notes;
}

CResult<MapImport> ReadMap(std::string_view bytes) {
  const auto source = ReadMapSource(bytes);
  if (!source) return Failure{source.Error()};
  return CMapImporter().Import(*source);
}

}  // namespace zando
