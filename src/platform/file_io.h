#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zando {

/// The bytes of a file, or the reason why they cannot be had.
struct FileContents {
  std::optional<std::string> bytes;
  std::string error;  ///< one line, without the file's name
};

[[nodiscard]] FileContents ReadWholeFile(const std::filesystem::path& path);

/// Writes the bytes into a temporary file in the same folder, flushes it to the disk and renames it
/// over `path`, so that a failure leaves an existing file whole. A link is followed; an existing
/// file's permissions are kept. Returns the empty string, or one line that says what failed.
[[nodiscard]] std::string WriteFileAtomically(const std::filesystem::path& path,
                                              std::string_view bytes);

}  // namespace zando
