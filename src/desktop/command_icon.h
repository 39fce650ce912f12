#pragma once

#include <QIcon>
#include <QIconEngine>

namespace zando {

/// The picture of a command, drawn faint while the command is not available. Styles make grey
/// pictures of their own, which stand out more than the coloured ones on a dark background.
class CCommandIcon final : public QIconEngine {
 public:
  explicit CCommandIcon(QIcon picture);

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  [[nodiscard]] QIconEngine* clone() const override;

 private:
  QIcon picture_;
};

}  // namespace zando
