#include "textures/palette.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <set>
#include <string>

#include "platform/file_io.h"
#include "support/recording_dc.h"
#include "textures/surface.h"

namespace zando {
namespace {

TEST(PaletteFile, IsRedGreenBlueForEachIndex) {
  std::string bytes(kPaletteBytes, '\0');
  bytes[0] = '\xFF';
  bytes[3 * 7 + 1] = '\x80';
  bytes[3 * 255 + 2] = '\x01';
  const Palette palette = WithEntries(BuiltInPalette(), bytes + "more");
  EXPECT_EQ(palette.colors[0], (RgbQuad{.red = 255}));
  EXPECT_EQ(palette.colors[7], (RgbQuad{.green = 128}));
  EXPECT_EQ(palette.colors[255], (RgbQuad{.blue = 1}));
}

TEST(PaletteFile, ReplacesWhatItHoldsAndNothingElse) {
  const std::string path = ::testing::TempDir() + "zando_palette.lmp";
  for (const std::size_t size : {0U, 1U, 300U, 767U, 768U, 800U}) {
    ASSERT_EQ(WriteFileAtomically(path, std::string(size, '\x5A')), "");
    Palette palette = BuiltInPalette();
    ASSERT_TRUE(LoadPalette(path, palette));
    for (std::size_t i = 0; i < kPaletteBytes; ++i) {
      ASSERT_EQ(palette.raw[i], i < size ? 0x5A : BuiltInPalette().raw[i]) << size << ' ' << i;
    }
    EXPECT_EQ(palette.colors[255].blue, palette.raw[767]) << size;
  }
  std::filesystem::remove(path);
  Palette palette = WithEntries(BuiltInPalette(), "abc");
  EXPECT_FALSE(LoadPalette(path, palette));
  EXPECT_EQ(palette.colors[0], (RgbQuad{.blue = 'c', .green = 'b', .red = 'a'}));
}

TEST(BuiltInPalette, BeginsBlackAndRunsThroughManyColors) {
  const ColorTable& colors = BuiltInPalette().colors;
  EXPECT_EQ(colors[0], RgbQuad{});
  std::set<std::array<int, 3>> seen;
  for (const RgbQuad& color : colors) seen.insert({color.red, color.green, color.blue});
  EXPECT_GT(seen.size(), 240U);
  const auto brightness = [&](std::size_t index) {
    return colors[index].red + colors[index].green + colors[index].blue;
  };
  for (std::size_t first = 0; first < 240; first += 16) {
    const bool brightFirst = first >= 128 && first < 224;
    for (std::size_t i = first; i < first + 15; ++i) {
      EXPECT_EQ(brightness(i) > brightness(i + 1), brightFirst) << i;
    }
  }
}

TEST(Surface, HasPixelsOnlyWhenBothSidesArePositive) {
  const struct {
    std::int32_t width;
    std::int32_t height;
    std::size_t pixels;
  } cases[] = {{3, 2, 6}, {1, 1, 1}, {0, 5, 0}, {5, 0, 0}, {-1, 4, 0}, {4, -1, 0}, {-2, -2, 0}};
  CSurface surface;
  for (const auto& [width, height, pixels] : cases) {
    EXPECT_EQ(surface.Create(width, height, BuiltInPalette().colors), pixels > 0);
    EXPECT_EQ(surface.Pixels().size(), pixels) << width << 'x' << height;
    testing::CRecordingDC target(10, 10);
    EXPECT_EQ(surface.Present(target, {-1, 7}), pixels > 0);
    EXPECT_EQ(target.Count("dib -1,7 " + std::to_string(width) + "x" + std::to_string(height)),
              pixels > 0 ? 1 : 0);
  }
}

}  // namespace
}  // namespace zando
