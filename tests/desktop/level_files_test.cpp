// Levels come, change, go to files and come back, through the real window.
#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

#include "desktop/editor_fixture.h"
#include "desktop/qt_text.h"
#include "dialogs/group_attributes_dlg.h"
#include "document/entity_edits.h"
#include "platform/file_io.h"

namespace zando::testing {
namespace {

TEST_F(LevelTest, TheWindowTellsWhetherItsLevelIsSavedAndTheMenuWhere) {
  Choose(ID_ADD_TO_WORLD);
  EXPECT_TRUE(window_.isWindowModified());
  desktop_.Script.Files = {FileIn("first.3dz")};
  Choose(ID_FILE_SAVE_AS);
  EXPECT_FALSE(window_.isWindowModified());
  EXPECT_TRUE(MenuItem(ID_FILE_MRU_FIRST)->text().endsWith(QLatin1String("first.3dz")));
}

TEST_F(EditorTest, DroppedLevelsOpen) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QStringLiteral(ZANDO_EXAMPLES "/keep.3dz"))});
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window_, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window_, &drop);
  EXPECT_TRUE(window_.windowTitle().contains(QLatin1String("keep.3dz")));
}

TEST_F(EditorTest, BoxesOfferTheAnswersThatTheyReturn) {
  CQtDesktop real(window_);
  const auto press = [](QMessageBox::StandardButton button) {
    WithNextDialog(
        [button](QDialog& dialog) { dynamic_cast<QMessageBox&>(dialog).button(button)->click(); });
  };
  press(QMessageBox::Save);
  EXPECT_EQ(real.AskSaveChanges("a"), SaveAnswer::Save);
  press(QMessageBox::Discard);
  EXPECT_EQ(real.AskSaveChanges("a"), SaveAnswer::Discard);
  press(QMessageBox::Yes);
  EXPECT_EQ(real.AskYesNo("Overwrite?"), YesNo::Yes);

  const auto escape = [](QDialog& dialog) { dialog.reject(); };
  WithNextDialog(escape);
  EXPECT_EQ(real.AskSaveChanges("a"), SaveAnswer::Cancel);
  WithNextDialog(escape);
  EXPECT_EQ(real.AskYesNo("Overwrite?"), YesNo::No);
  WithNextDialog(escape);
  EXPECT_EQ(real.ChooseFile({}), std::nullopt);
}

TEST_F(EditorTest, ChoosersTakeANameWithOrWithoutTheExtension) {
  CQtDesktop real(window_);
  FileRequest request{.title = "Choose",
                      .extension = "3dz",
                      .filter = "ZANDO Files (*.3dz)|*.3dz|All Files (*.*)|*.*||",
                      .proposal = FileIn("")};
  const auto chosen = [&](const char* typed) {
    WithNextDialog([typed](QDialog& dialog) {
      EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).nameFilters().join('|'),
                QStringLiteral("ZANDO Files (*.3dz)|All Files (*)"));
      if (typed != nullptr) dialog.findChild<QLineEdit*>()->setText(QLatin1String(typed));
      QMetaObject::invokeMethod(&dialog, "accept");
      if (dialog.isVisible()) dialog.reject();
    });
    return real.ChooseFile(request);
  };
  for (const char* name : {"plain", "level.3dz"}) {
    ASSERT_TRUE(WriteFileAtomically(FileIn(name), "x"));
  }
  EXPECT_EQ(chosen("plain"), FileIn("plain"));
  EXPECT_EQ(chosen("level"), FileIn("level.3dz"));
  EXPECT_EQ(chosen("level.3dz"), FileIn("level.3dz"));
  request.kind = FileRequest::Kind::Save;
  request.proposal = FileIn("proposed");
  EXPECT_EQ(chosen(nullptr), FileIn("proposed.3dz"));
}

TEST_F(EditorTest, WhatOpensOverADialogBelongsToItAndGivesTheFocusBack) {
  CQtDesktop real(window_);
  QDialog dialog(&window_);
  QLineEdit field(&dialog);
  QLineEdit other(&dialog);
  CZANDODoc level;
  CGroupAttributesDlg second(level, real);
  const std::function<void()> openers[] = {
      [&] { real.ShowMessage("a"); }, [&] { static_cast<void>(real.ChooseColor(0)); },
      [&] { static_cast<void>(real.ChooseFile({})); }, [&] { second.Run(); }};
  for (const auto& open : openers) {
    WithNextDialog([&](QDialog&) {
      other.setFocus();
      WithNextDialog([&](QDialog& upper) {
        EXPECT_EQ(upper.parentWidget(), &dialog);
        EXPECT_TRUE(upper.isModal());
        upper.reject();
      });
      open();
      EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
      EXPECT_EQ(dialog.focusWidget(), &other);
      dialog.reject();
    });
    dialog.exec();
  }
}

}  // namespace
}  // namespace zando::testing
