#include <QImage>
#include <map>

#include "cli/cli_fixture.h"
#include "support/made_up_wad.h"
#include "textures/palette.h"

namespace zando {
namespace {

using testing::Archive;
using testing::MipHead;

class Textures : public CCliTest {
 protected:
  /// 3x2 pixels of the indices 'a' to 'f'.
  static testing::Lump Small(const std::string& name) { return {MipHead(name, 3, 2) + "abcdef"}; }
};

TEST_F(Textures, AreListedOneALineWithNamesOfPrintableCharacters) {
  Write("a.wad", Archive({{"", '@'}, Small("*water"), Small(""), Small("a b\\\xFF\n")}));
  const Outcome listed = Run("textures a.wad");
  EXPECT_EQ(listed.status, kCliDone);
  EXPECT_EQ(listed.out,
            "0 *water 3x2\n1 \"\" 3x2\n2 a\\x20b\\x5C\\xFF\\x0A 3x2\na.wad: 3 textures\n");
}

TEST_F(Textures, AreWrittenAsIndexedPicturesInsideTheFolder) {
  Write("a.wad", Archive({Small("*Water+1-_"), Small("../../etc/x"), Small(".."), Small("a"),
                          Small("A"), Small("a_1"), Small("")}));
  EXPECT_EQ(Run("textures a.wad --png x/y").out, "x/y: 7 textures written\n");
  EXPECT_EQ(FilesHere(),
            "a.wad x x/y x/y/#Water+1-_.png x/y/1.png x/y/A_1.png x/y/__.png "
            "x/y/______etc_x.png x/y/a.png x/y/a_1_1.png ");
  QImage image(QStringLiteral("x/y/a.png"));
  ASSERT_EQ(image.format(), QImage::Format_Indexed8);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(image.pixelIndex(i % 3, i / 3), 'a' + i) << i;
  const RgbQuad& last = BuiltInPalette().colors['f'];
  EXPECT_EQ(image.pixel(2, 1), qRgb(last.red, last.green, last.blue));

  Write("grey.lmp", std::string(kPaletteBytes, '\x37'));
  EXPECT_EQ(Run("textures a.wad --png x/y --palette grey.lmp").err, "");
  EXPECT_TRUE(image.load(QStringLiteral("x/y/a.png")));
  EXPECT_EQ(image.pixel(2, 1), qRgb(55, 55, 55));
}

TEST_F(Textures, DamageIsAWarningAndARefusedFileAnError) {
  Write("a.wad", Archive({{MipHead("", 99, 99)}, Small("whole")}));
  Write("short.lmp", "RGB");
  const Outcome damaged = Run("textures --palette short.lmp a.wad");
  EXPECT_EQ(damaged.status, kCliDone);
  EXPECT_EQ(damaged.out, "0 whole 3x2\na.wad: 1 texture\n");
  EXPECT_EQ(damaged.err,
            "short.lmp: holds 3 of 768 bytes; the other colours are the built-in ones\n"
            "a.wad: lump 0 left out: its 99 x 99 pixels do not lie in the file\n");

  for (const auto& [line, file] : std::map<std::string, std::string>{
           {"textures short.lmp", "short.lmp: "},
           {"textures --palette none.lmp a.wad", "none.lmp: "},
           {"textures --palette \"\" a.wad", ": "},
           {"textures --png \"\" a.wad", ": "},
           {"textures --png short.lmp/in a.wad", "short.lmp/in: "}}) {
    const Outcome failed = Run(line);
    EXPECT_EQ(failed.status, kCliFailed) << failed.err;
    EXPECT_EQ(failed.out, "");
    EXPECT_NE(failed.err.find(file), std::string::npos) << failed.err;
  }
}

}  // namespace
}  // namespace zando
