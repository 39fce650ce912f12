#include "formats/map_writer.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "formats/brush_carver.h"
#include "formats/plane_points.h"
#include "platform/file_io.h"
#include "platform/number_text.h"
#include "platform/text.h"

namespace zando {
namespace {

/// What a nameless brush is called in the file: the name that new brushes start with.
constexpr std::string_view kNameless = "tech05_1";

constexpr std::string_view kClassName = "classname";

/// A cell with fewer faces encloses nothing.
constexpr std::ptrdiff_t kFewestFaces = 4;

/// The text as it can stand between double quotes.
std::string Quotable(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c == '"') c = '\'';
    if (c == '\r' || c == '\n') c = ' ';
  }
  return result;
}

/// A texture's name as one word of a plane line.
std::string TextureWord(std::string_view name) {
  if (name.empty()) return std::string(kNameless);
  std::string result(name);
  for (char& c : result) {
    if (static_cast<unsigned char>(c) <= ' ' || c == '"') c = '_';
  }
  return result;
}

/// The face that a cell's polygon was cut from, and the way it faces: together, its plane line.
struct PlaneSource {
  const CZandoBrush* brush;
  std::size_t face;
  bool reversed;

  friend bool operator==(const PlaneSource&, const PlaneSource&) = default;
};

PlaneSource SourceOf(const CBspNode& polygon) {
  // A carver's faces look out of the carver, but in the cell they look into it.
  const bool reversed = (polygon.nSide != 0) != (polygon.pBrush->TranT == kSubtractFromWorld);
  return {polygon.pBrush, static_cast<std::size_t>(polygon.nPolNum), reversed};
}

class CMapWriter {
 public:
  explicit CMapWriter(const Level& level) : level_(level) {}

  void WriteLevel(std::string_view wadPath);

  std::string text;
  MapExportReport report;

 private:
  void WriteWorldKeys(std::string_view wadPath);
  void CollectBrushes();
  void Collect(const CZandoBrush& brush, std::int32_t position);
  void WriteEntity(const CEntity& entity);
  void WriteBrush(std::int32_t position);
  void WriteCell(const CBspNode* cell, const CZandoBrush& brush, std::string_view texture);
  void WritePlane(const PlaneSource& source, std::string_view texture);
  void WriteSurface(const FaceSurface& surface);
  void WritePoints(const PlanePoints& plane, bool reversed);
  void Line(std::string_view line) { text.append(line).append(kLineEnd); }

  const Level& level_;
  std::vector<std::int32_t> worldBrushes_;                ///< positions of worldspawn's brushes
  std::vector<std::vector<std::int32_t>> entityBrushes_;  ///< and of those of each entity
  std::vector<const CZandoBrush*> carvers_;
  std::vector<std::size_t> carversBefore_;  ///< carvers up to and with each position
  CConstructiveBsp tree_;
  std::vector<PlaneSource> written_;  ///< plane lines of the cell under way
};

void CMapWriter::WriteLevel(std::string_view wadPath) {
  CollectBrushes();
  Line("{");
  WriteWorldKeys(wadPath);
  for (const std::int32_t position : worldBrushes_) WriteBrush(position);
  Line("}");
  for (std::size_t i = 0; i < level_.Entities.size(); ++i) {
    if (!level_.Entities[i].IsShown()) {
      ++report.hiddenEntities;
      report.hiddenBrushes += static_cast<std::int32_t>(entityBrushes_[i].size());
      continue;
    }
    WriteEntity(level_.Entities[i]);
    for (const std::int32_t position : entityBrushes_[i]) WriteBrush(position);
    Line("}");
  }
}

/// The level's keys take the places of the given ones of their names, and follow them otherwise.
void CMapWriter::WriteWorldKeys(std::string_view wadPath) {
  std::vector<EntityPair> rest = level_.WorldKeys;
  std::erase_if(rest,
                [](const EntityPair& pair) { return EqualIgnoringCase(pair.key, kClassName); });
  const auto write = [&](std::string_view key, std::string_view blanks, std::string_view given) {
    const auto own = std::find_if(rest.begin(), rest.end(), [key](const EntityPair& pair) {
      return EqualIgnoringCase(pair.key, key);
    });
    const EntityPair pair =
        own == rest.end() ? EntityPair{std::string(key), std::string(given)} : *own;
    Line("\"" + Quotable(pair.key) + "\"" + std::string(blanks) + "\"" + Quotable(pair.value) +
         "\"");
    if (own != rest.end()) rest.erase(own);
  };
  write("message", "  ", "Entering ZANDOLEVEL");
  write("wad", " ", wadPath);
  write(kClassName, " ", "worldspawn");
  for (const EntityPair& pair : rest) {
    Line("\"" + Quotable(pair.key) + "\" \"" + Quotable(pair.value) + "\"");
  }
}

void CMapWriter::CollectBrushes() {
  entityBrushes_.resize(level_.Entities.size());
  for (std::int32_t i = 0; i < level_.BrushList.BrushCount(); ++i) {
    const CZandoBrush& brush = level_.BrushList[i];
    Collect(brush, i);
    carversBefore_.push_back(carvers_.size());
  }
}

void CMapWriter::Collect(const CZandoBrush& brush, std::int32_t position) {
  const bool solid = brush.TranT == kAddToWorld;
  if (!solid && brush.TranT != kSubtractFromWorld) return;
  const bool ofEntity = solid && brush.BelongsToEntity();
  if (!ofEntity && !brush.IsShown()) {
    ++report.hiddenBrushes;
  } else if (!brush.HasVolume()) {
    ++report.flatBrushes;
  } else if (!solid) {
    carvers_.push_back(&brush);
  } else if (!ofEntity) {
    worldBrushes_.push_back(position);
  } else if (level_.IsEntity(brush.BEnt)) {
    entityBrushes_[static_cast<std::size_t>(brush.BEnt)].push_back(position);
  }
}

void CMapWriter::WriteEntity(const CEntity& entity) {
  Line("{");
  for (const EntityPair& pair : entity.Pairs) {
    const Vector& origin = entity.eOrigin;
    const std::string value = EqualIgnoringCase(pair.key, "origin")
                                  ? FormatWholeNumbers(origin.x, origin.z, origin.y)
                                  : Quotable(pair.value);
    Line("\"" + Quotable(pair.key) + "\"\t\"" + value + "\"");
  }
}

void CMapWriter::WriteBrush(std::int32_t position) {
  const CZandoBrush& brush = level_.BrushList[position];
  const std::span<const CZandoBrush* const> carvers = carvers_;
  CarveBrush(tree_, brush, carvers.subspan(carversBefore_[static_cast<std::size_t>(position)]));
  report.refusedSplits += tree_.refused;
  const std::string texture = TextureWord(brush.Name);
  WalkCells(tree_.root, [&](const CBspNode* cell) { WriteCell(cell, brush, texture); });
}

void CMapWriter::WriteCell(const CBspNode* cell, const CZandoBrush& brush,
                           std::string_view texture) {
  std::ptrdiff_t faces = 0;
  for (const CBspNode* polygon = cell; polygon != nullptr; polygon = polygon->link) {
    if (polygon->nValid != 0) ++faces;
  }
  if (faces < kFewestFaces) {
    ++report.thinCells;
    return;
  }
  if (IsStrayCell(cell, brush)) {
    ++report.strayCells;
    return;
  }

  Line("{");
  written_.clear();
  for (; cell != nullptr; cell = cell->link) {
    if (cell->nValid == 0) continue;
    const PlaneSource source = SourceOf(*cell);
    if (std::find(written_.begin(), written_.end(), source) != written_.end()) continue;
    written_.push_back(source);
    WritePlane(source, texture);
  }
  Line("}");
  ++report.brushes;
}

void CMapWriter::WritePlane(const PlaneSource& source, std::string_view texture) {
  const CZandoPoly& face = source.brush->WorldPolys()[source.face];
  if (face.count < 3) return;
  WritePoints(ChoosePlanePoints(face), source.reversed);
  const std::optional<FaceSurface>& own = source.brush->Faces[source.face].surface;
  if (own) {
    WriteSurface(*own);
  } else {
    text.append(texture);
    Line(" 0 0 0 1.000000 1.000000");
  }
}

void CMapWriter::WriteSurface(const FaceSurface& surface) {
  text.append(TextureWord(surface.texture));
  for (const double number :
       {surface.offsetX, surface.offsetY, surface.rotation, surface.scaleX, surface.scaleY}) {
    AppendNumber(text += ' ', number, Digits::Shortest);
  }
  Line("");
}

void CMapWriter::WritePoints(const PlanePoints& plane, bool reversed) {
  if (plane.origin == PlaneOrigin::OtherVertices) ++report.otherPoints;
  if (plane.origin == PlaneOrigin::Decimals) ++report.decimalPlanes;
  if (plane.origin == PlaneOrigin::Moved) ++report.movedPlanes;
  const bool decimals = plane.origin == PlaneOrigin::Decimals;
  const auto& [first, second, third] = plane.points;
  for (const Vector* point : {reversed ? &third : &first, &second, reversed ? &first : &third}) {
    text.append("( ");
    // The map's second axis is our third: its z points up.
    for (const double coordinate : {point->x, point->z, point->y}) {
      if (decimals) {
        AppendNumber(text, coordinate + 0.0, Digits::Exact);
      } else {
        AppendNumber(text, static_cast<std::int32_t>(coordinate));
      }
      text.append(" ");
    }
    text.append(") ");
  }
}

}  // namespace

std::string DescribeExport(const MapExportReport& report) {
  std::string text = Counted(report.brushes, "brush", "brushes") + " written";
  const auto leftOut = [&text](std::int32_t count, std::string_view one, std::string_view many) {
    if (count > 0) text += ", " + Counted(count, one, many) + " left out";
  };
  leftOut(report.strayCells, "stray cell", "stray cells");
  leftOut(report.thinCells, "thin cell", "thin cells");
  leftOut(report.flatBrushes, "brush without volume", "brushes without volume");
  leftOut(report.hiddenBrushes, "hidden brush", "hidden brushes");
  leftOut(report.hiddenEntities, "hidden entity", "hidden entities");
  const auto planes = [&text](std::int32_t count, std::string_view how) {
    if (count > 0) text += ", " + Counted(count, "plane", "planes").append(how);
  };
  planes(report.otherPoints, " given by other vertices");
  planes(report.decimalPlanes, " written with decimals");
  planes(report.movedPlanes, " moved by more than half a unit");
  if (report.refusedSplits > 0) {
    text += ", " + Counted(report.refusedSplits, "split", "splits") + " refused";
  }
  return text;
}

std::string WriteMap(const Level& level, std::string_view wadPath, MapExportReport* report) {
  CMapWriter writer(level);
  writer.WriteLevel(wadPath);
  if (report != nullptr) *report = writer.report;
  return std::move(writer.text);
}

CResult<CReport> ExportMap(const Level& level, const std::filesystem::path& path,
                           std::string_view wadPath, MapExportReport* report) {
  return WriteFileAtomically(path, WriteMap(level, wadPath, report));
}

}  // namespace zando
