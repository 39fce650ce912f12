// What a view shows in its window, and what the mouse does there.
#include <QApplication>
#include <QCursor>
#include <QImage>
#include <QMouseEvent>

#include "desktop/editor_fixture.h"

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

TEST_F(EditorTest, DraggingInATopViewPansItsCamera) {
  app_.Start({});
  Choose(static_cast<CommandId>(ViewKind::Top));
  CViewWidget& widget = ActiveWidget();
  const Vector before = ActiveEditingView().Camera().Position;
  Mouse mouse(widget);
  mouse.Press({100, 100}, Qt::LeftButton);
  EXPECT_TRUE(widget.HasCapture());
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BlankCursor);
  mouse.MoveBy({10, 4});
  mouse.MoveBy({5, 0});
  mouse.Release(Qt::LeftButton);
  EXPECT_FALSE(widget.HasCapture());
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  const Vector after = ActiveEditingView().Camera().Position;
  EXPECT_EQ(after.x, before.x + 30.0);
  EXPECT_EQ(after.y, before.y);
  EXPECT_EQ(after.z, before.z - 8.0);
}

TEST_F(EditorTest, LosingTheFocusEndsADragAndBringsTheCursorBack) {
  app_.Start({});
  Choose(static_cast<CommandId>(ViewKind::Top));
  CViewWidget& widget = ActiveWidget();
  Mouse mouse(widget);
  mouse.Press({100, 100}, Qt::LeftButton);
  QFocusEvent lost(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&widget, &lost);
  EXPECT_FALSE(widget.HasCapture());
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  const Vector before = ActiveEditingView().Camera().Position;
  mouse.MoveBy({10, 4});
  EXPECT_EQ(ActiveEditingView().Camera().Position.x, before.x);

  // A window that closes in the middle of a drag must not take the cursor with it.
  mouse.Release(Qt::LeftButton);
  mouse.Press({100, 100}, Qt::LeftButton);
  Choose(ID_FILE_CLOSE);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(EditorTest, ALevelIsDrawnOnBlackAfterEveryKindOfChange) {
  ASSERT_TRUE(app_.Start(ZANDO_EXAMPLES "/keep.3dz"));
  Choose(static_cast<CommandId>(ViewKind::Top));
  const auto grab = [this] { return ActiveWidget().grab().toImage(); };
  const QImage top = grab();
  QSet<QRgb> colors;
  for (int y = 0; y < top.height(); ++y) {
    for (int x = 0; x < top.width(); ++x) colors.insert(top.pixel(x, y));
  }
  EXPECT_TRUE(colors.contains(qRgb(0, 0, 0)));
  EXPECT_GT(colors.size(), 3);
  Choose(static_cast<CommandId>(ViewKind::Front));
  EXPECT_NE(grab(), top);
  Choose(static_cast<CommandId>(ViewKind::Top));
  EXPECT_EQ(grab(), top);
  ActiveEditingView().SetZoom(0.2);
  EXPECT_NE(grab(), top);
}

}  // namespace
}  // namespace zando::testing
