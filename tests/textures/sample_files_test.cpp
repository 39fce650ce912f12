#include "sample_files.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>

#include "platform/file_io.h"
#include "sample_textures.h"
#include "support/made_up_wad.h"
#include "textures/wad2.h"

namespace zando {
namespace {

const std::filesystem::path kExamples = ZANDO_SOURCE_DIR "/examples";

std::string Contents(const std::filesystem::path& path) {
  const auto file = ReadWholeFile(path);
  EXPECT_TRUE(file) << path << file.Error();
  return file.ValueOr("");
}

TEST(SampleFiles, AreThoseOfTheExamples) {
  EXPECT_TRUE(samples::PaletteFile() == Contents(kExamples / "PALETTE.LMP"));
  EXPECT_TRUE(samples::ArchiveFile() == Contents(kExamples / "MYWAD.WAD"));
}

TEST(SampleFiles, HoldTheTexturesThatTheExamplesName) {
  std::set<std::string> missing{"tech05_1"};
  for (const auto& entry : std::filesystem::directory_iterator(kExamples)) {
    if (entry.path().extension() != ".zscript") continue;
    std::istringstream lines(Contents(entry.path()));
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("name ")) missing.insert(line.substr(5));
    }
  }
  EXPECT_GT(missing.size(), 10U);
  CWad2 wad;
  wad.Create(kExamples / "PALETTE.LMP", kExamples / "MYWAD.WAD");
  EXPECT_TRUE(wad.Complaints().empty());
  for (const Texture& texture : wad.Textures()) missing.erase(texture.name);
  EXPECT_EQ(missing, std::set<std::string>{});
}

/// The game wants each picture in full, half, quarter and eighth size, with sides that it can halve
/// four times and a name that ends.
TEST(SampleFiles, TexturesHaveFourSizesOfTheSamePicture) {
  const std::string file = samples::ArchiveFile();
  const auto word = [](std::size_t n) { return testing::Word(static_cast<std::uint32_t>(n)); };
  std::size_t lump = 12;
  for (const samples::SampleTexture& sample : samples::SampleTextures()) {
    SCOPED_TRACE(sample.name);
    const samples::Picture picture = sample.paint();
    const std::size_t all = picture.pixels.size();
    EXPECT_EQ(picture.width % 16 + picture.height % 16, 0);
    EXPECT_LE(sample.name.size(), 15U);
    const std::size_t eighth = 40 + all * 21 / 16;
    const std::string head = file.substr(lump, 40);
    EXPECT_EQ(head.substr(0, sample.name.size() + 1), sample.name + '\0');
    EXPECT_EQ(head.substr(24), word(40) + word(40 + all) + word(40 + all * 5 / 4) + word(eighth));
    const auto brightness = [&](std::size_t start, std::size_t count) {
      double sum = 0.0;
      for (const char index : file.substr(lump + start, count)) {
        sum += BuiltInPalette().colors[static_cast<unsigned char>(index)].green;
      }
      return sum / static_cast<double>(count);
    };
    EXPECT_NEAR(brightness(40, all), brightness(eighth, all / 64), 10.0);
    lump += 40 + all * 85 / 64;
  }
  EXPECT_EQ(file.size(), lump + 32 * samples::SampleTextures().size());
}

}  // namespace
}  // namespace zando
