#include "desktop/group_box.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QWheelEvent>

namespace zando {

CGroupBox::CGroupBox(QWidget* parent) : QComboBox(parent) { setFocusPolicy(Qt::TabFocus); }

void CGroupBox::hidePopup() {
  const bool wasOpen = view()->isVisible();
  QComboBox::hidePopup();
  if (wasOpen) emit Left();
}

void CGroupBox::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
      emit Left();
      return;
    default:
      QComboBox::keyPressEvent(event);
  }
}

void CGroupBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace zando
