#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "app/level_commands.h"
#include "app/status_text.h"
#include "formats/map_cleaner.h"
#include "formats/map_reader.h"
#include "platform/file_io.h"
#include "platform/text.h"

namespace zando {
namespace {

/// What keeps a map from being read as it is; empty when nothing does.
std::string Hindrance(const CResult<MapImport>& map) {
  if (!map) return map.Error();
  if (map->report.oddPlaces == 0) return {};
  return "From line " + std::to_string(map->report.firstOddLine) +
         " on it is not in the plain form of a map, and would be misread";
}

std::string CleaningQuestion(const std::filesystem::path& path, const std::string& hindrance,
                             const MapCleaningReport& report) {
  std::string text = FileNameText(path) + ": " + hindrance + ".\nRead it in the plain form?";
  const std::string done = DescribeCleaning(report);
  const std::string givenUp = DescribeGivenUp(report);
  if (!done.empty()) text += "\nChanged: " + done + '.';
  return text + "\nGiven up: " + (givenUp.empty() ? "nothing" : givenUp) + '.';
}

/// The map as it is, or in the plain form when the user wants that. Nothing when it is not to be
/// imported; the user knows.
std::optional<MapImport> ReadOrOfferCleaned(CDesktop& desktop, const std::filesystem::path& path,
                                            const std::string& bytes) {
  auto plain = ReadMap(bytes);
  const std::string hindrance = Hindrance(plain);
  if (hindrance.empty()) return *std::move(plain);
  const CleanedMap cleaned = CleanMap(bytes);
  auto better = ReadMap(cleaned.text);
  if (!cleaned.report.IsEmpty() && Hindrance(better).empty() && better->report.brushes > 0) {
    const auto question = CleaningQuestion(path, hindrance, cleaned.report);
    if (desktop.AskYesNo(question) == YesNo::No) return std::nullopt;
    return *std::move(better);
  }
  if (plain) return *std::move(plain);
  desktop.ShowMessage(plain.Error());
  return std::nullopt;
}

/// The bytes of the file. Nothing when it cannot be opened, or not be read whole; the user knows.
std::optional<std::string> ReadChosen(CDesktop& desktop, const std::filesystem::path& path) {
  // Opening a pipe would wait for someone to write to it.
  std::error_code error;
  const bool isFile = std::filesystem::is_regular_file(path, error);
  if (!isFile || !std::ifstream(path, std::ios::binary)) {
    desktop.ShowFailure("Cannot open " + PathText(path));
    return std::nullopt;
  }
  auto bytes = ReadWholeFile(path);
  if (bytes) return *std::move(bytes);
  desktop.ShowMessage("Error: Could not init tokens");
  return std::nullopt;
}

}  // namespace

void ImportFromMap(ActiveLevel& level) {
  const FileRequest request{.kind = FileRequest::Kind::Open,
                            .title = "Import from Quake (MAP)",
                            .extension = "map",
                            .filter = "Map Files (*.map)|*.map|All Files (*.*)|*.*||",
                            .proposal = {}};
  const auto path = level.desktop.ChooseFile(request);
  if (!path) return;
  const auto bytes = ReadChosen(level.desktop, *path);
  if (!bytes) return;
  auto map = ReadOrOfferCleaned(level.desktop, *path, *bytes);
  if (!map) return;
  AppendLevel(level.document, std::move(map->level));
  ShowOutcome(level.desktop,
              FileNameText(*path) + ": " + DescribeImport(map->report) +
                  "; the world shows new brushes after the next rebuild",
              NotesOf(map->report));
}

}  // namespace zando
