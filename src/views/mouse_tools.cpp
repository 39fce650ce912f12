#include "views/mouse_tools.h"

#include <algorithm>
#include <array>
#include <span>

#include "document/command_ids.h"

namespace zando {
namespace {

/// One component of an amount: so much a pixel to the left, and so much a pixel up.
struct Share {
  double left;
  double up;
};
constexpr Share kNone{0.0, 0.0};
constexpr Share kLeft{1.0, 0.0};
constexpr Share kDown{0.0, -1.0};
constexpr Share kTurnLeft{6.0, 0.0};  ///< rotation units
constexpr Share kTurnUp{0.0, 6.0};

enum Buttons : std::uint8_t { kL = 1, kR = 2, kLR = 4 };
enum Views : std::uint8_t { kPerspective, kTop, kSide, kFront };

struct Row {
  Views view;
  int buttons;  ///< which combinations, of Buttons
  DragOperation operation;
  Share x, y, z;
};

constexpr DragOperation kMove = DragOperation::MoveBrush;
constexpr DragOperation kRotate = DragOperation::RotateBrush;
constexpr DragOperation kScale = DragOperation::ScaleBrush;
constexpr DragOperation kShear = DragOperation::ShearBrush;
constexpr DragOperation kMoveEntity = DragOperation::MoveEntity;

constexpr std::array kMoveRotateRows{
    Row{kPerspective, kL, kMove, kLeft, kNone, kDown},
    Row{kPerspective, kR, kRotate, kTurnLeft, kTurnUp, kNone},
    Row{kPerspective, kLR, kMove, kLeft, kDown, kNone},
    Row{kTop, kL | kLR, kMove, kLeft, kNone, kDown},
    Row{kTop, kR, kRotate, kTurnLeft, kNone, kNone},
    Row{kSide, kL | kLR, kMove, kNone, kDown, kLeft},
    Row{kSide, kR, kRotate, kNone, kTurnLeft, kNone},
    Row{kFront, kL | kLR, kMove, kLeft, kDown, kNone},
    Row{kFront, kR, kRotate, kNone, kNone, kTurnLeft},
};

constexpr std::array kScaleRows{
    Row{kPerspective, kL, kScale, kLeft, kNone, kDown},
    Row{kPerspective, kR, kScale, kLeft, kDown, kNone},
    Row{kPerspective, kLR, kScale, kLeft, kLeft, kLeft},
    Row{kTop, kL, kScale, kLeft, kNone, kDown},
    Row{kTop, kLR, kScale, kLeft, kNone, kLeft},
    Row{kSide, kL, kScale, kNone, kDown, kLeft},
    Row{kSide, kLR, kScale, kNone, kLeft, kLeft},
    Row{kFront, kL, kScale, kLeft, kDown, kNone},
    Row{kFront, kLR, kScale, kLeft, kLeft, kNone},
};

constexpr std::array kShearRows{
    Row{kPerspective, kL, kShear, kLeft, kNone, kDown},
    Row{kPerspective, kR, kShear, kLeft, kDown, kNone},
    Row{kTop, kL, kShear, kDown, kNone, kLeft},
    Row{kSide, kL, kShear, kNone, kNone, kLeft},
    Row{kFront, kL, kShear, kLeft, kNone, kNone},
};

constexpr std::array kEntityRows{
    Row{kPerspective, kL, kMoveEntity, kLeft, kNone, kDown},
    Row{kPerspective, kLR, kMoveEntity, kLeft, kDown, kNone},
    Row{kTop, kL | kLR, kMoveEntity, kLeft, kNone, kDown},
    Row{kSide, kL | kLR, kMoveEntity, kNone, kDown, kLeft},
    Row{kFront, kL | kLR, kMoveEntity, kLeft, kDown, kNone},
};

std::span<const Row> RowsOf(CommandId tool) {
  switch (tool) {
    case ID_TOOL_MOVE_ROTATE_BRUSH:
      return kMoveRotateRows;
    case ID_TOOL_SCALE_BRUSH:
      return kScaleRows;
    case ID_TOOL_SHEAR_BRUSH:
      return kShearRows;
    case ID_TOOL_MOVE_SELECT_ENTITY:
      return kEntityRows;
    default:
      return {};
  }
}

Views ViewOf(ViewKind kind) {
  switch (kind) {
    case ViewKind::Top:
      return kTop;
    case ViewKind::Side:
      return kSide;
    case ViewKind::Front:
      return kFront;
    case ViewKind::Wireframe:
    case ViewKind::Solid:
    case ViewKind::Texture:
      break;
  }
  return kPerspective;
}

int ButtonsOf(MouseFlags held) {
  if (held.left && held.right) return kLR;
  if (held.left) return kL;
  return held.right ? kR : 0;
}

}  // namespace

std::optional<ToolStep> FindToolStep(CommandId tool, ViewKind kind, MouseFlags held,
                                     std::int32_t left, std::int32_t up) {
  const Views view = ViewOf(kind);
  const int buttons = ButtonsOf(held);
  const auto rows = RowsOf(tool);
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const Row& candidate) {
    return candidate.view == view && (candidate.buttons & buttons) != 0;
  });
  if (row == rows.end()) return std::nullopt;
  const auto amount = [&](const Share& share) { return share.left * left + share.up * up; };
  return ToolStep{row->operation, {amount(row->x), amount(row->y), amount(row->z)}};
}

bool IsEditingTool(CommandId tool) { return !RowsOf(tool).empty(); }

}  // namespace zando
