#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "support/scripted_desktop.h"
#include "views/zando_view.h"

namespace zando::testing {

/// What holds for the window of a view, of every kind. A Holder has one for the view it is given:
/// Window, Title, Frame (the one shown over the picture), Paints so far, Settle (lets paint what
/// is to be painted soon).
template <typename Holder>
class WindowSuite : public ::testing::Test {
 protected:
  CZANDODoc document_;
  CEditorSettings settings_;
  CScriptedDesktop desktop_;
  CZANDOView view_{document_, settings_, desktop_};
  Holder holder_{view_};
  CViewWindow& window_ = holder_.Window();
};
TYPED_TEST_SUITE_P(WindowSuite);

TYPED_TEST_P(WindowSuite, ShowsOneFrameUntilItIsErased) {
  EXPECT_EQ(this->holder_.Frame(), std::nullopt);
  for (const ScreenRect& frame : {ScreenRect{5, 6, 25, 36}, ScreenRect{10, 10, 12, 12}}) {
    this->window_.DrawDragRect(frame);
    EXPECT_EQ(this->holder_.Frame(), frame);
  }
  this->window_.EraseDragRect();
  this->window_.EraseDragRect();
  EXPECT_EQ(this->holder_.Frame(), std::nullopt);
}

TYPED_TEST_P(WindowSuite, HoldsTheMouseFromOneCallToTheOtherAndTakesEveryTitle) {
  EXPECT_FALSE(this->window_.HasCapture());
  this->window_.SetCapture();
  this->window_.SetCapture();
  EXPECT_TRUE(this->window_.HasCapture());
  this->window_.ReleaseCapture();
  EXPECT_FALSE(this->window_.HasCapture());
  this->view_.OnInitialUpdate();
  this->view_.SetKind(ViewKind::Top);
  EXPECT_EQ(this->holder_.Title(), "-Top View-");
}

TYPED_TEST_P(WindowSuite, PaintsAtOnceOrSoonAndThenOnceForMany) {
  this->holder_.Settle();
  const int before = this->holder_.Paints();
  this->window_.RedrawNow();
  EXPECT_EQ(this->holder_.Paints(), before + 1);
  this->window_.Invalidate();
  this->window_.Invalidate();
  EXPECT_EQ(this->holder_.Paints(), before + 1);
  this->holder_.Settle();
  EXPECT_EQ(this->holder_.Paints(), before + 2);
}

REGISTER_TYPED_TEST_SUITE_P(WindowSuite, ShowsOneFrameUntilItIsErased,
                            HoldsTheMouseFromOneCallToTheOtherAndTakesEveryTitle,
                            PaintsAtOnceOrSoonAndThenOnceForMany);

}  // namespace zando::testing
