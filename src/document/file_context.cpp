#include "document/file_context.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <utility>

#include "platform/text.h"

namespace zando {
namespace {

constexpr std::string_view kBlank = " \t\v\f\r";

std::array<double, 16> Entries(const Transform& transform) {
  std::array<double, 16> entries;
  auto out = entries.begin();
  for (const auto& row : transform.m) out = std::copy(row.begin(), row.end(), out);
  return entries;
}

}  // namespace

CFileContext::CFileContext(std::string_view text) : storing(false), text_(text) {
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    while (start < end && kBlank.find(text[start]) != std::string_view::npos) ++start;
    if (start < end) {
      starts_.push_back(start);
      initials_ += LowerCase(text[start]);
    }
    start = end + 1;
  }
  WarnOfNulBytes();
}

std::int32_t CFileContext::PositionOf(const CZandoBrush* brush, std::int32_t otherwise) const {
  const auto found = BrushPositions.find(brush);
  return found == BrushPositions.end() ? otherwise : found->second;
}

void CFileContext::WriteKeyLine(std::string_view key) {
  output_ += key;
  output_ += kLineEnd;
}

void CFileContext::WriteKeyLine(std::string_view key, std::string_view value) {
  output_ += key;
  output_ += ' ';
  const auto start = static_cast<std::ptrdiff_t>(output_.size());
  output_ += value;
  std::replace_if(
      output_.begin() + start, output_.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  output_ += kLineEnd;
}

bool CFileContext::FindKey(std::string_view key) {
  const std::size_t found = key.empty() ? position_ : NextMatch(key);
  if (found >= starts_.size()) return false;
  if (!EndMarker.empty() && NextMatch(EndMarker) < found) return false;
  position_ = found + 1;
  line = TrimmedLine(found);
  return true;
}

std::size_t CFileContext::NextMatch(std::string_view key) {
  const auto [entry, isNew] = next_.try_emplace(key, 0);
  std::size_t& next = entry->second;
  if (!isNew && next >= position_) return next;
  next = Scan(key, position_);
  return next;
}

/// The index of the first line from `from` on that begins with the key; one past the end if none.
std::size_t CFileContext::Scan(std::string_view key, std::size_t from) const {
  for (std::size_t at = from;; ++at) {
    at = initials_.find(LowerCase(key.front()), at);
    if (at == std::string::npos) return starts_.size();
    if (Matches(at, key)) return at;
  }
}

bool CFileContext::Matches(std::size_t index, std::string_view key) const {
  return EqualIgnoringCase(text_.substr(starts_[index], key.size()), key);
}

std::string_view CFileContext::TrimmedLine(std::size_t index) const {
  const std::string_view rest = text_.substr(starts_[index]);
  const std::string_view whole = rest.substr(0, rest.find('\n'));
  return whole.substr(0, whole.find_last_not_of(kBlank) + 1);
}

std::optional<std::string_view> CFileContext::Value() const {
  const std::size_t blank = line.find_first_of(" \t");
  if (blank == std::string_view::npos) return std::nullopt;
  return line.substr(blank + 1);
}

bool CFileContext::Header(std::string_view key) {
  if (!storing) return FindKey(key);
  WriteKeyLine(key);
  return true;
}

bool CFileContext::Exchange(std::string_view key, std::int32_t& number) {
  if (storing) {
    output_ += key;
    output_ += ' ';
    AppendNumber(output_, number);
    output_ += kLineEnd;
    return true;
  }
  if (!FindKey(key)) return false;
  std::string_view value = Value().value_or("");
  TakeNumber(value, number);
  return true;
}

bool CFileContext::Exchange(std::string_view key, std::uint32_t& colour) {
  auto number = static_cast<std::int32_t>(colour);
  const bool present = Exchange(key, number);
  colour = static_cast<std::uint32_t>(number);
  return present;
}

bool CFileContext::Exchange(std::string_view key, std::string& text) {
  if (storing) {
    WriteKeyLine(key, text);
    return true;
  }
  if (!FindKey(key)) return false;
  text = Value().value_or(text);
  return true;
}

bool CFileContext::Exchange(std::string_view key, Vector& vector) {
  std::array<double, 3> numbers{vector.x, vector.y, vector.z};
  if (storing) {
    WriteNumbers(key, numbers, Digits::Six);
    return true;
  }
  if (!FindKey(key)) return false;
  ReadNumbers(numbers);
  vector = {numbers[0], numbers[1], numbers[2]};
  return true;
}

bool CFileContext::Exchange(std::string_view key, Transform& transform) {
  std::array<double, 16> numbers = Entries(transform);
  if (storing) {
    WriteNumbers(key, numbers, Digits::Shortest);
    return true;
  }
  if (!FindKey(key)) return false;
  ReadNumbers(numbers);
  auto from = numbers.cbegin();
  for (auto& row : transform.m) {
    std::copy_n(from, row.size(), row.begin());
    from += static_cast<std::ptrdiff_t>(row.size());
  }
  return true;
}

bool CFileContext::Exchange(std::string_view key, std::optional<std::int32_t>& index,
                            std::span<double> numbers, std::string& text) {
  if (storing) {
    std::string value;
    AppendNumber(value, *index);
    for (const double number : numbers) AppendNumber(value += ' ', number, Digits::Shortest);
    WriteKeyLine(key, value + ' ' + text);
    return true;
  }
  if (!FindKey(key)) return false;
  std::string_view value = Value().value_or("");
  bool isWhole = TakeNumber(value, index.emplace()) == Taken::Number;
  for (double& number : numbers) {
    isWhole = isWhole && TakeNumber(value, number) == Taken::Number && std::isfinite(number);
  }
  if (isWhole && value.size() > 1) {
    text = value.substr(1);
  } else {
    WarnLine("\"" + std::string(key) + "\" takes an index, numbers and a name");
    index.reset();
  }
  return true;
}

std::int32_t CFileContext::Count(std::string_view key, std::size_t stored,
                                 std::string_view itemKey) {
  auto count = static_cast<std::int32_t>(stored);
  if (storing) {
    Exchange(key, count);
    return count;
  }
  count = 0;
  if (!FindKey(key)) return count;
  std::string_view value = Value().value_or("");
  const Taken taken = TakeNumber(value, count);
  if (taken == Taken::OutOfRange || count < 0 || std::cmp_greater(count, RoomFor(itemKey))) {
    RefuseLine(std::string(key) + " is negative or larger than the rest of the file can hold");
  }
  return count;
}

std::int32_t CFileContext::RequiredCount(std::string_view key, std::size_t stored,
                                         std::string_view itemKey) {
  const std::size_t before = position_;
  const std::int32_t count = Count(key, stored, itemKey);
  if (!storing && position_ == before) RefuseMissing(key);
  return count;
}

std::size_t CFileContext::LinesAhead(std::string_view key, std::size_t most) const {
  std::size_t count = 0;
  for (std::size_t at = position_; count < most; ++at, ++count) {
    at = Scan(key, at);
    if (at == starts_.size()) break;
  }
  return count;
}

std::size_t CFileContext::RoomFor(std::string_view itemKey) const {
  if (position_ == starts_.size()) return 0;
  const std::size_t bytes = text_.size() - starts_[position_];
  return std::min(starts_.size() - position_, (bytes + 1) / (itemKey.size() + 1));
}

void CFileContext::RequiredHeader(std::string_view key) {
  if (!Header(key)) RefuseMissing(key);
}

void CFileContext::WriteNumbers(std::string_view key, std::span<const double> numbers,
                                Digits digits) {
  output_ += key;
  for (const double number : numbers) {
    output_ += ' ';
    AppendNumber(output_, number, digits);
  }
  output_ += kLineEnd;
}

void CFileContext::ReadNumbers(std::span<double> numbers) {
  std::string_view value = Value().value_or("");
  bool allFinite = true;
  for (double& number : numbers) {
    const Taken taken = TakeNumber(value, number);
    allFinite = allFinite && taken != Taken::OutOfRange && std::isfinite(number);
    if (taken != Taken::Number) break;
  }
  if (!allFinite) WarnLine("a number is not finite, or out of range");
}

std::size_t CFileContext::LineNumber() const {
  if (position_ == 0) return 0;
  const std::string_view before = text_.substr(0, starts_[position_ - 1]);
  return static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
}

void CFileContext::RefuseLine(std::string_view reason) const {
  throw CFileError("not a level file: line " + std::to_string(LineNumber()) + ": " +
                   std::string(reason));
}

void CFileContext::RefuseMissing(std::string_view key) const {
  throw CFileError("not a level file: " + MissingText(key));
}

std::string CFileContext::MissingText(std::string_view key) const {
  std::string text = "no line \"" + std::string(key) + "\"";
  if (position_ != 0) text += " where it should follow line " + std::to_string(LineNumber());
  return text;
}

// To number a line takes a pass over the file, so that none is numbered only to be counted.
void CFileContext::WarnMissing(std::string_view key) {
  Warn(warnings_.IsFull() ? std::string() : MissingText(key));
}

void CFileContext::WarnLine(std::string_view what) {
  Warn(warnings_.IsFull() ? std::string()
                          : "line " + std::to_string(LineNumber()) + ": " + std::string(what));
}

void CFileContext::WarnIfFewer(std::string_view key, std::int32_t announced, std::int32_t came) {
  if (came >= announced) return;
  WarnLine("of " + std::to_string(announced) + " that " + std::string(key) + " announced, " +
           std::to_string(came) + " came");
}

void CFileContext::WarnUnlessEnded(std::string_view endKey, std::string_view itemKey) {
  const std::size_t end = NextMatch(endKey);
  if (end == starts_.size()) {
    WarnMissing(endKey);
  } else if (end > position_ && Scan(itemKey, position_) < end) {
    WarnLine("more \"" + std::string(itemKey) + "\" follow than were announced");
  }
}

void CFileContext::WarnOfNulBytes() {
  const std::size_t first = text_.find('\0');
  if (first == std::string_view::npos) return;
  const std::string_view before = text_.substr(0, first);
  const auto lines = std::count(before.begin(), before.end(), '\n') + 1;
  const auto bytes = std::count(text_.begin(), text_.end(), '\0');
  Warn("line " + std::to_string(lines) + ": a NUL byte, of " + std::to_string(bytes) +
       " in the file");
}

bool PrintsTheSame(double a, double b) {
  if (std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b)) return true;
  return NumberText(a, Digits::Six) == NumberText(b, Digits::Six);
}

}  // namespace zando
