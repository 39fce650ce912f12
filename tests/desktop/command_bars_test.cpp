// Menus, toolbars, keys and status bar of the real main window against the command table.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTest>
#include <QToolBar>

#include "app/command_table.h"
#include "desktop/editor_fixture.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/recent_files.h"
#include "platform/qt/tiling.h"

namespace zando::testing {
namespace {

/// Walks menu lines and the actions of the bar side by side.
class MenuWalk {
 public:
  MenuWalk(CEditorApp& app, std::span<const MenuLine> lines) : app_(app), lines_(lines) {}

  void Compare(const QList<QAction*>& actions, std::int32_t depth) {
    for (QAction* action : actions) {
      // Recent files are one line of the table and up to four of the menu.
      if (IsRecent(*action)) {
        if (action->isVisible() && IsRecentLine()) ++next_;
        continue;
      }
      ASSERT_LT(next_, lines_.size());
      const MenuLine& line = lines_[next_++];
      EXPECT_EQ(line.depth, depth) << line.text;
      CompareOne(*action, line);
    }
  }

  [[nodiscard]] bool AtEnd() const { return next_ == lines_.size(); }
  int Commands = 0;

 private:
  static bool IsRecent(const QAction& action) {
    const int id = action.data().toInt();
    return id >= ID_FILE_MRU_FIRST && id < ID_FILE_MRU_FIRST + 4;
  }
  bool IsRecentLine() const {
    return next_ < lines_.size() && lines_[next_].kind == MenuLine::Kind::RecentFiles;
  }

  void CompareOne(QAction& action, const MenuLine& line) {
    switch (line.kind) {
      case MenuLine::Kind::Submenu:
        ASSERT_NE(action.menu(), nullptr) << line.text;
        EXPECT_EQ(TextFromQt(action.text()), line.text);
        emit action.menu()->aboutToShow();
        Compare(action.menu()->actions(), line.depth + 1);
        break;
      case MenuLine::Kind::Separator:
        EXPECT_TRUE(action.isSeparator());
        break;
      case MenuLine::Kind::Command:
        CompareCommand(action, line);
        break;
      case MenuLine::Kind::RecentFiles:
        ADD_FAILURE() << "recent files are missing";
        break;
    }
  }

  void CompareCommand(const QAction& action, const MenuLine& line) {
    ++Commands;
    const CommandRow* row = FindCommand(line.id);
    ASSERT_NE(row, nullptr) << line.id;
    std::string expected(line.text.empty() ? row->menuText : line.text);
    for (const Accelerator& key : Accelerators()) {
      if (key.id != line.id) continue;
      expected += '\t';
      expected += key.keys;
      break;
    }
    EXPECT_EQ(TextFromQt(action.text()), expected);
    EXPECT_EQ(TextFromQt(action.statusTip()), row->prompt);
    const CCmdUI ui = app_.Query(line.id);
    EXPECT_EQ(action.isEnabled(), ui.IsEnabled()) << expected;
    EXPECT_EQ(action.isChecked(), ui.IsChecked()) << expected;
  }

  CEditorApp& app_;
  std::span<const MenuLine> lines_;
  std::size_t next_ = 0;
};

TEST_F(EditorTest, EveryMenuLineOfTheTableIsThereWithKeyPromptAndState) {
  MenuWalk empty(app_, EmptyMenu());
  empty.Compare(window_.menuBar()->actions(), 0);
  EXPECT_TRUE(empty.AtEnd());

  app_.Start({});
  Document().PlaceLight();
  MenuWalk full(app_, DocumentMenu());
  full.Compare(window_.menuBar()->actions(), 0);
  EXPECT_TRUE(full.AtEnd());
  EXPECT_GT(full.Commands, 50);

  // A picked brush enables more; the menus follow.
  const std::int32_t index = Document().AddBrush(Document().WorkingBrush);
  Document().SetCurrentBrush(*Document().FindBrushById(index));
  Document().BrushPicked = 1;
  MenuWalk picked(app_, DocumentMenu());
  picked.Compare(window_.menuBar()->actions(), 0);
  EXPECT_TRUE(MenuItem(ID_DELETE_BRUSH)->isEnabled());

  Document().SetModifiedFlag(false);
  Choose(ID_FILE_CLOSE);
  MenuWalk again(app_, EmptyMenu());
  again.Compare(window_.menuBar()->actions(), 0);
  EXPECT_TRUE(again.AtEnd());
}

void ExpectButtons(const QToolBar& bar, std::span<const CommandId> expected) {
  std::vector<CommandId> buttons;
  for (const QAction* action : bar.actions()) {
    const bool isCommand = action->data().isValid();
    if (isCommand || action->isSeparator()) buttons.push_back(action->data().toInt());
    if (!isCommand) continue;
    EXPECT_EQ(TextFromQt(action->toolTip()), FindCommand(action->data().toInt())->tip);
    EXPECT_FALSE(action->icon().pixmap(16).isNull()) << action->data().toInt();
  }
  EXPECT_EQ(buttons, std::vector<CommandId>(expected.begin(), expected.end()));
}

TEST_F(EditorTest, ToolbarsShowTheTablesButtonsWithPicturesAfterTheGroupBox) {
  ExpectButtons(*window_.findChild<QToolBar*>(QStringLiteral("mainToolbar")), MainToolbar());
  const auto* second = window_.findChild<QToolBar*>(QStringLiteral("secondToolbar"));
  std::vector<CommandId> expected{0};  // the gap after the box
  for (const CommandId id : SecondToolbar()) expected.push_back(id);
  ExpectButtons(*second, expected);

  const auto* box = second->findChild<QComboBox*>(QStringLiteral("104"));
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(second->widgetForAction(second->actions().front()), box);
  EXPECT_FALSE(box->isEditable());
  EXPECT_TRUE(box->font().bold());
  EXPECT_GE(box->width(), 130);

  app_.Run(ID_VIEW_TOOLBAR);
  EXPECT_TRUE(second->isHidden());
  app_.Run(ID_VIEW_TOOLBAR);
  EXPECT_FALSE(second->isHidden());
}

TEST_F(EditorTest, GroupBoxListsTheGroupsInOrderAndSetsTheCurrentOne) {
  app_.Start({});
  for (const char* name : {"Walls", "Arches"}) {
    CBGroup group;
    group.gName = name;
    Document().Groups.push_back(group);
  }
  Document().RefreshColors();
  auto* box = window_.findChild<QComboBox*>(QStringLiteral("104"));
  ASSERT_EQ(box->count(), 3);
  EXPECT_EQ(box->currentText(), QStringLiteral("No Group"));
  EXPECT_EQ(box->itemText(2), QStringLiteral("Arches"));

  const auto choose = [box](int index) {
    box->setCurrentIndex(index);
    emit box->activated(index);
  };
  choose(2);
  EXPECT_EQ(Document().CurrentGroup, 1);
  EXPECT_EQ(box->currentIndex(), 2);
  choose(0);
  EXPECT_EQ(Document().CurrentGroup, -1);
}

TEST_F(EditorTest, KeysRestWhileATextFieldOrADialogHasTheFocus) {
  app_.Start({});
  QLineEdit field(&window_);
  field.show();
  field.setFocus();
  QTest::keyClicks(&field, QStringLiteral("xg"));
  EXPECT_EQ(field.text(), QStringLiteral("xg"));
  EXPECT_EQ(ActiveEditingView().AxisFlags(), kAxisX | kAxisY | kAxisZ);
  EXPECT_EQ(Document().GroupMovementMode, 0);

  QDialog dialog(&window_);
  WithNextDialog([](QDialog& shown) {
    QTest::keyClick(&shown, Qt::Key_X);
    shown.accept();
  });
  dialog.exec();
  EXPECT_EQ(ActiveEditingView().AxisFlags(), kAxisX | kAxisY | kAxisZ);

  QApplication::setActiveWindow(&window_);
  ActiveWidget().setFocus();
  QTest::keyClick(&ActiveWidget(), Qt::Key_X);
  EXPECT_EQ(ActiveEditingView().AxisFlags(), kAxisY | kAxisZ);
  EXPECT_EQ(app_.Settings().ActiveAxisMask, kAxisY | kAxisZ);
  QTest::keyClick(&ActiveWidget(), Qt::Key_G);
  EXPECT_EQ(Document().GroupMovementMode, 1);
  QTest::keyClick(&ActiveWidget(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(app_.Documents().size(), 2U);
}

TEST_F(EditorTest, EveryAcceleratorIsAKey) {
  for (const Accelerator& key : Accelerators()) {
    const auto keys = QKeySequence::fromString(TextToQt(key.keys), QKeySequence::PortableText);
    ASSERT_EQ(keys.count(), 1) << key.keys;
    EXPECT_NE(keys[0].key(), Qt::Key_unknown) << key.keys;
  }
}

TEST_F(EditorTest, PromptsComeAndGoAndMessagesSurviveAClosingMenu) {
  app_.Start({});
  const auto prompt = [this] { return window_.statusBar()->findChild<QLabel*>()->text(); };
  const auto hover = [this](const char* tip) {
    QStatusTipEvent event{QLatin1String(tip)};
    QApplication::sendEvent(&window_, &event);
  };
  EXPECT_EQ(prompt(), QStringLiteral("For Help, press F1"));
  hover("Create a new level");
  EXPECT_EQ(prompt(), QStringLiteral("Create a new level"));
  desktop_.SetStatusText("Cannot save");
  hover("");
  EXPECT_EQ(prompt(), QStringLiteral("Cannot save"));
  hover("Create a new level");
  hover("");
  EXPECT_EQ(prompt(), QStringLiteral("For Help, press F1"));

  const auto* grid = window_.findChild<QLabel*>(QStringLiteral("gridPane"));
  EXPECT_EQ(grid->text(), QStringLiteral("Gridsize: 64 Snap Off"));
  Choose(ID_USE_GRID);
  EXPECT_EQ(grid->text(), QStringLiteral("Gridsize: 64 Snap On"));
}

TEST(RecentFiles, AreRememberedWhateverBytesTheirNamesHave) {
  const QTemporaryDir folder;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  QCoreApplication::setOrganizationName(QStringLiteral("zando-test"));
  QCoreApplication::setApplicationName(QStringLiteral("zando-test"));
  const std::vector<std::filesystem::path> files{"/a/b c.3dz", "/a/\xc3\xa4,=;.3dz"};
  CSettingsRecentFiles().Save(files);
  EXPECT_EQ(CSettingsRecentFiles().Load(), files);
  CSettingsRecentFiles().Save({});
  EXPECT_TRUE(CSettingsRecentFiles().Load().empty());
}

TEST(Tiling, CoversTheAreaWithoutGapsForAnyNumberOfWindows) {
  const QRect area(3, 5, 1001, 703);
  for (const TileOrder order : {TileOrder::Stacked, TileOrder::SideBySide}) {
    for (int count = 1; count <= 17; ++count) {
      qint64 covered = 0;
      const std::vector<QRect> places = TileArea(area, count, order);
      for (const QRect& place : places) {
        EXPECT_TRUE(area.contains(place));
        for (const QRect& other : places) {
          EXPECT_TRUE(&other == &place || !place.intersects(other));
        }
        covered += qint64{place.width()} * place.height();
      }
      EXPECT_EQ(static_cast<int>(places.size()), count);
      EXPECT_EQ(covered, qint64{area.width()} * area.height()) << count;
    }
  }
  EXPECT_EQ(TileArea(area, 3, TileOrder::Stacked)[1].width(), area.width());
  EXPECT_EQ(TileArea(area, 3, TileOrder::SideBySide)[1].height(), area.height());
}

}  // namespace
}  // namespace zando::testing
