#include "app/document_commands.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/command_table.h"
#include "document/command_ids.h"
#include "platform/file_io.h"
#include "support/scripted_desktop.h"

namespace zando {
namespace {

using testing::CScriptedDesktop;

class CRecorder : public CView, public CFrameDisplay {
 public:
  void OnUpdate(const CView* /*sender*/, int /*hint*/) override { told += "redraw "; }
  void RefreshGroups() override { told += "groups "; }
  void RefreshGrid() override { told += "grid "; }
  std::string told;
};

/// A level with the desktop and the frame around it.
struct Bench {
  CZANDODoc level;
  CEditorSettings settings;
  CScriptedDesktop desktop;
  CRecorder recorder;
  CDocumentCommands commands{level, settings, desktop};

  Bench() {
    level.AddView(recorder);
    level.Frame = &recorder;
  }
  ~Bench() { level.RemoveView(recorder); }

  /// "enabled", "disabled", "checked" or "unknown".
  std::string State(CommandId id) {
    CCmdUI ui;
    if (!commands.OnUpdateCommandUI(id, ui)) return "unknown";
    return !ui.IsEnabled() ? "disabled" : ui.IsChecked() ? "checked" : "enabled";
  }
};

void Nothing(Bench& /*bench*/) {}
void ListTwo(Bench& bench) {
  bench.level.AddToWorld();
  bench.level.AddToWorld();
}
void Pick(Bench& bench) {
  ListTwo(bench);
  bench.level.SetCurrentBrush(*bench.level.BrushList.Head());
}
void Select(Bench& bench) {
  ListTwo(bench);
  bench.level.BrushList.Head()->BFlags |= BF_SELECTED;
}
void SelectAndEditGroups(Bench& bench) {
  Select(bench);
  bench.desktop.Dialogs.emplace_back([](CDialog&) { return IDCANCEL; });
}
void EditGroups(Bench& bench) {
  bench.desktop.Dialogs.emplace_back([](CDialog&) { return IDOK; });
}
void Light(Bench& bench) { bench.level.PlaceLight(); }

TEST(DocumentCommands, EachHasItsRuleBeforeAndAfterAndTellsInOrder) {
  struct Case {
    CommandId id;
    void (*prepare)(Bench&);
    std::string before;  ///< state of the command
    std::string told;
    std::string after;
  };
  const std::vector<Case> cases{
      {ID_ADD_TO_WORLD, Nothing, "enabled", "groups redraw modified", "enabled"},
      {ID_SUBTRACT_FROM_WORLD, Pick, "enabled", "redraw modified", "enabled"},
      {ID_CUBE, EditGroups, "enabled", "redraw modified", "enabled"},
      {ID_QUICK_BSP, ListTwo, "enabled", "redraw modified", "enabled"},
      {ID_USE_GRID, Nothing, "enabled", "grid redraw ", "checked"},
      {ID_EDIT_UNDO, ListTwo, "disabled", "", ""},
      {ID_EDIT_REDO, ListTwo, "disabled", "", ""},
      {ID_PLACE_LIGHT, Nothing, "enabled", "groups redraw modified", "enabled"},
      {ID_COPY_ENTITY, Nothing, "disabled", "", ""},
      {ID_COPY_ENTITY, Light, "enabled", "redraw modified", "enabled"},
      {ID_SHOW_ENTITIES, Nothing, "checked", "groups redraw ", "enabled"},
      {ID_SHOW_ALL_BRUSHES, Nothing, "checked", "redraw ", "checked"},
      {ID_SHOW_VISIBLE_GROUPS, Nothing, "enabled", "redraw ", "checked"},
      {ID_SHOW_CURRENT_GROUP, Nothing, "enabled", "redraw ", "checked"},
      {ID_ADD_TO_GROUP, ListTwo, "disabled", "", ""},
      {ID_ADD_TO_GROUP, Select, "enabled", "groups redraw modified", "disabled"},
      {ID_REMOVE_FROM_GROUP, ListTwo, "disabled", "", ""},
      {ID_REMOVE_FROM_GROUP, Select, "enabled", "groups redraw modified", "disabled"},
      {ID_CREATE_GROUP, ListTwo, "disabled", "", ""},
      {ID_CREATE_GROUP, SelectAndEditGroups, "enabled", "groups redraw groups redraw modified",
       "disabled"},
      {ID_GROUP_EDITOR, EditGroups, "enabled", "groups redraw modified", "enabled"},
      {ID_GROUP_MOVEMENT, Nothing, "enabled", "", "checked"},
      {ID_TOOL_SELECT_BRUSH, Nothing, "enabled", "", "checked"},
      {ID_TOOL_CAMERA, Nothing, "checked", "", "checked"},
      {ID_DELETE_BRUSH, ListTwo, "disabled", "", ""},
      {ID_DELETE_BRUSH, Pick, "enabled", "redraw modified", "disabled"},
      {ID_NEXT_BRUSH, ListTwo, "disabled", "", ""},
      {ID_NEXT_BRUSH, Pick, "enabled", "redraw ", "enabled"},
      {ID_PREVIOUS_BRUSH, Pick, "enabled", "redraw ", "enabled"},
      {ID_COPY_TO_CURRENT, ListTwo, "disabled", "", ""},
      {ID_COPY_TO_CURRENT, Pick, "enabled", "redraw ", "disabled"},
      {ID_SPHEROID, Nothing, "unknown", "", ""},
      {ID_IMPORT_MAP, Nothing, "unknown", "", ""},
      {ID_GRID_SETTINGS, Nothing, "unknown", "", ""},
      {ID_HIDE_NON_LIGHTS, Nothing, "unknown", "", ""},
  };
  for (const Case& c : cases) {
    Bench bench;
    c.prepare(bench);
    bench.recorder.told.clear();
    bench.level.SetModifiedFlag(false);
    EXPECT_EQ(bench.State(c.id), c.before) << c.id;
    if (c.after.empty() && c.before != "unknown") continue;
    EXPECT_EQ(bench.commands.OnCommand(c.id), c.before != "unknown");
    if (c.before == "unknown") continue;
    EXPECT_EQ(bench.recorder.told + (bench.level.IsModified() ? "modified" : ""), c.told) << c.id;
    EXPECT_EQ(bench.State(c.id), c.after) << c.id;
    EXPECT_TRUE(bench.desktop.Dialogs.empty()) << c.id;
  }
}

TEST(DocumentCommands, StepsThroughTheListStayAtItsEnds) {
  Bench bench;
  ListTwo(bench);
  CZandoBrush* first = bench.level.BrushList.Head();
  CZandoBrush* second = first->Next;
  bench.level.SetCurrentBrush(*first);
  struct Step {
    CommandId id;
    CZandoBrush* current;
  };
  for (const Step& step : {Step{ID_PREVIOUS_BRUSH, first}, Step{ID_NEXT_BRUSH, second},
                           Step{ID_NEXT_BRUSH, second}, Step{ID_PREVIOUS_BRUSH, first}}) {
    bench.commands.OnCommand(step.id);
    EXPECT_EQ(bench.level.CurrentBrush, step.current);
    EXPECT_EQ(bench.level.BrushPicked, 1);
  }
  second->MoveTo({1, 2, 3});
  bench.level.SetCurrentBrush(*second);
  bench.commands.OnCommand(ID_COPY_TO_CURRENT);
  EXPECT_EQ(bench.level.CurrentBrush, &bench.level.WorkingBrush);
  EXPECT_EQ(bench.level.WorkingBrush.Pos[kOwnSlot], (Vector{1, 2, 3}));
  EXPECT_EQ(bench.level.BrushCount(), 2);
}

TEST(DocumentCommands, TheCubeGoesIntoTheCurrentBrushAndCancelKeepsItsShape) {
  Bench bench;
  Pick(bench);
  const Vector corner = bench.level.CurrentBrush->Polys[0][0];
  bench.level.BoxDialog.YSize = 32;
  bench.desktop.Dialogs.emplace_back([](CDialog&) { return IDCANCEL; });
  bench.commands.OnCommand(ID_CUBE);
  EXPECT_EQ(bench.level.CurrentBrush->Polys[0][0], corner);
  bench.desktop.Dialogs.emplace_back([](CDialog&) { return IDOK; });
  bench.commands.OnCommand(ID_CUBE);
  const CZandoBrush& picked = *bench.level.BrushList.Head();
  EXPECT_EQ(picked.Polys[0][0].y, 16);
  EXPECT_EQ(picked.Faces[0].points[1], picked.Polys[0][0]);
  EXPECT_EQ(bench.level.WorkingBrush.Polys[0][0], corner);
}

TEST(DocumentCommands, ExportProposesTheLevelsNameAndSaysWhatCannotBeWritten) {
  const auto folder =
      std::filesystem::path(::testing::TempDir()) / ("zando.export." + std::to_string(::getpid()));
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  Bench bench;
  ListTwo(bench);
  bench.level.SetModifiedFlag(false);
  bench.level.SetPathName("/levels.d/d\xC3\xBCne.3dz");
  bench.desktop.Files = {std::nullopt, folder / "out.map", folder / "missing" / "d\xC3\xBCne.map"};
  bench.commands.OnCommand(ID_EXPORT_MAP);
  const FileRequest& request = bench.desktop.FileRequests[0];
  EXPECT_EQ(request.proposal, "/levels.d/d\xC3\xBCne");
  EXPECT_EQ(request.extension, "MAP");
  EXPECT_TRUE(std::filesystem::is_empty(folder));

  bench.commands.OnCommand(ID_EXPORT_MAP);
  const FileContents written = ReadWholeFile(folder / "out.map");
  ASSERT_TRUE(written.bytes.has_value());
  EXPECT_NE(written.bytes->find("worldspawn"), std::string::npos);
  EXPECT_EQ(bench.desktop.StatusText, "Wrote 2 brushes to out.map");

  bench.commands.OnCommand(ID_EXPORT_MAP);
  EXPECT_TRUE(bench.desktop.StatusText.starts_with("Cannot write "));
  EXPECT_NE(bench.desktop.StatusText.find("missing/d\xFCne.map: "), std::string::npos);
  EXPECT_FALSE(bench.level.IsModified());
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace zando
