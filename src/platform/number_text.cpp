#include "platform/number_text.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <system_error>

#include "platform/text.h"

namespace zando {
namespace {

/// Enough for any number in any of our forms: the longest are those of 324 decimals.
using Buffer = std::array<char, 400>;

template <typename Number, typename... Format>
std::string_view Print(Buffer& buffer, Number number, Format... format) {
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format...).ptr;
  return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

std::string_view Print(Buffer& buffer, double number, Digits digits) {
  switch (digits) {
    case Digits::Six:
      return Print(buffer, number, std::chars_format::general, 6);
    case Digits::Twelve:
      return Print(buffer, number, std::chars_format::general, 12);
    case Digits::Shortest:
      return Print(buffer, number);
    case Digits::Exact:
      return Print(buffer, number, std::chars_format::fixed);
    case Digits::SixDecimals:
      return Print(buffer, number, std::chars_format::fixed, 6);
  }
  return {};
}

template <typename Number>
Taken Take(std::string_view& text, Number& number) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  std::string_view digits = text;
  // from_chars knows the minus sign only.
  if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error == std::errc::result_out_of_range) return Taken::OutOfRange;
  if (error != std::errc()) return Taken::None;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return Taken::Number;
}

template <typename Number, typename... Format>
std::optional<Number> Parse(std::string_view text, Format... format) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number, format...);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

}  // namespace

void AppendNumber(std::string& text, double number, Digits digits) {
  Buffer buffer;
  text += Print(buffer, number, digits);
}

void AppendNumber(std::string& text, std::int32_t number) {
  Buffer buffer;
  text += Print(buffer, number);
}

std::string NumberText(double number, Digits digits) {
  Buffer buffer;
  return std::string(Print(buffer, number, digits));
}

Taken TakeNumber(std::string_view& text, double& number) { return Take(text, number); }
Taken TakeNumber(std::string_view& text, std::int32_t& number) { return Take(text, number); }

std::optional<double> ParseNumber(std::string_view text) { return Parse<double>(text); }
std::optional<std::int32_t> ParseWholeNumber(std::string_view text) {
  return Parse<std::int32_t>(text);
}
std::optional<std::uint32_t> ParseHexNumber(std::string_view text) {
  return Parse<std::uint32_t>(text, 16);
}

}  // namespace zando
