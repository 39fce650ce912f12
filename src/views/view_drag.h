#pragma once

#include <memory>
#include <optional>

#include "document/editor_settings.h"
#include "document/zando_doc.h"
#include "platform/desktop.h"
#include "views/camera.h"
#include "views/mouse_tools.h"

namespace zando {

/// The view in which a drag happens, and its surroundings. They outlive the drag.
struct DragScene {
  CZANDODoc& document;
  const CEditorSettings& settings;
  CDesktop& desktop;
  CViewWindow& window;
  CCamera& camera;
};

/// The button that was released last, and where.
struct MouseRelease {
  MouseButton button;
  ScreenPoint position;
};

/// What the mouse does from the press of a button until the last one is released. It keeps the tool
/// that it began with. Either End or Cancel is called, once.
class CViewDrag {
 public:
  CViewDrag() = default;
  CViewDrag(const CViewDrag&) = delete;
  CViewDrag& operator=(const CViewDrag&) = delete;
  virtual ~CViewDrag() = default;

  /// The mouse moved; `held` are the buttons that are down now.
  virtual void Update(MouseFlags held, ScreenPoint position) = 0;

  /// The drag is over. Without a release it was cut short: what was dragged is committed all the
  /// same, and what only the release would have chosen is not.
  virtual void End(const std::optional<MouseRelease>& release) = 0;

  /// The drag is given up. What it changed is as before; of a drag that first moved and then
  /// turned, or the other way round, the part that is under way.
  virtual void Cancel() = 0;
};

/// The drag that a press begins. Left or right; the camera of the scene has its view matrix built.
[[nodiscard]] std::unique_ptr<CViewDrag> BeginDrag(const DragScene& scene, const MouseTool& tool,
                                                   MouseButton button, ScreenPoint position);

}  // namespace zando
