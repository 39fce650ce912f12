#pragma once

#include <QMenuBar>
#include <QObject>
#include <QProxyStyle>

namespace zando {

/// Letters of a menu that two or more of its lines have: pressed again and again, such a letter
/// walks those that are enabled, and Enter takes the one it has come to. Qt walks greyed lines as
/// well, and opens a submenu on the way, which then gets the next letter. One for each menu.
class CSharedLetters : public QObject {
 public:
  explicit CSharedLetters(QMenu& menu);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QMenu& menu_;
};

/// Shows which title of a menu bar the keys have come to, also while no menu is open.
class CMenuBarStyle : public QProxyStyle {
 public:
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
};

/// F10 opens the first menu of the bar, as Alt alone goes to its title.
void BindMenuKeys(QWidget& window, QMenuBar& bar);

}  // namespace zando
