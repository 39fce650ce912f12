#pragma once

#include <QPushButton>

#include "platform/draw_context.h"

namespace zando {

/// A push button that shows a colour and nothing else.
class CColorButton : public QPushButton {
  Q_OBJECT

 public:
  explicit CColorButton(QWidget* parent = nullptr);

  [[nodiscard]] ColorRef Color() const { return color_; }

  /// Shows at once.
  void SetColor(ColorRef color);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ColorRef color_ = 0xFF00FF;
};

}  // namespace zando
