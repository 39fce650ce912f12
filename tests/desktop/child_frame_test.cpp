// Child windows: their titles, their closing, their order on the screen.
#include <QApplication>
#include <QMdiArea>
#include <array>

#include "desktop/editor_fixture.h"

namespace zando::testing {
namespace {

TEST_F(EditorTest, AChildFrameTakesOnlyTitlesThatBeginWithADash) {
  app_.Start({});
  CChildFrame& frame = *Frames().front();
  frame.SetTitle("keep.3dz");
  frame.widget()->setWindowTitle(QStringLiteral("keep.3dz"));
  EXPECT_EQ(frame.windowTitle(), QStringLiteral("-Solid Gons-"));
  Choose(static_cast<CommandId>(ViewKind::Top));
  EXPECT_EQ(frame.windowTitle(), QStringLiteral("-Top View-"));
}

TEST_F(EditorTest, ClosingTwiceAndFromWithinIsHarmless) {
  app_.Start({});
  Choose(ID_WINDOW_NEW);
  CChildFrame* second = Frames().back();
  second->close();
  second->close();
  second->CloseNow();
  EXPECT_EQ(app_.Documents().size(), 1U);
  EXPECT_TRUE(desktop_.SaveQuestions.empty()) << "only the last window of a level asks";

  // While the last window asks, the same window and the program are closed once more.
  Document().PlaceLight();
  CChildFrame* last = Frames().front();
  desktop_.SaveAnswers = {SaveAnswer::Discard};
  desktop_.WhileAsking = [last] {
    last->close();
    last->CloseNow();
  };
  last->close();
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(app_.Documents().empty());
  EXPECT_EQ(window_.ActiveView(), nullptr);
  EXPECT_TRUE(window_.close());
}

TEST_F(EditorTest, FourViewsMinimizesTheOldOnesAndShowsFourInOrder) {
  app_.Start({});
  Choose(ID_WINDOW_NEW);
  Choose(ID_FOUR_VIEWS);
  const std::vector<CChildFrame*> frames = Frames();
  ASSERT_EQ(frames.size(), 6U);
  EXPECT_TRUE(frames[0]->isMinimized());
  EXPECT_TRUE(frames[1]->isMinimized());
  constexpr std::array kinds{ViewKind::Side, ViewKind::Top, ViewKind::Front, ViewKind::Solid};
  const QSize area = window_.findChild<QMdiArea*>()->viewport()->size();
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const CChildFrame& frame = *frames[i + 2];
    EXPECT_FALSE(frame.isMinimized());
    EXPECT_EQ(dynamic_cast<CZANDOView&>(*frame.View()).Kind(), kinds[i]);
    EXPECT_EQ(frame.x() > area.width() / 4, i % 2 == 1);
    EXPECT_EQ(frame.y() > area.height() / 4, i >= 2);
    EXPECT_NEAR(frame.width(), area.width() / 2, 1);
  }
}

TEST_F(EditorTest, CommandsGoToTheWindowThatWasActivatedLast) {
  app_.Start({});
  Choose(static_cast<CommandId>(ViewKind::Top));
  Choose(ID_FILE_NEW);
  const std::vector<CChildFrame*> frames = Frames();
  const auto topIsChecked = [this] {
    window_.RefreshCommands();
    return MenuItem(static_cast<CommandId>(ViewKind::Top))->isChecked();
  };
  window_.Activate(*frames[0]->View());
  EXPECT_TRUE(topIsChecked());
  window_.findChild<QMdiArea*>()->setActiveSubWindow(frames[1]);
  EXPECT_FALSE(topIsChecked());
}

}  // namespace
}  // namespace zando::testing
