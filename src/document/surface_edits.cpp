#include "document/surface_edits.h"

#include <algorithm>
#include <string>
#include <vector>

#include "document/change.h"
#include "platform/text.h"

namespace zando {

void SetFaceSurface(CZANDODoc& document, std::size_t face,
                    const std::optional<FaceSurface>& surface) {
  const std::vector<BrushFace>& faces = document.CurrentBrush().Faces;
  if (face >= faces.size() || faces[face].surface == surface) return;
  CChange change(document, kTouchedLevel);
  change.CurrentBrush().Faces[face].surface = surface;
}

std::string CheckWorldKey(std::string_view key, std::string_view value) {
  constexpr std::string_view kBlanks = " \t";
  if (key.empty()) return "A key cannot be empty.";
  if (EqualIgnoringCase(key, "classname")) return "The class of the world is worldspawn.";
  for (const std::string_view text : {key, value}) {
    if (text.find_first_of("\"\r\n") != std::string_view::npos) {
      return "Keys and values cannot hold quotes.";
    }
    const bool padded = !text.empty() && (kBlanks.find(text.front()) != std::string_view::npos ||
                                          kBlanks.find(text.back()) != std::string_view::npos);
    if (padded) return "Keys and values cannot begin or end with a blank.";
  }
  return {};
}

void SetWorldKey(CZANDODoc& document, std::string_view key, std::string_view value) {
  CChange change(document, kTouchedNothing);
  std::vector<EntityPair>& keys = change.level.WorldKeys;
  const auto found = std::find_if(keys.begin(), keys.end(), [key](const EntityPair& pair) {
    return EqualIgnoringCase(pair.key, key);
  });
  const bool isThere = found != keys.end();
  if (isThere ? found->value == value : value.empty()) return;
  change.Touch(kTouchedLevel);
  if (!isThere) {
    keys.push_back({std::string(key), std::string(value)});
  } else if (value.empty()) {
    keys.erase(found);
  } else {
    found->value = std::string(value);
  }
}

}  // namespace zando
