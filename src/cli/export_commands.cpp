#include "cli/export_commands.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <string_view>

#include "cli/subcommands.h"
#include "formats/map_writer.h"
#include "formats/three_dm_writer.h"
#include "platform/file_io.h"

namespace zando {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

Json AsJson(const MapExportReport& report) {
  return {{"brushes", report.brushes},
          {"left_out",
           {{"stray_cells", report.strayCells},
            {"thin_cells", report.thinCells},
            {"brushes_without_volume", report.flatBrushes},
            {"hidden_brushes", report.hiddenBrushes},
            {"hidden_entities", report.hiddenEntities}}},
          {"planes",
           {{"by_other_vertices", report.otherPoints},
            {"with_decimals", report.decimalPlanes},
            {"moved", report.movedPlanes}}},
          {"refused_splits", report.refusedSplits}};
}

Json AsJson(const ThreeDmReport& report) {
  return {{"polygons", report.polygons},
          {"vertices", report.vertices},
          {"left_out", {{"polygons_without_brush", report.ownerless}}}};
}

/// The text of a file to export, and what is to be said of it.
struct Exported {
  std::string text;
  std::string description;
  Json report;
  bool incomplete;
};

void WriteExport(const Exported& exported, const fs::path& output, const ExportOptions& options,
                 std::ostream& out, const Warn& warn) {
  const bool refused = options.strict && exported.incomplete;
  if (!refused) RequireWritten(WriteFileAtomically(output, exported.text), output, warn);
  if (options.report == ReportFormat::Json) {
    Json json{{"file", output.string()}, {"written", !refused}};
    json.update(exported.report);
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
  } else if (!refused) {
    out << output.string() << ": " << exported.description << '\n';
  }
  if (refused) throw CCommandFailure(output, "not written: " + exported.description);
}

}  // namespace

void ExportMapFile(const fs::path& input, const fs::path& output, const ExportOptions& options,
                   std::ostream& out, const Warn& warn) {
  RefuseInput(input, output);
  const std::unique_ptr<CZANDODoc> document = ReadLevel(input, warn);
  MapExportReport report;
  const std::string text = WriteMap(document->GetLevel(), options.wad, &report);
  WriteExport({text, DescribeExport(report), AsJson(report), report.IsIncomplete()}, output,
              options, out, warn);
}

void Export3DmFile(const fs::path& input, const fs::path& output, const ExportOptions& options,
                   std::ostream& out, const Warn& warn) {
  RefuseInput(input, output);
  const std::unique_ptr<CZANDODoc> document = ReadLevel(input, warn);
  ThreeDmReport report;
  const std::string text = Write3Dm(document->GetLevel().World, &report);
  WriteExport({text, Describe3Dm(report), AsJson(report), report.IsIncomplete()}, output, options,
              out, warn);
}

}  // namespace zando
