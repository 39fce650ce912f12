// What a view shows in its window, and what the mouse does there.
#include <QApplication>
#include <QCursor>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>

#include "desktop/editor_fixture.h"
#include "document/brush_edits.h"

namespace zando::testing {
namespace {

/// A mouse as the window system reports it: the cursor first, then the event.
class Mouse {
 public:
  explicit Mouse(QWidget& widget) : widget_(widget) {}

  void Press(QPoint position, Qt::MouseButton button) {
    held_ |= button;
    Send(QEvent::MouseButtonPress, position, button);
  }
  void MoveBy(QPoint motion) { Send(QEvent::MouseMove, Position() + motion, Qt::NoButton); }
  void Release(Qt::MouseButton button) {
    held_ &= ~static_cast<int>(button);
    Send(QEvent::MouseButtonRelease, Position(), button);
  }

 private:
  QPoint Position() const { return widget_.mapFromGlobal(QCursor::pos()); }
  void Send(QEvent::Type type, QPoint position, Qt::MouseButton button) {
    QCursor::setPos(widget_.mapToGlobal(position));
    QMouseEvent event(type, position, widget_.mapToGlobal(position), button, held_, {});
    QApplication::sendEvent(&widget_, &event);
  }

  QWidget& widget_;
  Qt::MouseButtons held_;
};

TEST_F(LevelTest, DraggingInATopViewPansItsCameraUntilTheFocusIsLost) {
  Choose(static_cast<CommandId>(ViewKind::Top));
  CViewWidget& widget = ActiveWidget();
  const Vector before = ActiveEditingView().Camera().Position;
  Mouse mouse(widget);
  mouse.Press({100, 100}, Qt::LeftButton);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BlankCursor);
  mouse.MoveBy({10, 4});
  mouse.MoveBy({5, 0});
  QFocusEvent lost(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&widget, &lost);
  EXPECT_FALSE(widget.HasCapture());
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  mouse.MoveBy({10, 4});
  mouse.Release(Qt::LeftButton);
  EXPECT_EQ(ActiveEditingView().Camera().Position, before + Vector({30.0, 0.0, -8.0}));

  // A window that closes in the middle of a drag must not take the cursor with it.
  mouse.Press({100, 100}, Qt::LeftButton);
  Choose(ID_FILE_CLOSE);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(LevelTest, TheMouseMovesTurnsAndSelectsAsTheToolSays) {
  Choose(static_cast<CommandId>(ViewKind::Top));
  Choose(ID_TOOL_MOVE_ROTATE_BRUSH);
  CViewWidget& widget = ActiveWidget();
  const CZandoBrush& brush = Document().GetLevel().WorkingBrush;
  Mouse mouse(widget);
  mouse.Press({100, 100}, Qt::RightButton);
  mouse.MoveBy({-50, 0});
  mouse.Release(Qt::RightButton);
  EXPECT_NEAR(brush.Own().Rot.x, 341.333333, 1e-5);
  mouse.Press({100, 100}, Qt::LeftButton);
  mouse.MoveBy({70, -33});
  Choose(ID_ADD_TO_WORLD);
  EXPECT_EQ(Document().GetLevel().BrushList.Head()->Own().Pos, (Vector{70.0, 0.0, 33.0}))
      << "commits the drag";
  mouse.Release(Qt::LeftButton);

  Choose(ID_TOOL_SELECT_GROUP);
  const QImage before = widget.grab().toImage();
  mouse.Press({20, 20}, Qt::LeftButton);
  mouse.MoveBy({widget.width() - 40, widget.height() - 40});
  const QImage framed = widget.grab().toImage();
  EXPECT_EQ(framed.pixel(21, 30) & 0xFFFFFFU, ~before.pixel(21, 30) & 0xFFFFFFU);
  EXPECT_EQ(framed.pixel(22, 30), before.pixel(22, 30));
  mouse.Release(Qt::LeftButton);
  EXPECT_TRUE(Document().AnySelected());
  EXPECT_EQ(widget.grab().toImage().pixel(21, 30), before.pixel(21, 30));
}

TEST_F(LevelTest, KeysOfAViewToggleTheCameraStepTheGridAndDelete) {
  CViewWidget& widget = ActiveWidget();
  const auto press = [&](int key, Qt::KeyboardModifiers keys = {}, bool repeated = false) {
    QKeyEvent event(QEvent::KeyPress, key, keys, {}, repeated);
    QApplication::sendEvent(&widget, &event);
  };
  press(Qt::Key_Space);
  EXPECT_EQ(Document().State().ToolMode, ID_TOOL_MOVE_ROTATE_BRUSH);
  press(Qt::Key_Space, {}, true);
  EXPECT_EQ(Document().State().ToolMode, ID_TOOL_MOVE_ROTATE_BRUSH);
  press(Qt::Key_Plus);
  EXPECT_EQ(Document().State().GridSize, 64.0);
  press(Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_EQ(Document().State().GridSize, 128.0);
  press(Qt::Key_Minus, Qt::KeypadModifier);
  press(Qt::Key_Minus, Qt::KeypadModifier, true);
  EXPECT_EQ(Document().State().GridSize, 32.0);
  Choose(ID_ADD_TO_WORLD);
  SetCurrentBrush(Document(), 0);
  press(Qt::Key_Delete);
  EXPECT_EQ(Document().GetLevel().BrushList.BrushCount(), 0);
}

TEST_F(EditorTest, ALevelIsDrawnOnBlackAfterEveryKindOfChange) {
  ASSERT_TRUE(app_.Start(ZANDO_EXAMPLES "/keep.3dz"));
  Choose(static_cast<CommandId>(ViewKind::Top));
  const auto grab = [this] { return ActiveWidget().grab().toImage(); };
  const QImage top = grab();
  EXPECT_EQ(top.pixel(0, 0), qRgb(0, 0, 0));
  Choose(static_cast<CommandId>(ViewKind::Front));
  EXPECT_NE(grab(), top);
  Choose(static_cast<CommandId>(ViewKind::Top));
  EXPECT_EQ(grab(), top);
  ActiveEditingView().SetZoom(0.2);
  EXPECT_NE(grab(), top);
}

}  // namespace
}  // namespace zando::testing
