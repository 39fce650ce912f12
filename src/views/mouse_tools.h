#pragma once

#include <cstdint>
#include <optional>

#include "document/tool_drag.h"
#include "platform/command.h"
#include "platform/desktop.h"
#include "views/camera.h"

namespace zando {

/// What one motion of the mouse does to the level.
struct ToolStep {
  DragOperation operation;
  Vector amount;
};

/// The step of a tool, one of the ID_TOOL_... commands, in a kind of view, for the buttons held and
/// the pixels that the mouse moved left and up. None when the tool does nothing with these buttons
/// there; the camera and the tools that select have no steps.
[[nodiscard]] std::optional<ToolStep> FindToolStep(CommandId tool, ViewKind kind, MouseFlags held,
                                                   std::int32_t left, std::int32_t up);

/// Whether a tool changes what is current by dragging.
[[nodiscard]] bool IsEditingTool(CommandId tool);

}  // namespace zando
