#include "views/view_drag.h"

#include <cstdint>

#include "document/tool_drag.h"
#include "views/picking.h"

namespace zando {
namespace {

constexpr double kZoomPerPixel = 0.001;
constexpr double kTurnPerPixel = 6.0;

/// The pointer is hidden and kept in its place while the mouse moves on. It comes back with the end
/// of this object's life.
class CHiddenCursor {
 public:
  explicit CHiddenCursor(CDesktop& desktop) : desktop_(desktop), anchor_(desktop.GetCursorPos()) {
    desktop_.ShowCursor(false);
  }
  CHiddenCursor(const CHiddenCursor&) = delete;
  CHiddenCursor& operator=(const CHiddenCursor&) = delete;
  ~CHiddenCursor() {
    desktop_.SetCursorPos(anchor_);
    desktop_.ShowCursor(true);
  }

  /// Pixels since the last call.
  struct Motion {
    std::int32_t left;
    std::int32_t up;
  };
  [[nodiscard]] std::optional<Motion> TakeMotion() {
    const ScreenPoint cursor = desktop_.GetCursorPos();
    const Motion motion{anchor_.x - cursor.x, anchor_.y - cursor.y};
    desktop_.SetCursorPos(anchor_);
    // A cursor that stays where the hand put it has the next motion count from there. Only the
    // attempt may have shown that it does.
    if (!desktop_.CanPlaceCursor()) anchor_ = cursor;
    if (motion.left == 0 && motion.up == 0) return std::nullopt;
    return motion;
  }

 private:
  CDesktop& desktop_;
  ScreenPoint anchor_;
};

class CCameraDrag : public CViewDrag {
 public:
  explicit CCameraDrag(const DragScene& scene)
      : scene_(scene), cursor_(scene.desktop), before_(scene.camera) {}

  void Update(MouseFlags held, ScreenPoint /*position*/) override {
    const auto motion = cursor_.TakeMotion();
    if (!motion) return;
    if (IsOrthographic(scene_.camera.Kind())) {
      PanOrZoom(held, motion->left, motion->up);
    } else {
      FlyOrTurn(held, motion->left, motion->up);
    }
    scene_.window.RedrawNow();
  }

  void End(const std::optional<MouseRelease>& /*release*/) override {}

  void Cancel() override {
    CCamera& camera = scene_.camera;
    camera.Position = before_.Position;
    camera.Yaw = before_.Yaw;
    camera.Pitch = before_.Pitch;
    camera.Roll = before_.Roll;
    camera.SetZoom(before_.Zoom());
    scene_.window.Invalidate();
  }

 private:
  void PanOrZoom(MouseFlags held, double left, double up) {
    CCamera& camera = scene_.camera;
    if (held.left) {
      const ViewAxes& axes = AxesOf(camera.Kind());
      Vector by{0.0, 0.0, 0.0};
      by.*axes.across = -left;
      by.*axes.up = up;
      camera.Pan(by.x, by.y, by.z);
    } else if (held.right) {
      camera.SetZoom(camera.Zoom() + kZoomPerPixel * up);
    }
  }

  void FlyOrTurn(MouseFlags held, double left, double up) {
    CCamera& camera = scene_.camera;
    if (held.left && held.right) {
      camera.Fly(left, up, 0.0);
    } else if (held.left) {
      camera.Turn(kTurnPerPixel * left, 0.0, 0.0);
      camera.Fly(0.0, 0.0, up);
    } else if (held.right) {
      camera.Turn(kTurnPerPixel * left, kTurnPerPixel * up, 0.0);
    }
  }

  DragScene scene_;
  CHiddenCursor cursor_;
  CCamera before_;
};

class CEditDrag : public CViewDrag {
 public:
  CEditDrag(const DragScene& scene, const MouseTool& tool)
      : scene_(scene), tool_(tool), cursor_(scene.desktop) {}

  void Update(MouseFlags held, ScreenPoint /*position*/) override {
    const auto motion = cursor_.TakeMotion();
    if (!motion || tool_.steps.empty()) return;
    if (const auto step =
            FindToolStep(tool_, scene_.camera.Kind(), held, motion->left, motion->up)) {
      Apply(*step);
    }
    scene_.window.RedrawNow();
  }

  void End(const std::optional<MouseRelease>& /*release*/) override { CommitSteps(); }

  void Cancel() override {
    if (drag_) drag_->Cancel();
  }

 private:
  void Apply(const ToolStep& step) {
    // Another button turned a move into a rotation or back: what was begun must not be left
    // pending.
    if (drag_ && drag_->Operation() != step.operation) CommitSteps();
    if (!drag_) drag_.emplace(scene_.document, step.operation);
    drag_->Step(step.amount, scene_.settings.ActiveAxisMask);
  }

  void CommitSteps() {
    if (!drag_) return;
    const bool shift = scene_.desktop.IsShiftDown();
    drag_->End(scene_.settings.ActiveAxisMask, shift ? Commit::DominantAxis : Commit::AllAxes);
    drag_.reset();
  }

  DragScene scene_;
  const MouseTool& tool_;
  CHiddenCursor cursor_;
  std::optional<CToolDrag> drag_;  ///< from its first step on
};

class CFrameDrag : public CViewDrag {
 public:
  CFrameDrag(const DragScene& scene, ScreenPoint position) : scene_(scene), anchor_(position) {
    CFrameDrag::Update({}, position);
  }

  void Update(MouseFlags /*held*/, ScreenPoint position) override {
    scene_.window.DrawDragRect(NormalizedRect(anchor_, position));
  }

  void End(const std::optional<MouseRelease>& release) override {
    scene_.window.EraseDragRect();
    if (!release || release->position == anchor_) return;
    const bool select = release->button == MouseButton::Left;
    SelectInFrame(scene_.document, scene_.camera, NormalizedRect(anchor_, release->position),
                  select ? Selection::Select : Selection::Deselect);
  }

  void Cancel() override { scene_.window.EraseDragRect(); }

 private:
  DragScene scene_;
  ScreenPoint anchor_;  ///< a corner of the frame
};

class CBrushClick : public CViewDrag {
 public:
  explicit CBrushClick(const DragScene& scene) : scene_(scene) {}

  void Update(MouseFlags /*held*/, ScreenPoint /*position*/) override {}

  void End(const std::optional<MouseRelease>& release) override {
    if (!release || release->button != MouseButton::Left) return;
    PickBrushAt(scene_.document, scene_.camera, release->position);
  }

  void Cancel() override {}

 private:
  DragScene scene_;
};

}  // namespace

std::unique_ptr<CViewDrag> BeginDrag(const DragScene& scene, const MouseTool& tool,
                                     MouseButton button, ScreenPoint position) {
  switch (button == MouseButton::Left ? tool.left : tool.right) {
    case Press::Camera:
      return std::make_unique<CCameraDrag>(scene);
    case Press::Frame:
      return std::make_unique<CFrameDrag>(scene, position);
    case Press::PickBrush:
      return std::make_unique<CBrushClick>(scene);
    case Press::PickEntity:
      PickEntityAt(scene.document, scene.camera, position);
      break;
    case Press::Edit:
      break;
  }
  return std::make_unique<CEditDrag>(scene, tool);
}

}  // namespace zando
