#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zando {

/// A piece of a map of any form.
struct MapToken {
  enum class Kind { Word, Text, End };
  Kind kind = Kind::End;
  std::string_view text;  ///< of a Text without its quotes
  std::int32_t line = 1;
  bool apart = true;  ///< white space, or an end of the file, on either side

  [[nodiscard]] bool Is(std::string_view word) const { return kind == Kind::Word && text == word; }
};

/// Takes a map apart as newer tools do: comments end with their line, quoted texts are one piece,
/// and brackets and braces stand for themselves also when nothing separates them from a number.
class CMapLexer {
 public:
  explicit CMapLexer(std::string_view bytes) : bytes_(bytes) { Next(); }

  /// The piece that comes next, which is not taken yet.
  [[nodiscard]] const MapToken& Peek() const { return next_; }

  MapToken Take() {
    const MapToken taken = next_;
    Next();
    return taken;
  }

  /// Reads the next piece anew as one word up to white space, brackets and all, unless it is
  /// quoted: so the names of textures stand.
  void PeekName();

  [[nodiscard]] std::int64_t Comments() const { return comments_; }

 private:
  void Next();
  void SkipSpace();
  void TakeWord(bool whole);

  std::string_view bytes_;
  std::size_t position_ = 0;  ///< behind the next piece
  std::size_t start_ = 0;     ///< of the next piece
  std::int32_t line_ = 1;
  MapToken next_;
  std::int64_t comments_ = 0;
};

}  // namespace zando
