#include "paint/painter_dc.h"

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace zando {
namespace {

/// Lines are cut off this far outside the surface: QPainter loses its way among coordinates beyond
/// some ten thousand pixels. Wider than any pen, so that the cut ends stay out of sight.
constexpr double kMargin = 64.0;

QColor ToQColor(ColorRef color) {
  const auto channel = [color](int shift) { return static_cast<int>(color >> shift & 0xFF); };
  return {channel(0), channel(8), channel(16)};
}

std::uint32_t ToPixel(ColorRef color) {
  return 0xFF000000U | (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

QPen ToQPen(const Pen& pen) {
  QPen result(ToQColor(pen.color), pen.width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
  result.setCosmetic(true);
  return result;
}

/// The part of the line within the rectangle (Liang and Barsky), none when it misses.
std::optional<QLineF> ClipLine(const QPointF& from, const QPointF& to, const QRectF& rect) {
  const double dx = to.x() - from.x();
  const double dy = to.y() - from.y();
  double enter = 0.0;
  double leave = 1.0;
  // The part of the line where delta * t <= room.
  const auto cut = [&enter, &leave](double delta, double room) {
    if (delta == 0.0) return room >= 0.0;
    const double t = room / delta;
    if (delta < 0.0) {
      enter = std::max(enter, t);
    } else {
      leave = std::min(leave, t);
    }
    return enter <= leave;
  };
  if (!cut(-dx, from.x() - rect.left()) || !cut(dx, rect.right() - from.x()) ||
      !cut(-dy, from.y() - rect.top()) || !cut(dy, rect.bottom() - from.y())) {
    return std::nullopt;
  }
  const auto at = [&](double t) { return QPointF(from.x() + dx * t, from.y() + dy * t); };
  return QLineF(enter > 0.0 ? at(enter) : from, leave < 1.0 ? at(leave) : to);
}

/// What an interval of coordinates leaves within 0..limit; end <= begin when nothing.
struct Interval {
  int begin;
  int end;
};
Interval Limit(std::int64_t begin, std::int64_t length, int limit) {
  const std::int64_t top = limit;
  const std::int64_t end = begin + std::max<std::int64_t>(length, 0);
  return {static_cast<int>(std::clamp<std::int64_t>(begin, 0, top)),
          static_cast<int>(std::clamp<std::int64_t>(end, 0, top))};
}

/// The way of a line along one side of a surface: from where to where in pixels, how many pixels
/// the side has, and how far apart they lie.
struct Course {
  std::int64_t from;
  std::int64_t to;
  std::int64_t limit;
  std::int64_t stride;
};

double SlopeOf(const Course& along, const Course& beside) {
  const auto length = static_cast<double>(along.to - along.from);
  return length > 0.0 ? static_cast<double>(beside.to - beside.from) / length : 0.0;
}

struct Steps {
  double first;
  double last;
};

/// The steps along a line that may lie on the surface; the first is beyond the last when none does.
Steps StepsWithin(const Course& along, const Course& beside, double slope) {
  Steps steps{static_cast<double>(std::max<std::int64_t>(along.from, 0)),
              static_cast<double>(std::min(along.to, along.limit - 1))};
  if (slope == 0.0) return 0 <= beside.from && beside.from < beside.limit ? steps : Steps{1.0, 0.0};
  // Where the line enters and leaves the rows of the surface, with a step to spare.
  const double enter = (-1.0 - static_cast<double>(beside.from)) / slope;
  const double leave = static_cast<double>(beside.limit - beside.from) / slope;
  const auto start = static_cast<double>(along.from);
  steps.first = std::max(steps.first, std::floor(start + std::min(enter, leave)) - 1.0);
  steps.last = std::min(steps.last, std::ceil(start + std::max(enter, leave)) + 1.0);
  return steps;
}

}  // namespace

CPainterDC::CPainterDC(QPainter& painter, QSize size)
    : painter_(painter), surface_(QPoint(0, 0), size), clip_(surface_) {
  painter_.setRenderHint(QPainter::Antialiasing, false);
  painter_.setPen(ToQPen(applied_));
  if (painter_.hasClipping()) {
    clip_ = painter_.clipBoundingRect().toAlignedRect().intersected(surface_);
  }
  pixels_ = FindPixels();
}

CPainterDC::Pixels CPainterDC::FindPixels() const {
  QPaintDevice* device = painter_.device();
  if (device->devType() != QInternal::Image || painter_.hasClipping()) return {};
  if (!painter_.combinedTransform().isIdentity()) return {};
  auto& image = *static_cast<QImage*>(device);
  if (image.format() != QImage::Format_RGB32 || image.size() != surface_.size()) return {};
  return {reinterpret_cast<std::uint32_t*>(image.bits()), image.bytesPerLine() / 4};
}

void CPainterDC::ResetClip() {
  painter_.setClipping(false);
  clip_ = surface_;
  pixels_ = FindPixels();
}

Pen CPainterDC::SelectPen(const Pen& pen) {
  const Pen before = pen_;
  pen_ = pen;
  return before;
}

ScreenPoint CPainterDC::SetViewportOrg(ScreenPoint origin) {
  const ScreenPoint before = origin_;
  origin_ = origin;
  return before;
}

void CPainterDC::MoveTo(ScreenPoint point) { position_ = point; }

void CPainterDC::LineTo(ScreenPoint point) {
  DrawLine(position_, point);
  position_ = point;
}

void CPainterDC::Polyline(std::span<const ScreenPoint> points) {
  for (std::size_t i = 1; i < points.size(); ++i) DrawLine(points[i - 1], points[i]);
}

void CPainterDC::FillSolidRect(std::int32_t x, std::int32_t y, std::int32_t width,
                               std::int32_t height, ColorRef color) {
  const Interval across = Limit(std::int64_t{x} + origin_.x, width, surface_.width());
  const Interval down = Limit(std::int64_t{y} + origin_.y, height, surface_.height());
  const QRect rect(across.begin, down.begin, across.end - across.begin, down.end - down.begin);
  if (rect.isEmpty()) return;
  if (pixels_.first == nullptr) {
    painter_.fillRect(rect, ToQColor(color));
    return;
  }
  const std::uint32_t pixel = ToPixel(color);
  std::uint32_t* row = pixels_.first + rect.top() * pixels_.stride + rect.left();
  for (int left = rect.height(); left > 0; --left, row += pixels_.stride) {
    std::fill_n(row, rect.width(), pixel);
  }
}

void CPainterDC::StretchDIBits(ScreenPoint at, const IndexedPicture& picture) {
  std::array<std::uint32_t, 256> colors;
  std::transform(picture.colors.begin(), picture.colors.end(), colors.begin(),
                 [](const RgbQuad& c) { return ToPixel(Rgb(c.red, c.green, c.blue)); });
  const std::int64_t left = std::int64_t{at.x} + origin_.x;
  const std::int64_t top = std::int64_t{at.y} + origin_.y;
  const Interval across = Limit(left, picture.width, surface_.width());
  const Interval down = Limit(top, picture.height, surface_.height());
  const int width = across.end - across.begin;
  if (width <= 0 || down.end <= down.begin) return;
  const auto draw = [&](std::uint32_t* target, std::int64_t stride) {
    for (int y = down.begin; y < down.end; ++y, target += stride) {
      const std::uint8_t* source =
          picture.pixels.data() + (y - top) * picture.width + (across.begin - left);
      std::transform(source, source + width, target,
                     [&colors](std::uint8_t index) { return colors[index]; });
    }
  };
  if (pixels_.first != nullptr) {
    draw(pixels_.first + down.begin * pixels_.stride + across.begin, pixels_.stride);
    return;
  }
  QImage part(width, down.end - down.begin, QImage::Format_RGB32);
  if (part.isNull()) return;
  draw(reinterpret_cast<std::uint32_t*>(part.bits()), part.bytesPerLine() / 4);
  painter_.drawImage(across.begin, down.begin, part);
}

bool CPainterDC::PtVisible(ScreenPoint point) const {
  const std::int64_t x = std::int64_t{point.x} + origin_.x;
  const std::int64_t y = std::int64_t{point.y} + origin_.y;
  return x >= clip_.left() && x <= clip_.right() && y >= clip_.top() && y <= clip_.bottom();
}

void CPainterDC::ApplyPen() {
  if (applied_ == pen_) return;
  painter_.setPen(ToQPen(pen_));
  applied_ = pen_;
}

void CPainterDC::DrawLine(ScreenPoint from, ScreenPoint to) {
  if (pixels_.first != nullptr && pen_.width <= 1) {
    DrawThinLine(from, to);
    return;
  }
  const auto onSurface = [this](ScreenPoint point) {
    return QPointF(static_cast<double>(point.x) + origin_.x,
                   static_cast<double>(point.y) + origin_.y);
  };
  const QRectF room = QRectF(surface_).adjusted(-kMargin, -kMargin, kMargin, kMargin);
  const std::optional<QLineF> line = ClipLine(onSurface(from), onSurface(to), room);
  if (!line) return;
  ApplyPen();
  painter_.drawLine(*line);
}

/// One pixel for every step along the longer of the two extents. The pixels of a line do not depend
/// on how much of it lies within the surface, nor on its direction.
void CPainterDC::DrawThinLine(ScreenPoint from, ScreenPoint to) {
  Course x{std::int64_t{from.x} + origin_.x, std::int64_t{to.x} + origin_.x, surface_.width(), 1};
  Course y{std::int64_t{from.y} + origin_.y, std::int64_t{to.y} + origin_.y, surface_.height(),
           pixels_.stride};
  const bool isSteep = std::abs(y.to - y.from) > std::abs(x.to - x.from);
  Course& along = isSteep ? y : x;
  Course& beside = isSteep ? x : y;
  if (along.from > along.to) {
    std::swap(along.from, along.to);
    std::swap(beside.from, beside.to);
  }
  const double slope = SlopeOf(along, beside);
  const auto [first, last] = StepsWithin(along, beside, slope);
  if (first > last) return;

  // The place beside the line in 32 binary digits after the point.
  constexpr double kOne = 4294967296.0;
  const double offset = (first - static_cast<double>(along.from)) * slope;
  const double start = static_cast<double>(beside.from) + offset + 0.5;
  auto place = static_cast<std::int64_t>(std::floor(start * kOne));
  const auto step = static_cast<std::int64_t>(std::floor(slope * kOne));
  const std::uint32_t pixel = ToPixel(pen_.color);
  const auto end = static_cast<std::int64_t>(last);
  std::uint32_t* at = pixels_.first + static_cast<std::int64_t>(first) * along.stride;
  for (auto i = static_cast<std::int64_t>(first); i <= end; ++i) {
    const std::int64_t row = place >> 32;
    if (row >= 0 && row < beside.limit) at[row * beside.stride] = pixel;
    at += along.stride;
    place += step;
  }
}

}  // namespace zando
