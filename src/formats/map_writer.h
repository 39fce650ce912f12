#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "document/level.h"
#include "platform/result.h"

namespace zando {

/// What an export wrote, left out and wrote otherwise than usual.
struct MapExportReport {
  std::int32_t brushes = 0;     ///< brushes written, in worldspawn and entities together
  std::int32_t strayCells = 0;  ///< cells that reach beyond their brush, left out
  std::int32_t thinCells = 0;   ///< cells with fewer than 4 faces or nothing in them, left out
  std::int32_t refusedSplits = 0;
  std::int32_t hiddenBrushes = 0;  ///< left out because the show filter hides them
  std::int32_t hiddenEntities = 0;
  std::int32_t flatBrushes = 0;  ///< without volume, left out

  // Planes that the first three vertices, rounded, would have moved by more than half a unit.
  std::int32_t otherPoints = 0;    ///< given by three others
  std::int32_t decimalPlanes = 0;  ///< written with decimals
  std::int32_t movedPlanes = 0;    ///< moved: of faces that have no plane

  /// Whether anything that has volume, or an entity, is missing in the file.
  [[nodiscard]] bool IsIncomplete() const {
    return strayCells > 0 || thinCells > 0 || hiddenBrushes > 0 || hiddenEntities > 0;
  }
};

/// The sentence that tells of an export; what was left out is named only when there is any.
[[nodiscard]] std::string DescribeExport(const MapExportReport& report);

/// The text of the level as a `.map` for the game's tools, lines ended by CR LF. Solid brushes are
/// carved by the carving brushes that follow them and written as convex brushes of three-point
/// planes; then the shown entities with their brushes. The world tree is not read.
[[nodiscard]] std::string WriteMap(const Level& level, std::string_view wadPath,
                                   MapExportReport* report = nullptr);

/// WriteMap into a file with WriteFileAtomically, whose notes it gives.
[[nodiscard]] CResult<CReport> ExportMap(const Level& level, const std::filesystem::path& path,
                                         std::string_view wadPath,
                                         MapExportReport* report = nullptr);

}  // namespace zando
