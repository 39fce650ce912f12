#include "views/zando_view.h"

#include <algorithm>
#include <utility>

#include "document/brush_edits.h"
#include "document/command_ids.h"
#include "document/entity_edits.h"
#include "document/view_edits.h"
#include "views/mouse_tools.h"
#include "views/wireframe.h"

namespace zando {
namespace {

constexpr double kLeastZoom = 0.001;
constexpr double kZoomPerPixel = 0.001;
constexpr double kTurnPerPixel = 6.0;

constexpr std::uint32_t kColorSeed = 1;

}  // namespace

CZANDOView::CZANDOView(CZANDODoc& document, CEditorSettings& settings, CDesktop& desktop)
    : CChildView(document), settings_(settings), desktop_(desktop) {}

CZANDOView::~CZANDOView() { CZANDOView::EndDrag(); }

std::string_view CZANDOView::FrameTitle(ViewKind kind) {
  switch (kind) {
    case ViewKind::Wireframe:
      return "-3D Wireframe-";
    case ViewKind::Solid:
      return "-Solid Gons-";
    case ViewKind::Top:
      return "-Top View-";
    case ViewKind::Side:
      return "-Side View-";
    case ViewKind::Front:
      return "-Front View-";
    case ViewKind::Texture:
      break;
  }
  return "-Texture View-";
}

void CZANDOView::SetFrameTitle() {
  if (window_ != nullptr) window_->SetFrameTitle(FrameTitle(kind_));
}

void CZANDOView::SetKind(ViewKind kind) {
  kind_ = kind;
  camera_.BeginDraw(kind_, zoom_);
  if (window_ != nullptr) window_->RedrawNow();
  SetFrameTitle();
}

void CZANDOView::SetZoom(double zoom) {
  zoom_ = std::max(zoom, kLeastZoom);
  camera_.BeginDraw(kind_, zoom_);
  if (window_ != nullptr) window_->Invalidate();
}

void CZANDOView::OnUpdate(const CView* /*sender*/, int /*hint*/) {
  if (window_ != nullptr) window_->Invalidate();
}

void CZANDOView::OnInitialUpdate() { SetFrameTitle(); }

void CZANDOView::OnSize(std::int32_t width, std::int32_t height) {
  client_ = {width, height};
  camera_.SetViewport(0, 0, width, height);
  if (!colors_) {
    colors_ = document_.Textures().GetPalette().colors;
    SeedColorTags(kColorSeed);
  }
  renderer_.SetViewport(camera_.Width(), camera_.Height(), *colors_);
}

bool CZANDOView::ErasesBackground() const { return !ShowsSurfaces(kind_); }

void CZANDOView::OnDraw(CDC& dc) {
  dc.ResetClip();
  camera_.BuildViewMatrix();
  camera_.BeginDraw(kind_, zoom_);
  const ViewDrawing drawing{dc, camera_, kind_, zoom_, client_};
  if (ErasesBackground()) {
    DrawGrid(drawing, document_);
    DrawBrushes(drawing, document_);
  } else {
    const RenderMode mode = kind_ == ViewKind::Solid ? RenderMode::Solid : RenderMode::Textured;
    renderer_.Render(camera_, document_.GetLevel().World, mode);
    // Without memory for its surface the view stays empty.
    if (!renderer_.Present(dc)) dc.FillSolidRect(0, 0, client_.x, client_.y, Rgb(0, 0, 0));
  }
  if (document_.State().ShowEntities != 0) DrawEntities(drawing, document_);
  if (document_.State().ShowBrush != 0) DrawCurrentBrush(drawing, document_);
}

void CZANDOView::OnActivate(Activation activation) {
  if (activation == Activation::Activated) settings_.ActiveAxisMask = axisFlags_;
  SetFrameTitle();
  if (document_.Frame() != nullptr) document_.Frame()->RefreshGroups();
}

void CZANDOView::ToggleAxis(std::uint32_t axis) {
  axisFlags_ ^= axis;
  settings_.ActiveAxisMask = axisFlags_;
}

void CZANDOView::Rotate90() {
  constexpr double kQuarterTurn = 2048.0;
  Vector angles{kQuarterTurn, 0.0, 0.0};
  if (kind_ == ViewKind::Side) angles = {0.0, kQuarterTurn, 0.0};
  if (kind_ == ViewKind::Front) angles = {0.0, 0.0, kQuarterTurn};
  TurnBrush(document_, angles, settings_.ActiveAxisMask);
}

void CZANDOView::OnButtonDown(MouseButton button, MouseFlags flags, ScreenPoint position) {
  if (window_ == nullptr || button == MouseButton::Middle) return;
  // The second button only changes the combination that motion sees.
  if (button == MouseButton::Left ? flags.right : flags.left) return;
  window_->SetCapture();
  // A release that got lost leaves a drag behind, which goes on.
  if (drag_ != Drag::None) return;
  dragTool_ = document_.State().ToolMode;
  if (dragTool_ == ID_TOOL_SELECT_GROUP) {
    drag_ = Drag::Box;
    anchor_ = position;
    window_->DrawDragRect(NormalizedRect(anchor_, anchor_));
    return;
  }
  if (dragTool_ == ID_TOOL_SELECT_BRUSH && button == MouseButton::Left) {
    drag_ = Drag::Click;
    return;
  }
  BeginMotion();
  if (dragTool_ == ID_TOOL_MOVE_SELECT_ENTITY && button == MouseButton::Right) {
    if (IsOrthographic(kind_)) {
      PickEntity(document_, camera_.ScreenToWorld(position), AxesOf(kind_));
    }
  }
}

void CZANDOView::BeginMotion() {
  drag_ = Drag::Motion;
  anchor_ = desktop_.GetCursorPos();
  desktop_.ShowCursor(false);
}

void CZANDOView::OnMouseMove(MouseFlags flags, ScreenPoint position) {
  if (window_ == nullptr || !window_->HasCapture()) return;
  if (drag_ == Drag::Box) window_->DrawDragRect(NormalizedRect(anchor_, position));
  if (drag_ == Drag::Motion) FollowMotion(flags);
}

void CZANDOView::FollowMotion(MouseFlags flags) {
  const ScreenPoint cursor = desktop_.GetCursorPos();
  const std::int32_t left = anchor_.x - cursor.x;
  const std::int32_t up = anchor_.y - cursor.y;
  if (left != 0 || up != 0) ApplyStep(flags, left, up);
  desktop_.SetCursorPos(anchor_);
  // A cursor that stays where the hand put it has the next step count from there. Only the attempt
  // may have shown that it does.
  if (!desktop_.CanPlaceCursor()) anchor_ = cursor;
}

void CZANDOView::ApplyStep(MouseFlags flags, std::int32_t left, std::int32_t up) {
  if (dragTool_ == ID_TOOL_CAMERA) {
    DragCamera(flags, left, up);
    window_->RedrawNow();
    return;
  }
  if (!IsEditingTool(dragTool_)) return;
  if (const auto step = FindToolStep(dragTool_, kind_, flags, left, up)) {
    // Another button turned a move into a rotation or back: what was begun must not be left
    // pending.
    if (toolDrag_ && toolDrag_->Operation() != step->operation) EndToolDrag();
    if (!toolDrag_) toolDrag_.emplace(document_, step->operation);
    toolDrag_->Step(step->amount, settings_.ActiveAxisMask);
  }
  window_->RedrawNow();
}

void CZANDOView::OnButtonUp(MouseButton button, MouseFlags flags, ScreenPoint position) {
  if (window_ == nullptr) return;
  if (button == MouseButton::Middle) {
    if (!flags.left && !flags.right) ToggleCamera(document_);
    return;
  }
  if (button == MouseButton::Left ? flags.right : flags.left) return;
  if (window_->HasCapture()) window_->ReleaseCapture();
  FinishDrag(button, position);
}

void CZANDOView::FinishDrag(MouseButton button, ScreenPoint position) {
  const bool isLeft = button == MouseButton::Left;
  switch (std::exchange(drag_, Drag::None)) {
    case Drag::None:
      return;
    case Drag::Box:
      SelectInBox(position, isLeft ? Selection::Select : Selection::Deselect);
      return;
    case Drag::Click:
      if (isLeft && IsOrthographic(kind_)) {
        PickBrush(document_, camera_.ScreenToWorld(position), AxesOf(kind_));
      }
      break;
    case Drag::Motion:
      EndToolDrag();
      desktop_.SetCursorPos(anchor_);
      desktop_.ShowCursor(true);
      break;
  }
  document_.UpdateAllViews(nullptr);
}

Commit CZANDOView::CommitNow() const {
  return desktop_.IsShiftDown() ? Commit::DominantAxis : Commit::AllAxes;
}

void CZANDOView::EndToolDrag() {
  if (!toolDrag_) return;
  toolDrag_->End(settings_.ActiveAxisMask, CommitNow());
  toolDrag_.reset();
}

void CZANDOView::SelectInBox(ScreenPoint corner, Selection selection) {
  window_->EraseDragRect();
  const ScreenRect box = NormalizedRect(anchor_, corner);
  // Up is up in the world, and down on the screen.
  if (!IsOrthographic(kind_)) return;
  const ViewRect rect{camera_.ScreenToWorld({box.left, box.bottom}),
                      camera_.ScreenToWorld({box.right, box.top}), AxesOf(kind_)};
  BoxSelect(document_, rect, selection);
}

void CZANDOView::EndDrag() {
  if (window_ != nullptr && window_->HasCapture()) window_->ReleaseCapture();
  if (drag_ == Drag::Motion) {
    FinishDrag(MouseButton::Left, {});
    return;
  }
  if (drag_ == Drag::Box && window_ != nullptr) window_->EraseDragRect();
  drag_ = Drag::None;
}

void CZANDOView::OnKeyDown(Key key, MouseFlags held) {
  switch (key) {
    case Key::Space:
      if (!held.left && !held.right) ToggleCamera(document_);
      return;
    case Key::Delete:
      DeleteCurrent();
      return;
    case Key::KeypadPlus:
      StepGrid(document_, GridStep::Up);
      return;
    case Key::KeypadMinus:
      StepGrid(document_, GridStep::Down);
      return;
  }
}

void CZANDOView::DeleteCurrent() {
  // What moves along with it must not be left half way.
  EndDrag();
  switch (document_.State().ToolMode) {
    case ID_TOOL_MOVE_ROTATE_BRUSH:
    case ID_TOOL_SCALE_BRUSH:
    case ID_TOOL_SHEAR_BRUSH:
      DeleteCurrentBrush(document_);
      return;
    case ID_TOOL_MOVE_SELECT_ENTITY:
      DeleteCurrentEntity(document_);
      return;
    default:
      return;
  }
}

void CZANDOView::DragCamera(MouseFlags flags, std::int32_t dx, std::int32_t dy) {
  if (!IsOrthographic(kind_)) {
    if (flags.left && flags.right) {
      camera_.Fly(dx, dy, 0.0);
    } else if (flags.left) {
      camera_.Turn(kTurnPerPixel * dx, 0.0, 0.0);
      camera_.Fly(0.0, 0.0, dy);
    } else if (flags.right) {
      camera_.Turn(kTurnPerPixel * dx, kTurnPerPixel * dy, 0.0);
    }
    return;
  }
  if (!flags.left) {
    if (flags.right) SetZoom(zoom_ + kZoomPerPixel * dy);
    return;
  }
  switch (kind_) {
    case ViewKind::Top:
      camera_.Pan(-dx, 0.0, dy);
      break;
    case ViewKind::Side:
      camera_.Pan(0.0, dy, -dx);
      break;
    default:
      camera_.Pan(-dx, dy, 0.0);
      break;
  }
}

}  // namespace zando
