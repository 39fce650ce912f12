#include "cli/script_context.h"

#include <algorithm>
#include <optional>

#include "cli/script_words.h"
#include "platform/number_text.h"

namespace zando {
namespace {

std::optional<std::int32_t> ParseIndex(std::string_view word) {
  const auto index = ParseWholeNumber(word);
  return index && *index >= 0 ? index : std::nullopt;
}

}  // namespace

CZandoBrush& CScriptContext::BrushAt(std::int32_t index) {
  if (index >= document.BrushCount()) {
    throw CScriptError("no brush " + std::to_string(index) + ", the level has " +
                       std::to_string(document.BrushCount()));
  }
  CZandoBrush& brush = *document.BrushList.Brushes()[static_cast<std::size_t>(index)];
  if (!brush.IsShown()) throw CScriptError("brush " + std::to_string(index) + " is hidden");
  return brush;
}

std::vector<CZandoBrush*> CScriptContext::ShownBrushesNamed(const std::string& name) const {
  std::vector<CZandoBrush*> found;
  for (const auto& brush : document.BrushList.Brushes()) {
    if (brush->IsShown() && brush->Name == name) found.push_back(brush.get());
  }
  if (found.empty()) throw CScriptError("no shown brush '" + name + "'");
  return found;
}

CZandoBrush& CScriptContext::Brush(const std::string& word) {
  if (const auto index = ParseIndex(word)) return BrushAt(*index);
  if (word != "last") return *ShownBrushesNamed(word).front();
  if (document.BrushCount() == 0) throw CScriptError("the level has no brushes");
  return BrushAt(document.BrushCount() - 1);
}

std::vector<CZandoBrush*> CScriptContext::Brushes(const std::string& word) {
  if (word == "last") return {&Brush(word)};
  if (const auto index = ParseIndex(word)) return {&BrushAt(*index)};

  const std::size_t dots = word.find("..");
  if (dots == std::string::npos) return ShownBrushesNamed(word);
  const auto first = ParseIndex(std::string_view(word).substr(0, dots));
  const auto last = ParseIndex(std::string_view(word).substr(dots + 2));
  if (!first || !last) return ShownBrushesNamed(word);
  if (*first > *last) throw CScriptError("the range '" + word + "' runs backwards");
  std::vector<CZandoBrush*> range;
  for (std::int32_t index = *first; index <= *last; ++index) range.push_back(&BrushAt(index));
  return range;
}

std::int32_t CScriptContext::GroupIndex(std::string_view name) const {
  const auto found = std::find_if(document.Groups.begin(), document.Groups.end(),
                                  [name](const CBGroup& group) { return group.gName == name; });
  if (found == document.Groups.end()) {
    throw CScriptError("unknown group '" + std::string(name) + "'");
  }
  return static_cast<std::int32_t>(found - document.Groups.begin());
}

CBGroup& CScriptContext::Group(std::string_view name) {
  return document.Groups[static_cast<std::size_t>(GroupIndex(name))];
}

std::int32_t CScriptContext::CheckedEntity(std::int32_t index) const {
  if (document.IsEntity(index)) return index;
  throw CScriptError("no entity " + std::to_string(index) + ", the level has " +
                     std::to_string(document.Entities.size()));
}

CEntity& CScriptContext::CurrentEntity() {
  if (!document.IsEntity(document.CurrentEntity)) throw CScriptError("no entity is current");
  return document.Entities[static_cast<std::size_t>(document.CurrentEntity)];
}

void CScriptContext::Changed() {
  document.UpdateAllViews(nullptr);
  document.SetModifiedFlag();
}

const std::string& CheckedText(const std::string& text, std::string_view what) {
  constexpr std::string_view blanks = " \t";
  if (text.find('"') != std::string::npos) {
    throw CScriptError(std::string(what) + " cannot hold a quote");
  }
  if (text.find_first_not_of(blanks) != 0 || blanks.find(text.back()) != std::string_view::npos) {
    throw CScriptError(std::string(what) + " cannot be empty, nor begin or end with a blank");
  }
  return text;
}

}  // namespace zando
