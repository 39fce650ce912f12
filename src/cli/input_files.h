#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "document/zando_doc.h"
#include "platform/result.h"
#include "textures/palette.h"

namespace zando {

/// Takes what is odd but does not end a subcommand, a line each: `file: what`.
using Warn = std::function<void(const std::string&)>;

/// Tells `warn` every line of a report on the file, as `warning: file: what`.
void WarnOf(const CReport& report, const std::filesystem::path& file, const Warn& warn);

/// All bytes of a file that a subcommand reads; CCommandFailure with the reason when it cannot.
[[nodiscard]] std::string ReadInput(const std::filesystem::path& path);

/// The level of a file. `warn` is told what is wrong with one that can be read all the same;
/// CCommandFailure when it cannot.
[[nodiscard]] std::unique_ptr<CZANDODoc> ReadLevel(const std::filesystem::path& path,
                                                   const Warn& warn);

/// The colours of a palette file over those of the built-in palette, which stands in when no file
/// is named. `warn`, if any, is told of a file that is short. CCommandFailure when it cannot be
/// read.
[[nodiscard]] Palette ReadPalette(const std::optional<std::filesystem::path>& path,
                                  const Warn& warn);

}  // namespace zando
