#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "textures/palette.h"

namespace zando {

/// All bytes of a file that a subcommand reads; CCommandFailure with the reason when it cannot.
[[nodiscard]] std::string ReadInput(const std::filesystem::path& path);

/// The colours of a palette file over those of the built-in palette, which stands in when no file
/// is named. `warn`, if any, is told of a file that is short. CCommandFailure when it cannot be
/// read.
[[nodiscard]] Palette ReadPalette(const std::optional<std::filesystem::path>& path,
                                  const std::function<void(const std::string&)>& warn);

}  // namespace zando
