#include "cli/script_words.h"

#include <algorithm>

namespace zando {
namespace {

constexpr std::string_view kBlanks = " \t";

bool IsControl(char c) { return (c >= 0 && c < ' ' && c != '\t') || c == '\x7f'; }

std::string TakePlainWord(std::string_view& rest) {
  std::string word(rest.substr(0, rest.find_first_of(kBlanks)));
  if (word.find('"') != std::string::npos) throw CScriptError("a quote inside a word");
  rest.remove_prefix(word.size());
  return word;
}

std::string TakeQuotedWord(std::string_view& rest) {
  std::string word;
  std::size_t i = 1;
  for (; i < rest.size() && rest[i] != '"'; ++i) {
    if (rest[i] == '\\') {
      ++i;
      if (i == rest.size()) break;
      if (rest[i] != '"' && rest[i] != '\\') {
        throw CScriptError(std::string("unknown escape '\\") + rest[i] + "'");
      }
    }
    word += rest[i];
  }
  if (i >= rest.size()) throw CScriptError("a quote that is not closed");
  rest.remove_prefix(i + 1);
  if (!rest.empty() && kBlanks.find(rest.front()) == std::string_view::npos) {
    throw CScriptError("no blank after a closing quote");
  }
  return word;
}

}  // namespace

std::vector<std::string> SplitWords(std::string_view line) {
  if (std::any_of(line.begin(), line.end(), IsControl)) throw CScriptError("a control character");
  std::vector<std::string> words;
  for (std::string_view rest = line;;) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (rest.empty() || rest.front() == '#') return words;
    words.push_back(rest.front() == '"' ? TakeQuotedWord(rest) : TakePlainWord(rest));
  }
}

}  // namespace zando
