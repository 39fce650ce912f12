#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "csg/bsp_tree.h"
#include "platform/result.h"

namespace zando {

/// What a 3DM export wrote and left out.
struct ThreeDmReport {
  std::int32_t vertices = 0;
  std::int32_t polygons = 0;
  std::int32_t ownerless = 0;  ///< visible polygons of brushes that are gone, left out

  [[nodiscard]] bool IsIncomplete() const { return ownerless > 0; }
};

/// The sentence that tells of an export.
[[nodiscard]] std::string Describe3Dm(const ThreeDmReport& report);

/// The visible polygons of a world as the text of a `.3dm`, lines ended by CR LF: a table of
/// vertices, in the order of their first use, and polygons that name them. Vertices are shared
/// where all three coordinates are equal.
[[nodiscard]] std::string Write3Dm(const CConstructiveBsp& world, ThreeDmReport* report = nullptr);

/// Write3Dm into a file with WriteFileAtomically, whose notes it gives.
[[nodiscard]] CResult<CReport> Export3Dm(const CConstructiveBsp& world,
                                         const std::filesystem::path& path,
                                         ThreeDmReport* report = nullptr);

}  // namespace zando
