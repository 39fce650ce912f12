#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>

#include "cli/input_files.h"

namespace zando {

/// The archive and the palette that `zando-cli textures` is asked about.
struct TextureRequest {
  std::filesystem::path archive;
  std::optional<std::filesystem::path> palette;  ///< the built-in one otherwise
  Warn warn;                                     ///< takes what is damaged
};

/// Lists the textures of an archive: index, name and size, then how many there are. A name is one
/// word of printable ASCII, with other bytes as \xHH and an empty one as "". Throws
/// CCommandFailure.
void ListTextures(const TextureRequest& request, std::ostream& out);

/// Writes each texture into the folder, made if it is missing, as an indexed NAME.png. In a file's
/// name `*` is `#`, and whatever is not a letter, a digit, `_`, `+` or `-` is `_`; a name that is
/// empty or there already gets a number. Throws CCommandFailure.
void WriteTextures(const TextureRequest& request, const std::filesystem::path& folder,
                   std::ostream& out);

}  // namespace zando
