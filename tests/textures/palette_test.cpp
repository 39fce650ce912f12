#include "textures/palette.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/file_io.h"
#include "support/recording_dc.h"
#include "textures/surface.h"

namespace zando {
namespace {

TEST(PaletteFile, ReplacesTheRedGreenAndBlueThatItHoldsAndNothingElse) {
  std::string bytes;
  while (bytes.size() < 800) bytes += "abc";
  const std::string path = ::testing::TempDir() + "zando_palette.lmp";
  for (const std::size_t size : {0U, 1U, 300U, 767U, 768U, 800U}) {
    ASSERT_EQ(WriteFileAtomically(path, bytes.substr(0, size)).Error(), "");
    Palette palette = WithEntries(BuiltInPalette(), std::string(kPaletteBytes, 'x'));
    ASSERT_TRUE(LoadPalette(path, palette));
    for (std::size_t i = 0; i < kPaletteBytes; ++i) {
      const RgbQuad& color = palette.colors[i / 3];
      const int channels[] = {color.red, color.green, color.blue};
      ASSERT_EQ(channels[i % 3], i < size ? bytes[i] : 'x') << size << ' ' << i;
      ASSERT_EQ(palette.raw[i], channels[i % 3]);
    }
  }
  std::filesystem::remove(path);
  Palette palette = BuiltInPalette();
  EXPECT_FALSE(LoadPalette(path, palette));
  EXPECT_EQ(palette.raw, BuiltInPalette().raw);
}

/// The game's own textures are shaded along runs of 16 colours: in which direction is theirs.
TEST(BuiltInPalette, BeginsBlackAndRunsFromDarkToBrightOrBackAsTheGamesArchivesExpect) {
  const ColorTable& colors = BuiltInPalette().colors;
  EXPECT_EQ(colors[0], RgbQuad{});
  const auto brightness = [&](std::size_t index) {
    return colors[index].red + colors[index].green + colors[index].blue;
  };
  for (std::size_t i = 0; i < 240; ++i) {
    if (i % 16 == 15) continue;
    const bool brightFirst = i >= 128 && i < 224;
    EXPECT_EQ(brightness(i) > brightness(i + 1), brightFirst) << i;
  }
}

}  // namespace
}  // namespace zando
