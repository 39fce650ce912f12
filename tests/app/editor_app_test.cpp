#include "app/editor_app.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

#include "app/editor_app_fixture.h"
#include "document/brush_edits.h"
#include "document/command_ids.h"
#include "document/document_file.h"
#include "document/group_edits.h"
#include "document/view_edits.h"
#include "platform/file_io.h"
#include "support/edit_level.h"
#include "support/made_up_wad.h"

namespace zando {
namespace {

using testing::Edit;
namespace fs = std::filesystem;

using EditorApp = testing::EditorAppTest;

TEST_F(EditorApp, ASavedLevelComesBackAsItWas) {
  EXPECT_FALSE(Active().IsModified());
  app->Run(ID_ADD_TO_WORLD);
  const std::string text = WriteDocument(Active());
  const fs::path path = folder / "room.3dz";
  desktop.Files = {path, path};
  app->Run(ID_FILE_SAVE_AS);
  EXPECT_EQ(desktop.FileRequests[0].proposal, "ZANDO1");
  EXPECT_EQ(desktop.FileRequests[0].extension, "3dz");
  app->Run(ID_FILE_CLOSE);
  EXPECT_TRUE(app->Documents().empty() && window.GroupItems.empty() && window.GridPane.empty());
  app->Run(ID_FILE_OPEN);
  EXPECT_EQ(WriteDocument(Active()), text);
  EXPECT_FALSE(Active().IsModified());
  EXPECT_EQ(Active().GetPathName(), path);
  EXPECT_EQ(window.RecentFiles, std::vector<fs::path>{path});
}

TEST_F(EditorApp, ClosingAChangedLevelHonoursTheAnswer) {
  for (const auto& [answer, saveWorks, closes, brushes] :
       {std::tuple{SaveAnswer::Save, true, true, 2},
        {SaveAnswer::Save, false, false, 1},
        {SaveAnswer::Discard, true, true, 1},
        {SaveAnswer::Cancel, true, false, 1}}) {
    for (const std::string way : {"close", "window", "exit"}) {
      const fs::path path = Sample("level.3dz");
      Restart(path);
      app->Run(ID_ADD_TO_WORLD);
      // A name that is a folder cannot be written.
      if (!saveWorks) Active().SetPathName(folder);
      desktop.SaveAnswers = {answer};
      desktop.StatusText.clear();
      if (way == "close") app->Run(ID_FILE_CLOSE);
      const bool closed = way == "window" ? UserCloses(0)
                          : way == "exit" ? app->MayExit()
                                          : app->Documents().empty();
      EXPECT_EQ(closed, closes) << way;
      EXPECT_TRUE(desktop.SaveAnswers.empty());
      EXPECT_EQ(BrushesIn(path), brushes);
      EXPECT_EQ(desktop.Failure.starts_with("Cannot save "), !saveWorks);
      EXPECT_TRUE(closed || Active().IsModified());
    }
  }
  EXPECT_EQ(desktop.Calls[0], "save? level.3dz");
}

TEST_F(EditorApp, AFileThatCannotBeReadLeavesOpenLevelsAloneAndSaysWhy) {
  const CZANDODoc* before = &Active();
  ASSERT_EQ(WriteFileAtomically(folder / "bad.3dz", "no level\n").Error(), "");
  for (const char* name : {"bad.3dz", "missing.3dz", "."}) {
    EXPECT_FALSE(app->OpenDocument(folder / name));
    const std::string& said = desktop.Calls.back();
    EXPECT_TRUE(said.starts_with("message Cannot open " + folder.string())) << said;
    EXPECT_LT(said.rfind(": ") + 4, said.size());
    EXPECT_EQ(&Active(), before);
  }
  EXPECT_EQ(desktop.Calls.size(), 3U);
  EXPECT_EQ(app->Documents().size(), 1U);
  EXPECT_TRUE(window.RecentFiles.empty());
}

TEST_F(EditorApp, AnOpenFileIsActivatedAndNoOtherLevelIsSavedOverIt) {
  const fs::path path = Sample("a.3dz");
  Restart(path);
  CChildView* view = window.ActiveView();
  app->Run(ID_FILE_NEW);
  window.Minimize(*view);
  fs::create_symlink(path, folder / "link.3dz");
  EXPECT_TRUE(app->OpenDocument(folder / "link.3dz"));
  EXPECT_EQ(window.ActiveView(), view);
  EXPECT_FALSE(window.IsMinimized(*view));
  EXPECT_EQ(app->Documents().size(), 2U);

  app->Run(ID_FILE_NEW);
  desktop.Files = {path};
  app->Run(ID_FILE_SAVE_AS);
  EXPECT_TRUE(desktop.Calls.back().starts_with("message ")) << desktop.Calls.back();
  EXPECT_TRUE(Active().GetPathName().empty());
}

TEST_F(EditorApp, ChoosersStartBesideTheActiveLevelOrInTheFolderLastUsed) {
  const auto proposed = [this](CommandId id) {
    desktop.Files = {std::nullopt};
    app->Run(id);
    return desktop.FileRequests.back().proposal;
  };
  EXPECT_EQ(proposed(ID_FILE_OPEN), "");
  for (const char* name : {"a", "b"}) {
    fs::create_directories(folder / name);
    EXPECT_TRUE(app->OpenDocument(Sample(name + std::string("/1.3dz"))));
  }
  window.Activate(*window.Children[1].view);
  EXPECT_EQ(proposed(ID_FILE_OPEN), folder / "a");
  app->Run(ID_FILE_NEW);
  EXPECT_EQ(proposed(ID_FILE_OPEN), folder / "b");
  EXPECT_EQ(proposed(ID_FILE_SAVE_AS), folder / "b" / "ZANDO2");
  fs::remove_all(folder / "b");
  EXPECT_EQ(proposed(ID_FILE_OPEN), "");
  EXPECT_EQ(proposed(ID_FILE_SAVE_AS), "ZANDO2");
}

TEST_F(EditorApp, RecentFilesAreTheLastFourNewestFirstAndMissingOnesAreDropped) {
  std::vector<fs::path> paths;
  for (const char* name : {"1.3dz", "2.3dz", "3.3dz", "4.3dz", "5.3dz"}) {
    paths.push_back(Sample(name));
    EXPECT_TRUE(app->OpenDocument(paths.back()));
  }
  EXPECT_TRUE(app->OpenDocument(folder / "." / "3.3dz"));
  const std::vector<fs::path> four{paths[2], paths[4], paths[3], paths[1]};
  EXPECT_EQ(store.files, four);

  store.files = {paths[2], paths[2], paths[4], paths[3], paths[1], paths[0]};
  Restart();
  EXPECT_EQ(window.RecentFiles, four);
  fs::remove(paths[4]);
  app->Run(ID_FILE_MRU_FIRST + 1);
  EXPECT_EQ(desktop.Calls.back(), "message " + paths[4].string() + " is no longer there.");
  EXPECT_EQ(store.files, (std::vector<fs::path>{paths[2], paths[3], paths[1]}));
  app->Run(ID_FILE_MRU_FIRST + 2);
  EXPECT_EQ(Active().GetPathName(), paths[1]);
  EXPECT_EQ(window.RecentFiles, (std::vector<fs::path>{paths[1], paths[2], paths[3]}));
  EXPECT_EQ(store.files, window.RecentFiles);
  EXPECT_EQ(Check(ID_FILE_MRU_FIRST + 2), "enabled");
  EXPECT_EQ(Check(ID_FILE_MRU_FIRST + 3), "disabled");
}

TEST_F(EditorApp, WhatAnotherProgramWroteIsNotOverwrittenUnasked) {
  const fs::path path = Sample("shared.3dz");
  Restart(path);
  const auto addAndSave = [&] {
    app->Run(ID_ADD_TO_WORLD);
    app->Run(ID_FILE_SAVE);
    return BrushesIn(path);
  };
  EXPECT_EQ(addAndSave(), 2);
  EXPECT_EQ(addAndSave(), 3);
  EXPECT_TRUE(desktop.Calls.empty());
  Sample("shared.3dz", 9);
  desktop.YesNoAnswers = {YesNo::No, YesNo::Yes};
  EXPECT_EQ(addAndSave(), 9);
  EXPECT_EQ(addAndSave(), 5);
  fs::remove(path);
  EXPECT_EQ(addAndSave(), 6);
  EXPECT_EQ(desktop.Calls.size(), 2U);
}

TEST_F(EditorApp, ADamagedLevelIsToldOfAndReplacedOnlyWhenTheUserSaysSo) {
  const fs::path path = Sample("level.3dz");
  const std::string whole = *ReadWholeFile(path);
  constexpr std::string_view kEnd = "End Class CBrushList\r\n";
  const std::string damaged = std::string(whole).erase(whole.find(kEnd), kEnd.size());
  ASSERT_TRUE(WriteFileAtomically(path, damaged));
  Restart(path);
  const std::string what = "no line \"End Class CBrushList\" where it should follow line 112";
  EXPECT_EQ(desktop.Failure, "level.3dz is damaged in 1 place: " + what);
  desktop.YesNoAnswers = {YesNo::No, YesNo::Yes};
  app->Run(ID_FILE_SAVE);
  EXPECT_EQ(*ReadWholeFile(path), damaged);
  EXPECT_EQ(desktop.Calls.back(),
            "yesno? level.3dz is damaged in 1 place:\n" + what +
                "\nWhat could not be read is lost when the file is replaced. Replace it?");
  app->Run(ID_FILE_SAVE);
  EXPECT_EQ(*ReadWholeFile(path), whole);
  app->Run(ID_FILE_SAVE);
  EXPECT_EQ(desktop.Calls.size(), 2U) << "the file is whole now";

  ASSERT_TRUE(WriteFileAtomically(path, damaged));
  Restart(path);
  desktop.Files = {folder / "other.3dz"};
  app->Run(ID_FILE_SAVE_AS);
  EXPECT_EQ(*ReadWholeFile(folder / "other.3dz"), whole);
  app->Run(ID_FILE_SAVE);
  EXPECT_EQ(desktop.Calls.size(), 3U) << "only where to save was asked";
}

TEST_F(EditorApp, FourViewsMinimizeTheOldOnesTileTheNewAndCloseWithTheirLevel) {
  app->Run(ID_TEXTURE_BROWSER);
  app->Run(ID_WINDOW_NEW);
  window.Editing(2).SetKind(ViewKind::Wireframe);
  app->Run(ID_FOUR_VIEWS);
  std::string shown;
  for (const auto& child : window.Children) {
    shown += (child.minimized ? "minimized " : "") + child.window->Titles.back() + " ";
  }
  EXPECT_EQ(shown,
            "minimized -Solid Gons- minimized -Textures- minimized -3D Wireframe- "
            "-Side View- -Top View- -Front View- -Solid Gons- ");
  EXPECT_EQ(window.Arrangement, "H");
  app->Run(ID_FILE_NEW);
  app->Run(ID_FOUR_VIEWS);
  for (const CChildView* tiled : window.Tiled) EXPECT_EQ(&tiled->Document(), &Active());
  EXPECT_EQ(window.Tiled.size(), 5U) << "the minimized one is the window's affair";
  window.Activate(*window.Children[0].view);
  app->Run(ID_FILE_CLOSE);
  ASSERT_EQ(window.Children.size(), 5U) << "the windows of other levels stay";
  EXPECT_EQ(&Active(), app->Documents().at(0).get());
}

TEST_F(EditorApp, TexturesComeWithALevelAndADamagedArchiveIsToldInTheStatusBar) {
  using testing::Archive;
  const std::string good = testing::MipHead("brick", 2, 1) + "ab";
  const std::string cut = testing::MipHead("cut", 900, 900);
  const std::string why = "my.wad: lump 0 left out: its 900 x 900 pixels do not lie in the file";
  app->Settings().WadPath = folder / "my.wad";
  app->Settings().PalettePath = folder / "none.lmp";
  for (const auto& [archive, textures, told] :
       std::vector<std::tuple<std::string, int, std::string>>{
           {Archive({{good}, {good}}), 2, ""},
           {"WAD3 and more bytes", 0, "my.wad: no WAD2 archive"},
           {Archive({{cut}, {good}}), 1, why},
           {Archive({{cut}, {cut}}), 0, why + "; and more"}}) {
    ASSERT_EQ(WriteFileAtomically(folder / "my.wad", archive).Error(), "");
    desktop.StatusText.clear();
    app->Run(ID_FILE_NEW);
    EXPECT_EQ(Active().Textures().TextureCount(), textures);
    EXPECT_EQ(desktop.StatusText, told);
    // Opening a browser tells why it is empty.
    desktop.StatusText.clear();
    app->Run(ID_TEXTURE_BROWSER);
    EXPECT_EQ(desktop.StatusText, textures > 0 ? "" : told);
  }
  fs::remove(folder / "my.wad");
  app->Run(ID_FILE_NEW);
  app->Run(ID_TEXTURE_BROWSER);
  EXPECT_TRUE(desktop.StatusText.starts_with("No textures: ")) << desktop.StatusText;
}

TEST_F(EditorApp, ATextureBrowserIsAWindowOfItsLevelLikeAnyOther) {
  const fs::path path = Sample("a.3dz");
  Restart(path);
  const CZANDODoc* level = &Active();
  app->Run(ID_TEXTURE_BROWSER);
  EXPECT_EQ(&Active(), level);
  // Commands of an editing view have no target now, those of the level and the frame have.
  EXPECT_EQ(Check(ID_AXIS_X), "disabled");
  EXPECT_EQ(Check(ID_CUBE), "enabled");
  app->Run(ID_ADD_TO_WORLD);
  ASSERT_TRUE(UserCloses(0));
  // The last window asks, though it is a browser, and stands for its level until then.
  app->Run(ID_FILE_NEW);
  EXPECT_TRUE(app->OpenDocument(path));
  EXPECT_EQ(&Active(), level);
  desktop.SaveAnswers = {SaveAnswer::Cancel, SaveAnswer::Discard};
  EXPECT_FALSE(UserCloses(0));
  app->Run(ID_FILE_CLOSE);
  EXPECT_EQ(app->Documents().size(), 1U);
  EXPECT_EQ(window.Children.size(), 1U);
}

TEST_F(EditorApp, GroupListAndGridPaneFollowTheActiveLevelAndTheListChoosesItsGroup) {
  CZANDODoc& level = Active();
  AddToWorld(level);
  Edit(level).Groups.resize(2);
  SetGroupLook(level, 1, {"Roof", 0, true});
  const CZandoBrush& brush = *level.GetLevel().BrushList.Head();
  Edit(level).BrushList.Find(0)->BGroup = 1;
  ASSERT_EQ(window.GroupItems.size(), 3U);
  EXPECT_EQ(window.GroupItems[0].group, -1);
  EXPECT_EQ(window.GroupItems[2].group, 1);
  EXPECT_EQ(window.GroupItems[2].name, "Roof");
  SetShowFilter(level, ID_SHOW_CURRENT_GROUP);
  for (const std::int32_t group : {0, 1, -1, 1}) {
    window.Children[0].window->Invalidations = 0;
    app->SelectGroup(group);
    EXPECT_EQ(level.State().CurrentGroup, group);
    EXPECT_EQ(window.SelectedGroup, group);
    EXPECT_EQ(brush.IsShown(), group == 1);
    EXPECT_GT(window.Children[0].window->Invalidations, 0);
  }
  app->Run(ID_USE_GRID);
  StepGrid(level, GridStep::Down);
  app->Run(ID_FILE_NEW);
  EXPECT_EQ(window.GroupItems.size(), 1U);
  EXPECT_EQ(window.GridPane, "Gridsize: 64 Snap Off");
  window.Activate(*window.Children[0].view);
  EXPECT_EQ(window.SelectedGroup, 1);
  EXPECT_EQ(window.GridPane, "Gridsize: 32 Snap On");
}

TEST_F(EditorApp, WhatIsBeingDraggedCountsForCommandsAndWhenItCloses) {
  app->Run(ID_TOOL_MOVE_ROTATE_BRUSH);
  const auto drag = [&] {
    window.Editing(0).OnButtonDown(CZANDOView::MouseButton::Left, {.left = true}, {});
    desktop.Cursor.x += 9;
    window.Editing(0).OnMouseMove({.left = true}, {});
    Active().SetModifiedFlag(false);
  };
  drag();
  app->Run(ID_ADD_TO_WORLD);
  EXPECT_EQ(Active().GetLevel().BrushList[0].Own().Pos.x, 9.0);
  EXPECT_EQ(desktop.CursorHidden, 0);
  drag();
  desktop.SaveAnswers = {SaveAnswer::Cancel, SaveAnswer::Cancel};
  EXPECT_FALSE(window.UserCloses(*window.ActiveView()));
  EXPECT_EQ(Active().GetLevel().WorkingBrush.Own().Pos.x, 18.0);
  drag();
  EXPECT_FALSE(app->MayExit());
}

TEST_F(EditorApp, CommandsGoToTheFirstThatKnowsThemAndOthersDoNothing) {
  for (const bool open : {true, false}) {
    if (!open) app->Run(ID_FILE_CLOSE);
    for (const CommandId id :
         {ID_FILE_CLOSE, ID_FILE_SAVE, ID_FILE_SAVE_AS, ID_FOUR_VIEWS, ID_TEXTURE_BROWSER,
          ID_WINDOW_NEW, ID_WINDOW_TILE, ID_CUBE, ID_AXIS_X, ID_ADD_TO_WORLD}) {
      EXPECT_EQ(Check(id) == "disabled", !open) << id;
    }
    for (const CommandId id : {ID_EDIT_CUT, ID_TEXTURES, ID_DELETE_BRUSH, CommandId{12345}}) {
      EXPECT_EQ(Check(id), "disabled") << id;
      app->Run(id);
    }
  }
  app->Run(ID_FILE_NEW);
  for (const CommandId id : {ID_WINDOW_TILE, ID_WINDOW_CASCADE, ID_WINDOW_ARRANGE, ID_APP_ABOUT,
                             ID_APP_EXIT, ID_AXIS_Y, ID_DELETE_BRUSH}) {
    app->Run(id);
  }
  EXPECT_EQ(window.Arrangement, "TCA");
  EXPECT_EQ(window.Abouts + window.Closes, 2);
  EXPECT_EQ(app->Settings().ActiveAxisMask, kAxisX | kAxisZ);
  EXPECT_FALSE(Active().IsModified());
}

}  // namespace
}  // namespace zando
