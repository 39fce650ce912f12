// The window of the texture browser: what it shows, its mouse, wheel and keys.
#include <QApplication>
#include <QImage>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include "desktop/editor_fixture.h"
#include "desktop/texture_widget.h"
#include "platform/file_io.h"
#include "support/made_up_wad.h"

namespace zando::testing {
namespace {

/// The editor with an open level, its archive of 120 textures of 64 x 48 pixels of the index that
/// is their number plus 16, and a browser.
class TextureBrowserTest : public EditorTest {
 protected:
  TextureBrowserTest() {
    std::vector<Lump> lumps;
    for (int i = 0; i < 120; ++i) {
      const std::string name = i == 1 ? "<b>bold%1" : "t" + std::to_string(i);
      lumps.push_back(
          {MipHead(name, 64, 48) + std::string(std::size_t{64} * 48, static_cast<char>(i + 16))});
    }
    app_.Settings().WadPath = FileIn("my.wad");
    EXPECT_EQ(WriteFileAtomically(FileIn("my.wad"), Archive(lumps)).Error(), "");
    app_.Start({});
    Choose(ID_TEXTURE_BROWSER);
  }

  [[nodiscard]] CTextureWidget& Browser() const {
    return dynamic_cast<CTextureWidget&>(*Frames().back()->widget());
  }
  [[nodiscard]] CTextureView& View() const {
    return dynamic_cast<CTextureView&>(*Frames().back()->View());
  }
  [[nodiscard]] QImage Picture() const { return Browser().viewport()->grab().toImage(); }
  void Click(QPoint position) const {
    QTest::mouseClick(Browser().viewport(), Qt::LeftButton, {}, position);
  }
};

constexpr QRgb kRed = qRgb(255, 0, 0);

TEST_F(TextureBrowserTest, AClickSelectsAtOnceWhereverTheWindowHasScrolledTo) {
  CTextureWidget& browser = Browser();
  QWidget& viewport = *browser.viewport();
  EXPECT_EQ(browser.horizontalScrollBar()->maximum(), View().TotalSize().x - viewport.width());
  QWheelEvent wheel({9, 9}, viewport.mapToGlobal(QPointF(9, 9)), {}, {0, -120}, Qt::NoButton, {},
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&viewport, &wheel);
  const int top = browser.verticalScrollBar()->value();
  EXPECT_GT(top, 0);
  browser.horizontalScrollBar()->setValue(10);
  const ScreenRect place = View().PlaceOf(30);
  const QPoint corner(place.left - 10, place.top - top);
  Click(corner + QPoint(5, 5));
  EXPECT_EQ(View().Selected(), 30);
  EXPECT_EQ(Document().CurrentBrush().Name, "t30");
  EXPECT_EQ(Picture().pixel(corner), kRed);
  Click(corner - QPoint(8, 0));
  QTest::mouseClick(&viewport, Qt::RightButton, {}, corner + QPoint(85, 5));
  EXPECT_EQ(View().Selected(), 30);
}

TEST_F(TextureBrowserTest, KeysSelectScrollAndUse) {
  QTest::keyClick(&Browser(), Qt::Key_End);
  EXPECT_EQ(View().Selected(), 119);
  EXPECT_EQ(Browser().verticalScrollBar()->value() + Browser().viewport()->height(),
            View().PlaceOf(119).bottom);
  QTest::keyClick(&Browser(), Qt::Key_Left);
  QTest::keyClick(&Browser(), Qt::Key_Return);
  EXPECT_EQ(Document().CurrentBrush().Name, "t118");
  QTest::keyClick(&Browser(), Qt::Key_Home);
  EXPECT_EQ(Browser().verticalScrollBar()->value(), 0);
}

TEST_F(TextureBrowserTest, AToolTipTellsTheNameAsItIsWrittenAndTheSize) {
  QWidget& viewport = *Browser().viewport();
  QHelpEvent event(QEvent::ToolTip, {90, 10}, viewport.mapToGlobal(QPoint(90, 10)));
  QApplication::sendEvent(&viewport, &event);
  EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("&lt;b&gt;bold%1, 64 x 48")))
      << QToolTip::text().toStdString();
}

}  // namespace
}  // namespace zando::testing
