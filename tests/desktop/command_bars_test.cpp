// Menus, toolbars, keys and status bar of the real main window against what is given.
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
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
#include "document/brush_edits.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"
#include "support/given_texts.h"

namespace zando::testing {
namespace {

/// What a menu line shows of the keys of a command.
std::string FirstKeyOf(CommandId id) {
  const std::size_t end = kGivenKeys.find(' ' + std::to_string(id) + '|');
  if (end == std::string_view::npos) return {};
  const std::size_t begin = kGivenKeys.rfind('|', end) + 1;  // 0 before the first
  return "\t" + std::string(kGivenKeys.substr(begin, end - begin));
}

/// The lines of a menu as the given texts spell them; each shows its first key, its prompt and its
/// state.
std::string LinesOf(CEditorApp& app, const QList<QAction*>& actions, const std::string& indent) {
  std::string lines;
  for (const QAction* action : actions) {
    const std::string text = TextFromQt(action->text());
    if (action->menu() != nullptr) {
      emit action->menu()->aboutToShow();
      lines += indent + text + '|' + LinesOf(app, action->menu()->actions(), indent + '>');
      continue;
    }
    const CommandId id = action->data().toInt();
    const bool isRecent = id == ID_FILE_MRU_FIRST;
    if (!action->isVisible() && !isRecent) continue;
    lines += indent;
    if (action->isSeparator() || isRecent || id == 0) {
      lines += action->isSeparator() ? "-|" : isRecent ? "recent files|" : "open windows|";
      continue;
    }
    const std::string keys = FirstKeyOf(id);
    EXPECT_TRUE(text.ends_with(keys)) << text;
    lines += std::to_string(id) + ' ' + text.substr(0, text.size() - keys.size()) + '|';
    EXPECT_EQ(TextFromQt(action->statusTip()), FindCommand(id)->prompt);
    const CCmdUI ui = app.Query(id);
    EXPECT_EQ(action->isEnabled(), ui.IsEnabled()) << text;
    EXPECT_EQ(action->isChecked(), ui.IsChecked()) << text;
  }
  return lines;
}

TEST_F(EditorTest, EveryMenuLineThatIsGivenIsThereWithKeyPromptAndState) {
  const auto shown = [this] { return LinesOf(app_, window_.menuBar()->actions(), ""); };
  EXPECT_EQ(shown(), kGivenEmptyMenu);
  app_.Start({});
  PlaceLight(Document());
  EXPECT_EQ(shown(), kGivenDocumentMenu);

  // A picked brush enables more; the menus follow.
  AddToWorld(Document());
  SetCurrentBrush(Document(), 0);
  EXPECT_EQ(shown(), kGivenDocumentMenu);
  EXPECT_TRUE(MenuItem(ID_DELETE_BRUSH)->isEnabled());

  Document().SetModifiedFlag(false);
  Choose(ID_FILE_CLOSE);
  EXPECT_EQ(shown(), kGivenEmptyMenu);
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
  EXPECT_TRUE(std::ranges::equal(buttons, expected));
}

TEST_F(EditorTest, ToolbarsShowTheGivenButtonsWithPicturesAfterTheGroupBox) {
  ExpectButtons(*window_.findChild<QToolBar*>(QStringLiteral("mainToolbar")), kGivenMainToolbar);
  const auto* second = window_.findChild<QToolBar*>(QStringLiteral("secondToolbar"));
  std::vector<CommandId> expected{0};  // the gap after the box
  expected.insert(expected.end(), kGivenSecondToolbar.begin(), kGivenSecondToolbar.end());
  ExpectButtons(*second, expected);
  EXPECT_EQ(second->widgetForAction(second->actions().front())->objectName(), "104");
  app_.Run(ID_VIEW_TOOLBAR);
  EXPECT_TRUE(second->isHidden());
}

TEST_F(LevelTest, ALetterOfTwoLinesWalksThemAndTheBarOpensByItsKeys) {
  const auto press = [](const char* keys) {
    const QKeyCombination key = QKeySequence(QLatin1String(keys))[0];
    QWidget* menu = QApplication::activePopupWidget();
    QTest::keyClick(menu != nullptr ? menu : QApplication::focusWidget(), key.key(),
                    key.keyboardModifiers());
  };
  /// The line that has the keys, or the menu while no line has.
  const auto chosen = [this] {
    const QAction* action = window_.menuBar()->activeAction();
    if (const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
      if (menu->activeAction() != nullptr) action = menu->activeAction();
    }
    return action == nullptr ? std::string() : TextFromQt(action->text());
  };
  ActiveWidget().setFocus();
  std::string walk;
  for (const char* keys : {"Alt+E", "Alt+E", "Alt+E", "Esc", "Esc", "Alt+V", "T", "T", "T",
                           "Return", "Alt+B", "A", "A", "Esc", "Esc", "F10", "Esc", "Esc"}) {
    press(keys);
    walk += chosen() + ' ';
  }
  EXPECT_EQ(walk,
            "&Edit Place &Light &Edit &Edit  Texture &Browser &Toolbar &Tools &Toolbar  "
            "&Select Brush &Add to World &Add to World &Brush  &File &File  ");
  EXPECT_FALSE(window_.AreToolbarsVisible());
  const QImage before = window_.menuBar()->grab().toImage();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Alt);
  EXPECT_EQ(chosen(), "&File");
  EXPECT_NE(window_.menuBar()->grab().toImage(), before) << "and shows that it has the keys";
}

TEST_F(LevelTest, TheGroupBoxSetsTheCurrentGroupByMouseKeysAndWheelAndGivesTheKeysBack) {
  for (const char* name : {"Walls", "Arches"}) {
    CreateEmptyGroup(Document());
    SetGroupLook(Document(), Document().State().CurrentGroup, {name, 0, true});
  }
  SetCurrentGroup(Document(), -1);
  auto* box = window_.findChild<QComboBox*>(QStringLiteral("104"));
  EXPECT_EQ(box->currentText(), QStringLiteral("No Group"));
  EXPECT_EQ(box->itemText(2), QStringLiteral("Arches"));
  const auto turn = [box] {
    QWheelEvent wheel({9, 9}, box->mapToGlobal(QPointF(9, 9)), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
  };
  const auto expect = [this](std::int32_t group) {
    EXPECT_EQ(Document().State().CurrentGroup, group);
  };
  ActiveWidget().setFocus();
  turn();
  expect(-1);
  QTest::mouseClick(box, Qt::LeftButton);
  QTest::keyClick(box->view(), Qt::Key_Down);
  QTest::keyClick(box->view(), Qt::Key_Return);
  expect(0);
  EXPECT_EQ(QApplication::focusWidget(), &ActiveWidget());
  turn();
  expect(0);
  box->setFocus(Qt::TabFocusReason);
  turn();
  expect(1);
  QTest::keyClick(box, Qt::Key_Up);
  EXPECT_TRUE(box->hasFocus()) << "the next step may follow";
  QTest::keyClick(box, Qt::Key_Return);
  expect(0);
  EXPECT_EQ(QApplication::focusWidget(), &ActiveWidget());
  box->setFocus(Qt::TabFocusReason);
  QTest::keyClick(box, Qt::Key_F4);
  QTest::keyClick(box->view(), Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), &ActiveWidget());
}

TEST_F(LevelTest, KeysRestWhileATextFieldHasTheFocus) {
  QLineEdit field(&window_);
  field.show();
  field.setFocus();
  QTest::keyClicks(&field, QStringLiteral("xg"));
  EXPECT_EQ(field.text(), QStringLiteral("xg"));
  EXPECT_EQ(Document().State().GroupMovementMode, 0);
  ActiveWidget().setFocus();
  QTest::keyClick(&ActiveWidget(), Qt::Key_X);
  EXPECT_EQ(ActiveEditingView().AxisFlags(), kAxisY | kAxisZ);
}

TEST_F(LevelTest, PromptsComeAndGoMessagesSurviveAClosingMenuAndFailuresEveryPrompt) {
  const auto prompt = [this] { return window_.statusBar()->findChild<QLabel*>()->text(); };
  const auto hover = [this](const char* tip) {
    QStatusTipEvent event{QLatin1String(tip)};
    QApplication::sendEvent(&window_, &event);
  };
  hover("Create a new level");
  EXPECT_EQ(prompt(), QStringLiteral("Create a new level"));
  desktop_.SetStatusText("Saved");
  desktop_.ShowFailure("Cannot save");
  EXPECT_EQ(prompt(), QStringLiteral("Cannot save"));
  hover("Create a new level");
  hover("");
  hover("");
  EXPECT_EQ(prompt(), QStringLiteral("Cannot save"));
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

TEST_F(LevelTest, OfWhatIsDoneWhileABarIsShownOnlyEscapeAndClosingCount) {
  const auto bar = [this] { return window_.statusBar()->findChild<QProgressBar*>(); };
  const std::function<void()> cancels[] = {
      [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); },
      [this] { window_.close(); }, [] {}};
  ActiveWidget().setFocus();
  for (const auto& cancel : cancels) {
    int meanwhile = 0;
    QTimer::singleShot(0, [&] {
      ++meanwhile;
      EXPECT_TRUE(bar() != nullptr && bar()->isVisible() && bar()->value() > 0);
      for (const Qt::Key key : {Qt::Key_X, Qt::Key_G}) {
        QTest::keyClick(QApplication::focusWidget(), key);
      }
      const auto* toolbar = window_.findChild<QToolBar*>(QStringLiteral("mainToolbar"));
      QTest::mouseClick(toolbar->widgetForAction(MenuItem(ID_FILE_NEW)), Qt::LeftButton);
      MenuItem(ID_FILE_NEW)->trigger();
      cancel();
    });
    bool cancelled = false;
    try {
      const auto progress = desktop_.ShowProgress("Working");
      progress->Expect(100);
      for (int step = 0; step < 100; ++step, QTest::qSleep(1)) progress->StepIt();
    } catch (const CCancelled&) {
      cancelled = true;
    }
    EXPECT_EQ(cancelled, &cancel != &cancels[2]);
    EXPECT_EQ(meanwhile, 1);
    EXPECT_EQ(bar(), nullptr);
    EXPECT_TRUE(window_.isVisible());
    EXPECT_EQ(app_.Documents().size(), 1U);
    EXPECT_EQ(ActiveEditingView().AxisFlags(), kAxisX | kAxisY | kAxisZ);
    EXPECT_EQ(Document().State().GroupMovementMode, 0);
  }
}

TEST(RecentFiles, AreRememberedWhateverBytesTheirNamesHave) {
  const QTemporaryDir folder;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  QCoreApplication::setOrganizationName(QStringLiteral("zando-test"));
  const std::vector<std::filesystem::path> files{"/a/b c.3dz", "/a/\xc3\xa4,=;.3dz"};
  CSettingsRecentFiles().Save(files);
  EXPECT_EQ(CSettingsRecentFiles().Load(), files);
}

}  // namespace
}  // namespace zando::testing
