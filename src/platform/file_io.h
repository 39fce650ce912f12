#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/result.h"

namespace zando {

/// The bytes of a file.
[[nodiscard]] CResult<std::string> ReadWholeFile(const std::filesystem::path& path);

/// Writes the bytes into a temporary file in the same folder, flushes it to the disk and renames it
/// over `path`, so that a failure leaves an existing file whole. A link is followed; an existing
/// file's permissions are kept.
[[nodiscard]] CResult<void> WriteFileAtomically(const std::filesystem::path& path,
                                                std::string_view bytes);

}  // namespace zando
