#include "cli/script_arguments.h"

#include <algorithm>
#include <cmath>

#include "platform/number_text.h"

namespace zando {
namespace {

double Positive(double number, std::string_view word) {
  if (number <= 0.0) throw CScriptError(Quoted(word) + " is not above 0");
  return number;
}

std::int32_t ParseWholeScriptNumber(std::string_view word) {
  const auto number = ParseWholeNumber(word);
  if (!number) throw CScriptError(Quoted(word) + " is not a whole number");
  if (std::abs(static_cast<double>(*number)) > kLargestScriptNumber) {
    throw CScriptError(Quoted(word) + " is beyond 1000000");
  }
  return *number;
}

std::size_t IndexOf(std::string_view word, std::initializer_list<std::string_view> choices) {
  const auto found = std::find(choices.begin(), choices.end(), word);
  if (found != choices.end()) return static_cast<std::size_t>(found - choices.begin());
  std::string expected;
  for (const std::string_view choice : choices) {
    expected += (expected.empty() ? "" : " or ") + std::string(choice);
  }
  throw CScriptError("expected " + expected + ", not " + Quoted(word));
}

}  // namespace

std::string Quoted(std::string_view word) { return '\'' + std::string(word) + '\''; }

double ParseScriptNumber(std::string_view word) {
  const auto number = ParseNumber(word);
  if (!number || !std::isfinite(*number)) {
    throw CScriptError(Quoted(word) + " is not a number");
  }
  if (std::fabs(*number) > kLargestScriptNumber) {
    throw CScriptError(Quoted(word) + " is beyond 1000000");
  }
  return *number + 0.0;  // no negative zero
}

const std::string& CScriptArguments::Word() {
  if (words_.empty()) FailWithUsage("too few words");
  const std::string& word = words_.front();
  words_ = words_.subspan(1);
  return word;
}

bool CScriptArguments::Take(std::string_view word) {
  if (words_.empty() || words_.front() != word) return false;
  words_ = words_.subspan(1);
  return true;
}

double CScriptArguments::Number() { return ParseScriptNumber(Word()); }

double CScriptArguments::PositiveNumber() {
  const std::string& word = Word();
  return Positive(ParseScriptNumber(word), word);
}

Vector CScriptArguments::Numbers() {
  const double x = Number();
  const double y = Number();
  const double z = Number();
  return {x, y, z};
}

Vector CScriptArguments::PositiveNumbers() {
  const double x = PositiveNumber();
  const double y = PositiveNumber();
  const double z = PositiveNumber();
  return {x, y, z};
}

std::int32_t CScriptArguments::WholeNumber() { return ParseWholeScriptNumber(Word()); }

bool CScriptArguments::OnOff() { return Choice({"off", "on"}) == 1; }

std::uint32_t CScriptArguments::Color() {
  const std::string& word = Word();
  const auto rgb = ParseHexNumber(word);
  if (word.size() != 6 || !rgb) throw CScriptError(Quoted(word) + " is not a colour RRGGBB");
  return (*rgb & 0xFF) << 16 | (*rgb & 0xFF00) | *rgb >> 16;
}

std::size_t CScriptArguments::Choice(std::initializer_list<std::string_view> choices) {
  return IndexOf(Word(), choices);
}

void CScriptArguments::Finish() const {
  if (!words_.empty()) FailWithUsage("too many words");
}

void CScriptArguments::FailWithUsage(const std::string& reason) const {
  throw CScriptError(reason + "; usage: " + std::string(usage_));
}

CScriptArguments::CKeywords CScriptArguments::Keywords() {
  CKeywords result;
  while (!IsEmpty()) {
    const std::string_view word = Word();
    const std::size_t sign = word.find('=');
    if (sign == std::string_view::npos) {
      FailWithUsage("expected key=value, not " + Quoted(word));
    }
    const std::string_view key = word.substr(0, sign);
    for (const CKeywords::Keyword& earlier : result.keywords_) {
      if (earlier.key == key) throw CScriptError(Quoted(key) + " is given twice");
    }
    result.keywords_.push_back({key, word.substr(sign + 1)});
  }
  return result;
}

const std::string_view* CScriptArguments::CKeywords::Take(std::string_view key) {
  for (Keyword& keyword : keywords_) {
    if (keyword.key != key) continue;
    keyword.used = true;
    return &keyword.value;
  }
  return nullptr;
}

bool CScriptArguments::CKeywords::Has(std::string_view key) const {
  return std::ranges::find(keywords_, key, &Keyword::key) != keywords_.end();
}

double CScriptArguments::CKeywords::Number(std::string_view key, double otherwise) {
  const std::string_view* value = Take(key);
  return value == nullptr ? otherwise : ParseScriptNumber(*value);
}

std::int32_t CScriptArguments::CKeywords::WholeNumber(std::string_view key,
                                                      std::int32_t otherwise) {
  const std::string_view* value = Take(key);
  return value == nullptr ? otherwise : ParseWholeScriptNumber(*value);
}

std::string CScriptArguments::CKeywords::Text(std::string_view key) {
  const std::string_view* value = Take(key);
  return value == nullptr ? std::string() : std::string(*value);
}

std::size_t CScriptArguments::CKeywords::Choice(std::string_view key,
                                                std::initializer_list<std::string_view> choices) {
  const std::string_view* value = Take(key);
  return value == nullptr ? 0 : IndexOf(*value, choices);
}

void CScriptArguments::CKeywords::Finish() const {
  for (const Keyword& keyword : keywords_) {
    if (!keyword.used) throw CScriptError("unknown parameter " + Quoted(keyword.key));
  }
}

}  // namespace zando
