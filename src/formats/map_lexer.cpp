#include "formats/map_lexer.h"

#include <algorithm>

#include "platform/text.h"

namespace zando {
namespace {

constexpr std::string_view kBrackets = "(){}[]";

}  // namespace

void CMapLexer::SkipSpace() {
  while (position_ < bytes_.size()) {
    if (bytes_[position_] == '\n') ++line_;
    if (IsWhiteSpace(bytes_[position_])) {
      ++position_;
    } else if (bytes_.substr(position_).starts_with("//")) {
      ++comments_;
      position_ = std::min(bytes_.find('\n', position_), bytes_.size());
    } else {
      return;
    }
  }
}

void CMapLexer::Next() {
  SkipSpace();
  start_ = position_;
  next_ = {MapToken::Kind::End, {}, line_, true};
  if (position_ == bytes_.size()) return;
  if (bytes_[position_] != '"') return TakeWord(false);
  const std::size_t end = std::min(bytes_.find('"', position_ + 1), bytes_.size());
  next_.kind = MapToken::Kind::Text;
  next_.text = bytes_.substr(position_ + 1, end - position_ - 1);
  line_ += static_cast<std::int32_t>(std::ranges::count(next_.text, '\n'));
  position_ = std::min(end + 1, bytes_.size());
}

void CMapLexer::TakeWord(bool whole) {
  position_ = start_;
  const auto ends = [&](char c) {
    return IsWhiteSpace(c) || (!whole && (c == '"' || kBrackets.find(c) != std::string_view::npos));
  };
  do {
    ++position_;
  } while (position_ < bytes_.size() && !ends(bytes_[position_]) &&
           (whole || kBrackets.find(bytes_[start_]) == std::string_view::npos));
  next_.kind = MapToken::Kind::Word;
  next_.text = bytes_.substr(start_, position_ - start_);
  next_.apart = position_ == bytes_.size() || IsWhiteSpace(bytes_[position_]);
}

void CMapLexer::PeekName() {
  if (next_.kind == MapToken::Kind::Word) TakeWord(true);
}

}  // namespace zando
