#pragma once

#include <cstdint>
#include <string_view>

#include "cli/framing.h"

namespace zando {

/// The options of `zando-cli render` from their text. Each throws CScriptError, which says what is
/// wrong with it.

struct PictureSize {
  std::int32_t width;
  std::int32_t height;
};
/// "WIDTHxHEIGHT", each 1 to 16384.
[[nodiscard]] PictureSize ParsePictureSize(std::string_view text);

/// "x,y,z"
[[nodiscard]] Vector ParsePlace(std::string_view text);

/// "yaw,pitch,roll" in degrees; pitch is -90 to 90.
[[nodiscard]] ViewAngles ParseAngles(std::string_view text);

/// 0.001 to 1000.
[[nodiscard]] double ParseZoom(std::string_view text);

}  // namespace zando
