#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zando {

/// Why a line of a script cannot be done: what() is the reason, without the line.
class CScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The words of one line of a script, up to a comment. Blanks and tabs separate words; a word in
/// double quotes may hold blanks, and \" and \\ in it stand for a quote and a backslash. Throws
/// CScriptError.
[[nodiscard]] std::vector<std::string> SplitWords(std::string_view line);

}  // namespace zando
