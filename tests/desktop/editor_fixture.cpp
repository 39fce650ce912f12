#include "desktop/editor_fixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "desktop/qt_text.h"
#include "platform/file_io.h"

namespace zando::testing {
namespace {

QAction* FindIn(const QList<QAction*>& actions, CommandId id) {
  for (QAction* action : actions) {
    if (action->menu() != nullptr) {
      if (QAction* found = FindIn(action->menu()->actions(), id)) return found;
    } else if (action->data().isValid() && action->data().toInt() == id) {
      return action;
    }
  }
  return nullptr;
}

template <typename Answer, typename Otherwise>
Answer Next(std::deque<Answer>& answers, Otherwise otherwise) {
  EXPECT_FALSE(answers.empty()) << "nobody expected to be asked";
  if (answers.empty()) return otherwise;
  Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

}  // namespace

SaveAnswer CAnsweringDesktop::AskSaveChanges(std::string_view name) {
  SaveQuestions.emplace_back(name);
  if (WhileAsking) WhileAsking();
  return Next(SaveAnswers, SaveAnswer::Cancel);
}

std::optional<std::filesystem::path> CAnsweringDesktop::ChooseFile(const FileRequest& /*request*/) {
  return Next(Files, std::nullopt);
}

EditorTest::EditorTest() {
  window_.SetApplication(app_);
  window_.resize(1200, 800);
  window_.show();
  QApplication::setActiveWindow(&window_);
}

EditorTest::~EditorTest() { window_.CloseAllChildren(); }

QAction* EditorTest::MenuItem(CommandId id) const {
  return FindIn(window_.menuBar()->actions(), id);
}

void EditorTest::Choose(CommandId id) {
  window_.RefreshCommands();
  QAction* action = MenuItem(id);
  ASSERT_NE(action, nullptr) << id;
  ASSERT_TRUE(action->isEnabled()) << id;
  action->trigger();
}

std::vector<CChildFrame*> EditorTest::Frames() const {
  std::vector<CChildFrame*> frames;
  for (QMdiSubWindow* window : window_.findChild<QMdiArea*>()->subWindowList()) {
    frames.push_back(static_cast<CChildFrame*>(window));
  }
  return frames;
}

CZANDOView& EditorTest::ActiveEditingView() const {
  return dynamic_cast<CZANDOView&>(*window_.ActiveView());
}

CViewWidget& EditorTest::ActiveWidget() const {
  const std::vector<CChildFrame*> frames = Frames();
  const auto active = std::ranges::find(frames, window_.ActiveView(), &CChildFrame::View);
  return dynamic_cast<CViewWidget&>(
      *frames.at(static_cast<std::size_t>(active - frames.begin()))->widget());
}

std::filesystem::path EditorTest::FileIn(const char* name) const {
  return PathFromQt(folder_.filePath(QLatin1String(name)));
}

void EditorTest::WithNextDialog(std::function<void(QDialog&)> act) {
  QTimer::singleShot(1, [act = std::move(act)] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    dialog != nullptr ? act(*dialog) : WithNextDialog(act);
  });
}

void EditorTest::CreateBox(const QString& height) {
  constexpr int kHeight = 1017;
  WithNextDialog([height](QDialog& dialog) {
    for (QWidget* control : dialog.findChildren<QWidget*>()) {
      const int id = control->property("controlId").toInt();
      if (id == kHeight) qobject_cast<QLineEdit*>(control)->setText(height);
    }
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  Choose(ID_CUBE);
}

std::string BytesOf(const std::filesystem::path& path) {
  return ReadWholeFile(path).ValueOr("no such file");
}

}  // namespace zando::testing
