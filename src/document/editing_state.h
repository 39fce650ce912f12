#pragma once

#include <cstdint>

#include "document/command_ids.h"
#include "primitives/parameters.h"

namespace zando {

/// Stands for the working brush where a brush is named by its id.
inline constexpr std::int32_t kWorkingBrush = -1;

/// What all views of a level share while it is edited; of these the file holds CurrentGroup and
/// CurrentEntity only.
struct EditingState {
  std::int32_t ToolMode = ID_TOOL_CAMERA;
  std::int32_t SavedToolMode = ID_TOOL_MOVE_ROTATE_BRUSH;  ///< the brush tool to return to
  std::int32_t GroupMovementMode = 0;

  std::int32_t CurrentBrush = kWorkingBrush;  ///< id of the picked brush
  std::int32_t CurrentGroup = -1;             ///< index, -1 for none
  std::int32_t CurrentEntity = -1;

  std::int32_t ShowBrush = 1;  ///< whether the current brush is drawn
  std::int32_t ShowEntities = 1;
  std::int32_t ShowFilter = ID_SHOW_ALL_BRUSHES;

  std::int32_t UseGrid = 0;
  double GridSize = 64.0;  ///< map units
  std::int32_t ShowFineGrid = 1;
  std::int32_t ShowCoarseGrid = 1;
  std::int32_t UseRotationSnap = 1;
  double RotationSnap = 341.3333333333333;  ///< rotation units: 15 degrees

  PrimitiveParameters LastUsed;
};

}  // namespace zando
