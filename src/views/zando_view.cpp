#include "views/zando_view.h"

#include <utility>

#include "document/brush_edits.h"
#include "document/command_ids.h"
#include "document/entity_edits.h"
#include "document/view_edits.h"
#include "views/mouse_tools.h"
#include "views/wireframe.h"

namespace zando {
namespace {

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
  if (window_ != nullptr) window_->SetFrameTitle(FrameTitle(Kind()));
}

void CZANDOView::SetWindow(CViewWindow* window) {
  CZANDOView::EndDrag();
  window_ = window;
}

void CZANDOView::SetKind(ViewKind kind) {
  camera_.BeginDraw(kind, Zoom());
  if (window_ != nullptr) window_->RedrawNow();
  SetFrameTitle();
}

void CZANDOView::SetZoom(double zoom) {
  camera_.SetZoom(zoom);
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

bool CZANDOView::ErasesBackground() const { return !ShowsSurfaces(Kind()); }

void CZANDOView::OnDraw(CDC& dc) {
  dc.ResetClip();
  camera_.BuildViewMatrix();
  const ViewDrawing drawing{dc, camera_};
  if (ErasesBackground()) {
    DrawGrid(drawing, document_);
    DrawBrushes(drawing, document_);
  } else {
    const RenderMode mode = Kind() == ViewKind::Solid ? RenderMode::Solid : RenderMode::Textured;
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
  const ViewAxes& axes = IsOrthographic(Kind()) ? AxesOf(Kind()) : kTopAxes;
  Vector about{0.0, 0.0, 0.0};
  about.*axes.depth = kQuarterTurn;
  TurnBrush(document_, ByAxis(about), settings_.ActiveAxisMask);
}

void CZANDOView::OnButtonDown(MouseButton button, MouseFlags flags, ScreenPoint position) {
  if (window_ == nullptr || button == MouseButton::Middle) return;
  // The second button only changes the combination that motion sees.
  if (button == MouseButton::Left ? flags.right : flags.left) return;
  window_->SetCapture();
  // A release that got lost leaves a drag behind, which goes on.
  if (drag_ != nullptr) return;
  camera_.BuildViewMatrix();
  drag_ = BeginDrag({document_, settings_, desktop_, *window_, camera_},
                    FindTool(document_.State().ToolMode), button, position);
}

void CZANDOView::OnMouseMove(MouseFlags flags, ScreenPoint position) {
  if (drag_ != nullptr && window_->HasCapture()) drag_->Update(flags, position);
}

void CZANDOView::OnButtonUp(MouseButton button, MouseFlags flags, ScreenPoint position) {
  if (window_ == nullptr) return;
  if (button == MouseButton::Middle) {
    if (!flags.left && !flags.right) ToggleCamera(document_);
    return;
  }
  if (button == MouseButton::Left ? flags.right : flags.left) return;
  if (const auto drag = LetGo()) drag->End(MouseRelease{button, position});
}

void CZANDOView::EndDrag() {
  if (const auto drag = LetGo()) drag->End(std::nullopt);
}

void CZANDOView::CancelDrag() {
  if (const auto drag = LetGo()) drag->Cancel();
}

std::unique_ptr<CViewDrag> CZANDOView::LetGo() {
  if (window_ != nullptr && window_->HasCapture()) window_->ReleaseCapture();
  return std::exchange(drag_, nullptr);
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
  switch (FindTool(document_.State().ToolMode).deletes) {
    case Deletes::CurrentBrush:
      DeleteCurrentBrush(document_);
      return;
    case Deletes::CurrentEntity:
      DeleteCurrentEntity(document_);
      return;
    case Deletes::Nothing:
      return;
  }
}

}  // namespace zando
