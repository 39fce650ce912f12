#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/script_words.h"
#include "geometry/vector.h"

namespace zando {

/// No coordinate, size or factor of a script is larger, so that sums and products of a few stay
/// exact enough to build with.
inline constexpr double kLargestScriptNumber = 1000000.0;

/// A word in single quotes, as messages name it.
[[nodiscard]] std::string Quoted(std::string_view word);

/// The number that the whole word spells, the same in every locale. Throws CScriptError when there
/// is none, or one that is not finite or too large.
[[nodiscard]] double ParseScriptNumber(std::string_view word);

/// The words after a command's name, taken one by one. Everything throws CScriptError on a word
/// that is missing or wrong.
class CScriptArguments {
 public:
  /// Both must outlive this object.
  CScriptArguments(std::span<const std::string> words, std::string_view usage)
      : words_(words), usage_(usage) {}

  [[nodiscard]] bool IsEmpty() const { return words_.empty(); }

  /// The next word.
  const std::string& Word();

  /// Takes the next word if it is this one.
  bool Take(std::string_view word);

  double Number();
  double PositiveNumber();
  Vector Numbers();          ///< three
  Vector PositiveNumbers();  ///< three
  std::int32_t WholeNumber();
  bool OnOff();

  /// Six hexadecimal digits RRGGBB, as 0x00BBGGRR.
  std::uint32_t Color();

  /// The index of the next word among the choices.
  std::size_t Choice(std::initializer_list<std::string_view> choices);

  /// Every word must have been taken.
  void Finish() const;

  /// The rest of the words: key=value, in any order, each key once.
  class CKeywords {
   public:
    [[nodiscard]] bool Has(std::string_view key) const;
    [[nodiscard]] double Number(std::string_view key, double otherwise);
    [[nodiscard]] std::int32_t WholeNumber(std::string_view key, std::int32_t otherwise);

    /// Empty when the key is not given.
    [[nodiscard]] std::string Text(std::string_view key);

    /// The first choice when the key is not given.
    [[nodiscard]] std::size_t Choice(std::string_view key,
                                     std::initializer_list<std::string_view> choices);

    /// Every key must have been asked for.
    void Finish() const;

   private:
    friend class CScriptArguments;
    struct Keyword {
      std::string_view key;
      std::string_view value;
      bool used = false;
    };
    [[nodiscard]] const std::string_view* Take(std::string_view key);

    std::vector<Keyword> keywords_;
  };
  CKeywords Keywords();

 private:
  [[noreturn]] void FailWithUsage(const std::string& reason) const;

  std::span<const std::string> words_;
  std::string_view usage_;
};

}  // namespace zando
