#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/brush_attributes_dlg.h"
#include "dialogs/bsp_manager_dlg.h"
#include "dialogs/create_cylinder_dlg.h"
#include "dialogs/create_spheroid_dlg.h"
#include "dialogs/create_staircase_dlg.h"
#include "dialogs/entity_editor_dlg.h"
#include "dialogs/global_settings_dlg.h"
#include "dialogs/grid_settings_dlg.h"
#include "document/brush_edits.h"
#include "document/entity_edits.h"
#include "document/selection_edits.h"
#include "support/edit_level.h"
#include "support/fake_form.h"
#include "support/scripted_desktop.h"

namespace zando {
namespace {

using testing::CFakeForm;

class CRedraws : public CView {
 public:
  void OnUpdate(const CView* /*sender*/, int /*hint*/) override { ++Count; }
  int Count = 0;
};

class Dialogs : public ::testing::Test {
 protected:
  void Expect(std::function<void(CFakeForm&)> person) {
    desktop.Dialogs.push_back(testing::InDialog(std::move(person)));
  }

  testing::CScriptedDesktop desktop;
  CZANDODoc level;
};

TEST_F(Dialogs, ASpheroidWithTooFewVerticalStripesIsAskedForAgain) {
  Expect([](CFakeForm& form) {
    form.Type(1022, "101");
    form.Press(IDOK);
    EXPECT_EQ(form.Focus, 1022);
    form.Type(1022, "9");
    form.Press(IDOK);
  });
  Expect([](CFakeForm& form) {
    EXPECT_EQ(form.Texts[1022], "9") << "what was typed is still there";
    form.PressRadio(1014, 2, 1015);
    EXPECT_EQ(form.Pictures[1020], "hollow_spheroid");
    form.Type(1021, "9");
    form.Press(IDOK);
  });
  const auto agreed = CCreateSpheroidDlg(SpheroidParameters{}).Run(desktop);
  ASSERT_TRUE(agreed);
  EXPECT_EQ(agreed->VerticalStripes, 9);
  EXPECT_EQ(agreed->Style, SpheroidParameters::kHollow);
  EXPECT_EQ(desktop.Calls[1], "message There must be more vertical bands!");
}

TEST_F(Dialogs, CylinderAndStaircaseRefuseWhatIsOutOfRange) {
  Expect([](CFakeForm& form) {
    for (const auto& [field, text] : {std::pair{1021, "32"}, {1019, "0.5"}}) {
      const std::string before = form.Texts[field];
      form.Type(field, text);
      form.Press(IDOK);
      EXPECT_EQ(std::exchange(form.Focus, 0), field);
      form.Type(field, before);
    }
    form.PressRadio(1014, 3, 1016);
    form.Type(1032, "77");
    form.Press(IDOK);
  });
  const auto cylinder = CCreateCylinderDlg(CylinderParameters{}).Run(desktop);
  ASSERT_TRUE(cylinder);
  EXPECT_EQ(cylinder->Style, CylinderParameters::kRing);
  EXPECT_EQ(cylinder->TopZSize, 77);
  for (const bool ramp : {false, true}) {
    Expect([ramp](CFakeForm& form) {
      form.Type(1076, "2.5");
      form.Checks[1066] = ramp;
      form.Focus = 0;
      form.Press(IDOK);
      EXPECT_EQ(form.Focus, ramp ? 0 : 1076) << "a ramp has no stairs";
    });
    EXPECT_EQ(CCreateStaircaseDlg(StaircaseParameters{}).Run(desktop).has_value(), ramp);
  }
}

TEST_F(Dialogs, BrushAttributesAreATypedMoveAndChangeNoValueByThemselves) {
  PlaceBrush(level, {1.0 / 3.0, 4096.125, 0});
  SetBrushRotation(level, {341.3333333333333, 0, 0});
  SetBrushName(level, "old rock");
  level.SetModifiedFlag(false);
  CRedraws view;
  level.AddView(view);
  const Level before = level.GetLevel();
  for (const ControlId button : {IDCANCEL, IDOK}) {
    if (button == IDOK) testing::Edit(level).WorkingBrush.UpdateMove({9, 9, 9});
    Expect([button](CFakeForm& form) {
      if (button == IDCANCEL) form.Press(1000);
      form.Press(button);
      EXPECT_EQ(form.Result, button) << "a name that was there may stay";
    });
    CBrushAttributesDlg(level, kWorkingBrush, kOwnSlot).Run(desktop);
    EXPECT_TRUE(level.GetLevel() == before) << "a drag is given up, too";
    EXPECT_EQ(level.IsModified(), button == IDOK);
  }
  Expect([](CFakeForm& form) {
    EXPECT_EQ(form.Texts[1003] + ' ' + form.Texts[1005], "4096.125 15");
    for (const char* name : {"", "dark rock"}) {
      form.Type(1068, name);
      form.Press(IDOK);
      EXPECT_EQ(std::exchange(form.Focus, 0), 1068) << "a level or a map could not hold it";
    }
    form.Press(1012);
    EXPECT_EQ(form.Texts[1003] + ' ' + form.Texts[1005], "4096.125 0");
    form.Press(1000);
    EXPECT_EQ(form.Texts[1003] + ' ' + form.Texts[1008], "0 1");
    form.Type(1003, "64");
    form.Type(1005, "45");
    form.Type(1068, "rock");
    form.Press(IDOK);
  });
  CBrushAttributesDlg(level, kWorkingBrush, kOwnSlot).Run(desktop);
  const CZandoBrush& brush = level.CurrentBrush();
  EXPECT_EQ(brush.WorldOrigin(), (Vector{0, 64, 0}));
  EXPECT_EQ(brush.Own().WorkRot, (Vector{1024, 0, 0}));
  EXPECT_EQ(brush.Name, "rock");
  EXPECT_EQ(view.Count, 2) << "once for each that was applied";
  level.RemoveView(view);
}

TEST_F(Dialogs, GridSettingsTakePresetsAndRefuseSizesOutOfRange) {
  Expect([](CFakeForm& form) {
    form.Press(1079);
    form.Press(1087);
  });
  CGridSettingsDlg(level).Run(desktop);
  EXPECT_EQ(level.State().GridSize, 64) << "it was cancelled";
  EXPECT_EQ(level.State().RotationSnap, EditingState().RotationSnap);
  Expect([](CFakeForm& form) {
    EXPECT_EQ(form.Texts[1089], "15");
    form.Type(1089, "wide");
    form.Press(1084);
    EXPECT_EQ(form.Error, "Please enter a number.") << "told, and passed over";
    EXPECT_EQ(form.Texts[1089], "15");
    form.Type(1089, "17");
    form.Press(1081);
    EXPECT_EQ(form.Texts[1089], "17");
    form.Type(1033, "3000");
    form.Press(IDOK);
    EXPECT_EQ(form.Focus, 1033);
    form.Press(1079);
    form.Checks[1082] = false;
    form.Press(IDOK);
  });
  CGridSettingsDlg(level).Run(desktop);
  EXPECT_EQ(level.State().GridSize, 32);
  EXPECT_EQ(level.State().ShowCoarseGrid, 0);
  EXPECT_DOUBLE_EQ(level.State().RotationSnap, 17 * 8192 / 360.0);
  EXPECT_FALSE(level.IsModified());
}

TEST_F(Dialogs, APathThatCannotBeReadIsToldAndKept) {
  CEditorSettings settings;
  for (const ControlId button : {IDCANCEL, IDOK}) {
    desktop.Files = {std::nullopt, "/nowhere/\u0436.wad"};
    Expect([button](CFakeForm& form) {
      form.Type(1092, "");
      form.Press(1090);
      form.Press(1091);
      EXPECT_EQ(form.Texts[1092] + form.Texts[1093], "/nowhere/?.wad");
      form.Press(button);
    });
    CGlobalSettingsDlg(settings, desktop).Run();
    EXPECT_EQ(settings.PalettePath.empty(), button == IDOK);
  }
  EXPECT_EQ(desktop.FileRequests[0].extension + desktop.FileRequests[1].extension, "lmpwad");
  EXPECT_EQ(settings.WadPath, "/nowhere/\u0436.wad") << "as it was chosen";
  EXPECT_TRUE(desktop.Calls.back().starts_with("message /nowhere/?.wad: ")) << desktop.Calls.back();
}

TEST_F(Dialogs, TheBspManagerShowsTheWorldAsItIsAndRebuildsIt) {
  AddToWorld(level);
  Expect([](CFakeForm& form) {
    for (const ControlId field : {1037, 1039, 1040}) EXPECT_EQ(form.Texts[field], "6");
    for (const ControlId field : {1038, 1041}) EXPECT_EQ(form.Texts[field], "0");
    form.Press(1036);
    EXPECT_EQ(form.Result, IDOK);
  });
  CBspManagerDlg manager(level);
  desktop.DoModal(manager);
  EXPECT_EQ(level.GetLevel().World.Count().inserted, 0);
  EXPECT_EQ(level.GetLevel().World.Count().visible, 6);
}

TEST_F(Dialogs, ARebuildMovesItsBarAndEndsAtOnceWhenItIsCancelled) {
  SetBrushName(level, "*water");
  for (int i = 0; i < 5; ++i) AddToWorld(level);
  level.SetModifiedFlag(false);
  for (const auto& [rebuild, cancels] :
       {std::pair{1035, true}, {1036, true}, {1035, false}, {1036, false}}) {
    const std::int32_t before = level.GetLevel().World.Count().visible;
    Expect([rebuild = rebuild, cancels = cancels](CFakeForm& form) {
      EXPECT_TRUE(form.Hidden.contains(1046));
      std::vector<std::int32_t> course;
      form.WhileWorking = [&] {
        course.push_back(form.Bars[1046].position);
        EXPECT_FALSE(form.Hidden.contains(1046));
        for (const ControlId button : {IDOK, 1035, 1036, 1077}) {
          EXPECT_TRUE(form.Disabled.contains(button)) << button;
        }
        if (cancels) form.Press(IDCANCEL);
        EXPECT_EQ(form.Result, 0) << "the rebuild ends first";
      };
      form.Checks[1077] = false;
      form.Press(rebuild);
      EXPECT_TRUE(std::ranges::is_sorted(course));
      EXPECT_EQ(course.size() > 1, !cancels);
      EXPECT_EQ(form.Bars[1046].position == 100, !cancels);
      EXPECT_EQ(form.Result, cancels ? IDCANCEL : IDOK);
    });
    CBspManagerDlg manager(level);
    desktop.DoModal(manager);
    EXPECT_EQ(level.IsModified(), !cancels);
    EXPECT_EQ(level.GetLevel().World.Count().visible, cancels ? before : 0);
  }
}

TEST_F(Dialogs, ClosingTheEntityEditorMarksTheLevelAndEscapeOnlyWhatWasDone) {
  struct Case {
    std::function<void(CFakeForm&)> person;
    bool modified;
  };
  for (const Case& c :
       {Case{[](CFakeForm& form) {
               for (const ControlId button : {1054, 1058, 1059, 1062, 1063, 1094}) {
                 form.Press(button);
               }
               EXPECT_EQ(form.LinesOf(1047), std::vector<std::string>()) << "there is no entity";
             },
             false},
        {[](CFakeForm& form) { form.Press(IDOK); }, true},
        {[this](CFakeForm& form) {
           Expect([](CFakeForm& classes) { classes.Choose(1064, "light"); });
           form.Press(1060);
           EXPECT_EQ(form.LinesOf(1057).size(), 1U) << "what was chosen last counts";
         },
         true},
        {[](CFakeForm& /*form*/) {}, false},
        {[this](CFakeForm& /*form*/) { testing::Edit(level).Entities[0].eOrigin.x = 9; }, true}}) {
    level.SetModifiedFlag(false);
    Expect(c.person);
    CEntityEditorDlg(level, desktop).Run();
    EXPECT_EQ(level.IsModified(), c.modified);
  }
}

TEST_F(Dialogs, KeysOfTheWorldAreSetReplacedAndRemoved) {
  testing::Edit(level).WorldKeys = {{"wad", "own.wad"}, {"sounds", "4"}};
  Expect([&](CFakeForm& editor) {
    Expect([](CFakeForm& form) {
      EXPECT_EQ(form.Texts[2002] + '=' + form.Texts[2003], "wad=own.wad");
      form.Press(2005);
      EXPECT_EQ(form.Texts[2003], "4");
      form.Type(2002, "message");
      form.Type(2003, "two words");
      form.Press(2004);
      form.Type(2002, "SOUNDS");
      form.Type(2003, "5");
      form.Press(2004);
      EXPECT_EQ(form.Texts[2002], "sounds");
      for (const char* refused : {"", "Classname", "a\"b", " a"}) {
        form.Type(2002, refused);
        form.Press(2004);
        EXPECT_EQ(form.Focus, 2002) << refused;
        form.Focus = 0;
      }
      form.Type(2002, "wad");
      form.Type(2003, "");
      form.Press(2004);
      EXPECT_EQ(form.Focus, 2003);
    });
    editor.Press(2000);
  });
  CEntityEditorDlg(level, desktop).Run();
  EXPECT_EQ(level.GetLevel().WorldKeys,
            (std::vector<EntityPair>{{"sounds", "5"}, {"message", "two words"}}));
  EXPECT_TRUE(level.IsModified());
}

TEST_F(Dialogs, EntitiesAreMadeEditedTiedToBrushesAndDeleted) {
  AddBrush(level, level.CurrentBrush());
  SelectAll(level);
  Expect([&](CFakeForm& form) {
    Expect([](CFakeForm& classes) { classes.DoubleClick(1064, "monster_ogre"); });
    form.Press(1060);
    EXPECT_EQ(form.LinesOf(1057), std::vector<std::string>{"monster_ogre"});
    EXPECT_EQ(form.LinesOf(1047),
              (std::vector<std::string>{"\"classname\" \"monster_ogre\"", "\"origin\" \"1 1 1\""}));
    form.Choose(1047, "\"origin\" \"1 1 1\"");
    form.Type(1056, "64 0 32");
    form.Press(1054);
    EXPECT_EQ(form.Focus, 1055);
    EXPECT_EQ(form.Texts[1055], "NewKey");
    EXPECT_EQ(form.TipOf(1057, "monster_ogre"), "Origin 64 0 32");
    form.Type(1055, "angle");
    form.Press(1058);
    form.Press(1061);
    EXPECT_EQ(form.LinesOf(1057), (std::vector<std::string>{"light", "monster_ogre"}));
    form.Press(1063);
    form.Press(IDOK);
  });
  CEntityEditorDlg(level, desktop).Run();
  ASSERT_EQ(level.GetLevel().Entities.size(), 1U);
  const CEntity& ogre = level.GetLevel().Entities[0];
  EXPECT_EQ(ogre.eOrigin, (Vector{64, 0, 32}));
  EXPECT_EQ(ogre.GetValue("angle"), "NewValue");
  EXPECT_TRUE(level.GetLevel().BrushList.Head()->BelongsToEntity());
  EXPECT_EQ(level.State().CurrentEntity, 0);
  EXPECT_TRUE(level.IsModified());
}

}  // namespace
}  // namespace zando
