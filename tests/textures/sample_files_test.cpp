#include "sample_files.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace zando
