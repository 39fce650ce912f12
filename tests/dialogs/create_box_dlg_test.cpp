#include "dialogs/create_box_dlg.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>

#include "support/fake_form.h"
#include "support/scripted_desktop.h"

namespace zando {
namespace {

using testing::CFakeForm;

class BoxDialog : public ::testing::Test {
 protected:
  bool Run(std::function<void(CFakeForm&)> person) {
    desktop_.Dialogs.push_back(testing::InDialog(std::move(person)));
    const auto agreed = CCreateBoxDlg(box_).Run(desktop_);
    if (!agreed) return false;
    box_ = *agreed;
    Generate(box_, brush_);
    return true;
  }
  static constexpr std::array<ControlId, 6> kFields{1017, 1019, 1023, 1071, 1024, 1072};

  testing::CScriptedDesktop desktop_;
  BoxParameters box_;
  CZandoBrush brush_;
};

TEST_F(BoxDialog, EveryFieldReachesItsSize) {
  ASSERT_TRUE(Run([](CFakeForm& form) {
    double size = 10;
    for (const ControlId field : kFields) form.Type(field, std::to_string(size += 1));
    form.PressRadio(1014, 2, 1015);
    form.Press(IDOK);
  }));
  EXPECT_EQ(brush_.PolyCount(), 12);
  EXPECT_EQ(brush_.Polys()[0][2], (Vector{7, 5.5, 8}));       // top X 14, Y 11, top Z 16
  EXPECT_EQ(brush_.Polys()[1][2], (Vector{6.5, -5.5, 7.5}));  // bottom X 13, bottom Z 15
  EXPECT_EQ(brush_.Polys()[6][1], (Vector{-5, -6.5, -4}));    // the wall is 12

  Run([](CFakeForm& form) {
    EXPECT_EQ(form.Texts[1072], "16") << "the next dialog starts from the last values";
    EXPECT_TRUE(form.Checks[1015]);
  });
}

TEST_F(BoxDialog, DefaultsShowAtOnceWithTheirPictureAndCountWithOk) {
  box_.YSize = box_.TopXSize = 1;
  box_.Style = BoxParameters::kHollow;
  EXPECT_TRUE(Run([](CFakeForm& form) {
    EXPECT_EQ(form.Pictures[1020], "hollow_box");
    form.PressRadio(1014, 2, 1014);
    EXPECT_EQ(form.Pictures[1020], "solid_box");
    form.PressRadio(1014, 2, 1015);
    EXPECT_EQ(form.Pictures[1020], "hollow_box");
    form.Type(1024, "wrong");
    form.Press(1043);
    EXPECT_EQ(form.Pictures[1020], "solid_box");
    for (const ControlId field : kFields) {
      EXPECT_EQ(form.Texts[field], field == 1019 ? "16" : "128") << field;
    }
    EXPECT_TRUE(form.Checks[1014]);
    form.Press(IDOK);
  }));
  EXPECT_EQ(brush_.PolyCount(), 6);
  EXPECT_EQ(brush_.Polys()[0][2], (Vector{64, 64, 64}));
}

}  // namespace
}  // namespace zando
