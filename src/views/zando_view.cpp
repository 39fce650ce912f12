#include "views/zando_view.h"

#include <algorithm>

#include "document/command_ids.h"
#include "views/wireframe.h"

namespace zando {
namespace {

constexpr double kLeastZoom = 0.001;
constexpr double kZoomPerPixel = 0.001;
constexpr double kTurnPerPixel = 6.0;

constexpr std::uint32_t kColorSeed = 1;

bool IsViewKind(CommandId id) {
  return id >= static_cast<CommandId>(ViewKind::Wireframe) &&
         id <= static_cast<CommandId>(ViewKind::Texture);
}

/// The axis flag that a command toggles, or 0.
std::uint32_t AxisOf(CommandId id) {
  switch (id) {
    case ID_AXIS_X:
      return kAxisX;
    case ID_AXIS_Y:
      return kAxisY;
    case ID_AXIS_Z:
      return kAxisZ;
    default:
      return 0;
  }
}

}  // namespace

CZANDOView::CZANDOView(CZANDODoc& document, CEditorSettings& settings, CDesktop& desktop)
    : CChildView(document), settings_(settings), desktop_(desktop) {}

CZANDOView::~CZANDOView() { CZANDOView::OnCaptureLost(); }

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
}

void CZANDOView::OnUpdate(const CView* /*sender*/, int /*hint*/) {
  if (window_ != nullptr) window_->Invalidate();
}

void CZANDOView::OnInitialUpdate() { SetFrameTitle(); }

void CZANDOView::OnSize(std::int32_t width, std::int32_t height) {
  client_ = {width, height};
  camera_.SetViewport(0, 0, width, height);
  if (!colors_) {
    colors_ = document_.Textures.GetPalette().colors;
    SeedColorTags(kColorSeed);
  }
  renderer_.SetViewport(camera_.Width(), camera_.Height(), *colors_);
}

bool CZANDOView::ErasesBackground() const {
  return kind_ != ViewKind::Solid && kind_ != ViewKind::Texture;
}

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
    renderer_.Render(camera_, document_.World, mode);
    renderer_.Present(dc);
  }
  if (document_.ShowEntities != 0) DrawEntities(drawing, document_);
  if (document_.ShowBrush != 0) DrawCurrentBrush(drawing, document_);
}

void CZANDOView::OnActivate(Activation activation) {
  if (activation == Activation::Activated) settings_.ActiveAxisMask = axisFlags_;
  SetFrameTitle();
  if (document_.Frame != nullptr) document_.Frame->RefreshGroups();
}

void CZANDOView::ToggleAxis(std::uint32_t axis) {
  axisFlags_ ^= axis;
  settings_.ActiveAxisMask = axisFlags_;
}

bool CZANDOView::OnCommand(CommandId id) {
  if (IsViewKind(id)) {
    SetKind(static_cast<ViewKind>(id));
    return true;
  }
  const std::uint32_t axis = AxisOf(id);
  if (axis == 0) return false;
  ToggleAxis(axis);
  return true;
}

bool CZANDOView::OnUpdateCommandUI(CommandId id, CCmdUI& ui) {
  if (IsViewKind(id)) {
    ui.SetCheck(id == static_cast<CommandId>(kind_));
    return true;
  }
  if (const std::uint32_t axis = AxisOf(id); axis != 0) {
    ui.SetCheck((axisFlags_ & axis) != 0);
    return true;
  }
  switch (id) {
    case ID_ADD_TO_GROUP:
    case ID_CREATE_GROUP:
    case ID_REMOVE_FROM_GROUP:
      ui.Enable(document_.AnySelected());
      return true;
    default:
      return false;
  }
}

void CZANDOView::OnButtonDown(MouseButton button, MouseFlags flags, ScreenPoint /*position*/) {
  if (window_ == nullptr || button == MouseButton::Middle) return;
  // The second button only changes the combination that motion sees.
  if (button == MouseButton::Left ? flags.right : flags.left) return;
  window_->SetCapture();
  // A release that got lost leaves a drag behind; the cursor is hidden only once.
  if (document_.ToolMode != ID_TOOL_CAMERA || dragging_) return;
  anchor_ = desktop_.GetCursorPos();
  desktop_.ShowCursor(false);
  dragging_ = true;
}

void CZANDOView::OnButtonUp(MouseButton button, MouseFlags flags, ScreenPoint position) {
  if (window_ == nullptr || button == MouseButton::Middle) return;
  if (button == MouseButton::Left ? flags.right : flags.left) return;
  if (window_->HasCapture()) window_->ReleaseCapture();
  if (document_.ToolMode == ID_TOOL_SELECT_BRUSH && button == MouseButton::Left && !dragging_) {
    document_.PickBrush(camera_.ScreenToWorld(position));
    document_.UpdateAllViews(nullptr);
    return;
  }
  EndDrag();
  document_.UpdateAllViews(nullptr);
}

void CZANDOView::EndDrag() {
  if (!dragging_) return;
  dragging_ = false;
  desktop_.SetCursorPos(anchor_);
  desktop_.ShowCursor(true);
}

void CZANDOView::OnCaptureLost() {
  if (window_ != nullptr && window_->HasCapture()) window_->ReleaseCapture();
  EndDrag();
}

void CZANDOView::OnMouseMove(MouseFlags flags, ScreenPoint /*position*/) {
  if (window_ == nullptr || !dragging_ || !window_->HasCapture()) return;
  const ScreenPoint cursor = desktop_.GetCursorPos();
  const std::int32_t dx = anchor_.x - cursor.x;
  const std::int32_t dy = anchor_.y - cursor.y;
  if (dx != 0 || dy != 0) {
    DragCamera(flags, dx, dy);
    window_->RedrawNow();
  }
  if (desktop_.CanPlaceCursor()) {
    desktop_.SetCursorPos(anchor_);
  } else {
    // The cursor stays where the hand put it, so the next step counts from there.
    anchor_ = cursor;
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
