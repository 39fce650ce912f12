#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "document/brush_edits.h"
#include "support/edit_level.h"
#include "support/random_level.h"
#include "support/scripted_desktop.h"
#include "views/zando_view.h"

namespace zando::testing {

constexpr std::uint32_t kAllAxes = kAxisX | kAxisY | kAxisZ;
constexpr Vector kZero{0, 0, 0};

constexpr CommandId kCamera = ID_TOOL_CAMERA, kMove = ID_TOOL_MOVE_ROTATE_BRUSH,
                    kScale = ID_TOOL_SCALE_BRUSH, kShear = ID_TOOL_SHEAR_BRUSH,
                    kEntity = ID_TOOL_MOVE_SELECT_ENTITY, kBox = ID_TOOL_SELECT_GROUP;
constexpr ViewKind kTop = ViewKind::Top, kSide = ViewKind::Side, kFront = ViewKind::Front,
                   kSolid = ViewKind::Solid;

/// A level, and a view of it that looks from the origin, with the mouse before it.
class ViewTest : public ::testing::Test {
 protected:
  using Button = CZANDOView::MouseButton;

  ViewTest() {
    view.SetWindow(&window);
    view.OnSize(400, 300);
    view.Camera().Position = kZero;
    view.SetZoom(1);
    Use(kMove, kTop);
  }

  void Use(CommandId tool, ViewKind kind, std::uint32_t axes = kAllAxes) {
    state.ToolMode = tool;
    view.SetKind(kind);
    settings.ActiveAxisMask = axes;
  }

  /// Plays the mouse: "L" and "R" press a button, "l" and "r" release it, "3,-2" moves right and
  /// up, "lost" takes the mouse away, "shift" holds that key; "grid=8" and "step=6" set what is
  /// snapped to. Once all buttons are released nothing may be left of a drag.
  void Play(const std::string& script) {
    std::istringstream words(script);
    for (std::string word; words >> word;) {
      const bool isLeft = word == "L" || word == "l";
      const Button button = isLeft ? Button::Left : Button::Right;
      bool& isHeld = isLeft ? held.left : held.right;
      if (word == "L" || word == "R") {
        isHeld = true;
        view.OnButtonDown(button, held, mouse);
      } else if (word == "l" || word == "r") {
        isHeld = false;
        view.OnButtonUp(button, held, mouse);
        if (!held.left && !held.right) ExpectAtRest();
      } else if (word == "lost") {
        view.EndDrag();
        ExpectAtRest();
      } else if (word == "shift") {
        desktop.ShiftDown = true;
      } else if (const bool grid = word.starts_with("grid="); grid || word.starts_with("step=")) {
        (grid ? state.UseGrid : state.UseRotationSnap) = 1;
        (grid ? state.GridSize : state.RotationSnap) = std::stod(word.substr(5));
      } else {
        desktop.Cursor.x += std::stoi(word);
        desktop.Cursor.y += std::stoi(word.substr(word.find(',') + 1));
        view.OnMouseMove(held, mouse);
      }
    }
  }
  void ExpectAtRest() {
    EXPECT_FALSE(window.Captured || window.DragRect.has_value());
    EXPECT_EQ(desktop.CursorHidden, 0);
  }

  CZandoBrush& AddBox(const GridBox& box) {
    return level.BrushList[AddBrush(document, *MakeBoxBrush(box))];
  }
  /// A listed box of 64 around a place, in a group.
  CZandoBrush& AddBoxAt(const Vector& place, std::int32_t group = -1) {
    CZandoBrush& box = AddBox({{-32, -32, -32}, {32, 32, 32}});
    box.BGroup = group;
    box.MoveTo(place);
    return box;
  }
  CEntity& AddEntity(const std::string& origin) {
    CEntity& entity = level.Entities.emplace_back();
    if (!origin.empty()) entity.AddPair("origin", origin);
    entity.ParseOrigin();
    return entity;
  }

  CZANDODoc document;
  Level& level = Edit(document);
  EditingState& state = EditState(document);
  CZandoBrush& working = level.WorkingBrush;
  CEditorSettings settings;
  CScriptedDesktop desktop;
  CFakeViewWindow window;
  CZANDOView view{document, settings, desktop};
  MouseFlags held;
  ScreenPoint mouse{200, 150};  ///< where buttons are pressed and released, and moves lead
};

}  // namespace zando::testing
