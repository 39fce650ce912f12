#include "sample_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>

#include "platform/file_io.h"
#include "sample_textures.h"
#include "textures/wad2.h"

namespace zando {
namespace {

const std::filesystem::path kExamples = ZANDO_SOURCE_DIR "/examples";

std::string Contents(const std::filesystem::path& path) {
  const FileContents file = ReadWholeFile(path);
  EXPECT_TRUE(file.bytes) << path << file.error;
  return file.bytes.value_or("");
}

/// The names that the scripts give to brushes.
std::set<std::string> NamesInScripts() {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kExamples)) {
    if (entry.path().extension() != ".zscript") continue;
    std::istringstream lines(Contents(entry.path()));
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("name ")) names.insert(line.substr(5));
    }
  }
  return names;
}

TEST(SampleFiles, AreThoseOfTheExamples) {
  EXPECT_TRUE(samples::PaletteFile() == Contents(kExamples / "PALETTE.LMP"));
  EXPECT_TRUE(samples::ArchiveFile() == Contents(kExamples / "MYWAD.WAD"));
}

TEST(SampleFiles, HoldTheTexturesThatTheExamplesName) {
  CWad2 wad;
  wad.Create(kExamples / "PALETTE.LMP", kExamples / "MYWAD.WAD");
  EXPECT_TRUE(wad.Complaints().empty());
  EXPECT_EQ(wad.TextureCount(), std::ptrdiff_t(samples::SampleTextures().size()));
  std::set<std::string> missing = NamesInScripts();
  EXPECT_GT(missing.size(), 10U);
  missing.insert("tech05_1");
  for (const Texture& texture : wad.Textures()) {
    missing.erase(texture.name);
    EXPECT_LE(texture.name.size(), 15U) << texture.name;
    EXPECT_EQ(texture.width % 16 + texture.height % 16, 0) << texture.name;
  }
  EXPECT_EQ(missing, std::set<std::string>{});
}

TEST(SampleFiles, TexturesHaveFourSizesOfTheSamePicture) {
  const std::string file = samples::ArchiveFile();
  std::size_t lump = 12;
  for (const samples::SampleTexture& sample : samples::SampleTextures()) {
    const samples::Picture picture = sample.paint();
    const std::size_t all = picture.pixels.size();
    std::string starts;
    for (const std::size_t start : {40 + 0 * all, 40 + all, 40 + all * 5 / 4, 40 + all * 21 / 16}) {
      for (int shift = 0; shift < 32; shift += 8)
        starts += static_cast<char>(start >> shift & 0xFF);
    }
    EXPECT_EQ(file.substr(lump, sample.name.size() + 1), sample.name + '\0');
    EXPECT_EQ(file.substr(lump + 24, 16), starts) << sample.name;
    // The smallest size has about the brightness of the largest.
    const auto brightness = [&](std::size_t start, std::size_t count) {
      std::size_t sum = 0;
      for (std::size_t i = 0; i < count; ++i) {
        const auto index = static_cast<unsigned char>(file[lump + start + i]);
        sum += BuiltInPalette().colors[index].green;
      }
      return static_cast<double>(sum) / static_cast<double>(count);
    };
    EXPECT_NEAR(brightness(40, all), brightness(40 + all * 21 / 16, all / 64), 10.0) << sample.name;
    lump += 40 + all * 85 / 64;
  }
  EXPECT_EQ(file.size(), lump + 32 * samples::SampleTextures().size());
}

}  // namespace
}  // namespace zando
