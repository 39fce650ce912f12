#include <gtest/gtest.h>

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
  Expect([](CFakeForm& form) {
    form.Type(1076, "2.5");
    form.Press(IDOK);
    EXPECT_EQ(form.Focus, 1076);
  });
  EXPECT_FALSE(CCreateStaircaseDlg(StaircaseParameters{}).Run(desktop));
}

TEST_F(Dialogs, BrushAttributesAreATypedMoveAndChangeNothingByThemselves) {
  PlaceBrush(level, {1.0 / 3.0, 0, 0});
  SetBrushRotation(level, {341.3333333333333, 0, 0});
  level.SetModifiedFlag(false);
  const Level before = level.GetLevel();
  Expect([](CFakeForm& form) { form.Press(IDOK); });
  CBrushAttributesDlg(level, kWorkingBrush, kOwnSlot).Run(desktop);
  EXPECT_TRUE(level.GetLevel() == before && !level.IsModified());
  Expect([](CFakeForm& form) {
    EXPECT_EQ(form.Texts[1005], "15");
    form.Press(1000);
    EXPECT_EQ(form.Texts[1008], "1");
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
  EXPECT_TRUE(level.IsModified());
}

TEST_F(Dialogs, GridSettingsTakePresetsAndRefuseSizesOutOfRange) {
  Expect([](CFakeForm& form) {
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
  desktop.Files = {"/nowhere/a.wad"};
  Expect([](CFakeForm& form) {
    form.Type(1092, "");
    form.Press(1091);
    EXPECT_EQ(form.Texts[1093], "/nowhere/a.wad");
    form.Press(IDOK);
  });
  CGlobalSettingsDlg(settings, desktop).Run();
  EXPECT_EQ(settings.WadPath, "/nowhere/a.wad");
  EXPECT_TRUE(desktop.Calls.back().starts_with("message /nowhere/a.wad: ")) << desktop.Calls.back();
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
