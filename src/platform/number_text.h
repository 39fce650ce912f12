#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zando {

/// Numbers in text, the same in every locale: decimal, with a point.

/// How many digits a number that is not whole is written with.
enum class Digits {
  Six,     ///< six significant ones, as people type them
  Twelve,  ///< twelve: all that people have typed, and nothing of what arithmetic leaves behind it
  Shortest,    ///< the fewest that read back as the same number
  Exact,       ///< likewise, and never with an exponent
  SixDecimals  ///< six behind the point, never with an exponent
};

void AppendNumber(std::string& text, double number, Digits digits);
void AppendNumber(std::string& text, std::int32_t number);

[[nodiscard]] std::string NumberText(double number, Digits digits);

/// What taking a number off a text came to.
enum class Taken { Number, None, OutOfRange };

/// Takes a number off the front of the text, behind white space and a plus sign. When there is
/// none, or none that the type holds, the number is left as it was. "inf" and "nan" are numbers of
/// type double.
Taken TakeNumber(std::string_view& text, double& number);
Taken TakeNumber(std::string_view& text, std::int32_t& number);

/// The number that a whole text spells, without a plus sign or blanks.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);
[[nodiscard]] std::optional<std::int32_t> ParseWholeNumber(std::string_view text);
[[nodiscard]] std::optional<std::uint32_t> ParseHexNumber(std::string_view text);

}  // namespace zando
