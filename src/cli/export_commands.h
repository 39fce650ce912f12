#pragma once

#include <filesystem>
#include <ostream>
#include <string>

#include "cli/input_files.h"

namespace zando {

/// What an exported level names as its texture archive unless told otherwise.
inline constexpr const char* kDefaultWad = "MYWAD.WAD";

enum class ReportFormat { Text, Json };

struct ExportOptions {
  std::string wad = kDefaultWad;
  ReportFormat report = ReportFormat::Text;
  bool strict = false;  ///< an incomplete file is not written, and the export fails
};

/// The subcommands that export, on the terms of cli/subcommands.h. A report as JSON is also given
/// of an export that `strict` refuses.

void ExportMapFile(const std::filesystem::path& input, const std::filesystem::path& output,
                   const ExportOptions& options, std::ostream& out, const Warn& warn);

/// `wad` is of no use to it.
void Export3DmFile(const std::filesystem::path& input, const std::filesystem::path& output,
                   const ExportOptions& options, std::ostream& out, const Warn& warn);

}  // namespace zando
