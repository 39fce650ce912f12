#include "cli/import_commands.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>

#include "cli/subcommands.h"
#include "document/document_file.h"
#include "formats/map_cleaner.h"
#include "formats/map_reader.h"
#include "platform/text.h"

namespace zando {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

/// A map that was read, and what was done to it before if it was cleaned.
struct Reading {
  MapImport map;
  std::optional<MapCleaningReport> cleaning;
};

bool ReadsPlainly(const CResult<MapImport>& map) { return map && map->report.oddPlaces == 0; }

Reading ReadMapFile(const fs::path& input, MapCleaning wanted) {
  const std::string bytes = ReadInput(input);
  std::string reason;
  if (wanted != MapCleaning::Always) {
    auto plain = ReadMap(bytes);
    const bool enough = wanted == MapCleaning::Never ? bool(plain) : ReadsPlainly(plain);
    if (enough) return {*std::move(plain), std::nullopt};
    if (wanted == MapCleaning::Never) {
      reason = CleanMap(bytes).report.IsEmpty() ? "" : " (--clean may read it)";
      throw CCommandFailure(input, plain.Error() + reason);
    }
  }
  CleanedMap cleaned = CleanMap(bytes);
  auto map = ReadMap(cleaned.text);
  if (!map) throw CCommandFailure(input, map.Error());
  return {*std::move(map), std::move(cleaned.report)};
}

Json NotesAsJson(const CMapNotes& notes) {
  Json json{{"count", notes.Count()}, {"list", Json::array()}};
  for (const MapNote& note : notes.Kept()) {
    json["list"].push_back({{"line", note.line},
                            {"reason", FromLatin1(note.what)},
                            {"texture", FromLatin1(note.texture)}});
  }
  return json;
}

Json CleaningAsJson(const MapCleaningReport& report) {
  return {{"comments", report.comments},
          {"plain_axes", report.plainAxes},
          {"turned_axes", report.turnedAxes},
          {"surplus_words", report.surplusWords},
          {"renamed_textures", report.renamedTextures},
          {"separated_words", report.separatedWords},
          {"joined_texts", report.joinedTexts},
          {"skipped_brushes", NotesAsJson(report.skippedBrushes)}};
}

std::string ReportAsJson(const Reading& reading) {
  const MapImportReport& report = reading.map.report;
  Json json{{"brushes", report.brushes},
            {"faces", report.faces},
            {"faces_with_surface", report.ownSurfaces},
            {"entities", report.entities},
            {"world_keys", report.worldKeys},
            {"skipped_brushes", NotesAsJson(report.skippedBrushes)},
            {"open_brushes", NotesAsJson(report.openBrushes)},
            {"faceless_planes", NotesAsJson(report.facelessPlanes)},
            {"empty_entities", report.emptyEntities},
            {"odd_places", report.oddPlaces},
            {"cleaning", nullptr}};
  if (reading.cleaning) json["cleaning"] = CleaningAsJson(*reading.cleaning);
  return json.dump(2) + '\n';
}

void WarnOfCleaning(const MapCleaningReport& report, const fs::path& input, const Warn& warn) {
  const std::string givenUp = DescribeGivenUp(report);
  if (!givenUp.empty()) warn("warning: " + input.string() + ": given up: " + FromLatin1(givenUp));
}

std::string ReportAsText(const Reading& reading) {
  std::string text = DescribeImport(reading.map.report);
  const std::string done = reading.cleaning ? DescribeCleaning(*reading.cleaning) : std::string();
  if (!done.empty()) text += "; " + done;
  return FromLatin1(text);
}

}  // namespace

void ImportLevel(const fs::path& input, const fs::path& output, const ImportOptions& options,
                 std::ostream& out, const Warn& warn) {
  RefuseInput(input, output);
  Reading reading = ReadMapFile(input, options.cleaning);
  CZANDODoc document;
  AppendLevel(document, std::move(reading.map.level));
  RequireWritten(SaveDocumentFile(document, output), output, warn);
  if (options.report == ReportFormat::Json) {
    out << ReportAsJson(reading);
    return;
  }
  WarnOf(NotesOf(reading.map.report), input, warn);
  if (reading.cleaning) WarnOfCleaning(*reading.cleaning, input, warn);
  out << output.string() << ": " << ReportAsText(reading) << '\n';
}

}  // namespace zando
