#include "desktop/window_list.h"

#include <QAction>
#include <utility>

#include "desktop/qt_text.h"

namespace zando {

CWindowList::CWindowList(std::function<void(std::size_t)> activate)
    : activate_(std::move(activate)) {}

void CWindowList::Show(const std::vector<Line>& lines) {
  if (menu_ == nullptr || lines == lines_) return;
  lines_ = lines;
  // A line may be on its way from the click that chose it.
  for (QAction* action : std::exchange(actions_, {})) {
    menu_->removeAction(action);
    action->deleteLater();
  }
  for (const Line& line : lines_) AddLine(line);
}

void CWindowList::AddLine(const Line& line) {
  const std::size_t index = actions_.size();
  const QString number = QString::number(index + 1) + QLatin1Char(' ');
  QAction* action = menu_->addAction((index < 9 ? QLatin1String("&") : QLatin1String()) + number +
                                     EscapeMarks(line.name));
  action->setStatusTip(QObject::tr("Go to this window"));
  action->setCheckable(line.active);
  action->setChecked(line.active);
  QObject::connect(action, &QAction::triggered, menu_, [this, index] {
    // The click took the mark from a line that had it.
    lines_.clear();
    activate_(index);
  });
  actions_.push_back(action);
}

}  // namespace zando
