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

enum class GridStep { Up, Down };
/// Doubles the grid size while that is at most 2500, or halves it while it is at least 2. Redraws
/// either way.
void StepGrid(CZANDODoc& document, GridStep step);

/// One of the ID_TOOL_... commands.
void SetTool(CZANDODoc& document, std::int32_t tool);

/// From any other tool to the camera, and back to that tool.
void ToggleCamera(CZANDODoc& document);

void ToggleGroupMovement(CZANDODoc& document);

}  // namespace zando
