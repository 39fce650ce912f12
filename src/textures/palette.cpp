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

/// A run of indices between two ends over a middle. No dark end but the first is black: the solid
/// view shows walls in any of these colours.
struct Ramp {
  int size;
  Color first;
  Color middle;
  Color last;
};

// Which hue lies where, and which end is the dark one, follows what the archives of the game
// expect, so that they look sensible before the game's own palette is found.
constexpr std::array<Ramp, 17> kRamps{{
    {16, {0, 0, 0}, {108, 108, 108}, {236, 236, 236}},    // grey
    {16, {34, 25, 16}, {92, 66, 42}, {196, 158, 114}},    // wood and earth
    {16, {28, 31, 37}, {76, 83, 94}, {194, 204, 216}},    // steel
    {16, {24, 32, 14}, {66, 80, 40}, {168, 184, 116}},    // moss
    {16, {48, 8, 12}, {126, 18, 22}, {236, 110, 94}},     // cloth and blood
    {16, {14, 38, 12}, {44, 108, 34}, {154, 222, 98}},    // slime
    {16, {44, 24, 12}, {114, 66, 34}, {234, 170, 104}},   // rust
    {16, {44, 35, 22}, {120, 100, 68}, {232, 212, 166}},  // sandstone
    {16, {192, 162, 218}, {82, 54, 110}, {32, 18, 44}},   // violet, and from here on bright first
    {16, {212, 140, 110}, {112, 50, 36}, {42, 18, 13}},   // brick
    {16, {190, 192, 174}, {84, 86, 76}, {30, 32, 27}},    // stone
    {16, {142, 208, 204}, {34, 92, 98}, {13, 38, 42}},    // copper green
    {16, {248, 222, 120}, {136, 104, 26}, {50, 37, 8}},   // gold
    {16, {136, 176, 226}, {36, 62, 116}, {14, 20, 48}},   // water
    {16, {72, 8, 0}, {255, 124, 0}, {255, 252, 204}},     // fire, and from here on dark first
    {8, {0, 48, 128}, {112, 192, 255}, {255, 255, 255}},  // blue and
    {8, {16, 104, 16}, {112, 255, 80}, {240, 255, 224}},  // green lamps: colours that glow
}};

/// The colour between two, `step` of `steps` on the way.
Color Between(const Color& from, const Color& to, int step, int steps) {
  if (steps <= 0) return to;
  const auto mix = [&](int a, int b) { return (a * (steps - step) + b * step) / steps; };
  return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

Color At(const Ramp& ramp, int place) {
  const int middle = ramp.size / 2;
  return place < middle ? Between(ramp.first, ramp.middle, place, middle)
                        : Between(ramp.middle, ramp.last, place - middle, middle - 1);
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
    for (int place = 0; place < ramp.size; ++place) {
      const Color color = At(ramp, place);
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
  const auto bytes = ReadWholeFile(path);
  if (!bytes) return false;
  palette = WithEntries(palette, *bytes);
  return true;
}

}  // namespace zando
