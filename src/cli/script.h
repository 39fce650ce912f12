#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "document/zando_doc.h"

namespace zando {

/// A file that a script wants written once it has run to its end.
struct PendingFile {
  std::filesystem::path path;
  std::string bytes;
};

/// What a script came to.
struct ScriptResult {
  std::vector<PendingFile> files;  ///< in the order of the script; nothing is written yet
  std::vector<std::string> notes;  ///< one line each for the user
  std::string error;               ///< empty, or one line: `name:line: reason`
};

/// Runs the script's commands on the level, line by line; docs/script.md describes the language.
/// `name` is the script's name in an error. The first error ends the script: there are then no
/// files, and the level is somewhere half-way and not to be used.
[[nodiscard]] ScriptResult RunScript(CZANDODoc& document, std::string_view text,
                                     std::string_view name);

}  // namespace zando
