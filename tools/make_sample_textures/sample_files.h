#pragma once

#include <string>

namespace zando::samples {

/// The bytes of PALETTE.LMP: the built-in palette.
[[nodiscard]] std::string PaletteFile();

/// The bytes of MYWAD.WAD: a WAD2 archive of the sample textures, each in four sizes.
[[nodiscard]] std::string ArchiveFile();

}  // namespace zando::samples
