#include "formats/map_cleaner.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "formats/map_lexer.h"
#include "formats/texture_axes.h"
#include "geometry/vector.h"
#include "platform/number_text.h"
#include "platform/text.h"

namespace zando {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBracket(std::string_view word) {
  return word.size() == 1 && std::string_view("(){}[]").find(word) != std::string_view::npos;
}

bool IsBracket(const MapToken& token) {
  return token.kind == MapToken::Kind::Word && IsBracket(token.text);
}

double NumberOf(std::string_view word) {
  double number = 0.0;
  TakeNumber(word, number);
  return number;
}

/// Text that keeps its pieces in the lines that they came from.
class CLineWriter {
 public:
  struct Place {
    std::size_t size;
    std::int32_t line;
  };

  /// Goes on in this line, unless that is past.
  void GoTo(std::int32_t line) {
    for (; line_ < line; ++line_) text_ += '\n';
  }

  void Write(std::string_view piece, std::int32_t line) {
    GoTo(line);
    if (!text_.empty() && text_.back() != '\n') text_ += ' ';
    text_ += piece;
  }

  /// The place to return to when what follows, from this line on, is not wanted.
  [[nodiscard]] Place Mark(std::int32_t line) {
    GoTo(line);
    return {text_.size(), line_};
  }
  void BackTo(const Place& place) {
    text_.resize(place.size);
    line_ = place.line;
  }

  /// Ends the last line and gives the whole.
  [[nodiscard]] std::string Finish() {
    if (!text_.empty()) text_ += '\n';
    return std::move(text_);
  }

 private:
  std::string text_;
  std::int32_t line_ = 1;
};

/// Four words in brackets: an axis of a texture and the offset along it.
using AxisWords = std::array<std::string_view, 4>;

Vector DirectionOf(const AxisWords& words) {
  return {NumberOf(words[0]), NumberOf(words[1]), NumberOf(words[2])};
}

class CMapCleaner {
 public:
  explicit CMapCleaner(std::string_view bytes) : lexer_(bytes) {}

  CleanedMap Clean();

 private:
  enum class Outcome { Done, Unreadable, Cut };

  void CleanEntity();
  std::string InOneLine(std::string_view text);
  void CleanBrush(std::int32_t line);
  Outcome CleanPlanes();
  Outcome CleanPlane();
  Outcome CleanPoint(Vector& point);
  Outcome CleanTexture();
  Outcome CleanAxes(const std::array<Vector, 3>& points, std::int32_t line);
  Outcome TakeAxis(AxisWords& words);
  Outcome TakeNumber(std::string_view& word);
  Outcome Expect(std::string_view bracket);
  void DropSurplus();
  std::string_view SkipBrush();
  MapToken Take();
  void Write(std::string_view piece, std::int32_t line) { writer_.Write(piece, line); }

  CMapLexer lexer_;
  CLineWriter writer_;
  MapCleaningReport report_;
};

MapToken CMapCleaner::Take() {
  const MapToken token = lexer_.Take();
  if (!token.apart) ++report_.separatedWords;
  return token;
}

CleanedMap CMapCleaner::Clean() {
  while (lexer_.Peek().kind != MapToken::Kind::End) {
    if (lexer_.Peek().Is("{")) {
      CleanEntity();
    } else {
      lexer_.Take();
      ++report_.surplusWords;
    }
  }
  report_.comments = lexer_.Comments();
  return {writer_.Finish(), std::move(report_)};
}

/// A word among the pairs counts as a text whose quotes were left out.
void CMapCleaner::CleanEntity() {
  const MapToken opening = Take();
  Write(opening.text, opening.line);
  while (lexer_.Peek().kind != MapToken::Kind::End) {
    const MapToken token = Take();
    if (token.Is("{")) {
      CleanBrush(token.line);
      continue;
    }
    if (token.Is("}")) return Write(token.text, token.line);
    if (token.kind == MapToken::Kind::Word) ++report_.separatedWords;
    Write('"' + InOneLine(token.text) + '"', token.line);
  }
  Write("}", lexer_.Peek().line);
}

std::string CMapCleaner::InOneLine(std::string_view text) {
  std::string line(text);
  const auto isBreak = [](char c) { return c == '\r' || c == '\n'; };
  if (std::ranges::any_of(line, isBreak)) ++report_.joinedTexts;
  std::ranges::replace_if(line, isBreak, ' ');
  return line;
}

/// Its opening brace has been taken.
void CMapCleaner::CleanBrush(std::int32_t line) {
  const MapToken first = lexer_.Peek();
  if (first.kind == MapToken::Kind::Word && !IsBracket(first)) {
    lexer_.Take();
    report_.skippedBrushes.Add(line, first.text, SkipBrush());
    return;
  }
  const CLineWriter::Place before = writer_.Mark(line);
  const std::int64_t separated = report_.separatedWords;
  Write("{", line);
  if (CleanPlanes() != Outcome::Unreadable) return;
  writer_.BackTo(before);
  report_.separatedWords = separated;
  report_.skippedBrushes.Add(line, "not readable", SkipBrush());
}

/// Up to and with the closing brace. Of a plane that the end of the file cuts nothing is left.
CMapCleaner::Outcome CMapCleaner::CleanPlanes() {
  while (lexer_.Peek().Is("(")) {
    const CLineWriter::Place before = writer_.Mark(lexer_.Peek().line);
    const Outcome outcome = CleanPlane();
    if (outcome == Outcome::Unreadable) return outcome;
    if (outcome == Outcome::Cut) writer_.BackTo(before);
  }
  const MapToken last = lexer_.Peek();
  if (last.kind != MapToken::Kind::End && !last.Is("}")) return Outcome::Unreadable;
  Write("}", last.line);
  if (last.kind == MapToken::Kind::End) return Outcome::Cut;
  Take();
  return Outcome::Done;
}

CMapCleaner::Outcome CMapCleaner::CleanPlane() {
  std::array<Vector, 3> points{};
  for (Vector& point : points) {
    const Outcome outcome = CleanPoint(point);
    if (outcome != Outcome::Done) return outcome;
  }
  Outcome outcome = CleanTexture();
  if (outcome != Outcome::Done) return outcome;
  const std::int32_t line = lexer_.Peek().line;
  int numbers = 5;
  if (lexer_.Peek().Is("[")) {
    outcome = CleanAxes(points, line);
    if (outcome != Outcome::Done) return outcome;
    numbers = 3;
  }
  for (; numbers > 0; --numbers) {
    std::string_view word;
    outcome = TakeNumber(word);
    if (outcome != Outcome::Done) return outcome;
    Write(word, line);
  }
  DropSurplus();
  return Outcome::Done;
}

CMapCleaner::Outcome CMapCleaner::CleanPoint(Vector& point) {
  const std::int32_t line = lexer_.Peek().line;
  if (const Outcome outcome = Expect("("); outcome != Outcome::Done) return outcome;
  Write("(", line);
  for (double* coordinate : {&point.x, &point.y, &point.z}) {
    std::string_view word;
    if (const Outcome outcome = TakeNumber(word); outcome != Outcome::Done) return outcome;
    Write(word, line);
    *coordinate = NumberOf(word);
  }
  if (const Outcome outcome = Expect(")"); outcome != Outcome::Done) return outcome;
  Write(")", line);
  return Outcome::Done;
}

CMapCleaner::Outcome CMapCleaner::CleanTexture() {
  lexer_.PeekName();
  if (lexer_.Peek().kind == MapToken::Kind::End) return Outcome::Cut;
  if (IsBracket(lexer_.Peek())) return Outcome::Unreadable;
  const MapToken token = lexer_.Take();
  std::string name(token.text);
  std::ranges::replace_if(name, IsWhiteSpace, '_');
  if (name.empty()) name = "_";
  // Without its quotes it must not be taken for something else.
  if (name.starts_with("//") || IsBracket(name)) name.front() = '_';
  if (name != token.text) ++report_.renamedTextures;
  if (token.kind == MapToken::Kind::Text && name == token.text) ++report_.separatedWords;
  Write(name, token.line);
  return Outcome::Done;
}

CMapCleaner::Outcome CMapCleaner::CleanAxes(const std::array<Vector, 3>& points,
                                            std::int32_t line) {
  AxisWords u;
  AxisWords v;
  for (AxisWords* axis : {&u, &v}) {
    if (const Outcome outcome = TakeAxis(*axis); outcome != Outcome::Done) return outcome;
    Write(axis->back(), line);
  }
  const MapToken& rotation = lexer_.Peek();
  const Vector normal = Normalised(Cross(points[0] - points[1], points[2] - points[1]));
  const TextureAxes plain = PlainTextureAxes(normal, NumberOf(rotation.text));
  ++(SameDirections(plain, {DirectionOf(u), DirectionOf(v)}) ? report_.plainAxes
                                                             : report_.turnedAxes);
  return Outcome::Done;
}

CMapCleaner::Outcome CMapCleaner::TakeAxis(AxisWords& words) {
  if (const Outcome outcome = Expect("["); outcome != Outcome::Done) return outcome;
  for (std::string_view& word : words) {
    if (const Outcome outcome = TakeNumber(word); outcome != Outcome::Done) return outcome;
  }
  return Expect("]");
}

CMapCleaner::Outcome CMapCleaner::TakeNumber(std::string_view& word) {
  if (lexer_.Peek().kind == MapToken::Kind::End) return Outcome::Cut;
  if (lexer_.Peek().kind != MapToken::Kind::Word || IsBracket(lexer_.Peek())) {
    return Outcome::Unreadable;
  }
  word = Take().text;
  return Outcome::Done;
}

CMapCleaner::Outcome CMapCleaner::Expect(std::string_view bracket) {
  if (lexer_.Peek().kind == MapToken::Kind::End) return Outcome::Cut;
  if (!lexer_.Peek().Is(bracket)) return Outcome::Unreadable;
  Take();
  return Outcome::Done;
}

void CMapCleaner::DropSurplus() {
  while (lexer_.Peek().kind == MapToken::Kind::Word && !IsBracket(lexer_.Peek())) {
    lexer_.Take();
    ++report_.surplusWords;
  }
}

/// Up to and with the brace that closes a brush; the first name on the way, which is a texture's.
std::string_view CMapCleaner::SkipBrush() {
  std::string_view texture;
  for (std::size_t depth = 1; depth > 0 && lexer_.Peek().kind != MapToken::Kind::End;) {
    const MapToken token = lexer_.Take();
    if (token.Is("{")) ++depth;
    if (token.Is("}")) --depth;
    std::string_view word = token.text;
    double number = 0.0;
    const bool isName = !IsBracket(token) && zando::TakeNumber(word, number) != Taken::Number;
    if (texture.empty() && isName) texture = token.text;
  }
  return texture;
}

/// "a, b and c" of those counts that are not 0.
class CCountedList {
 public:
  void Add(std::int64_t count, std::string_view one, std::string_view many) {
    if (count == 0) return;
    if (!text_.empty()) text_ += ", ";
    text_ += Counted(count, one, many);
  }
  void Extend(std::string_view text) { text_ += text; }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace

bool MapCleaningReport::IsEmpty() const {
  return comments == 0 && plainAxes == 0 && turnedAxes == 0 && surplusWords == 0 &&
         renamedTextures == 0 && separatedWords == 0 && joinedTexts == 0 &&
         skippedBrushes.Count() == 0;
}

std::string DescribeCleaning(const MapCleaningReport& report) {
  CCountedList list;
  list.Add(report.comments, "comment dropped", "comments dropped");
  list.Add(report.plainAxes, "face with texture axes rewritten without",
           "faces with texture axes rewritten without");
  list.Add(report.separatedWords, "word separated or quoted", "words separated or quoted");
  return list.Text();
}

std::string DescribeGivenUp(const MapCleaningReport& report) {
  CCountedList list;
  list.Add(report.turnedAxes, "face's own texture axes", "faces' own texture axes");
  list.Add(report.skippedBrushes.Count(), "brush of another kind", "brushes of another kind");
  if (report.skippedBrushes.Count() > 0) {
    list.Extend(" (" + report.skippedBrushes.DescribeCounts() + ')');
  }
  list.Add(report.surplusWords, "word at the end of a line", "words at the ends of lines");
  list.Add(report.joinedTexts, "text's line breaks", "texts' line breaks");
  list.Add(report.renamedTextures, "name of a texture that is no plain word",
           "names of textures that are no plain words");
  return list.Text();
}

CleanedMap CleanMap(std::string_view bytes) {
  const bool marked = bytes.starts_with(kByteOrderMark);
  if (marked) bytes.remove_prefix(kByteOrderMark.size());
  CleanedMap cleaned = CMapCleaner(bytes).Clean();
  if (marked) ++cleaned.report.separatedWords;
  return cleaned;
}

}  // namespace zando
