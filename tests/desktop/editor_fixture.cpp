#include "desktop/editor_fixture.h"

#include <QApplication>
#include <QMdiArea>
#include <QMenuBar>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "desktop/qt_text.h"

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

}  // namespace

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

}  // namespace zando::testing
