#include <QImage>

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
  const std::string wad =
      Write("a.wad", Archive({{"", '@'}, Small("*water"), Small(""), Small("a b\\\xFF\n")}));
  const Outcome listed = Run({"textures", wad});
  EXPECT_EQ(listed.status, kCliDone);
  EXPECT_EQ(listed.out,
            "0 *water 3x2\n1 \"\" 3x2\n2 a\\x20b\\x5C\\xFF\\x0A 3x2\n" + wad + ": 3 textures\n");
}

TEST_F(Textures, AreWrittenAsIndexedPicturesInsideTheFolder) {
  const std::string wad =
      Write("a.wad", Archive({Small("*Water+1-_"), Small("../../etc/x"), Small(".."), Small("a"),
                              Small("A"), Small("a_1"), Small("")}));
  const std::string palette = Write("grey.lmp", std::string(kPaletteBytes, '\x37'));
  EXPECT_EQ(Run({"textures", wad, "--png", Path("x/y"), "--palette", palette}).err, "");
  EXPECT_EQ(FilesHere(),
            "a.wad grey.lmp x x/y x/y/#Water+1-_.png x/y/1.png x/y/A_1.png x/y/__.png "
            "x/y/______etc_x.png x/y/a.png x/y/a_1_1.png ");
  EXPECT_EQ(QImage(QString::fromStdString(Path("x/y/a.png"))).pixel(2, 1), qRgb(55, 55, 55));

  EXPECT_EQ(Run({"textures", wad, "--png", Path("x/y")}).out,
            Path("x/y") + ": 7 textures written\n");
  const QImage image(QString::fromStdString(Path("x/y/a.png")));
  ASSERT_EQ(image.format(), QImage::Format_Indexed8);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(image.pixelIndex(i % 3, i / 3), 'a' + i) << i;
  const RgbQuad& last = BuiltInPalette().colors['f'];
  EXPECT_EQ(image.pixel(2, 1), qRgb(last.red, last.green, last.blue));
}

TEST_F(Textures, DamageIsAWarningAndARefusedFileAnError) {
  const std::string wad = Write("a.wad", Archive({{MipHead("", 99, 99)}, Small("whole")}));
  const std::string palette = Write("short.lmp", "RGB");
  const Outcome damaged = Run({"textures", "--palette", palette, wad});
  EXPECT_EQ(damaged.status, kCliDone);
  EXPECT_EQ(damaged.out, "0 whole 3x2\n" + wad + ": 1 texture\n");
  EXPECT_EQ(damaged.err,
            palette + ": holds 3 of 768 bytes; the other colours are the built-in ones\n" + wad +
                ": lump 0 left out: its 99 x 99 pixels do not lie in the file\n");

  const struct {
    std::vector<std::string> arguments;
    std::string file;
  } cases[] = {{{palette}, palette},
               {{"--palette", Path("none.lmp"), wad}, Path("none.lmp")},
               {{"--png", palette + "/in", wad}, palette + "/in"}};
  for (auto [arguments, file] : cases) {
    arguments.insert(arguments.begin(), "textures");
    const Outcome failed = Run(arguments);
    EXPECT_EQ(failed.status, kCliFailed) << failed.err;
    EXPECT_EQ(failed.out, "");
    EXPECT_NE(failed.err.find(file + ": "), std::string::npos) << failed.err;
  }
}

}  // namespace
}  // namespace zando
