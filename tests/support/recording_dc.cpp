#include "support/recording_dc.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace zando::testing {
namespace {

std::string Text(ScreenPoint point) {
  return std::to_string(point.x) + "," + std::to_string(point.y);
}

std::string Text(ColorRef color) {
  std::string digits(7, '\0');
  const ColorRef swapped = (color & 0xFFU) << 16 | (color & 0xFF00U) | (color >> 16 & 0xFFU);
  std::snprintf(digits.data(), digits.size(), "%06X", swapped);
  digits.resize(6);
  return digits;
}

}  // namespace

int CRecordingDC::Count(std::string_view beginning) const {
  return static_cast<int>(
      std::count_if(Lines.begin(), Lines.end(), [beginning](const std::string& line) {
        return std::string_view(line).starts_with(beginning);
      }));
}

Pen CRecordingDC::SelectPen(const Pen& pen) {
  Lines.push_back("pen " + Text(pen.color) + " " + std::to_string(pen.width));
  return std::exchange(pen_, pen);
}

ScreenPoint CRecordingDC::SetViewportOrg(ScreenPoint origin) {
  Lines.push_back("org " + Text(origin));
  return std::exchange(origin_, origin);
}

void CRecordingDC::MoveTo(ScreenPoint point) { Lines.push_back("move " + Text(point)); }

void CRecordingDC::LineTo(ScreenPoint point) { Lines.push_back("line " + Text(point)); }

void CRecordingDC::Polyline(std::span<const ScreenPoint> points) {
  std::string line = "poly";
  for (const ScreenPoint& point : points) line += " " + Text(point);
  Lines.push_back(line);
}

void CRecordingDC::FillSolidRect(std::int32_t x, std::int32_t y, std::int32_t width,
                                 std::int32_t height, ColorRef color) {
  Lines.push_back("fill " + Text(ScreenPoint{x, y}) + " " + std::to_string(width) + "x" +
                  std::to_string(height) + " " + Text(color));
}

void CRecordingDC::StretchDIBits(ScreenPoint at, const IndexedPicture& picture) {
  Lines.push_back("dib " + Text(at) + " " + std::to_string(picture.width) + "x" +
                  std::to_string(picture.height));
}

bool CRecordingDC::PtVisible(ScreenPoint point) const {
  const std::int32_t x = point.x + origin_.x;
  const std::int32_t y = point.y + origin_.y;
  return x >= 0 && x < width_ && y >= 0 && y < height_;
}

}  // namespace zando::testing
