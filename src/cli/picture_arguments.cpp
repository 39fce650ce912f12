#include "cli/picture_arguments.h"

#include <string>

#include "cli/script_arguments.h"
#include "geometry/transform.h"
#include "platform/number_text.h"

namespace zando {
namespace {

constexpr std::int32_t kLargestSide = 16384;

std::int32_t ParseSide(std::string_view text) {
  const std::int32_t side = ParseWholeNumber(text).value_or(0);
  return side <= kLargestSide ? side : 0;
}

Vector ParseThree(std::string_view text, std::string_view names) {
  const std::size_t first = text.find(',');
  const std::size_t second = first == std::string_view::npos ? first : text.find(',', first + 1);
  if (second == std::string_view::npos) {
    throw CScriptError("expected " + std::string(names) + ", not " + Quoted(text));
  }
  return {ParseScriptNumber(text.substr(0, first)),
          ParseScriptNumber(text.substr(first + 1, second - first - 1)),
          ParseScriptNumber(text.substr(second + 1))};
}

}  // namespace

PictureSize ParsePictureSize(std::string_view text) {
  const std::size_t cross = text.find('x');
  if (cross != std::string_view::npos) {
    const PictureSize size{ParseSide(text.substr(0, cross)), ParseSide(text.substr(cross + 1))};
    if (size.width > 0 && size.height > 0) return size;
  }
  throw CScriptError("expected WIDTHxHEIGHT, each from 1 to 16384, not " + Quoted(text));
}

Vector ParsePlace(std::string_view text) { return ParseThree(text, "x,y,z"); }

ViewAngles ParseAngles(std::string_view text) {
  const Vector degrees = ParseThree(text, "yaw,pitch,roll");
  if (degrees.y < -90.0 || degrees.y > 90.0) {
    throw CScriptError("pitch is from -90 to 90, not in " + Quoted(text));
  }
  return {DegreesToUnits(degrees.x), DegreesToUnits(degrees.y), DegreesToUnits(degrees.z)};
}

double ParseZoom(std::string_view text) {
  const double zoom = ParseScriptNumber(text);
  if (zoom < 0.001 || zoom > 1000.0) {
    throw CScriptError("a zoom is from 0.001 to 1000, not " + Quoted(text));
  }
  return zoom;
}

}  // namespace zando
