#include "paint/png_image.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstddef>

#include "paint/painter_dc.h"

namespace zando {
namespace {

Failure NoMemory() { return {"there is no memory for a picture of this size"}; }

CResult<std::string> Pack(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!image.save(&buffer, "PNG")) return Failure{"the picture cannot be packed"};
  return bytes.toStdString();
}

}  // namespace

CResult<std::string> PaintPng(std::int32_t width, std::int32_t height,
                              const std::function<void(CDC&)>& paint) {
  QImage image(width, height, QImage::Format_RGB32);
  if (image.isNull()) return NoMemory();
  image.fill(Qt::black);
  {
    QPainter painter(&image);
    CPainterDC dc(painter, image.size());
    paint(dc);
  }
  return Pack(image);
}

CResult<std::string> PackPng(const IndexedPicture& picture) {
  QImage image(picture.width, picture.height, QImage::Format_Indexed8);
  if (image.isNull()) return NoMemory();
  image.setColorCount(static_cast<int>(picture.colors.size()));
  for (std::size_t i = 0; i < picture.colors.size(); ++i) {
    const RgbQuad& color = picture.colors[i];
    image.setColor(static_cast<int>(i), qRgb(color.red, color.green, color.blue));
  }
  for (int y = 0; y < picture.height; ++y) {
    const auto width = static_cast<std::size_t>(picture.width);
    const auto row = picture.pixels.subspan(static_cast<std::size_t>(y) * width, width);
    std::copy(row.begin(), row.end(), image.scanLine(y));
  }
  return Pack(image);
}

}  // namespace zando
