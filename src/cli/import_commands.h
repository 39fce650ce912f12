#pragma once

#include <filesystem>
#include <ostream>

#include "cli/export_commands.h"
#include "cli/input_files.h"

namespace zando {

/// Whether a map is cleaned before it is read.
enum class MapCleaning {
  Never,
  Always,
  WhenNeeded  ///< when the map as it is would be refused or misread
};

/// How a map is read, and how that is told.
struct ImportOptions {
  MapCleaning cleaning = MapCleaning::Never;
  ReportFormat report = ReportFormat::Text;
};

/// Reads a map into a new level and saves it. `out` is told what was read and cleaned; what was
/// skipped or odd goes to `warn`, as JSON to `out` instead. Throws CCommandFailure.
void ImportLevel(const std::filesystem::path& input, const std::filesystem::path& output,
                 const ImportOptions& options, std::ostream& out, const Warn& warn);

}  // namespace zando
