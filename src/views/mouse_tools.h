#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "document/tool_drag.h"
#include "platform/command.h"
#include "platform/desktop.h"
#include "views/camera.h"

namespace zando {

enum class MouseButton { Left, Middle, Right };

/// What the press of a button begins; see view_drag.h.
enum class Press {
  Camera,      ///< every motion moves the camera
  Edit,        ///< every motion is a step of the tool
  PickEntity,  ///< the entity there becomes current, then as Edit
  Frame,       ///< a frame is drawn, and its release selects
  PickBrush    ///< the release picks
};

/// What the Delete key removes.
enum class Deletes { Nothing, CurrentBrush, CurrentEntity };

/// What one motion of the mouse does to the level.
struct ToolStep {
  DragOperation operation;
  Vector amount;
};

struct StepRow;

/// All that a tool is.
struct MouseTool {
  CommandId id;  ///< one of the ID_TOOL_... commands
  Press left;
  Press right;
  std::span<const StepRow> steps;  ///< of Press::Edit; see FindToolStep
  Deletes deletes;
};

/// The tool with this id; the camera for an id that is no tool.
[[nodiscard]] const MouseTool& FindTool(CommandId id);

/// The step of a tool in a kind of view, for the buttons held and the pixels that the mouse moved
/// left and up. None when the tool does nothing with these buttons there.
[[nodiscard]] std::optional<ToolStep> FindToolStep(const MouseTool& tool, ViewKind kind,
                                                   MouseFlags held, std::int32_t left,
                                                   std::int32_t up);

}  // namespace zando
