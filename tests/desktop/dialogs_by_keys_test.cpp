// Every dialog in its real window, with nothing but keys.
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <set>

#include "desktop/editor_fixture.h"
#include "dialogs/select_classname_dlg.h"
#include "document/command_ids.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"

namespace zando::testing {
namespace {

int IdOf(const QWidget* control) { return control->property("controlId").toInt(); }

/// Whether the Tab key leads there from the control that has the focus.
bool TabTo(QDialog& dialog, ControlId id) {
  std::set<QWidget*> seen;
  while (seen.insert(dialog.focusWidget()).second) {
    if (IdOf(dialog.focusWidget()) == id) return true;
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
  }
  return false;
}

TEST_F(LevelTest, EveryDialogIsFilledInByKeysAloneAndEscapeTakesThatBack) {
  PlaceLight(Document());
  CreateEmptyGroup(Document());
  const CZandoBrush& brush = Document().CurrentBrush();
  const EditingState& state = Document().State();
  const Level& level = Document().GetLevel();
  const struct {
    CommandId command;
    std::vector<ControlId> controls;  ///< the last one takes the text
    const char* text;
    std::function<bool()> done;
  } cases[] = {
      {ID_CUBE, {1072, 1014, 1043, 1017}, "50", [&] { return brush.WorldBounds().high.y == 25; }},
      {ID_SPHEROID, {1022, 1014, 1021}, "12", [&] { return brush.PolyCount() == 48; }},
      {ID_CYLINDER, {1031, 1014, 1021}, "5", [&] { return brush.PolyCount() == 7; }},
      {ID_STAIRCASE, {1066, 1074, 1076}, "3", [&] { return brush.PolyCount() == 14; }},
      {ID_ATTRIBUTES, {1016, 1000, 1003}, "64", [&] { return brush.WorldOrigin().y == 64; }},
      {ID_GRID_SETTINGS, {1087, 1089, 1033}, "16", [&] { return state.GridSize == 16; }},
      {ID_MAP_SETTINGS,
       {1090, 1093},
       "/x.wad",
       [&] { return app_.Settings().WadPath == "/x.wad"; }},
      {ID_ENTITY_EDITOR,
       {1094, 1057, 1047, 1056},
       "torch",
       [&] { return level.Entities[0].GetClassname() == "torch"; }},
      {ID_GROUP_EDITOR,
       {1067, 1065, 1001},
       "roof",
       [&] { return level.Groups[0].gName == "roof"; }},
      {ID_BSP_MANAGER, {1035, 1077}, "", [&] { return Document().IsModified(); }},
  };
  for (const auto& c : cases) {
    for (const Qt::Key end : {Qt::Key_Escape, Qt::Key_Return}) {
      SCOPED_TRACE(c.command);
      Document().SetModifiedFlag(false);
      WithNextDialog([&](QDialog& dialog) {
        QApplication::setActiveWindow(&dialog);
        for (const ControlId id : c.controls) EXPECT_TRUE(TabTo(dialog, id)) << id;
        QTest::keyClicks(dialog.focusWidget(), QLatin1String(c.text));
        QTest::keyClick(dialog.focusWidget(), end);
        EXPECT_FALSE(dialog.isVisible());
        dialog.done(0);
      });
      Choose(c.command);
      EXPECT_EQ(c.done(), end == Qt::Key_Return);
      EXPECT_EQ(Document().IsModified(), end == Qt::Key_Return && c.command != ID_GRID_SETTINGS &&
                                             c.command != ID_MAP_SETTINGS);
    }
  }
}

TEST_F(LevelTest, TheFirstArrowKeyInAListChoosesItsFirstLineAndTheNextGoesOn) {
  for (const auto& [steps, expected] : {std::pair{1, "air_bubbles"}, {2, "ambient_comp_hum"}}) {
    WithNextDialog([steps = steps](QDialog& classes) {
      QApplication::setActiveWindow(&classes);
      for (int i = 0; i < steps; ++i) QTest::keyClick(classes.focusWidget(), Qt::Key_Down);
      QTest::keyClick(classes.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(CSelectClassnameDlg().Run(desktop_)->ClassName(), expected);
  }
}

}  // namespace
}  // namespace zando::testing
