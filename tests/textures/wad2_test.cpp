#include "textures/wad2.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_io.h"
#include "support/made_up_wad.h"

namespace zando {
namespace {

using testing::Archive;
using testing::Entry;
using testing::Header;
using testing::MipHead;

/// Width, height, name and pixels of every texture, a line each.
std::string Held(const CWad2& wad) {
  std::string text;
  for (const Texture& texture : wad.Textures()) {
    text += std::to_string(texture.width) + 'x' + std::to_string(texture.height) + ' ' +
            texture.name + ' ';
    for (const std::uint8_t pixel : texture.surface.Pixels()) text += static_cast<char>(pixel);
    text += '\n';
  }
  return text;
}

const std::string kTwoByTwo = MipHead("old", 2, 2) + "abcd";

TEST(Wad2, TakesMipTexturesInDirectoryOrder) {
  const std::string bytes = Archive({{"a palette", '@'},
                                     {MipHead("rock", 3, 2, 43) + "---pixels"},
                                     {kTwoByTwo, 'B'},
                                     {MipHead("*water", 1, 4) + "wave"},
                                     {MipHead("exactly16letters", 2, 1) + "ab"}});
  CWad2 wad;
  ASSERT_TRUE(wad.LoadBytes(bytes));
  EXPECT_EQ(Held(wad), "3x2 rock pixels\n1x4 *water wave\n2x1 exactly16letters ab\n");
  EXPECT_EQ(wad.TextureCount(), 3);
  EXPECT_TRUE(wad.Complaints().empty());
  EXPECT_EQ(wad.Textures()[0].surface.Colors(), BuiltInPalette().colors);

  // Two entries may share a lump as long as the file is large enough for both.
  const std::string shared = Header(2, 12) + Entry(76) + Entry(76) + kTwoByTwo;
  ASSERT_TRUE(wad.LoadBytes(shared));
  EXPECT_EQ(Held(wad), "2x2 old abcd\n2x2 old abcd\n");
  ASSERT_TRUE(wad.LoadBytes(Header(0, 0xFFFFFFFF)));
  EXPECT_EQ(wad.TextureCount(), 0);
}

TEST(Wad2, RefusedArchiveKeepsWhatIsHeld) {
  const std::string good = Archive({{kTwoByTwo}});
  std::vector<std::string> refused{"", good.substr(0, 11), good.substr(0, good.size() - 1)};
  for (std::size_t i = 0; i < 4; ++i) {
    refused.push_back(good);
    refused.back()[i] ^= '\x20';
  }
  const std::pair<std::uint32_t, std::uint32_t> directories[] = {
      {0xFFFFFFFF, 12}, {0x80000000, 12}, {0x08000001, 12}, {2, 13}, {1, 11}, {1, 0xFFFFFFF4}};
  for (const auto& [lumps, offset] : directories) {
    refused.push_back(Header(lumps, offset) + std::string(64, 'D'));
  }
  CWad2 wad;
  ASSERT_TRUE(wad.LoadBytes(good));
  for (const std::string& bytes : refused) {
    EXPECT_FALSE(wad.LoadBytes(bytes)) << ::testing::PrintToString(bytes);
    EXPECT_EQ(wad.Complaints().size(), 1U) << ::testing::PrintToString(bytes);
    EXPECT_EQ(Held(wad), "2x2 old abcd\n");
  }
}

TEST(Wad2, DamagedTextureIsLeftOutWithAReason) {
  constexpr std::uint32_t kMost = 0xFFFFFFFF;
  const struct {
    std::string bytes;  ///< behind the header and the only directory entry
    std::string reason;
    std::uint32_t offset = 44;
  } cases[] = {
      {"", "header reaches past the end of the file", kMost},
      {kTwoByTwo.substr(0, 39), "header reaches past the end of the file"},
      {kTwoByTwo.substr(0, 43), "2 x 2 pixels do not lie in the file"},
      {MipHead("", 2, 2, kMost), "2 x 2 pixels do not lie in the file"},
      {MipHead("", 0, 2), "0 x 2 pixels do not lie in the file"},
      {MipHead("", 2, 0), "2 x 0 pixels do not lie in the file"},
      // Products that are 0 or 4 in 32 bits, and 4 as signed numbers.
      {MipHead("", 0x10000, 0x10000), "65536 x 65536 pixels do not lie in the file"},
      {MipHead("", 0x40000001, 4), "1073741825 x 4 pixels do not lie in the file"},
      {MipHead("", kMost - 1, kMost - 1), "4294967294 x 4294967294 pixels do not lie in the file"},
  };
  CWad2 wad;
  for (const auto& [bytes, reason, offset] : cases) {
    ASSERT_TRUE(wad.LoadBytes(Header(1, 12) + Entry(offset) + bytes)) << reason;
    EXPECT_EQ(wad.TextureCount(), 0) << reason;
    EXPECT_EQ(wad.Complaints(), std::vector<std::string>{"lump 0 left out: its " + reason});
  }
  // What is whole stays; the place in the directory counts lumps of every kind.
  ASSERT_TRUE(wad.LoadBytes(Archive({{"", '@'}, {MipHead("", 99, 99)}, {kTwoByTwo}})));
  EXPECT_EQ(Held(wad), "2x2 old abcd\n");
  EXPECT_EQ(wad.Complaints(),
            std::vector<std::string>{"lump 1 left out: its 99 x 99 pixels do not lie in the file"});
}

TEST(Wad2, LumpsOverEachOtherTakeNoMoreRoomThanTheFile) {
  constexpr std::uint32_t kLumps = 1000;
  std::string bytes = Header(kLumps, 12);
  const std::uint32_t lump = 12 + 32 * kLumps;
  for (std::uint32_t i = 0; i < kLumps; ++i) bytes += Entry(lump);
  bytes += MipHead("same", 1000, 10) + std::string(10000, 'x');
  CWad2 wad;
  ASSERT_TRUE(wad.LoadBytes(bytes));
  EXPECT_EQ(wad.TextureCount(), 4);
  ASSERT_EQ(wad.Complaints().size(), 11U);
  EXPECT_EQ(wad.Complaints().front(), "lump 4 left out: its 1000 x 10 pixels lie over other lumps");
  EXPECT_EQ(wad.Complaints().back(), "and 986 more lumps");
}

}  // namespace
}  // namespace zando
