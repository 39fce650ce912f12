#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "formats/map_reader.h"

/// Any bytes are read or refused with a reason, and what was read are brushes: with faces of three
/// and more vertices that are numbers, and owned by an entity that is there.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto map = zando::ReadMap({reinterpret_cast<const char*>(data), size});
  if (!map && map.Error().empty()) std::abort();
  if (!map) return 0;
  const auto entities = static_cast<std::int32_t>(map->level.entities.size());
  for (const auto& brush : map->level.brushes) {
    if (brush->Polys().empty() || brush->Faces.size() != brush->Polys().size()) std::abort();
    if (brush->BelongsToEntity() && (brush->BEnt < 0 || brush->BEnt >= entities)) std::abort();
    for (const zando::CZandoPoly& face : brush->Polys()) {
      if (face.count < 3) std::abort();
      if (!std::ranges::all_of(face.Vertices(), zando::IsFinite)) std::abort();
    }
  }
  if (DescribeImport(map->report).empty()) std::abort();
  return 0;
}
