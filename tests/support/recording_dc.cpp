#include "support/recording_dc.h"

#include <cstdio>
#include <utility>

namespace zando::testing {
namespace {

std::string Pair(std::int32_t a, char between, std::int32_t b) {
  return std::to_string(a) + between + std::to_string(b);
}

std::string Place(ScreenPoint point) { return Pair(point.x, ',', point.y); }

std::string Digits(ColorRef color) {
  char digits[7];
  std::snprintf(digits, sizeof digits, "%02X%02X%02X", color & 0xFFU, color >> 8U & 0xFFU,
                color >> 16U & 0xFFU);
  return digits;
}

}  // namespace

int CRecordingDC::Count(std::string_view words) const {
  int count = 0;
  for (auto at = Text.find(words); at != std::string::npos; at = Text.find(words, at + 1)) ++count;
  return count;
}

Pen CRecordingDC::SelectPen(const Pen& pen) {
  Text += "pen " + Digits(pen.color) + " " + std::to_string(pen.width) + "; ";
  return std::exchange(pen_, pen);
}

ScreenPoint CRecordingDC::SetViewportOrg(ScreenPoint origin) {
  Text += "org " + Place(origin) + "; ";
  return std::exchange(origin_, origin);
}

void CRecordingDC::MoveTo(ScreenPoint point) { Text += "move " + Place(point) + "; "; }

void CRecordingDC::LineTo(ScreenPoint point) { Text += "line " + Place(point) + "; "; }

void CRecordingDC::Polyline(std::span<const ScreenPoint> points) {
  Text += "poly";
  for (const ScreenPoint& point : points) Text += " " + Place(point);
  Text += "; ";
}

void CRecordingDC::FillSolidRect(std::int32_t x, std::int32_t y, std::int32_t width,
                                 std::int32_t height, ColorRef color) {
  Text += "fill " + Pair(x, ',', y) + " " + Pair(width, 'x', height) + " " + Digits(color) + "; ";
}

void CRecordingDC::StretchDIBits(ScreenPoint at, const IndexedPicture& picture) {
  Text += "dib " + Place(at) + " " + Pair(picture.width, 'x', picture.height) + "; ";
}

bool CRecordingDC::PtVisible(ScreenPoint point) const {
  const std::int32_t x = point.x + origin_.x;
  const std::int32_t y = point.y + origin_.y;
  return x >= 0 && x < width_ && y >= 0 && y < height_;
}

}  // namespace zando::testing
