#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/file_calls.h"
#include "platform/result.h"

namespace zando {

/// The bytes of a file.
[[nodiscard]] CResult<std::string> ReadWholeFile(const std::filesystem::path& path);

/// Writes the bytes into a temporary file in the same folder, flushes it to the disk and renames it
/// over `path`, so that a failure leaves an existing file whole. A link is followed. The owner,
/// group, permissions, access list and extended attributes of an existing file are kept. The notes
/// tell where the system does not allow that, and when the folder could not be flushed. Temporary
/// files that earlier saves had to leave in the folder are removed.
[[nodiscard]] CResult<CReport> WriteFileAtomically(const std::filesystem::path& path,
                                                   std::string_view bytes,
                                                   const CFileCalls& calls = CFileCalls());

}  // namespace zando
