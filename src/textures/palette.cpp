#include "textures/palette.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/file_io.h"

namespace zando {
namespace {

struct Color {
  int red;
  int green;
  int blue;
};

/// A run of indices from dark over middle to bright. The dark end is no black: the solid view shows
/// walls in any of these colours.
struct Ramp {
  int size;
  Color dark;
  Color middle;
  Color bright;
};

constexpr std::array<Ramp, 17> kRamps{{
    {16, {0, 0, 0}, {108, 108, 108}, {236, 236, 236}},    // grey
    {16, {34, 25, 16}, {92, 66, 42}, {196, 158, 114}},    // wood and earth
    {16, {28, 31, 37}, {76, 83, 94}, {194, 204, 216}},    // steel
    {16, {44, 35, 22}, {120, 100, 68}, {232, 212, 166}},  // sandstone
    {16, {42, 18, 13}, {112, 50, 36}, {212, 140, 110}},   // brick
    {16, {24, 32, 14}, {66, 80, 40}, {168, 184, 116}},    // moss
    {16, {44, 24, 12}, {114, 66, 34}, {234, 170, 104}},   // rust
    {16, {14, 38, 12}, {44, 108, 34}, {154, 222, 98}},    // slime
    {16, {14, 20, 48}, {36, 62, 116}, {136, 176, 226}},   // water
    {16, {13, 38, 42}, {34, 92, 98}, {142, 208, 204}},    // copper green
    {16, {32, 18, 44}, {82, 54, 110}, {192, 162, 218}},   // violet
    {16, {48, 8, 12}, {126, 18, 22}, {236, 110, 94}},     // cloth and blood
    {16, {50, 37, 8}, {136, 104, 26}, {248, 222, 120}},   // gold
    {16, {30, 32, 27}, {84, 86, 76}, {190, 192, 174}},    // stone
    {16, {72, 8, 0}, {255, 124, 0}, {255, 252, 204}},     // fire, and from here on
    {8, {0, 48, 128}, {112, 192, 255}, {255, 255, 255}},  // blue and
    {8, {16, 104, 16}, {112, 255, 80}, {240, 255, 224}},  // green lamps: colours that glow
}};

/// The colour between two, `step` of `steps` on the way.
Color Between(const Color& from, const Color& to, int step, int steps) {
  if (steps <= 0) return to;
  const auto mix = [&](int a, int b) { return (a * (steps - step) + b * step) / steps; };
  return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

Color Shade(const Ramp& ramp, int shade) {
  const int middle = ramp.size / 2;
  return shade < middle ? Between(ramp.dark, ramp.middle, shade, middle)
                        : Between(ramp.middle, ramp.bright, shade - middle, middle - 1);
}

void BuildColorTable(Palette& palette) {
  palette.colors = {};
  for (std::size_t i = 0; i < palette.colors.size(); ++i) {
    palette.colors[i] = {.blue = palette.raw[3 * i + 2],
                         .green = palette.raw[3 * i + 1],
                         .red = palette.raw[3 * i],
                         .reserved = 0};
  }
}

Palette MakeBuiltInPalette() {
  Palette palette;
  auto next = palette.raw.begin();
  for (const Ramp& ramp : kRamps) {
    for (int shade = 0; shade < ramp.size; ++shade) {
      const Color color = Shade(ramp, shade);
      for (const int channel : {color.red, color.green, color.blue}) {
        *next++ = static_cast<std::uint8_t>(channel);
      }
    }
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
