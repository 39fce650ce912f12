#pragma once

#include <cstdint>

#include "document/zando_doc.h"

namespace zando {

/// Operations on what the views of a level show beside it, and on the tool. None of them changes
/// the level.

/// Shows by another filter, one of the ID_SHOW_... commands.
void SetShowFilter(CZANDODoc& document, std::int32_t filter);

/// Shows or hides entities and their brushes.
void ToggleShowEntities(CZANDODoc& document);

/// Shows or hides the current brush.
void ToggleShowBrush(CZANDODoc& document);

void ToggleUseGrid(CZANDODoc& document);

/// Limits of the grid size, map units.
inline constexpr double kSmallestGrid = 1.0;
inline constexpr double kLargestGrid = 2500.0;

/// The grid of a level and the step to which rotations snap.
struct GridSettings {
  double size = 64.0;  ///< map units, kSmallestGrid to kLargestGrid
  std::int32_t showCoarse = 1;
  std::int32_t showFine = 1;
  std::int32_t useRotationSnap = 1;
  double rotationSnap = 0.0;  ///< rotation units
};
[[nodiscard]] GridSettings GridSettingsOf(const CZANDODoc& document);
void SetGridSettings(CZANDODoc& document, const GridSettings& settings);

enum class GridStep { Up, Down };
/// Doubles the grid size up to the largest, or halves it while it is at least 2. Redraws
/// either way.
void StepGrid(CZANDODoc& document, GridStep step);

/// One of the ID_TOOL_... commands.
void SetTool(CZANDODoc& document, std::int32_t tool);

/// From any other tool to the camera, and back to that tool.
void ToggleCamera(CZANDODoc& document);

void ToggleGroupMovement(CZANDODoc& document);

}  // namespace zando
