#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "document/import_edits.h"
#include "formats/map_notes.h"
#include "platform/result.h"

namespace zando {

/// What was read of a map, and what was not.
struct MapImportReport {
  std::int64_t brushes = 0;  ///< in worldspawn and entities together
  std::int64_t faces = 0;
  std::int64_t ownSurfaces = 0;  ///< faces that carry something else than their brush's name says
  std::int64_t entities = 0;
  std::int64_t worldKeys = 0;
  CMapNotes skippedBrushes;
  CMapNotes openBrushes;           ///< read, though their planes enclose no bounded space
  CMapNotes facelessPlanes;        ///< planes without a face, of brushes that were read
  std::int64_t emptyEntities = 0;  ///< blocks with nothing in them, left out
  std::int64_t oddPlaces = 0;      ///< see MapSource
  std::int32_t firstOddLine = 0;
};

/// The sentence that tells of an import: what was read, and, when there is any, what was skipped,
/// with the reasons.
[[nodiscard]] std::string DescribeImport(const MapImportReport& report);

/// Line by line what was skipped or odd.
[[nodiscard]] CReport NotesOf(const MapImportReport& report);

/// A map as a level takes it.
struct MapImport {
  ImportedLevel level;
  MapImportReport report;
};

/// Reads the bytes of a `.map`: the worldspawn block, then entities with their brushes. Refused are
/// files that begin with something else than a block. Nothing else is an error: what cannot be read
/// is skipped and told of in the report.
[[nodiscard]] CResult<MapImport> ReadMap(std::string_view bytes);

}  // namespace zando
