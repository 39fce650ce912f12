#include "views/mouse_tools.h"

#include <algorithm>
#include <array>

#include "document/command_ids.h"

namespace zando {

/// One component of an amount: so much a pixel to the left, and so much a pixel up.
struct Share {
  double left;
  double up;
};

/// What motion does in some views while some buttons are held, along (or about) the axes of the
/// view; those of a perspective view are the world's x, y and z.
struct StepRow {
  std::uint32_t views;    ///< of Views
  std::uint32_t buttons;  ///< of Buttons
  DragOperation operation;
  Share across;
  Share up;
  Share depth;
};

namespace {

constexpr Share kNone{0.0, 0.0};
constexpr Share kLeft{1.0, 0.0};
constexpr Share kDown{0.0, -1.0};
constexpr Share kTurnLeft{6.0, 0.0};  ///< rotation units
constexpr Share kTurnUp{0.0, 6.0};

enum Buttons : std::uint32_t { kL = 1, kR = 2, kLR = 4 };
enum Views : std::uint32_t { kPerspective = 1, kTop = 2, kSide = 4, kFront = 8 };
constexpr std::uint32_t kFlat = kTop | kSide | kFront;

constexpr DragOperation kMove = DragOperation::MoveBrush;
constexpr DragOperation kRotate = DragOperation::RotateBrush;
constexpr DragOperation kScale = DragOperation::ScaleBrush;
constexpr DragOperation kShear = DragOperation::ShearBrush;
constexpr DragOperation kMoveEntity = DragOperation::MoveEntity;

constexpr std::array kMoveRotateSteps{
    StepRow{kPerspective, kL, kMove, kLeft, kNone, kDown},
    StepRow{kPerspective, kR, kRotate, kTurnUp, kTurnLeft, kNone},
    StepRow{kPerspective, kLR, kMove, kLeft, kDown, kNone},
    StepRow{kFlat, kL | kLR, kMove, kLeft, kDown, kNone},
    StepRow{kFlat, kR, kRotate, kNone, kNone, kTurnLeft},
};

constexpr std::array kScaleSteps{
    StepRow{kPerspective, kL, kScale, kLeft, kNone, kDown},
    StepRow{kPerspective, kR, kScale, kLeft, kDown, kNone},
    StepRow{kPerspective, kLR, kScale, kLeft, kLeft, kLeft},
    StepRow{kFlat, kL, kScale, kLeft, kDown, kNone},
    StepRow{kFlat, kLR, kScale, kLeft, kLeft, kNone},
};

constexpr std::array kShearSteps{
    StepRow{kPerspective, kL, kShear, kLeft, kNone, kDown},
    StepRow{kPerspective, kR, kShear, kLeft, kDown, kNone},
    StepRow{kTop, kL, kShear, kDown, kLeft, kNone},
    StepRow{kSide | kFront, kL, kShear, kLeft, kNone, kNone},
};

constexpr std::array kEntitySteps{
    StepRow{kPerspective, kL, kMoveEntity, kLeft, kNone, kDown},
    StepRow{kPerspective, kLR, kMoveEntity, kLeft, kDown, kNone},
    StepRow{kFlat, kL | kLR, kMoveEntity, kLeft, kDown, kNone},
};

constexpr std::array kTools{
    MouseTool{ID_TOOL_CAMERA, Press::Camera, Press::Camera, {}, Deletes::Nothing},
    MouseTool{ID_TOOL_MOVE_ROTATE_BRUSH, Press::Edit, Press::Edit, kMoveRotateSteps,
              Deletes::CurrentBrush},
    MouseTool{ID_TOOL_SCALE_BRUSH, Press::Edit, Press::Edit, kScaleSteps, Deletes::CurrentBrush},
    MouseTool{ID_TOOL_SHEAR_BRUSH, Press::Edit, Press::Edit, kShearSteps, Deletes::CurrentBrush},
    MouseTool{ID_TOOL_MOVE_SELECT_ENTITY, Press::Edit, Press::PickEntity, kEntitySteps,
              Deletes::CurrentEntity},
    MouseTool{ID_TOOL_SELECT_GROUP, Press::Frame, Press::Frame, {}, Deletes::Nothing},
    MouseTool{ID_TOOL_SELECT_BRUSH, Press::PickBrush, Press::Edit, {}, Deletes::Nothing},
};

Views ViewOf(ViewKind kind) {
  if (kind == ViewKind::Top) return kTop;
  if (kind == ViewKind::Side) return kSide;
  return kind == ViewKind::Front ? kFront : kPerspective;
}

std::uint32_t ButtonsOf(MouseFlags held) {
  if (held.left && held.right) return kLR;
  if (held.left) return kL;
  if (held.right) return kR;
  return 0;
}

}  // namespace

const MouseTool& FindTool(CommandId id) {
  const auto* const found = std::ranges::find(kTools, id, &MouseTool::id);
  return found != kTools.end() ? *found : kTools.front();
}

std::optional<ToolStep> FindToolStep(const MouseTool& tool, ViewKind kind, MouseFlags held,
                                     std::int32_t left, std::int32_t up) {
  const auto row = std::ranges::find_if(
      tool.steps, [view = ViewOf(kind), buttons = ButtonsOf(held)](const StepRow& candidate) {
        return (candidate.views & view) != 0 && (candidate.buttons & buttons) != 0;
      });
  if (row == tool.steps.end()) return std::nullopt;
  const auto amount = [&](const Share& share) { return share.left * left + share.up * up; };
  const ViewAxes& axes = AxesOf(kind);
  ToolStep step{row->operation, {}};
  step.amount.*axes.across = amount(row->across);
  step.amount.*axes.up = amount(row->up);
  step.amount.*axes.depth = amount(row->depth);
  if (step.operation == DragOperation::RotateBrush) step.amount = ByAxis(step.amount);
  return step;
}

}  // namespace zando
