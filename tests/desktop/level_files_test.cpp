// Levels come, change, go to files and come back, through the real window.
#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>

#include "desktop/editor_fixture.h"
#include "desktop/qt_text.h"
#include "dialogs/group_attributes_dlg.h"
#include "document/entity_edits.h"
#include "platform/file_io.h"

namespace zando::testing {
namespace {

TEST_F(LevelTest, WhatIsTypedInADialogComesIntoTheLevelAndItsFile) {
  constexpr int kHeight = 1017;
  WithNextDialog([](QDialog& dialog) {
    for (auto* field : dialog.findChildren<QLineEdit*>()) {
      if (field->property("controlId") == kHeight) field->setText(QStringLiteral("72.5"));
    }
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  Choose(ID_CUBE);
  Choose(ID_ADD_TO_WORLD);
  EXPECT_TRUE(window_.isWindowModified());
  desktop_.Script.Files = {FileIn("first.3dz")};
  Choose(ID_FILE_SAVE_AS);
  EXPECT_FALSE(window_.isWindowModified());
  EXPECT_NE(ReadWholeFile(FileIn("first.3dz")).ValueOr("").find("36.25"), std::string::npos);
  EXPECT_TRUE(MenuItem(ID_FILE_MRU_FIRST)->text().endsWith(QLatin1String("first.3dz")));
}

TEST_F(EditorTest, AChangedLevelKeepsItsWindowAndTheProgramOpenUntilTheAnswer) {
  for (const bool exit : {false, true}) {
    window_.SetApplication(app_);
    app_.Start({});
    PlaceLight(Document());
    for (const SaveAnswer answer : {SaveAnswer::Cancel, SaveAnswer::Discard}) {
      const bool stays = answer == SaveAnswer::Cancel;
      desktop_.Script.SaveAnswers = {answer};
      exit ? window_.close() : Frames().back()->close();
      EXPECT_EQ(app_.Documents().size(), stays ? 1U : 0U);
      EXPECT_EQ(window_.isVisible(), !exit || stays);
    }
  }
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

TEST_F(EditorTest, OpenChooserTakesAFileByItsNameWithOrWithoutTheExtension) {
  CQtDesktop real(window_);
  FileRequest request;
  request.extension = "3dz";
  for (const char* name : {"plain", "level.3dz"}) {
    ASSERT_TRUE(WriteFileAtomically(FileIn(name), "x"));
  }
  request.proposal = FileIn("");
  for (const auto& [typed, file] :
       {std::pair{"plain", "plain"}, {"level", "level.3dz"}, {"level.3dz", "level.3dz"}}) {
    WithNextDialog([name = typed](QDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText(QLatin1String(name));
      QMetaObject::invokeMethod(&dialog, "accept");
      if (dialog.isVisible()) dialog.reject();
    });
    EXPECT_EQ(real.ChooseFile(request), FileIn(file)) << typed;
  }
}

TEST_F(EditorTest, WhatOpensOverADialogBelongsToItAndGivesTheFocusBack) {
  CQtDesktop real(window_);
  QDialog dialog(&window_);
  QLineEdit field(&dialog);
  QLineEdit other(&dialog);
  CZANDODoc level;
  CGroupAttributesDlg second(level, real);
  const std::function<void()> openers[] = {[&] { real.ShowMessage("a"); },
                                           [&] { real.ChooseColor(0); },
                                           [&] { real.ChooseFile({}); }, [&] { second.Run(); }};
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

TEST_F(EditorTest, SaveChooserAddsTheExtensionAndProposesTheName) {
  CQtDesktop real(window_);
  FileRequest request;
  request.kind = FileRequest::Kind::Save;
  request.extension = "3dz";
  request.filter = "ZANDO Files (*.3dz)|*.3dz|All Files (*.*)|*.*||";
  request.proposal = FileIn("level");
  WithNextDialog([](QDialog& dialog) {
    const auto& chooser = dynamic_cast<QFileDialog&>(dialog);
    EXPECT_EQ(chooser.nameFilters(), QStringList({QStringLiteral("ZANDO Files (*.3dz)"),
                                                  QStringLiteral("All Files (*)")}));
    QMetaObject::invokeMethod(&dialog, "accept");
  });
  EXPECT_EQ(real.ChooseFile(request), FileIn("level.3dz"));
}

}  // namespace
}  // namespace zando::testing
