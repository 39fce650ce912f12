// Child windows: their titles, their closing, their order on the screen.
#include <QApplication>
#include <QMdiArea>

#include "desktop/editor_fixture.h"
#include "document/entity_edits.h"

namespace zando::testing {
namespace {

TEST_F(LevelTest, AChildFrameTakesOnlyTitlesThatBeginWithADash) {
  CChildFrame& frame = *Frames().front();
  frame.SetTitle("keep.3dz");
  frame.widget()->setWindowTitle(QStringLiteral("keep.3dz"));
  EXPECT_EQ(frame.windowTitle(), QStringLiteral("-Solid Gons-"));
  Choose(static_cast<CommandId>(ViewKind::Top));
  EXPECT_EQ(frame.windowTitle(), QStringLiteral("-Top View-"));
}

TEST_F(LevelTest, ClosingTwiceAndFromWithinIsHarmless) {
  Choose(ID_WINDOW_NEW);
  CChildFrame* second = Frames().back();
  second->close();
  second->close();
  second->CloseNow();
  EXPECT_EQ(app_.Documents().size(), 1U);
  EXPECT_TRUE(desktop_.SaveQuestions.empty()) << "only the last window of a level asks";

  // While the last window asks, the same window and the program are closed once more.
  PlaceLight(Document());
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

TEST_F(LevelTest, FourViewsMinimizesTheOldOnesShowsFourInOrderAndAllCloseTogether) {
  Choose(ID_WINDOW_NEW);
  Choose(ID_FOUR_VIEWS);
  const std::vector<CChildFrame*> frames = Frames();
  ASSERT_EQ(frames.size(), 6U);
  EXPECT_TRUE(frames[0]->isMinimized());
  EXPECT_TRUE(frames[1]->isMinimized());
  const QPoint middle = window_.findChild<QMdiArea*>()->viewport()->rect().center();
  const auto kindAt = [&](std::size_t i, QPoint inside) {
    EXPECT_TRUE(frames[i]->geometry().contains(middle + inside)) << i;
    return dynamic_cast<CZANDOView&>(*frames[i]->View()).Kind();
  };
  EXPECT_EQ(kindAt(2, {-30, -60}), ViewKind::Side);
  EXPECT_EQ(kindAt(3, {30, -60}), ViewKind::Top);
  EXPECT_EQ(kindAt(4, {-30, 30}), ViewKind::Front);
  EXPECT_EQ(kindAt(5, {30, 30}), ViewKind::Solid);
  Choose(ID_FILE_CLOSE);
  EXPECT_TRUE(app_.Documents().empty());
}

TEST_F(LevelTest, CommandsGoToTheWindowThatWasActivatedLast) {
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
