#pragma once

#include <algorithm>
#include <string_view>

namespace zando {

inline constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

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
