#include "formats/map_notes.h"

#include <cstddef>

namespace zando {
namespace {

constexpr std::size_t kMostNotes = 1000;

/// Names of textures and kinds are short; what a damaged file has in their place need not be.
constexpr std::size_t kLongestName = 64;

/// Kinds are few, unless the file makes them up.
constexpr std::size_t kMostCounts = 20;

}  // namespace

void CMapNotes::Add(std::int32_t line, std::string_view what, std::string_view texture) {
  ++count_;
  const std::string_view text = what.substr(0, kLongestName);
  const auto counted = counts_.find(text);
  if (counted != counts_.end()) {
    ++counted->second;
  } else if (counts_.size() < kMostCounts) {
    counts_.emplace(text, 1);
  }
  if (kept_.size() == kMostNotes) return;
  kept_.push_back({line, std::string(text), std::string(texture.substr(0, kLongestName))});
}

std::string CMapNotes::DescribeCounts() const {
  std::string text;
  for (const auto& [what, count] : counts_) {
    if (!text.empty()) text += ", ";
    text += what + ": " + std::to_string(count);
  }
  return text;
}

}  // namespace zando
