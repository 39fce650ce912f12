#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace zando {

/// What ends the lines of the files that are written.
inline constexpr std::string_view kLineEnd = "\r\n";

/// Blank, tab, line ends, vertical tab and form feed, in every locale.
[[nodiscard]] constexpr bool IsWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// The lower case of A to Z; any other byte is left, in every locale.
[[nodiscard]] constexpr char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Whether two texts differ in nothing but the case of A to Z.
[[nodiscard]] constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

/// Text from outside, UTF-8, as the editor's own 8-bit text: characters beyond Latin-1 become '?',
/// and so do bytes that are no UTF-8.
[[nodiscard]] std::string ToLatin1(std::string_view utf8);

/// The editor's own 8-bit text as UTF-8.
[[nodiscard]] std::string FromLatin1(std::string_view text);

/// "1 brush", "2 brushes".
[[nodiscard]] std::string Counted(std::int64_t count, std::string_view one, std::string_view many);

/// A path as messages show it.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);

/// Its last component as messages show it.
[[nodiscard]] std::string FileNameText(const std::filesystem::path& path);

}  // namespace zando
