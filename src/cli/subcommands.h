#pragma once

#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>

#include "cli/framing.h"
#include "cli/input_files.h"
#include "document/world_edits.h"
#include "platform/result.h"

namespace zando {

/// A subcommand that could not be done: what() is one line, `file: reason`.
class CCommandFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  CCommandFailure(const std::filesystem::path& file, const std::string& reason)
      : std::runtime_error(file.string() + ": " + reason) {}
};

/// Throws unless an output file was written, and warns of what could not be done with it.
void RequireWritten(const CResult<CReport>& written, const std::filesystem::path& output,
                    const Warn& warn);

enum class InfoFormat { Text, Json };

/// A slip in the name of a map, a picture or a level must not cost what it is made from: throws
/// CCommandFailure when both are the same file.
void RefuseInput(const std::filesystem::path& input, const std::filesystem::path& output);

/// The subcommands of zando-cli. Each reads all of its input before it writes, replaces a file
/// whole or not at all, tells `out` what it did and `warn` what is wrong with what it read, and
/// throws CCommandFailure.

void ShowInfo(const std::filesystem::path& level, InfoFormat format, std::ostream& out,
              const Warn& warn);

void RebuildLevel(const std::filesystem::path& input, const std::filesystem::path& output,
                  RebuildKind kind, WaterBrushes water, std::ostream& out, const Warn& warn);

/// Whether ConvertFile knows the way from the one file to the other, by their extensions.
[[nodiscard]] bool CanConvert(const std::filesystem::path& input,
                              const std::filesystem::path& output);
void ConvertFile(const std::filesystem::path& input, const std::filesystem::path& output,
                 std::ostream& out, const Warn& warn);

/// Runs a script on the level, or on a new one when `level` is empty, and saves the result. Nothing
/// is written unless the whole script succeeds.
void RunScriptFile(const std::filesystem::path& script, const std::filesystem::path& level,
                   const std::filesystem::path& output, std::ostream& out, const Warn& warn);

/// Draws a level into a PNG file, as a view of the editor does: without the working brush.
void RenderLevel(const std::filesystem::path& input, const std::filesystem::path& output,
                 const PictureRequest& request, std::ostream& out, const Warn& warn);

}  // namespace zando
