#include "textures/palette.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "platform/file_io.h"

namespace zando {
namespace {

constexpr int kRamps = 16;
constexpr int kShades = 16;

void BuildColorTable(Palette& palette) {
  palette.colors = {};
  for (std::size_t i = 0; i < palette.colors.size(); ++i) {
    palette.colors[i] = {.blue = palette.raw[3 * i + 2],
                         .green = palette.raw[3 * i + 1],
                         .red = palette.raw[3 * i],
                         .reserved = 0};
  }
}

/// Hue, saturation and value, each 0 to 1, as three bytes.
std::array<std::uint8_t, 3> FromHsv(double hue, double saturation, double value) {
  const auto channel = [&](double offset) {
    // A trapezium over the circle of hues, a third of it apart for each channel.
    const double place = std::fmod(offset + hue * 6.0, 6.0);
    const double drop = std::clamp(std::min(place, 4.0 - place), 0.0, 1.0);
    return static_cast<std::uint8_t>(std::lround(255.0 * value * (1.0 - saturation * drop)));
  };
  return {channel(5.0), channel(3.0), channel(1.0)};
}

Palette MakeBuiltInPalette() {
  // Browns and other earthy hues first: walls and floors are made of them.
  struct Ramp {
    double hue;
    double saturation;
  };
  constexpr std::array<Ramp, kRamps> ramps{{{0.00, 0.00},
                                            {0.08, 0.30},
                                            {0.08, 0.60},
                                            {0.11, 0.45},
                                            {0.05, 0.75},
                                            {0.13, 0.70},
                                            {0.22, 0.45},
                                            {0.31, 0.55},
                                            {0.42, 0.40},
                                            {0.50, 0.50},
                                            {0.57, 0.30},
                                            {0.60, 0.60},
                                            {0.69, 0.45},
                                            {0.80, 0.40},
                                            {0.93, 0.55},
                                            {0.00, 0.80}}};
  Palette palette;
  for (int i = 1; i < kRamps * kShades; ++i) {
    const Ramp& ramp = ramps[static_cast<std::size_t>(i / kShades)];
    const double shade = static_cast<double>(i % kShades + 1) / kShades;
    const auto color = FromHsv(ramp.hue, ramp.saturation, shade);
    std::copy(color.begin(), color.end(), palette.raw.begin() + std::ptrdiff_t{3} * i);
  }
  BuildColorTable(palette);
  return palette;
}

}  // namespace

const Palette& BuiltInPalette() {
  static const Palette palette = MakeBuiltInPalette();
  return palette;
}

Palette WithEntries(const Palette& palette, std::string_view bytes) {
  Palette result = palette;
  std::copy_n(bytes.begin(), std::min(bytes.size(), kPaletteBytes), result.raw.begin());
  BuildColorTable(result);
  return result;
}

bool LoadPalette(const std::filesystem::path& path, Palette& palette) {
  const FileContents file = ReadWholeFile(path);
  if (!file.bytes) return false;
  palette = WithEntries(palette, *file.bytes);
  return true;
}

}  // namespace zando
