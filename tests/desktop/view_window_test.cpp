// What a view shows in its window, and what the mouse does there, on a display of any scale. All
// sizes and places are pixels of the device.
#include <QApplication>
#include <QCursor>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

#include "desktop/device_pixels.h"
#include "desktop/editor_fixture.h"
#include "document/brush_edits.h"
#include "paint/painter_dc.h"
#include "support/window_suite.h"

namespace zando::testing {
namespace {

using ViewWindow = LevelTest;

/// The real window of a view, with no main window around it.
class CWidgetHolder {
 public:
  explicit CWidgetHolder(CZANDOView& view)
      : widget_(view, [this](std::string_view title) { title_ = title; }) {
    widget_.resize(200, 100);
    widget_.show();
    Settle();
  }

  CViewWindow& Window() { return widget_; }
  std::string Title() { return title_; }
  int Paints() { return widget_.Paints; }
  void Settle() { QApplication::processEvents(); }
  /// Around all pixels that are not as the view drew them, which is black.
  std::optional<ScreenRect> Frame() {
    const QImage shown = widget_.grab().toImage();
    QRect frame;
    for (int y = 0; y < shown.height(); ++y) {
      for (int x = 0; x < shown.width(); ++x) {
        if (shown.pixel(x, y) == qRgb(255, 255, 255)) frame |= QRect(x, y, 1, 1);
      }
    }
    if (frame.isNull()) return std::nullopt;
    return ScreenRect{frame.left(), frame.top(), frame.right() + 1, frame.bottom() + 1};
  }

 private:
  class CCountingWidget : public CViewWidget {
   public:
    using CViewWidget::CViewWidget;
    int Paints = 0;

   protected:
    void paintEvent(QPaintEvent* event) override {
      ++Paints;
      CViewWidget::paintEvent(event);
    }
  };

  std::string title_;
  CCountingWidget widget_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, WindowSuite, CWidgetHolder);

/// A mouse as the window system reports it: the cursor first, then the event.
class Mouse {
 public:
  explicit Mouse(QWidget& widget) : widget_(widget) {}

  void Press(QPoint pixel, Qt::MouseButton button) {
    held_ |= button;
    Send(QEvent::MouseButtonPress, pixel, button);
  }
  void MoveBy(QPoint motion) {
    Send(QEvent::MouseMove, at_ + motion, Qt::NoButton);
    // While it is hidden the cursor is put back after every motion.
    if (QGuiApplication::overrideCursor() == nullptr) return;
    at_ = (QPointF(QCursor::pos()) * scale_).toPoint() -
          Pixel(widget_.window()->mapToGlobal(kZero)) -
          Pixel(widget_.mapTo(widget_.window(), kZero));
  }
  void Release(Qt::MouseButton button) {
    held_ &= ~static_cast<int>(button);
    Send(QEvent::MouseButtonRelease, at_, button);
  }

 private:
  static constexpr QPoint kZero{0, 0};

  QPoint Pixel(QPointF place) const { return (place * scale_).toPoint(); }
  /// Windows and the mouse itself stand on whole pixels, widgets need not.
  void Send(QEvent::Type type, QPoint pixel, Qt::MouseButton button) {
    at_ = pixel;
    const QPointF corner = widget_.mapTo(widget_.window(), kZero);
    const QPoint inWindow = pixel + Pixel(corner);
    const QPointF global = QPointF(inWindow + Pixel(widget_.window()->mapToGlobal(kZero))) / scale_;
    QCursor::setPos(global.toPoint());
    QMouseEvent event(type, QPointF(inWindow) / scale_, global, button, held_, {});
    QApplication::sendEvent(widget_.window()->windowHandle(), &event);
  }

  QWidget& widget_;
  double scale_ = widget_.devicePixelRatioF();
  QPoint at_;
  Qt::MouseButtons held_;
};

TEST_F(ViewWindow, ADragCountsPixelsAndEndsWhereItBeganWhenItComesBack) {
  Choose(static_cast<CommandId>(ViewKind::Top));
  Choose(ID_TOOL_MOVE_ROTATE_BRUSH);
  const Vector& position = Document().GetLevel().WorkingBrush.Own().WorkPos;
  Mouse mouse(ActiveWidget());
  mouse.Press({101, 102}, Qt::LeftButton);
  for (const int step : {1, -3, 2}) {
    for (int i = 0; i < 40; ++i) mouse.MoveBy({step, -step});
    EXPECT_EQ(position, (step == 1    ? Vector{40, 0, 40}
                         : step == -3 ? Vector{-80, 0, -80}
                                      : Vector{0, 0, 0}));
  }
  mouse.Release(Qt::LeftButton);
  mouse.Press({100, 100}, Qt::RightButton);
  mouse.MoveBy({-50, 0});
  mouse.Release(Qt::RightButton);
  EXPECT_NEAR(Document().GetLevel().WorkingBrush.Own().Rot.x, 341.333333, 1e-5);
}

TEST_F(ViewWindow, ThePictureHasAPixelForEveryPixelOfTheWindow) {
  Choose(static_cast<CommandId>(ViewKind::Top));
  const QImage shown = ActiveWidget().grab().toImage().convertedTo(QImage::Format_RGB32);
  const double scale = ActiveWidget().devicePixelRatioF();
  EXPECT_GE(shown.width(), static_cast<int>(ActiveWidget().width() * scale));
  QImage drawn(DeviceSize(ActiveWidget()), QImage::Format_RGB32);
  drawn.fill(Qt::black);
  QPainter painter(&drawn);
  CPainterDC dc(painter, drawn.size());
  ActiveEditingView().OnDraw(dc);
  painter.end();
  QImage common = drawn.copy({{}, shown.size()});
  common.setDevicePixelRatio(scale);
  EXPECT_EQ(shown, common);
}

TEST_F(ViewWindow, KeysOfAViewToggleTheCameraStepTheGridAndDelete) {
  CViewWidget& widget = ActiveWidget();
  const auto press = [&](int key, Qt::KeyboardModifiers keys = {}, bool repeated = false) {
    QKeyEvent event(QEvent::KeyPress, key, keys, {}, repeated);
    QApplication::sendEvent(&widget, &event);
  };
  for (const bool repeated : {false, true}) {
    press(Qt::Key_Space, {}, repeated);
    EXPECT_EQ(Document().State().ToolMode, ID_TOOL_MOVE_ROTATE_BRUSH);
  }
  press(Qt::Key_Plus);
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

TEST_F(ViewWindow, DraggingInATopViewPansItsCameraUntilTheFocusIsLost) {
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

}  // namespace
}  // namespace zando::testing
