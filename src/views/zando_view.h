#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "document/editor_settings.h"
#include "platform/desktop.h"
#include "platform/draw_context.h"
#include "views/camera.h"
#include "views/child_view.h"
#include "views/solid_renderer.h"
#include "views/view_drag.h"

namespace zando {

/// A window's view of a level: one of six kinds, with a camera of its own. The window that shows it
/// calls the On... operations and is called back through CViewWindow; until SetWindow nothing is
/// shown.
class CZANDOView : public CChildView {
 public:
  CZANDOView(CZANDODoc& document, CEditorSettings& settings, CDesktop& desktop);
  CZANDOView(const CZANDOView&) = delete;
  CZANDOView& operator=(const CZANDOView&) = delete;
  ~CZANDOView() override;

  [[nodiscard]] CCamera& Camera() { return camera_; }
  [[nodiscard]] ViewKind Kind() const { return camera_.Kind(); }
  [[nodiscard]] double Zoom() const { return camera_.Zoom(); }
  [[nodiscard]] std::uint32_t AxisFlags() const { return axisFlags_; }

  /// Shows another kind: redraws at once and sets the frame's title.
  void SetKind(ViewKind kind);

  /// Pixels per world unit in the orthographic kinds; raised to 0.001 when lower. Redraws.
  void SetZoom(double zoom);

  /// The window must outlive the view, or be taken back with null. A drag in the window before
  /// ends.
  void SetWindow(CViewWindow* window);

  /// "-Top View-" and so on.
  [[nodiscard]] static std::string_view FrameTitle(ViewKind kind);

  void OnUpdate(const CView* sender, int hint) override;

  /// Sets the frame's title.
  void OnInitialUpdate() override;

  /// The first call takes the level's palette for good and restarts the flat colours.
  void OnSize(std::int32_t width, std::int32_t height);

  /// Whether the window is to be erased to black before OnDraw paints; the solid and texture kinds
  /// paint every pixel themselves.
  [[nodiscard]] bool ErasesBackground() const;
  void OnDraw(CDC& dc);

  /// Becoming active makes its axis flags the active ones. Either way the frame's title is set and
  /// the group list filled anew.
  void OnActivate(Activation activation) override;

  /// Turns what the brush tools act on by 90 degrees about the axis that the view looks along.
  void Rotate90();

  /// Allows changes along an axis, one of kAxisX and the others, or no longer.
  void ToggleAxis(std::uint32_t axis);

  using MouseButton = zando::MouseButton;
  /// Positions are in client pixels; flags are the buttons held after the event.
  void OnButtonDown(MouseButton button, MouseFlags flags, ScreenPoint position);
  void OnButtonUp(MouseButton button, MouseFlags flags, ScreenPoint position);
  void OnMouseMove(MouseFlags flags, ScreenPoint position);

  enum class Key { Space, Delete, KeypadPlus, KeypadMinus };
  /// `held` are the mouse buttons that are down.
  void OnKeyDown(Key key, MouseFlags held);

  /// The window lost the mouse or the focus, or a command comes, in the middle of a drag: what was
  /// dragged is committed as by a release, the mouse is let go and the cursor shown.
  void EndDrag() override;

  /// Gives a drag up: what it changed is as before it, the mouse is let go and the cursor shown.
  void CancelDrag();

 private:
  [[nodiscard]] std::unique_ptr<CViewDrag> LetGo();
  void DeleteCurrent();
  void SetFrameTitle();

  CEditorSettings& settings_;
  CDesktop& desktop_;
  CViewWindow* window_ = nullptr;
  CCamera camera_;
  CSolidRenderer renderer_;
  std::optional<ColorTable> colors_;  ///< the palette as the first sizing found it
  std::uint32_t axisFlags_ = kAxisX | kAxisY | kAxisZ;
  ScreenPoint client_;  ///< width and height of the window
  std::unique_ptr<CViewDrag> drag_;
};

}  // namespace zando
