#include "app/level_commands.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/command_target.h"
#include "document/brush_edits.h"
#include "document/command_ids.h"
#include "document/entity_edits.h"
#include "formats/map_writer.h"
#include "platform/file_io.h"
#include "support/edit_level.h"
#include "support/fake_form.h"
#include "support/given_texts.h"
#include "support/made_up_wad.h"
#include "support/scripted_desktop.h"

namespace zando {
namespace {

using testing::Edit;
using testing::EditState;

/// A level with the desktop and the frame around it.
struct Bench {
  CZANDODoc level;
  CEditorSettings settings;
  testing::CScriptedDesktop desktop;
  testing::CListener listener;
  ActiveLevel target{level, settings, desktop};
  CTableTarget<ActiveLevel> commands{target};

  Bench() {
    level.AddView(listener);
    level.SetFrame(&listener);
  }
  ~Bench() { level.RemoveView(listener); }

  /// Lists two brushes.
  void Fill() {
    AddToWorld(level);
    AddToWorld(level);
  }
  /// Lists two brushes, picks and selects the first, and places a light.
  void Prepare() {
    Fill();
    PlaceLight(level);
    SetCurrentBrush(level, 0);
    Edit(level).BrushList.Find(0)->BFlags |= BF_SELECTED;
  }
  std::string State(CommandId id) {
    CCmdUI ui;
    if (!commands.OnUpdateCommandUI(id, ui)) return "unknown";
    return !ui.IsEnabled() ? "disabled" : ui.IsChecked() ? "checked" : "enabled";
  }
  void Answer(ControlId answer) {
    desktop.Dialogs.emplace_back([answer](CDialog&) { return answer; });
  }
};

TEST(CommandTable, KeysAndPromptsAreAsTheyAreGiven) {
  std::size_t length = 0;
  for (const Accelerator& key : Accelerators()) {
    const std::string line = std::string(key.keys) + ' ' + std::to_string(key.id) + '|';
    EXPECT_NE(('|' + std::string(testing::kGivenKeys)).find('|' + line), std::string::npos) << line;
    length += line.size();
  }
  EXPECT_EQ(length, testing::kGivenKeys.size());
  for (const auto& [id, prompt, tip] : testing::kGivenTips) {
    EXPECT_EQ(FindCommand(id)->prompt, prompt);
    EXPECT_EQ(FindCommand(id)->tip, tip);
  }
}

TEST(LevelCommands, WhatHasNothingToWorkOnIsDisabledAndNothingElse) {
  const std::set<CommandId> disabled{
      ID_EDIT_UNDO,    ID_EDIT_REDO,    ID_COPY_ENTITY, ID_ADD_TO_GROUP,   ID_REMOVE_FROM_GROUP,
      ID_CREATE_GROUP, ID_DELETE_BRUSH, ID_NEXT_BRUSH,  ID_PREVIOUS_BRUSH, ID_COPY_TO_CURRENT};
  Bench bench;
  bench.Fill();
  for (const CommandRow& row : CommandTable()) {
    EXPECT_EQ(bench.State(row.id) == "disabled", disabled.contains(row.id)) << row.id;
  }
  EXPECT_EQ(bench.State(ID_TEXTURES), "unknown");
  EXPECT_FALSE(bench.commands.OnCommand(ID_TEXTURES));
}

TEST(LevelCommands, EachTellsInOrderAndHasItsStateBeforeAndAfter) {
  // State before, who is told, state after.
  using Case = std::pair<std::string, std::vector<CommandId>>;
  for (const auto& [expected, ids] :
       {Case{"enabled: rm: enabled",
             {ID_ADD_TO_WORLD, ID_SUBTRACT_FROM_WORLD, ID_CUBE, ID_QUICK_BSP, ID_PLACE_LIGHT,
              ID_COPY_ENTITY, ID_RESET_BRUSH}},
        Case{"enabled: sr: checked", {ID_USE_GRID}},
        Case{"checked: r: enabled", {ID_SHOW_ENTITIES, ID_SHOW_BRUSH}},
        Case{"enabled: r: checked", {ID_SHOW_VISIBLE_GROUPS, ID_SHOW_CURRENT_GROUP}},
        Case{"enabled: : checked",
             {ID_TOOL_SHEAR_BRUSH, ID_TOOL_SCALE_BRUSH, ID_TOOL_SELECT_BRUSH}},
        Case{"enabled: grm: disabled", {ID_ADD_TO_GROUP, ID_REMOVE_FROM_GROUP}},
        Case{"enabled: grgrm: disabled", {ID_CREATE_GROUP}},
        Case{"enabled: grm: enabled", {ID_GROUP_EDITOR}},
        Case{"enabled: : checked", {ID_GROUP_MOVEMENT}},
        Case{"enabled: rm: disabled", {ID_DELETE_BRUSH}},
        Case{"enabled: r: enabled", {ID_NEXT_BRUSH}},
        Case{"enabled: r: disabled", {ID_COPY_TO_CURRENT}}}) {
    for (const CommandId id : ids) {
      Bench bench;
      bench.Prepare();
      bench.listener.told.clear();
      bench.level.SetModifiedFlag(false);
      const bool asks = id == ID_CUBE || id == ID_CREATE_GROUP || id == ID_GROUP_EDITOR;
      if (asks) bench.Answer(IDOK);
      std::string course = bench.State(id) + ": ";
      bench.commands.OnCommand(id);
      course += bench.listener.told + (bench.level.IsModified() ? "m" : "");
      EXPECT_EQ(course + ": " + bench.State(id), expected) << id;
      EXPECT_TRUE(bench.desktop.Dialogs.empty()) << id;
    }
  }
}

TEST(LevelCommands, QuickBspLeavesWaterOutAndEverythingAsItWasWhenItIsCancelled) {
  Bench bench;
  AddToWorld(bench.level);
  SetBrushName(bench.level, "*water");
  PlaceBrush(bench.level, {500, 0, 0});
  AddToWorld(bench.level);
  bench.level.SetModifiedFlag(false);
  bench.desktop.CancelAt = 1;
  bench.commands.OnCommand(ID_QUICK_BSP);
  EXPECT_FALSE(bench.level.IsModified());
  EXPECT_NE(bench.desktop.StatusText.find("cancelled"), std::string::npos);
  bench.desktop.CancelAt.reset();
  for (const std::int32_t nodes : {12, 6}) {
    EXPECT_EQ(bench.level.GetLevel().World.Count().nodes, nodes);
    bench.commands.OnCommand(ID_QUICK_BSP);
  }
  EXPECT_GT(bench.desktop.Percent, 0);
}

TEST(LevelCommands, DialogsOfTheLevelMarkItUnlessTheyAreCancelledAndRedrawAnyway) {
  for (const CommandId id : {ID_BSP_MANAGER, ID_ATTRIBUTES, ID_CUBE, ID_STAIRCASE}) {
    for (const ControlId answer : {IDOK, IDCANCEL}) {
      Bench bench;
      bench.Answer(answer);
      bench.commands.OnCommand(id);
      EXPECT_EQ(bench.level.IsModified(), answer == IDOK) << id;
      EXPECT_EQ(bench.listener.told, "r") << id;
    }
  }
}

TEST(LevelCommands, ASpheroidThatWasRefusedAndThenCancelledIsOfferedAgain) {
  Bench bench;
  for (const auto& [stripes, button] : {std::pair{"5", IDOK}, {"7", IDCANCEL}, {"5", IDCANCEL}}) {
    bench.desktop.Dialogs.push_back(
        testing::InDialog([stripes = stripes, button = button](testing::CFakeForm& form) {
          EXPECT_EQ(form.Texts[1022], button == IDOK ? "4" : "5");
          form.Type(1022, stripes);
          form.Type(1021, "4");
          form.Press(button);
        }));
  }
  bench.commands.OnCommand(ID_SPHEROID);
  bench.commands.OnCommand(ID_SPHEROID);
  EXPECT_FALSE(bench.level.IsModified());
}

TEST(LevelCommands, WhatIsAddedHasTheFirstTextureOnEveryFace) {
  const std::filesystem::path archive =
      ::testing::TempDir() + "zando.wad." + std::to_string(::getpid());
  const std::string brick = testing::MipHead("brick", 2, 1) + "ab";
  ASSERT_TRUE(WriteFileAtomically(archive, testing::Archive({{brick}, {brick}})));
  Bench bench;
  for (const std::int32_t tag : {0, 1}) {
    bench.commands.OnCommand(ID_SUBTRACT_FROM_WORLD);
    for (const BrushFace& face : bench.level.GetLevel().BrushList[tag].Faces) {
      EXPECT_EQ(face.tag, tag);
    }
    bench.level.LoadTextures({}, archive);
  }
  std::filesystem::remove(archive);
}

TEST(LevelCommands, ResetActsOnTheGroupsOwnTransformInGroupMovement) {
  Bench bench;
  bench.Fill();
  bench.commands.OnCommand(ID_GROUP_MOVEMENT);
  Edit(bench.level).Groups = {{.Centre = {1, 2, 3},
                               .Rotation = {4, 5, 6},
                               .WorkRotation = {4, 5, 6},
                               .Scale = {2, 2, 2},
                               .Shear = {1, 0, 0}}};
  SetBrushScale(bench.level, {3, 3, 3});
  for (const std::int32_t group : {-1, 0}) {
    EditState(bench.level).CurrentGroup = group;
    const CBGroup before = bench.level.GetLevel().Groups[0];
    bench.commands.OnCommand(ID_RESET_BRUSH);
    const CBGroup reset{.Centre = {1, 2, 3}, .WorkCentre = {1, 2, 3}};
    EXPECT_EQ(bench.level.GetLevel().Groups[0], group < 0 ? before : reset);
  }
  EXPECT_EQ(bench.level.CurrentBrush().Own().Scl, (Vector{3, 3, 3}));
  bench.commands.OnCommand(ID_GROUP_MOVEMENT);
  bench.commands.OnCommand(ID_RESET_BRUSH);
  EXPECT_EQ(bench.level.CurrentBrush().Own().Scl, (Vector{1, 1, 1}));
}

TEST(LevelCommands, StepsThroughTheListStayAtItsEnds) {
  Bench bench;
  bench.Prepare();
  for (const auto& [id, current] : {std::pair{ID_PREVIOUS_BRUSH, 0},
                                    {ID_NEXT_BRUSH, 1},
                                    {ID_NEXT_BRUSH, 1},
                                    {ID_PREVIOUS_BRUSH, 0}}) {
    bench.commands.OnCommand(id);
    EXPECT_EQ(bench.level.State().CurrentBrush, current);
  }
  PlaceBrush(bench.level, {1, 2, 3});
  bench.commands.OnCommand(ID_SHOW_VISIBLE_GROUPS);
  bench.commands.OnCommand(ID_COPY_TO_CURRENT);
  const CZandoBrush& working = bench.level.GetLevel().WorkingBrush;
  EXPECT_EQ(&bench.level.CurrentBrush(), &working);
  EXPECT_EQ(working.Own().Pos, (Vector{1, 2, 3}));
  EXPECT_TRUE(working.IsShown()) << "no filter could bring it back";
}

TEST(LevelCommands, TheCubeGoesIntoTheCurrentBrushAndCancelKeepsItsShape) {
  Bench bench;
  bench.Prepare();
  const CZandoBrush& picked = bench.level.CurrentBrush();
  const Vector corner = picked.Polys()[0][0];
  std::get<BoxParameters>(EditState(bench.level).LastUsed).YSize = 32;
  bench.Answer(IDCANCEL);
  bench.commands.OnCommand(ID_CUBE);
  EXPECT_EQ(picked.Polys()[0][0], corner);
  bench.Answer(IDOK);
  bench.commands.OnCommand(ID_CUBE);
  EXPECT_EQ(picked.Polys()[0][0].y, 16);
  EXPECT_EQ(picked.Faces[0].points[1], picked.Polys()[0][0]);
  EXPECT_EQ(bench.level.GetLevel().WorkingBrush.Polys()[0][0], corner);
}

TEST(LevelCommands, ExportProposesTheLevelsNameAndSaysWhatCannotBeWritten) {
  const std::filesystem::path file =
      ::testing::TempDir() + "zando.export." + std::to_string(::getpid());
  Bench bench;
  bench.Fill();
  bench.level.SetModifiedFlag(false);
  bench.level.SetPathName("/levels.d/d\xC3\xBCne.3dz");
  bench.desktop.Files = {std::nullopt, file, "/missing/d\xC3\xBCne.map"};
  bench.commands.OnCommand(ID_EXPORT_MAP);
  EXPECT_EQ(bench.desktop.FileRequests[0].proposal, "/levels.d/d\xC3\xBCne.map");
  EXPECT_EQ(bench.desktop.FileRequests[0].extension, "map");
  EXPECT_EQ(bench.desktop.StatusText, "");
  bench.commands.OnCommand(ID_EXPORT_MAP);
  EXPECT_EQ(bench.desktop.StatusText, file.filename().string() + ": 2 brushes written");
  EXPECT_NE(ReadWholeFile(file).ValueOr("").find("worldspawn"), std::string::npos);
  bench.commands.OnCommand(ID_EXPORT_MAP);
  EXPECT_TRUE(bench.desktop.Failure.starts_with("Cannot write /missing/d\xFCne.map: "));
  EXPECT_FALSE(bench.level.IsModified());
  bench.desktop.ClearFailure();

  // What was left out stays to be seen.
  bench.desktop.Files = {file, file};
  Edit(bench.level).BrushList.Find(0)->BFlags = 0;
  bench.commands.OnCommand(ID_EXPORT_MAP);
  EXPECT_EQ(bench.desktop.Failure,
            file.filename().string() + ": 1 brush written, 1 hidden brush left out");
  bench.commands.OnCommand(ID_EXPORT_3DM);
  EXPECT_EQ(bench.desktop.FileRequests.back().extension, "3dm");
  EXPECT_TRUE(bench.desktop.StatusText.ends_with(" polygons with 8 vertices written"));
  EXPECT_NE(ReadWholeFile(file).ValueOr("").find("VERTICES\r\n8\r\n"), std::string::npos);
  std::filesystem::remove(file);
}

TEST(LevelCommands, ImportIsOneChangeAndOffersToCleanWhatItCannotRead) {
  const std::filesystem::path file =
      ::testing::TempDir() + "zando.import." + std::to_string(::getpid());
  Bench bench;
  bench.Fill();
  const std::string map =
      WriteMap(bench.level.GetLevel(), "") + "{\r\n\"classname\" \"light\"\r\n}\r\n";
  const auto import = [&](const std::string& bytes) {
    EXPECT_TRUE(WriteFileAtomically(file, bytes));
    bench.listener.told.clear();
    bench.desktop.Calls.clear();
    bench.desktop.StatusText.clear();
    bench.level.SetModifiedFlag(false);
    bench.desktop.Files = {file};
    bench.commands.OnCommand(ID_IMPORT_MAP);
    return std::to_string(bench.level.GetLevel().BrushList.BrushCount()) + ' ' +
           bench.listener.told + (bench.level.IsModified() ? " modified" : "");
  };
  EXPECT_EQ(import(map), "4 r modified");
  EXPECT_EQ(
      bench.desktop.StatusText,
      file.filename().string() +
          ": 2 brushes and 1 entity read; the world shows new brushes after the next rebuild");
  EXPECT_EQ(bench.desktop.Calls, std::vector<std::string>{"open Import from Quake (MAP)"});
  EXPECT_EQ(import("no map"), "4 ");
  EXPECT_EQ(bench.desktop.Calls.back(), "message Problem Parsing file");

  // A comment before the map, which is then refused, or within a brush, which would be misread.
  const std::string inside = std::string(map).insert(map.find("( "), "// brush {\r\n");
  for (const std::string& newer : {"// Format: Valve\r\n" + map, inside}) {
    bench.desktop.YesNoAnswers = {YesNo::No, YesNo::Yes};
    const auto before = bench.level.GetLevel().BrushList.BrushCount();
    EXPECT_EQ(import(newer), std::to_string(before) + ' ');
    EXPECT_TRUE(bench.desktop.Calls.back().ends_with(
        "\nRead it in the plain form?\nChanged: 1 comment dropped.\nGiven up: nothing."))
        << bench.desktop.Calls.back();
    EXPECT_EQ(import(newer), std::to_string(before + 2) + " r modified");
  }

  EXPECT_EQ(import(map + "{\r\n\"a\" \"b\"\r\n{ }\r\n}\r\n"), "10 r modified");
  EXPECT_NE(bench.desktop.Failure.find("brush skipped: no volume"), std::string::npos)
      << bench.desktop.Failure;
  std::filesystem::remove(file);
  for (const std::filesystem::path& path : {file, file.parent_path()}) {
    bench.desktop.Files = {path};
    bench.desktop.Calls.clear();
    bench.commands.OnCommand(ID_IMPORT_MAP);
    EXPECT_TRUE(bench.desktop.Failure.starts_with("Cannot open ")) << bench.desktop.Failure;
    EXPECT_EQ(bench.desktop.Calls.size(), 1U) << "no message";
  }
}

}  // namespace
}  // namespace zando
