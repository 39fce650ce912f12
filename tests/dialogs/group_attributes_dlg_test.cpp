#include "dialogs/group_attributes_dlg.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "document/brush_edits.h"
#include "document/group_edits.h"
#include "support/edit_level.h"
#include "support/fake_form.h"
#include "support/scripted_desktop.h"

namespace zando {
namespace {

using testing::CFakeForm;
using Lines = std::vector<std::string>;

class GroupDialog : public ::testing::Test {
 protected:
  GroupDialog() {
    Level& level = testing::Edit(level_);
    level.Groups.resize(3);
    SetGroupLook(level_, 0, {"walls", 0x0000FF, true});
    SetGroupLook(level_, 1, {"Attic", 0x00FF00, false});
    SetGroupLook(level_, 2, {"beams", 0x0000FF, true});
    for (const auto& [name, group] : {std::pair{"pillar", 0}, {"joist", 2}, {"Arch", 0}}) {
      CZandoBrush brush = level_.CurrentBrush();
      brush.MoveTo({16.5, 0, -8});
      brush.Name = name;
      brush.BGroup = group;
      AddBrush(level_, brush);
    }
    level_.SetModifiedFlag(false);
  }
  /// The group that is current afterwards.
  std::int32_t Run(std::int32_t current, std::function<void(CFakeForm&)> person) {
    desktop_.Dialogs.push_back(testing::InDialog(std::move(person)));
    testing::EditState(level_).CurrentGroup = current;
    CGroupAttributesDlg(level_, desktop_).Run();
    return level_.State().CurrentGroup;
  }

  testing::CScriptedDesktop desktop_;
  CZANDODoc level_;
  const CGroupList& groups_ = level_.GetLevel().Groups;
};

TEST_F(GroupDialog, ADoubleClickOnABrushEditsItsAttributes) {
  Run(0, [&](CFakeForm& form) {
    desktop_.Dialogs.push_back(testing::InDialog([](CFakeForm& attributes) {
      attributes.Type(1068, "arc");
      attributes.Press(IDOK);
    }));
    EXPECT_EQ(form.TipOf(1067, "Arch"), "Position 16.5 0 -8, size 128 128 128");
    form.DoubleClick(1067, "Arch");
    EXPECT_EQ(form.LinesOf(1067), (Lines{"arc", "pillar"}));
    EXPECT_EQ(form.SelectedLine(1067), 2) << "the brush is still chosen";
  });
}

TEST_F(GroupDialog, ShowsTheGroupsSortedAndTheChosenOneWithItsBrushes) {
  EXPECT_EQ(Run(0,
                [](CFakeForm& form) {
                  EXPECT_EQ(form.LinesOf(1064), (Lines{"Attic [ ]", "beams [X]", "walls [X]"}));
                  EXPECT_EQ(form.Texts[1001], "walls");
                  EXPECT_EQ(form.LinesOf(1067), (Lines{"Arch", "pillar"}));
                  form.Choose(1064, "Attic [ ]");
                  EXPECT_EQ(form.Texts[1001], "Attic");
                  EXPECT_FALSE(form.Checks[1066]);
                  EXPECT_EQ(form.Colors[1065], 0x00FF00U);
                  EXPECT_EQ(form.LinesOf(1067), Lines{});
                }),
            1);
}

TEST_F(GroupDialog, ChoosingAnotherGroupAppliesAndSortsWhatCancelThenKeeps) {
  desktop_.Colors = {std::nullopt, 0x123456};
  EXPECT_EQ(Run(0,
                [](CFakeForm& form) {
                  form.Type(1001, "arches ");
                  form.Checks[1066] = false;
                  form.Press(1065);
                  EXPECT_EQ(form.Colors[1065], 0x0000FFU) << "no colour was chosen";
                  form.Press(1065);
                  form.Choose(1064, "beams [X]");
                  EXPECT_EQ(form.LinesOf(1064), (Lines{"arches [ ]", "Attic [ ]", "beams [X]"}));
                  EXPECT_EQ(form.Selections[1064], 2);
                  form.Type(1001, "lost");
                  form.Press(IDCANCEL);
                }),
            2);
  EXPECT_EQ(groups_[0].gName, "arches");
  EXPECT_EQ(groups_[0].gVis, 0);
  EXPECT_EQ(groups_[0].gCol, 0x123456U);
  EXPECT_EQ(groups_[2].gName, "beams");
}

TEST_F(GroupDialog, ADoubleClickShowsOrHidesTheGroupAndOkAppliesTheFields) {
  EXPECT_EQ(Run(0,
                [](CFakeForm& form) {
                  form.DoubleClick(1064, "walls [X]");
                  form.DoubleClick(1064, "Attic [ ]");
                  EXPECT_EQ(form.LinesOf(1064), (Lines{"Attic [X]", "beams [X]", "walls [ ]"}));
                  form.DoubleClick(1067, "");
                  form.Type(1001, "roof");
                  form.Press(IDOK);
                }),
            1);
  EXPECT_EQ(groups_[0].gVis, 0);
  EXPECT_EQ(groups_[1].gVis, 1);
  EXPECT_EQ(groups_[1].gName, "roof");
}

TEST_F(GroupDialog, AnEmptyNameIsRefusedEverywhereButOnCancel) {
  EXPECT_EQ(Run(2,
                [](CFakeForm& form) {
                  form.Type(1001, "  ");
                  const std::function<void()> attempts[] = {
                      [&form] { form.Press(IDOK); }, [&form] { form.Choose(1064, "Attic [ ]"); },
                      [&form] { form.DoubleClick(1064, "beams [X]"); }};
                  for (const auto& attempt : attempts) {
                    form.Focus = 0;
                    attempt();
                    EXPECT_EQ(form.Focus, 1001);
                    EXPECT_EQ(form.Selections[1064], 2);
                    EXPECT_EQ(form.Result, 0);
                  }
                  EXPECT_TRUE(form.Checks[1066]);
                }),
            2);
  EXPECT_EQ(groups_[2].gName, "beams");
}

TEST_F(GroupDialog, NothingIsChangedWhileNoGroupIsChosen) {
  const auto rename = [](CFakeForm& form) {
    form.Type(1001, "nobody");
    form.Press(IDOK);
  };
  EXPECT_EQ(Run(-1, rename), -1);
  EXPECT_EQ(Run(7, rename), -1);
  EXPECT_EQ(groups_[0].gName, "walls");
}

}  // namespace
}  // namespace zando
