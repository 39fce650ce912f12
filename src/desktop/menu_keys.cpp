#include "desktop/menu_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QStyleOption>
#include <algorithm>

namespace zando {
namespace {

bool IsLetter(const QKeyEvent& event) {
  const Qt::KeyboardModifiers others = event.modifiers() & ~(Qt::AltModifier | Qt::ShiftModifier);
  return others == Qt::NoModifier && event.text().size() == 1 && event.text().front().isPrint();
}

/// The visible lines that have this letter.
QList<QAction*> LinesOf(const QMenu& menu, QChar letter) {
  const QKeySequence wanted(Qt::AltModifier | Qt::Key(letter.toUpper().unicode()));
  QList<QAction*> lines = menu.actions();
  lines.removeIf([&](const QAction* line) {
    return !line->isVisible() || QKeySequence::mnemonic(line->text()) != wanted;
  });
  return lines;
}

void Press(QMenu& menu, Qt::Key key) {
  QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(&menu, &event);
}

/// As the arrow keys do it: a submenu that the walk comes to stays closed.
void WalkTo(QMenu& menu, const QAction* line) {
  for (qsizetype steps = menu.actions().size(); steps > 0; --steps) {
    if (menu.activeAction() == line) return;
    Press(menu, Qt::Key_Down);
  }
}

}  // namespace

CSharedLetters::CSharedLetters(QMenu& menu) : QObject(&menu), menu_(menu) {
  menu.installEventFilter(this);
}

bool CSharedLetters::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto& key = *static_cast<const QKeyEvent*>(event);
  if (!IsLetter(key)) return QObject::eventFilter(watched, event);
  QList<QAction*> lines = LinesOf(menu_, key.text().front());
  if (lines.size() < 2) return QObject::eventFilter(watched, event);
  lines.removeIf([](const QAction* line) { return !line->isEnabled(); });
  if (lines.empty()) return true;
  const qsizetype now = lines.indexOf(menu_.activeAction());
  WalkTo(menu_, lines[(now + 1) % lines.size()]);
  return true;
}

void CMenuBarStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (element != CE_MenuBarItem || item == nullptr || !item->state.testFlag(State_Selected)) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  QStyleOptionMenuItem opened(*item);
  opened.state |= State_Sunken;
  QProxyStyle::drawControl(element, &opened, painter, widget);
}

void BindMenuKeys(QWidget& window, QMenuBar& bar) {
  auto* style = new CMenuBarStyle;
  style->setParent(&bar);
  bar.setStyle(style);
  const auto* key = new QShortcut(QKeySequence(Qt::Key_F10), &window);
  QObject::connect(key, &QShortcut::activated, &bar, [&bar] {
    if (!bar.actions().empty()) bar.setActiveAction(bar.actions().front());
  });
}

}  // namespace zando
