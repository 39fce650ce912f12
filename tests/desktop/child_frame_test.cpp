// Child windows: their titles, their closing, their order on the screen.
#include <QApplication>
#include <QMdiArea>
#include <QMenu>

#include "desktop/editor_fixture.h"
#include "document/entity_edits.h"

namespace zando::testing {
namespace {

TEST_F(LevelTest, ClosingAsksTheLastWindowAndTwiceOrFromWithinIsHarmless) {
  Choose(ID_WINDOW_NEW);
  CChildFrame* second = Frames().back();
  second->close();
  second->close();
  second->CloseNow();
  EXPECT_EQ(app_.Documents().size(), 1U);
  EXPECT_TRUE(desktop_.Script.Calls.empty()) << "only the last window of a level asks";

  // While the last window asks, the same window and the program are closed once more.
  PlaceLight(Document());
  CChildFrame* last = Frames().front();
  desktop_.Script.SaveAnswers = {SaveAnswer::Cancel, SaveAnswer::Cancel, SaveAnswer::Discard};
  EXPECT_FALSE(last->close() || window_.close());
  EXPECT_TRUE(window_.isVisible());
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

TEST_F(LevelTest, FourViewsFollowTheMainWindowUntilTheUserMovesThemAndCloseTogether) {
  Choose(ID_FILE_NEW);
  const QRect other = Frames()[0]->geometry();
  Choose(ID_FOUR_VIEWS);
  const std::vector<CChildFrame*> frames = Frames();
  ASSERT_EQ(frames.size(), 6U);
  EXPECT_EQ(frames[0]->geometry(), other) << "the windows of another level stay";
  EXPECT_TRUE(!frames[0]->isMinimized() && frames[1]->isMinimized());
  const auto right = [this] { return window_.findChild<QMdiArea*>()->viewport()->width() - 1; };
  const auto resize = [this](int width, int height) {
    window_.resize(width, height);
    QApplication::processEvents();
  };
  resize(900, 600);
  EXPECT_EQ(frames[2]->geometry().topLeft(), QPoint(0, 0));
  EXPECT_EQ(frames[3]->geometry().right(), right());
  EXPECT_EQ(frames[5]->geometry().right(), right());
  EXPECT_EQ(frames[2]->geometry().right() + 1, frames[3]->geometry().left());
  EXPECT_EQ(frames[3]->geometry().bottom() + 1, frames[5]->geometry().top());

  frames[2]->move(30, 30);
  const QRect moved = frames[2]->geometry();
  frames[3]->showMaximized();
  frames[4]->CloseNow();
  resize(1000, 700);
  frames[3]->showNormal();
  QApplication::processEvents();
  EXPECT_EQ(frames[2]->geometry(), moved);
  EXPECT_EQ(frames[3]->geometry().right(), right());
  EXPECT_EQ(frames[5]->geometry().left(), frames[3]->geometry().left());
  Choose(ID_FILE_CLOSE);
  EXPECT_EQ(Frames().size(), 1U);
}

TEST_F(LevelTest, TheWindowMenuEndsWithTheOpenWindowsOfAllLevels) {
  Choose(static_cast<CommandId>(ViewKind::Top));
  Document().SetPathName(FileIn("keep & moat.3dz"));
  Frames()[0]->SetTitle("keep.3dz");  // only what begins with a dash
  Frames()[0]->widget()->setWindowTitle(QStringLiteral("keep.3dz"));
  Choose(ID_FILE_NEW);
  const auto lines = [this] {
    window_.RefreshCommands();
    QAction* last = MenuItem(ID_WINDOW_ARRANGE);
    const auto menus = last->associatedObjects();
    const QList<QAction*> actions = qobject_cast<QMenu*>(menus.front())->actions();
    return actions.mid(actions.indexOf(last) + 2);
  };
  ASSERT_EQ(lines().size(), 2);
  EXPECT_EQ(lines()[0]->text(), QStringLiteral("&1 keep && moat.3dz -Top View-"));
  EXPECT_EQ(lines()[1]->text(), QStringLiteral("&2 ZANDO2 -Solid Gons-"));
  EXPECT_TRUE(!lines()[0]->isChecked() && lines()[1]->isChecked());
  window_.Minimize(*Frames()[0]->View());
  lines()[0]->trigger();
  EXPECT_EQ(window_.ActiveView(), Frames()[0]->View());
  EXPECT_FALSE(Frames()[0]->isMinimized());
  EXPECT_TRUE(lines()[0]->isChecked() && !lines()[1]->isChecked());
  EXPECT_TRUE(MenuItem(static_cast<CommandId>(ViewKind::Top))->isChecked());
  Frames()[1]->CloseNow();
  EXPECT_EQ(lines().size(), 1);
}

}  // namespace
}  // namespace zando::testing
