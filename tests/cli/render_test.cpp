#include <QImage>
#include <QPainter>
#include <limits>

#include "cli/cli_fixture.h"
#include "paint/painter_dc.h"

namespace zando {
namespace {

/// A line of text for every row: '.' black, '#' any other colour.
std::string AsText(const QImage& image) {
  std::string text;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      text += (image.pixel(x, y) & 0xFFFFFF) == 0 ? '.' : '#';
    }
    text += '\n';
  }
  return text;
}

class Render : public CCliTest {
 protected:
  static Outcome Draw(const std::string& options) {
    return Run("render " + options + " level.3dz out.png");
  }
  static QImage Picture() { return QImage(QStringLiteral("out.png")); }
};

TEST_F(Render, WholeLevelFitsWhateverTheViewInTheSameBytesEveryTime) {
  MakeLevel("level.3dz",
            "box x=900 y=640 z=64\nposition 5000 200 -3000\nadd\nentity light\n"
            "entity origin 4000 100 -1000\n");
  for (const std::string view : {"top", "side", "front", "wireframe", "solid"}) {
    const std::string options = "--size 80x60 --no-grid --view " + view;
    ASSERT_EQ(Draw(options).err, "");
    const std::string text = AsText(Picture());
    int border = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const std::size_t x = i % 81;
      const bool inside = x > 0 && x < 79 && i > 81 && i < std::size_t{81} * 59;
      border += !inside && text[i] == '#' ? 1 : 0;
    }
    EXPECT_EQ(border, 0) << view;
    EXPECT_GT(std::count(text.begin(), text.end(), '#'), 30) << view;
    const std::string first = Read("out.png");
    Draw(options);
    EXPECT_EQ(Read("out.png"), first) << view;
  }
}

TEST_F(Render, SolidShowsTheStoredWorldInThePalettesColours) {
  // The box is moved after it was built into the world. Its front is 16 units away, where a pixel
  // is two units: at that width the picture reaches over the edge, to a multiple of four.
  MakeLevel("level.3dz", "box x=16 y=8 z=8\nadd\npick last\nposition 0 100 0\n");
  Write("bright.lmp", std::string(3, '\0') + std::string(765, '\x77'));
  const std::string options =
      "--at 0,0,-20 --angles 0,0,0 --size 14x6 --palette bright.lmp --view ";
  EXPECT_EQ(Draw(options + "solid").err, "");
  EXPECT_EQ(AsText(Picture()),
            "..............\n"
            "....########..\n"
            "....########..\n"
            "....########..\n"
            "....########..\n"
            "..............\n");
  EXPECT_EQ(Picture().pixel(5, 2), 0xFF777777U);
  EXPECT_EQ(Draw(options + "texture").err, "");
  EXPECT_EQ(AsText(Picture()).find('#'), std::string::npos);
}

TEST_F(Render, OptionsThatMeanNothingAreRefused) {
  EXPECT_EQ(Draw("").status, kCliFailed) << "there is no level";
  MakeLevel("level.3dz", "add\n");
  const std::string before = FilesHere();
  for (const char* options :
       {"--size 0x10", "--size 16385x10", "--size 10x-5", "--view flat", "--view solid --zoom 1",
        "--palette PALETTE.LMP", "--at 1,2,nan", "--at 1,2", "--angles 0,91,0",
        "--view top --angles 0,0,0", "--zoom 1", "--view top --zoom 0"}) {
    const Outcome outcome = Draw(options);
    EXPECT_EQ(outcome.status, kCliWrongUsage) << options;
    EXPECT_EQ(LinesOf(outcome.err), 1) << options;
  }
  EXPECT_EQ(Draw("--view solid --palette none.lmp").err, "none.lmp: No such file or directory\n");
  EXPECT_EQ(Draw("--view solid --palette .").err, ".: Is a directory\n");
  EXPECT_EQ(FilesHere(), before);
}

TEST(PainterDC, PartsOutsideTheSurfaceChangeNothingInside) {
  constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kLow = std::numeric_limits<std::int32_t>::min();
  for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
    QImage image(6, 6, format);
    image.fill(Qt::black);
    QPainter painter(&image);
    CPainterDC dc(painter, image.size());
    dc.SelectPen({Rgb(255, 255, 255), 1});
    dc.MoveTo({kLow, 2});
    dc.LineTo({kFar, 2});
    dc.MoveTo({-kFar, -kFar});
    dc.LineTo({kFar, kFar});
    dc.MoveTo({kLow, kLow});
    dc.LineTo({kLow, kFar});
    dc.SetViewportOrg({kFar, kFar});
    dc.FillSolidRect(4 - kFar, -kFar, kFar, 2, Rgb(0, 0, 255));
    dc.FillSolidRect(kFar, kFar, kFar, kFar, Rgb(0, 0, 255));
    EXPECT_FALSE(dc.PtVisible({kFar, kFar}));
    EXPECT_TRUE(dc.PtVisible({5 - kFar, 0 - kFar}));
    EXPECT_FALSE(dc.PtVisible({6 - kFar, 0 - kFar}));
    painter.end();
    EXPECT_EQ(AsText(image), "#...##\n.#..##\n######\n...#..\n....#.\n.....#\n") << format;
    EXPECT_EQ(image.pixel(5, 0), 0xFF0000FFU);
  }
}

}  // namespace
}  // namespace zando
