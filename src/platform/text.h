#pragma once

#include <algorithm>
#include <string_view>

namespace zando {

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

}  // namespace zando
