#include "primitives/create_box_dlg.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "geometry/geometry_testing.h"
#include "support/fake_form.h"
#include "support/scripted_desktop.h"

namespace zando {
namespace {

using testing::CFakeForm;

/// The six faces of a box with these corners, in their order.
std::array<CZandoPoly, 6> FacesOf(const Vector (&v)[8]) {
  return {MakePolygon({v[0], v[1], v[2], v[3]}), MakePolygon({v[4], v[5], v[6], v[7]}),
          MakePolygon({v[1], v[7], v[6], v[2]}), MakePolygon({v[0], v[3], v[5], v[4]}),
          MakePolygon({v[0], v[4], v[7], v[1]}), MakePolygon({v[3], v[2], v[6], v[5]})};
}

TEST(Box, FacesHaveTheirOrderAndLookAwayFromTheWalls) {
  CCreateBoxDlg box;
  box.YSize = 8;
  box.TopXSize = 4;
  box.TopZSize = 6;
  box.BottomXSize = 20;
  box.BottomZSize = 40;
  box.WallThickness = 1;
  const Vector shell[] = {{-2, 4, -3},    {-2, 4, 3},    {2, 4, 3},    {2, 4, -3},
                          {-10, -4, -20}, {10, -4, -20}, {10, -4, 20}, {-10, -4, 20}};
  const Vector cavity[] = {{-1, 3, -2},   {-1, 3, 2},   {1, 3, 2},   {1, 3, -2},
                           {-9, -3, -19}, {9, -3, -19}, {9, -3, 19}, {-9, -3, 19}};
  CZandoBrush brush;
  box.Generate(brush);
  EXPECT_EQ(brush.PolyCount(), 6);
  box.Style = CCreateBoxDlg::kHollow;
  box.Generate(brush);
  ASSERT_EQ(brush.PolyCount(), 12);
  for (std::size_t i = 0; i < 6; ++i) {
    SCOPED_TRACE(i);
    const CZandoPoly& outer = brush.Polys[i];
    const CZandoPoly& inner = brush.Polys[6 + i];
    EXPECT_TRUE(SameVertices(outer, FacesOf(shell)[i]));
    EXPECT_TRUE(SameVertices(inner, ReverseCopy(FacesOf(cavity)[i]).polygon));
    EXPECT_EQ(ClassifyPoint(ComputePlane(outer), {0, 0, 0}), PointClass::Back);
    EXPECT_EQ(ClassifyPoint(ComputePlane(inner), {0, 0, 0}), PointClass::Front);
  }
}

class BoxDialog : public ::testing::Test {
 protected:
  bool Run(std::function<void(CFakeForm&)> person) {
    desktop_.Dialogs.push_back(testing::InDialog(std::move(person)));
    return box_.Run(brush_, desktop_);
  }
  static constexpr std::array<ControlId, 6> kFields{1017, 1019, 1023, 1071, 1024, 1072};

  testing::CScriptedDesktop desktop_;
  CCreateBoxDlg box_;
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
  EXPECT_EQ(brush_.Polys[0][2], (Vector{7, 5.5, 8}));       // top X 14, Y 11, top Z 16
  EXPECT_EQ(brush_.Polys[1][2], (Vector{6.5, -5.5, 7.5}));  // bottom X 13, bottom Z 15
  EXPECT_EQ(brush_.Polys[6][1], (Vector{-5, -6.5, -4}));    // the wall is 12

  Run([](CFakeForm& form) {
    EXPECT_EQ(form.Texts[1072], "16") << "the next dialog starts from the last values";
    EXPECT_TRUE(form.Checks[1015]);
  });
}

TEST_F(BoxDialog, DefaultsShowAtOnceWithTheirPictureAndCountWithOk) {
  box_.YSize = box_.TopXSize = 1;
  box_.Style = CCreateBoxDlg::kHollow;
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
  EXPECT_EQ(brush_.Polys[0][2], (Vector{64, 64, 64}));
}

TEST_F(BoxDialog, CancelForgetsDefaultsAndWhatAFailedOkHadTaken) {
  box_.YSize = 1.0 / 3.0;
  box_.Style = CCreateBoxDlg::kHollow;
  EXPECT_FALSE(Run([](CFakeForm& form) {
    form.Press(1043);
    form.Type(1017, "-7");
    form.Type(1072, "wide");
    form.Press(IDOK);
    EXPECT_EQ(form.Focus, 1072);
    form.Press(IDCANCEL);
  }));
  EXPECT_EQ(box_.YSize, 1.0 / 3.0);
  EXPECT_EQ(box_.Style, CCreateBoxDlg::kHollow);
  EXPECT_EQ(brush_.PolyCount(), 0);
}

}  // namespace
}  // namespace zando
