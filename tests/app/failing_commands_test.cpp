// Commands that fail: what is told, and what becomes of the level.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>

#include "app/editor_app_fixture.h"
#include "document/command_ids.h"
#include "document/entity_edits.h"
#include "document/group_edits.h"
#include "document/selection_edits.h"
#include "platform/file_io.h"
#include "support/edit_level.h"
#include "support/failing_memory.h"

namespace zando {
namespace {

class FailingCommand : public testing::EditorAppTest {
 protected:
  /// A level whose boxes cut one another, with a group and an entity; the first box is picked and
  /// selected.
  void Fill() {
    CZANDODoc& level = Active();
    for (const double x : {0.0, 40.0, 90.0}) {
      PlaceBrush(level, {x, x / 2, 0});
      x == 40.0 ? SubtractFromWorld(level) : AddToWorld(level);
    }
    PlaceLight(level);
    CreateEmptyGroup(level);
    SetCurrentBrush(level, 0);
    SelectBrush(level, 0, Selection::Select);
    level.SetModifiedFlag(false);
  }

  /// Answers to whatever the commands ask.
  void Answer() {
    desktop.Dialogs.assign(1, [](CDialog&) { return IDOK; });
    desktop.Files.assign(1, folder / "new.3dz");
  }
};

TEST_F(FailingCommand, IsToldByNameUntilTheNextCommandAndTheEditorLivesOn) {
  struct Case {
    std::function<void()> fail;
    std::string told;
  };
  for (const Case& c : {Case{[] { throw std::bad_alloc(); }, "Cube failed: not enough memory"},
                        {[] { throw std::length_error("n"); }, "Cube failed: not enough memory"},
                        {[] { throw std::runtime_error("why"); }, "Cube failed: why"},
                        {[] { throw 7; }, "Cube failed: for an unknown reason"}}) {
    desktop.Dialogs = {[&](CDialog&) {
      c.fail();
      return IDOK;
    }};
    app->Run(ID_CUBE);
    EXPECT_EQ(desktop.Failure, c.told);
    app->Run(ID_USE_GRID);
    EXPECT_EQ(desktop.Failure, "");
  }
  EXPECT_FALSE(Active().IsModified());

  // What fails in an open dialog does not end it.
  desktop.Dialogs = {[&](CDialog&) {
    EXPECT_FALSE(app->Guard().Attempt({}, [] { throw std::bad_alloc(); }));
    return IDOK;
  }};
  app->Run(ID_CUBE);
  EXPECT_EQ(desktop.Failure, "Cube failed: not enough memory");
  EXPECT_TRUE(Active().IsModified());
}

TEST_F(FailingCommand, LeavesAWholeLevelThatIsAsBeforeOrMarkedWhereverMemoryEnds) {
  for (const CommandId id :
       {ID_ADD_TO_WORLD, ID_CUBE, ID_QUICK_BSP, ID_PLACE_LIGHT, ID_COPY_ENTITY, ID_CREATE_GROUP,
        ID_ADD_TO_GROUP, ID_GROUP_EDITOR, ID_DELETE_BRUSH, ID_RESET_BRUSH, ID_EXPORT_MAP,
        ID_FILE_SAVE, ID_FILE_NEW, ID_FOUR_VIEWS, ID_TEXTURE_BROWSER, ID_FILE_CLOSE}) {
    bool failed = true;
    for (std::int64_t successes = 0; failed; successes += 1 + successes / 16) {
      Restart();
      Fill();
      if (id == ID_ADD_TO_WORLD) SetCurrentBrush(Active(), kWorkingBrush);
      CZANDODoc& level = Active();
      const Level before = level.GetLevel();
      Answer();
      {
        const testing::CFailingMemory memory(successes);
        app->Run(id);
        failed = testing::CFailingMemory::Failed();
      }
      for (const auto& document : app->Documents()) {
        EXPECT_FALSE(document->Views().empty()) << "open without a window";
      }
      if (app->Documents().empty()) continue;
      EXPECT_TRUE(level.IsModified() || level.GetLevel() == before) << id << ' ' << successes;
      const std::string text = WriteDocument(level);
      const auto again = ReadDocument(text);
      ASSERT_TRUE(again) << again.Error();
      EXPECT_TRUE(WriteDocument(*again->document) == text) << id << ' ' << successes;
      level.SetModifiedFlag(false);
      app->Run(ID_QUICK_BSP);
      EXPECT_EQ(desktop.Failure, "");
    }
  }
}

}  // namespace
}  // namespace zando
