#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "formats/map_notes.h"

namespace zando {

/// What was done to a map to give it the form that ReadMap reads, and what was given up for it.
struct MapCleaningReport {
  std::int64_t comments = 0;         ///< dropped
  std::int64_t plainAxes = 0;        ///< faces with texture axes that the plain form says too
  std::int64_t turnedAxes = 0;       ///< faces whose texture now runs along other axes
  std::int64_t surplusWords = 0;     ///< at the ends of plane lines, dropped
  std::int64_t renamedTextures = 0;  ///< plane lines whose texture's name was no plain word
  std::int64_t separatedWords = 0;   ///< that stood together without a blank
  std::int64_t joinedTexts = 0;      ///< pairs whose line breaks became blanks
  CMapNotes skippedBrushes;  ///< of kinds that the plain form does not know, or not readable

  /// Whether the map already had the plain form.
  [[nodiscard]] bool IsEmpty() const;
};

/// What cleaning did, and what it gave up, in one sentence each; empty when there is nothing.
[[nodiscard]] std::string DescribeCleaning(const MapCleaningReport& report);
[[nodiscard]] std::string DescribeGivenUp(const MapCleaningReport& report);

struct CleanedMap {
  std::string text;  ///< what it holds stands in the same lines as before
  MapCleaningReport report;
};

/// Rewrites a map of a newer form into the plain one: comments and words beyond a plane line's end
/// are dropped, texture axes give way to offsets, rotation and scales, brushes of kinds other than
/// plane lines are left out. Numbers stay as they are written. Anything can be cleaned; whether the
/// outcome is a map is for ReadMap to say.
[[nodiscard]] CleanedMap CleanMap(std::string_view bytes);

}  // namespace zando
