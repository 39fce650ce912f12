#pragma once

#include <QComboBox>

namespace zando {

/// The drop-down list of groups. Clicks choose in it without taking the keys from the view, and who
/// comes to it by the keyboard is given back to the view after a choice. The wheel turns only what
/// has the focus.
class CGroupBox : public QComboBox {
  Q_OBJECT

 public:
  explicit CGroupBox(QWidget* parent = nullptr);

  void hidePopup() override;

 signals:
  /// The user is done here: the keys are wanted elsewhere.
  void Left();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace zando
