#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace zando {

/// Tells whether a file is still as it was: its size and the time of its last change.
struct FileStamp {
  struct Known {
    std::uintmax_t size;
    std::filesystem::file_time_type time;

    friend bool operator==(const Known&, const Known&) = default;
  };
  std::optional<Known> known;  ///< none when there is no such file

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

[[nodiscard]] FileStamp StampOf(const std::filesystem::path& path);

/// Whether two paths lead to one file, also when it is not there.
[[nodiscard]] bool IsSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

/// The path from the root of the file system; as it is when that cannot be told.
[[nodiscard]] std::filesystem::path AbsolutePath(const std::filesystem::path& path);

}  // namespace zando
