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

const CZandoBrush& CScriptContext::BrushAt(std::int32_t index) const {
  const CBrushList& list = document.GetLevel().BrushList;
  if (index >= list.BrushCount()) {
    throw CScriptError("no brush " + std::to_string(index) + ", the level has " +
                       std::to_string(list.BrushCount()));
  }
  if (!list[index].IsShown()) throw CScriptError("brush " + std::to_string(index) + " is hidden");
  return list[index];
}

std::vector<const CZandoBrush*> CScriptContext::ShownBrushesNamed(const std::string& name) const {
  std::vector<const CZandoBrush*> found;
  for (const CZandoBrush& brush : document.GetLevel().BrushList) {
    if (brush.IsShown() && brush.Name == name) found.push_back(&brush);
  }
  if (found.empty()) throw CScriptError("no shown brush '" + name + "'");
  return found;
}

const CZandoBrush& CScriptContext::Brush(const std::string& word) const {
  if (const auto index = ParseIndex(word)) return BrushAt(*index);
  if (word != "last") return *ShownBrushesNamed(word).front();
  const CBrushList& list = document.GetLevel().BrushList;
  if (list.IsEmpty()) throw CScriptError("the level has no brushes");
  return BrushAt(list.BrushCount() - 1);
}

std::vector<const CZandoBrush*> CScriptContext::Brushes(const std::string& word) const {
  if (word == "last") return {&Brush(word)};
  if (const auto index = ParseIndex(word)) return {&BrushAt(*index)};

  const std::size_t dots = word.find("..");
  if (dots == std::string::npos) return ShownBrushesNamed(word);
  const auto first = ParseIndex(std::string_view(word).substr(0, dots));
  const auto last = ParseIndex(std::string_view(word).substr(dots + 2));
  if (!first || !last) return ShownBrushesNamed(word);
  if (*first > *last) throw CScriptError("the range '" + word + "' runs backwards");
  std::vector<const CZandoBrush*> range;
  for (std::int32_t index = *first; index <= *last; ++index) range.push_back(&BrushAt(index));
  return range;
}

std::int32_t CScriptContext::GroupIndex(std::string_view name) const {
  const CGroupList& groups = document.GetLevel().Groups;
  const auto found = std::ranges::find(groups, name, &CBGroup::gName);
  if (found == groups.end()) throw CScriptError("unknown group '" + std::string(name) + "'");
  return static_cast<std::int32_t>(found - groups.begin());
}

std::int32_t CScriptContext::CheckedEntity(std::int32_t index) const {
  if (document.GetLevel().IsEntity(index)) return index;
  throw CScriptError("no entity " + std::to_string(index) + ", the level has " +
                     std::to_string(document.GetLevel().Entities.size()));
}

const CEntity& CScriptContext::CurrentEntity() const {
  const std::int32_t current = document.State().CurrentEntity;
  if (!document.GetLevel().IsEntity(current)) throw CScriptError("no entity is current");
  return document.GetLevel().Entities[static_cast<std::size_t>(current)];
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

const std::string& CheckedWord(const std::string& text, std::string_view what) {
  if (CheckedText(text, what).find_first_of(" \t") != std::string::npos) {
    throw CScriptError(std::string(what) + " cannot hold a blank");
  }
  return text;
}

}  // namespace zando
