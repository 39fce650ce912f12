#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zando {

/// Text from outside, UTF-8, as the editor's own 8-bit text: characters beyond Latin-1 become '?',
/// and so do bytes that are no UTF-8.
[[nodiscard]] std::string ToLatin1(std::string_view utf8);

/// A path as messages show it.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);

/// Its last component as messages show it.
[[nodiscard]] std::string FileNameText(const std::filesystem::path& path);

}  // namespace zando
