#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "geometry/brush.h"
#include "geometry/transform.h"
#include "geometry/vector.h"
#include "platform/number_text.h"
#include "platform/result.h"

namespace zando {

/// A document file is refused; what() is one line that says why.
class CFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// One document file while it is written or read: what all objects of the level share while each of
/// them serialises itself. Keys are string literals; they are held by reference.
class CFileContext {
 public:
  const bool storing;          ///< true: fields go into the file; false: they come from it
  std::string_view EndMarker;  ///< reading: where a search gives up; empty for the end of the file
  std::string_view line;       ///< reading: the line last found, without white space at its ends

  /// Where each listed brush stands, for writing: brushes are numbered by position in a file.
  std::unordered_map<const CZandoBrush*, std::int32_t> BrushPositions;

  /// A context that writes.
  CFileContext() : storing(true) {}

  /// A context that reads this text, which must outlive it. Of NUL bytes in it a note is taken.
  explicit CFileContext(std::string_view text);

  /// The listed brush's position, or `otherwise` for any other brush.
  [[nodiscard]] std::int32_t PositionOf(const CZandoBrush* brush, std::int32_t otherwise) const;

  void WriteKeyLine(std::string_view key);
  /// Line ends within the value become blanks.
  void WriteKeyLine(std::string_view key, std::string_view value);
  [[nodiscard]] std::string TakeOutput() { return std::move(output_); }

  /// Finds the next line that begins with the key, whatever the case of its letters, up to the line
  /// that begins with EndMarker, and takes it into `line`. Without one nothing is consumed.
  bool FindKey(std::string_view key);

  /// What follows the first blank or tab of `line`; none when nothing does.
  [[nodiscard]] std::optional<std::string_view> Value() const;

  /// The operations below write the line of a field, or find it and read it. A line that is
  /// missing, has no value or holds no number leaves the field, as do numbers missing at the end of
  /// a line. They return whether the line is in the file. Vectors are written with six significant
  /// digits, a transform with as many as make it read back the same: six would tear apart the faces
  /// that meet in a turned group.
  bool Header(std::string_view key);
  bool Exchange(std::string_view key, std::int32_t& number);
  bool Exchange(std::string_view key, std::uint32_t& colour);
  bool Exchange(std::string_view key, std::string& text);
  bool Exchange(std::string_view key, Vector& vector);
  bool Exchange(std::string_view key, Transform& transform);

  /// A line of an index, numbers as those of a transform, and a text that is not empty. Of a line
  /// that is not whole, or whose numbers are not finite, a note is taken; it has no index then.
  bool Exchange(std::string_view key, std::optional<std::int32_t>& index, std::span<double> numbers,
                std::string& text);

  /// Writes how many items follow and returns it, or reads it: 0 when the line is missing. Refuses
  /// a number that is negative, or of more items than the rest of the file can hold when each takes
  /// a line as long as the key that it begins with.
  std::int32_t Count(std::string_view key, std::size_t stored, std::string_view itemKey);

  /// As Count, but refuses a file without the line.
  std::int32_t RequiredCount(std::string_view key, std::size_t stored, std::string_view itemKey);

  /// How many of the lines left begin with the key, counted no further than `most`.
  [[nodiscard]] std::size_t LinesAhead(std::string_view key, std::size_t most) const;

  /// As Header, but refuses a file without the line.
  void RequiredHeader(std::string_view key);

  /// Refuses the file for what stands in `line`.
  [[noreturn]] void RefuseLine(std::string_view reason) const;

  /// Reading goes on, but the level is not what was once saved: the operations below take a note of
  /// why, for a person.
  void Warn(std::string what) { warnings_.Add(std::move(what)); }

  /// A line that every writer of the format writes was looked for in vain.
  void WarnMissing(std::string_view key);

  /// Fewer items came than the line of the key announced, if they did.
  void WarnIfFewer(std::string_view key, std::int32_t announced, std::int32_t came);

  /// The line that ends a list is missing, or further items stand before it.
  void WarnUnlessEnded(std::string_view endKey, std::string_view itemKey);

  [[nodiscard]] CReport TakeWarnings() { return std::move(warnings_); }

 private:
  [[nodiscard]] std::size_t NextMatch(std::string_view key);
  [[nodiscard]] std::size_t Scan(std::string_view key, std::size_t from) const;
  [[nodiscard]] bool Matches(std::size_t index, std::string_view key) const;
  [[nodiscard]] std::string_view TrimmedLine(std::size_t index) const;
  [[nodiscard]] std::size_t RoomFor(std::string_view itemKey) const;
  [[nodiscard]] std::size_t LineNumber() const;
  [[nodiscard]] std::string MissingText(std::string_view key) const;
  void WarnLine(std::string_view what);
  void WarnOfNulBytes();
  [[noreturn]] void RefuseMissing(std::string_view key) const;
  void WriteNumbers(std::string_view key, std::span<const double> numbers, Digits digits);
  void ReadNumbers(std::span<double> numbers);

  std::string output_;
  CReport warnings_;

  std::string_view text_;
  std::vector<std::size_t> starts_;  ///< first byte of every line that holds more than white space
  std::string initials_;             ///< those bytes in lower case, to search in
  std::size_t position_ = 0;         ///< index of the next line
  /// The next line of each key at or after the position it was last looked for from. Positions only
  /// grow, so that a key is searched for once, however often a search for it is in vain.
  std::unordered_map<std::string_view, std::size_t> next_;
};

/// Whether two numbers read the same in a file: to six significant digits.
[[nodiscard]] bool PrintsTheSame(double a, double b);

}  // namespace zando
