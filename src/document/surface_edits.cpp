#include "document/surface_edits.h"

#include <algorithm>
#include <string>

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
