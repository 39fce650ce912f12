#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPainter>

#include "cli/png_image.h"
#include "platform/qt/painter_dc.h"

namespace zando {

PngImage PaintPng(std::int32_t width, std::int32_t height, const std::function<void(CDC&)>& paint) {
  QImage image(width, height, QImage::Format_RGB32);
  if (image.isNull()) return {std::nullopt, "there is no memory for a picture of this size"};
  image.fill(Qt::black);
  {
    QPainter painter(&image);
    CPainterDC dc(painter, image.size());
    paint(dc);
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!image.save(&buffer, "PNG")) return {std::nullopt, "the picture cannot be packed"};
  return {bytes.toStdString(), ""};
}

}  // namespace zando
