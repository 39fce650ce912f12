// Menus, toolbars, keys and status bar of the real main window against the command table.
#include <QAbstractItemView>
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
#include <QWheelEvent>
#include <algorithm>

#include "app/command_table.h"
#include "desktop/editor_fixture.h"
#include "desktop/qt_text.h"
#include "desktop/recent_files.h"
#include "desktop/tiling.h"
#include "document/brush_edits.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"

namespace zando::testing {
namespace {

/// What a menu offers, a text for each line: those of its submenus follow their own.
void AppendLines(const QList<QAction*>& actions, int depth, std::vector<std::string>& lines) {
  for (QAction* action : actions) {
    const std::string indent(static_cast<std::size_t>(depth), '>');
    if (action->isSeparator()) {
      lines.push_back(indent + "-");
    } else if (action->menu() != nullptr) {
      lines.push_back(indent + TextFromQt(action->text()));
      emit action->menu()->aboutToShow();
      AppendLines(action->menu()->actions(), depth + 1, lines);
    } else if (!action->data().isValid()) {
      lines.push_back(indent + "open windows");
    } else if (action->data().toInt() == ID_FILE_MRU_FIRST) {
      lines.push_back(indent + "recent files");
    } else if (action->isVisible()) {
      lines.push_back(indent + TextFromQt(action->text()) + '|' + TextFromQt(action->statusTip()) +
                      (action->isEnabled() ? "" : "|greyed") +
                      (action->isChecked() ? "|checked" : ""));
    }
  }
}

/// The same of the table, and of the states that the commands have now.
std::vector<std::string> ExpectedLines(CEditorApp& app, std::span<const MenuLine> menu) {
  std::vector<std::string> lines;
  for (const MenuLine& line : menu) {
    std::string text(static_cast<std::size_t>(line.depth), '>');
    if (line.kind == MenuLine::Kind::Separator) text += "-";
    if (line.kind == MenuLine::Kind::RecentFiles) text += "recent files";
    if (line.kind == MenuLine::Kind::OpenWindows) text += "open windows";
    if (line.kind == MenuLine::Kind::Submenu) text += line.text;
    if (line.kind == MenuLine::Kind::Command) {
      const CommandRow* row = FindCommand(line.id);
      text += line.text.empty() ? row->menuText : line.text;
      const auto keys = Accelerators();
      const auto key = std::find_if(keys.begin(), keys.end(),
                                    [&](const Accelerator& a) { return a.id == line.id; });
      if (key != keys.end()) text.append("\t").append(key->keys);
      const CCmdUI ui = app.Query(line.id);
      text.append("|").append(row->prompt).append(ui.IsEnabled() ? "" : "|greyed");
      text += ui.IsChecked() ? "|checked" : "";
    }
    lines.push_back(text);
  }
  return lines;
}

TEST_F(EditorTest, EveryMenuLineOfTheTableIsThereWithKeyPromptAndState) {
  const auto shown = [this] {
    std::vector<std::string> lines;
    AppendLines(window_.menuBar()->actions(), 0, lines);
    return lines;
  };
  EXPECT_EQ(shown(), ExpectedLines(app_, EmptyMenu()));
  app_.Start({});
  PlaceLight(Document());
  EXPECT_EQ(shown(), ExpectedLines(app_, DocumentMenu()));

  // A picked brush enables more; the menus follow.
  AddToWorld(Document());
  SetCurrentBrush(Document(), 0);
  EXPECT_EQ(shown(), ExpectedLines(app_, DocumentMenu()));
  EXPECT_TRUE(MenuItem(ID_DELETE_BRUSH)->isEnabled());

  Document().SetModifiedFlag(false);
  Choose(ID_FILE_CLOSE);
  EXPECT_EQ(shown(), ExpectedLines(app_, EmptyMenu()));
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
  EXPECT_EQ(second->widgetForAction(second->actions().front()), box);
  app_.Run(ID_VIEW_TOOLBAR);
  EXPECT_TRUE(second->isHidden());
}

TEST_F(LevelTest, GroupBoxListsTheGroupsInOrderAndSetsTheCurrentOne) {
  for (const char* name : {"Walls", "Arches"}) {
    CreateEmptyGroup(Document());
    SetGroupLook(Document(), Document().State().CurrentGroup, {name, 0, true});
  }
  SetCurrentGroup(Document(), -1);
  auto* box = window_.findChild<QComboBox*>(QStringLiteral("104"));
  EXPECT_EQ(box->currentText(), QStringLiteral("No Group"));
  EXPECT_EQ(box->itemText(2), QStringLiteral("Arches"));

  for (const int index : {2, 0}) {
    box->setCurrentIndex(index);
    emit box->activated(index);
    EXPECT_EQ(Document().State().CurrentGroup, index - 1);
    EXPECT_EQ(box->currentIndex(), index);
  }
}

TEST_F(LevelTest, ALetterOfTwoLinesWalksThemAndTheBarOpensByItsKeys) {
  const auto press = [](int key, Qt::KeyboardModifiers keys = {}) {
    QWidget* menu = QApplication::activePopupWidget();
    QTest::keyClick(menu != nullptr ? menu : QApplication::focusWidget(), static_cast<Qt::Key>(key),
                    keys);
  };
  const auto chosen = [] {
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    return menu == nullptr || menu->activeAction() == nullptr
               ? std::string()
               : TextFromQt(menu->activeAction()->text());
  };
  const auto open = [this] {
    const QAction* title = window_.menuBar()->activeAction();
    return title == nullptr ? std::string() : TextFromQt(title->text());
  };
  ActiveWidget().setFocus();
  for (const char* title : {"&Edit", "&Entities", "&Edit"}) {
    press(Qt::Key_E, Qt::AltModifier);
    EXPECT_EQ(open(), title);
  }
  press(Qt::Key_Escape);
  press(Qt::Key_Escape);
  press(Qt::Key_V, Qt::AltModifier);
  for (const char* line : {"&Toolbar", "&Tools", "&Toolbar"}) {
    press(Qt::Key_T);
    EXPECT_EQ(chosen(), line);
  }
  press(Qt::Key_Return);
  EXPECT_FALSE(window_.AreToolbarsVisible());
  press(Qt::Key_B, Qt::AltModifier);
  for (int i = 0; i < 2; ++i) {
    press(Qt::Key_A);
    EXPECT_EQ(chosen(), "&Add to World") << "the other line with this letter is greyed";
  }
  press(Qt::Key_Escape);
  press(Qt::Key_Escape);
  press(Qt::Key_F10);
  EXPECT_NE(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(open(), "&File");
  press(Qt::Key_Escape);
  press(Qt::Key_Escape);
  EXPECT_EQ(open(), "");
  const QImage before = window_.menuBar()->grab().toImage();
  press(Qt::Key_Alt);
  EXPECT_EQ(open(), "&File");
  EXPECT_NE(window_.menuBar()->grab().toImage(), before) << "and shows that it has the keys";
}

TEST_F(LevelTest, TheGroupBoxGivesTheKeysBackAndTurnsOnlyWithTheFocus) {
  CreateEmptyGroup(Document());
  CreateEmptyGroup(Document());
  SetCurrentGroup(Document(), -1);
  auto* box = window_.findChild<QComboBox*>(QStringLiteral("104"));
  const auto turn = [box] {
    QWheelEvent wheel({9, 9}, box->mapToGlobal(QPointF(9, 9)), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
  };
  ActiveWidget().setFocus();
  for (const bool byMouse : {true, false}) {
    turn();
    EXPECT_EQ(Document().State().CurrentGroup, byMouse ? -1 : 1);
    if (byMouse) {
      QTest::mouseClick(box, Qt::LeftButton);
      for (const int key : {Qt::Key_Down, Qt::Key_Return}) {
        QTest::keyClick(box->view(), static_cast<Qt::Key>(key));
      }
    } else {
      box->setFocus(Qt::TabFocusReason);
      turn();
      EXPECT_EQ(Document().State().CurrentGroup, 1);
      QTest::keyClick(box, Qt::Key_Up);
      EXPECT_TRUE(box->hasFocus()) << "the next step may follow";
      QTest::keyClick(box, Qt::Key_Return);
    }
    EXPECT_EQ(Document().State().CurrentGroup, 0);
    EXPECT_EQ(QApplication::focusWidget(), &ActiveWidget());
    if (byMouse) SetCurrentGroup(Document(), 1);
  }
  box->setFocus(Qt::TabFocusReason);
  QTest::keyClick(box, Qt::Key_F4);
  QTest::keyClick(box->view(), Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), &ActiveWidget());
}

TEST_F(LevelTest, KeysRestWhileATextFieldOrADialogHasTheFocus) {
  QLineEdit field(&window_);
  field.show();
  field.setFocus();
  QTest::keyClicks(&field, QStringLiteral("xg"));
  EXPECT_EQ(field.text(), QStringLiteral("xg"));
  EXPECT_EQ(Document().State().GroupMovementMode, 0);

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
  QTest::keyClick(&ActiveWidget(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(app_.Documents().size(), 2U);
}

TEST_F(LevelTest, PromptsComeAndGoMessagesSurviveAClosingMenuAndFailuresEveryPrompt) {
  const auto prompt = [this] { return window_.statusBar()->findChild<QLabel*>()->text(); };
  const auto hover = [this](const char* tip) {
    QStatusTipEvent event{QLatin1String(tip)};
    QApplication::sendEvent(&window_, &event);
  };
  hover("Create a new level");
  EXPECT_EQ(prompt(), QStringLiteral("Create a new level"));
  desktop_.SetStatusText("Cannot save");
  hover("");
  EXPECT_EQ(prompt(), QStringLiteral("Cannot save"));
  hover("Create a new level");
  hover("");
  EXPECT_EQ(prompt(), QStringLiteral("For Help, press F1"));

  desktop_.SetStatusText("Saved");
  desktop_.ShowFailure("Cannot save");
  EXPECT_EQ(prompt(), QStringLiteral("Cannot save"));
  for (const char* covering : {"Create a new level", "Open a level"}) {
    hover(covering);
    EXPECT_EQ(prompt(), QLatin1String(covering));
    hover("");
    EXPECT_EQ(prompt(), QStringLiteral("Cannot save"));
  }
  desktop_.SetStatusText("Opened");
  EXPECT_EQ(prompt(), QStringLiteral("Opened"));
  desktop_.ClearFailure();
  EXPECT_EQ(prompt(), QStringLiteral("Opened"));
  hover("x");
  hover("");
  EXPECT_EQ(prompt(), QStringLiteral("For Help, press F1"));

  const auto* grid = window_.findChild<QLabel*>(QStringLiteral("gridPane"));
  Choose(ID_USE_GRID);
  EXPECT_EQ(grid->text(), QStringLiteral("Gridsize: 64 Snap On"));
}

TEST(RecentFiles, AreRememberedWhateverBytesTheirNamesHave) {
  const QTemporaryDir folder;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  QCoreApplication::setOrganizationName(QStringLiteral("zando-test"));
  const std::vector<std::filesystem::path> files{"/a/b c.3dz", "/a/\xc3\xa4,=;.3dz"};
  CSettingsRecentFiles().Save(files);
  EXPECT_EQ(CSettingsRecentFiles().Load(), files);
}

TEST(Tiling, CoversTheAreaWithoutGapsForAnyNumberOfWindows) {
  const QRect area(3, 5, 1001, 703);
  for (const TileOrder order : {TileOrder::Stacked, TileOrder::SideBySide}) {
    for (int count = 1; count <= 17; ++count) {
      const std::vector<QRect> places = TileArea(area, count, order);
      EXPECT_EQ(static_cast<int>(places.size()), count);
      QRegion covered;
      for (const QRect& place : places) {
        EXPECT_FALSE(covered.intersects(place)) << count;
        covered += place;
      }
      EXPECT_EQ(covered, QRegion(area)) << count;
    }
  }
  EXPECT_EQ(TileArea(area, 3, TileOrder::Stacked)[1].width(), area.width());
  EXPECT_EQ(TileArea(area, 3, TileOrder::SideBySide)[1].height(), area.height());
}

}  // namespace
}  // namespace zando::testing
