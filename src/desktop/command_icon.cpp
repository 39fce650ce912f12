#include "desktop/command_icon.h"

#include <QPainter>
#include <QPixmap>
#include <utility>

namespace zando {
namespace {

constexpr double kFaint = 0.35;

}  // namespace

CCommandIcon::CCommandIcon(QIcon picture) : picture_(std::move(picture)) {}

void CCommandIcon::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                         QIcon::State state) {
  const double before = painter->opacity();
  if (mode == QIcon::Disabled) painter->setOpacity(before * kFaint);
  picture_.paint(painter, rect, Qt::AlignCenter, QIcon::Normal, state);
  painter->setOpacity(before);
}

QPixmap CCommandIcon::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  QPixmap result(size);
  result.fill(Qt::transparent);
  QPainter painter(&result);
  paint(&painter, QRect(QPoint(0, 0), size), mode, state);
  return result;
}

QIconEngine* CCommandIcon::clone() const { return new CCommandIcon(*this); }

}  // namespace zando
