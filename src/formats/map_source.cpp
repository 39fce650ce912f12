#include "formats/map_source.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/number_text.h"
#include "platform/text.h"

namespace zando {
namespace {

/// The number at the front of a word; 0 for a word that begins with none. One too large for us is
/// infinite.
double Decimal(std::string_view word) {
  double number = 0.0;
  const bool negative = word.starts_with('-');
  const bool tiny =
      word.find("e-") != std::string_view::npos || word.find("E-") != std::string_view::npos;
  switch (TakeNumber(word, number)) {
    case Taken::Number:
      return std::isfinite(number) ? number : 0.0;
    case Taken::None:
      return 0.0;
    case Taken::OutOfRange:
      break;
  }
  if (tiny) return 0.0;
  const double infinity = std::numeric_limits<double>::infinity();
  return negative ? -infinity : infinity;
}

/// The bytes of a map with a place in them, and the two ways of reading on from there: plain words,
/// which are ended by white space alone, and quoted texts.
class CMapScanner {
 public:
  explicit CMapScanner(std::string_view bytes) : bytes_(bytes) {}

  /// The next word, which is the token from now on. Without one the token is empty.
  bool NextToken();
  [[nodiscard]] std::string_view Token() const { return token_; }

  /// What a quoted text came to. A brace stands where the text should.
  enum class Quoted { Text, OpeningBrace, ClosingBrace, End };

  /// The next text up to its closing quote, whatever its opening quote looks like.
  Quoted NextQuoted();

  /// As NextToken, except that a text with both quotes on one line is read whole, without them.
  enum class Word { Token, Text, End };
  Word NextWord();

  /// The line that the token begins on.
  [[nodiscard]] std::int32_t Line();

  [[nodiscard]] bool IsOddQuote() const { return oddQuote_; }

 private:
  bool SkipWhiteSpace();

  std::string_view bytes_;
  std::size_t position_ = 0;
  std::size_t tokenAt_ = 0;
  std::string_view token_;
  bool oddQuote_ = false;    ///< the last quoted text began with something else than a quote
  std::size_t counted_ = 0;  ///< lines before this place have been counted
  std::int32_t line_ = 1;
};

bool CMapScanner::SkipWhiteSpace() {
  while (position_ < bytes_.size() && IsWhiteSpace(bytes_[position_])) ++position_;
  tokenAt_ = position_;
  return position_ < bytes_.size();
}

bool CMapScanner::NextToken() {
  token_ = {};
  if (!SkipWhiteSpace()) return false;
  while (position_ < bytes_.size() && !IsWhiteSpace(bytes_[position_])) ++position_;
  token_ = bytes_.substr(tokenAt_, position_ - tokenAt_);
  return true;
}

CMapScanner::Quoted CMapScanner::NextQuoted() {
  token_ = {};
  if (!SkipWhiteSpace()) return Quoted::End;
  const char first = bytes_[position_++];
  if (first == '{') return Quoted::OpeningBrace;
  if (first == '}') return Quoted::ClosingBrace;
  oddQuote_ = first != '"';
  const std::size_t end = std::min(bytes_.find('"', position_), bytes_.size());
  token_ = bytes_.substr(position_, end - position_);
  position_ = std::min(end + 1, bytes_.size());
  return Quoted::Text;
}

CMapScanner::Word CMapScanner::NextWord() {
  token_ = {};
  if (!SkipWhiteSpace()) return Word::End;
  if (bytes_[position_] == '"') {
    const std::size_t end = bytes_.find_first_of("\"\r\n", position_ + 1);
    if (end != std::string_view::npos && bytes_[end] == '"') {
      token_ = bytes_.substr(position_ + 1, end - position_ - 1);
      position_ = end + 1;
      return Word::Text;
    }
  }
  return NextToken() ? Word::Token : Word::End;
}

std::int32_t CMapScanner::Line() {
  const auto from = bytes_.begin() + static_cast<std::ptrdiff_t>(counted_);
  const auto to = bytes_.begin() + static_cast<std::ptrdiff_t>(tokenAt_);
  line_ += static_cast<std::int32_t>(std::count(from, to, '\n'));
  counted_ = tokenAt_;
  return line_;
}

class CMapSourceReader {
 public:
  explicit CMapSourceReader(std::string_view bytes) : scanner_(bytes) {}

  CResult<MapSource> Read();

 private:
  void ReadWorld();
  void ReadEntities();
  void ReadEntity();
  [[nodiscard]] MapBrush ReadBrush();
  void ReadPlane(MapPlane& plane);
  void ReadPoint(Vector& point);
  void NoteOddPlace();

  CMapScanner scanner_;
  MapSource source_;
  std::vector<MapPlane> planes_;  ///< of the brush under way
};

/// Texts in turn as keys and values. A key that nothing follows has an empty value.
class CPairReader {
 public:
  explicit CPairReader(std::vector<MapPair>& pairs) : pairs_(pairs) {}

  void Take(std::string_view text) {
    if (isKey_) {
      pairs_.push_back({text, {}});
    } else {
      pairs_.back().value = text;
    }
    isKey_ = !isKey_;
  }

 private:
  std::vector<MapPair>& pairs_;
  bool isKey_ = true;
};

CResult<MapSource> CMapSourceReader::Read() {
  if (scanner_.NextToken()) {
    if (scanner_.Token() != "{") return Failure{"Problem Parsing file"};
    ReadWorld();
  }
  ReadEntities();
  return std::move(source_);
}

void CMapSourceReader::ReadWorld() {
  CPairReader pairs(source_.world.pairs);
  while (true) {
    const CMapScanner::Word word = scanner_.NextWord();
    if (word == CMapScanner::Word::End) return;
    if (word == CMapScanner::Word::Text) {
      pairs.Take(scanner_.Token());
    } else if (scanner_.Token() == "}") {
      return;
    } else if (scanner_.Token() == "{") {
      source_.world.brushes.push_back(ReadBrush());
    }
  }
}

void CMapSourceReader::ReadEntities() {
  while (scanner_.NextToken()) {
    if (scanner_.Token() == "{") ReadEntity();
  }
}

void CMapSourceReader::ReadEntity() {
  MapEntity entity;
  CPairReader pairs(entity.pairs);
  while (true) {
    const CMapScanner::Quoted quoted = scanner_.NextQuoted();
    if (quoted == CMapScanner::Quoted::Text) {
      if (scanner_.IsOddQuote()) NoteOddPlace();
      pairs.Take(scanner_.Token());
    } else if (quoted == CMapScanner::Quoted::OpeningBrace) {
      entity.brushes.push_back(ReadBrush());
    } else {
      break;
    }
  }
  if (entity.pairs.empty() && entity.brushes.empty()) {
    ++source_.emptyEntities;
  } else {
    source_.entities.push_back(std::move(entity));
  }
}

MapBrush CMapSourceReader::ReadBrush() {
  MapBrush brush;
  brush.line = scanner_.Line();
  planes_.clear();
  MapPlane surplus;
  while (scanner_.NextToken() && scanner_.Token() != "}") {
    const bool isSurplus = planes_.size() == kMostPlanes;
    ReadPlane(isSurplus ? surplus : planes_.emplace_back());
    ++brush.planeCount;
  }
  brush.planes = planes_;
  return brush;
}

/// The token is the first of the plane.
void CMapSourceReader::ReadPlane(MapPlane& plane) {
  plane.line = scanner_.Line();
  for (std::size_t i = 0; i < plane.points.size(); ++i) {
    if (i > 0) scanner_.NextToken();
    ReadPoint(plane.points[i]);
  }
  if (scanner_.NextToken()) plane.texture = scanner_.Token();
  for (double& number : plane.numbers) {
    if (scanner_.NextToken()) number = Decimal(scanner_.Token());
  }
}

/// The map's second axis is our third: its z points up.
void CMapSourceReader::ReadPoint(Vector& point) {
  if (scanner_.Token() != "(") return NoteOddPlace();
  for (double* coordinate : {&point.x, &point.z, &point.y}) {
    *coordinate = scanner_.NextToken() ? Decimal(scanner_.Token()) : 0.0;
  }
  if (scanner_.NextToken() && scanner_.Token() != ")") NoteOddPlace();
}

void CMapSourceReader::NoteOddPlace() {
  if (source_.oddPlaces++ == 0) source_.firstOddLine = scanner_.Line();
}

}  // namespace

CResult<MapSource> ReadMapSource(std::string_view bytes) { return CMapSourceReader(bytes).Read(); }

}  // namespace zando
