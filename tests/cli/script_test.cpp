#include "cli/script.h"

#include <random>

#include "cli/cli_fixture.h"
#include "cli/script_commands.h"
#include "document/brush_edits.h"
#include "document/document_file.h"

namespace zando {
namespace {

/// Uses every command of the language.
constexpr const char* kEveryCommand =
    "# a comment, then a blank line\r\n"
    "\r\n"
    "\tbox x=64 y=32 z=64 top_x=16 style=hollow wall=4  # and another\n"
    "box x=64 y=32 z=48 top_x=16\n"
    "name \"city2_5\"\n"
    "position 8 16 -24\nrotate 90 0 0\nscale 2 1 1\nshear 0.5 0 0\n"
    "add\n"                                // 0: tapered, turned, scaled and sheared
    "reset\nbox\nname *slime\nsubtract\n"  // 1: a plain box at the same place
    "pick 0\ncopy-to-current\nadd\n"       // 2: a copy of 0
    "pick last\ndelete\n"                  // gone again
    "pick city2_5\nsubtract\n"             // 0 becomes carving
    "select city2_5\ngroup new \"North wing\"\ngroup color \"North wing\" 102030\n"
    "group visible \"North wing\" off\n"
    "pick none\nposition 100 0 0\nadd\nposition 200 0 0\nadd\n"  // 2 and 3, in the wing
    "select 2..3 1\ngroup remove\nselect none\nselect last\ngroup add\n"
    "group new spare\nselect 2\ngroup add\ngroup move spare 0 8 0\ngroup current none\n"
    "group new pair\nselect 1 2\ngroup add\n"
    "group scale pair 2 1 1\ngroup rotate pair 180 0 0\ngroup current none\n"
    "entity new monster_ogre\nentity origin 1 -2 3\nentity add-key angle 90\n"
    "entity light\nentity set light 200\nentity copy\nentity set ORIGIN \"4 5 6\"\n"
    "entity new func_door\nentity own 2\nentity disown\nselect 3\nentity own\n"
    "entity select 1\nentity delete\n"
    "select entity 0\nselect all\nselect none\n"
    "show-entities off\nshow visible-groups\nshow current-group\nshow all\nshow-entities on\n"
    "rebuild quick\nrebuild optimal water\n"
    "save \"half way.3dz\"\nadd\nexport out.map wad my.wad\n"
    "group new late\nreset\nramp\nadd\nstaircase\nadd\ncylinder\nadd\nspheroid\nadd\n"  // 5 to 8
    "attributes 5 x=7 pitch=90 scale_y=2 shear_z=0.5 name=ramp\n"
    "pick ramp\npick next\npick previous\nattributes current z=9\npick none\n"
    "group rename late later\ngroup shear later 0 0.5 0\n"
    "select all\ndeselect group later\ndeselect 0..4\nselect group later\ndeselect 6 8\n"
    "pick 0\nface 1 texture wall scale 2 0.5\nface 1 texture *lava offset 8 -4.5 rotate 45\n"
    "face 2 texture gone\nface 2 own\npick none\n"
    "world message \"two words\"\nworld sounds 4\nworld Sounds \"\"\nworld WAD my.wad\n"
    "entity select 1\nentity own-group\nentity rename-key light glow\nentity remove-key Origin\n";

TEST(Script, EveryCommandDoesItsPart) {
  CZANDODoc document;
  const ScriptResult result = RunScript(document, kEveryCommand, "all.zscript");
  ASSERT_EQ(result.error, "");
  const Level& level = document.GetLevel();
  ASSERT_EQ(level.BrushList.BrushCount(), 9);

  const CZandoBrush& first = level.BrushList[0];
  EXPECT_EQ(first.TranT, kSubtractFromWorld);
  EXPECT_EQ(first.Name, "city2_5");
  EXPECT_EQ(first.BGroup, 0);
  // 64 x 48 at the bottom, sheared by half of z, twice as wide, turned by a quarter: local x is
  // world z, and its extent is (32 + 12) * 2 to each side.
  EXPECT_NEAR(first.WorldBounds().high.z, -24.0 + 88.0, 1e-9);
  EXPECT_NEAR(first.WorldBounds().low.x, 8.0 - 24.0, 1e-9);
  EXPECT_NEAR(first.WorldBounds().high.y, 32.0, 1e-9);

  // The pair: brush 1 at (8, 16, -24), brush 2 at (100, 8, 0), half a turn about their mean of x
  // 54 and with twice the distance from it.
  EXPECT_NEAR(level.BrushList[1].WorldOrigin().x, 54.0 + 92.0, 1e-9);
  EXPECT_NEAR(level.BrushList[2].WorldOrigin().x, 54.0 - 92.0, 1e-9);
  EXPECT_NEAR(level.BrushList[2].WorldOrigin().y, 8.0, 1e-9);
  EXPECT_NEAR(level.BrushList[1].WorldBounds().high.x - level.BrushList[1].WorldBounds().low.x,
              256.0, 1e-9);
  EXPECT_EQ(level.BrushList[1].Name, "*slime");

  EXPECT_EQ(first.Faces[1].surface, (FaceSurface{"*lava", 8.0, -4.5, 45.0, 2.0, 0.5}));
  EXPECT_EQ(first.Faces[2].surface, std::nullopt);
  EXPECT_EQ(level.WorldKeys,
            (std::vector<EntityPair>{{"message", "two words"}, {"WAD", "my.wad"}}));

  ASSERT_EQ(level.Groups.size(), 4U);
  EXPECT_EQ(level.Groups[0].gCol, 0x302010U);
  EXPECT_EQ(level.Groups[0].gVis, 0);
  EXPECT_EQ(level.BrushList[4].BGroup, -1);

  ASSERT_EQ(level.Entities.size(), 3U);
  EXPECT_EQ(level.Entities[0].eOrigin, (Vector{1.0, -2.0, 3.0}));
  EXPECT_EQ(level.Entities[0].GetValue("angle"), "90");
  EXPECT_EQ(level.Entities[1].eOrigin, (Vector{4.0, 5.0, 6.0}));
  EXPECT_EQ(level.Entities[1].Pairs,
            (std::vector<EntityPair>{{"classname", "light"}, {"glow", "200"}}));
  EXPECT_EQ(level.Entities[1].eStyle, 1);
  EXPECT_FALSE(level.BrushList[2].BelongsToEntity());
  EXPECT_TRUE(level.BrushList[3].BelongsToEntity());
  EXPECT_EQ(level.BrushList[3].BEnt, 2);

  // Of the group `later`, which entity 1 owns: 5 with new attributes, then all sheared alike.
  EXPECT_EQ(level.Groups[3].gName, "later");
  const CZandoBrush& ramp = level.BrushList[5];
  EXPECT_EQ(ramp.Name, "ramp");
  EXPECT_EQ(ramp.Own().Rot, (Vector{0.0, 2048.0, 0.0}));
  EXPECT_EQ(ramp.Own().Scl, (Vector{1.0, 2.0, 1.0}));
  EXPECT_EQ(ramp.Own().Shr, (Vector{0.0, 0.0, 0.5}));
  EXPECT_EQ(ramp.WorldOrigin().x, 7.0);
  EXPECT_EQ(ramp.BMatrix().m[1][2], 0.5);
  std::string selected;
  for (const CZandoBrush& brush : level.BrushList) {
    selected += brush.IsSelected() ? 's' : '-';
    EXPECT_EQ(brush.BelongsToEntity() && brush.BEnt == 1, brush.BGroup == 3);
  }
  EXPECT_EQ(selected, "-----s-s-");

  ASSERT_EQ(result.files.size(), 2U);
  EXPECT_EQ(result.files[0].path, "half way.3dz");
  const auto saved = ReadDocument(result.files[0].bytes);
  ASSERT_TRUE(saved) << saved.Error();
  EXPECT_EQ(saved->document->GetLevel().BrushList.BrushCount(), 4);
  EXPECT_NE(result.files[1].bytes.find("\"wad\" \"my.wad\""), std::string::npos);
}

template <typename Parameters>
void ExpectPrimitive(const std::string& line, const Parameters& parameters) {
  CZANDODoc document;
  EXPECT_EQ(RunScript(document, line + "\nscale -1 0 1", "s").error, "");
  CZandoBrush brush;
  Generate(parameters, brush);
  EXPECT_EQ(document.CurrentBrush().Polys(), brush.Polys()) << line;
}

TEST(Script, PrimitivesTakeEveryParameterOfTheirDialogs) {
  ExpectPrimitive("box style=hollow wall=64",
                  BoxParameters{.Style = BoxParameters::kHollow, .WallThickness = 64});
  ExpectPrimitive("box y=0 top_x=-1 top_z=0 wall=-9",
                  BoxParameters{.YSize = 0, .WallThickness = -9, .TopXSize = -1, .TopZSize = 0});
  ExpectPrimitive("spheroid", SpheroidParameters{});
  ExpectPrimitive("spheroid x=8 y=-9 z=0 horizontal=2 vertical=3 style=hollow wall=2",
                  SpheroidParameters{2, 3, 8, -9, 0, SpheroidParameters::kHollow, 2});
  ExpectPrimitive(
      "cylinder x=8 z=9",
      CylinderParameters{.BottomXSize = 8, .BottomZSize = 9, .TopXSize = 8, .TopZSize = 9});
  ExpectPrimitive(
      "cylinder x_offset=1 x=2 z_offset=3 z=4 style=ring wall=5 top_x_offset=6 top_x=7 "
      "top_z_offset=8 top_z=9 stripes=10.5 y=11",
      CylinderParameters{1, 2, 3, 4, CylinderParameters::kRing, 5, 6, 7, 8, 9, 10.5, 11});
  ExpectPrimitive("staircase height=1 length=2 stairs=3 width=4",
                  StaircaseParameters{1, 2, 3, 4, 0});
  ExpectPrimitive("ramp height=1 length=2 width=4", StaircaseParameters{1, 2, 8, 4, 1});
}

/// Also where a brush was moved or deleted since, and after a save and a rebuild.
TEST(Script, WorldIsAsIfEveryBrushHadJoinedItAtOnce) {
  CZANDODoc scripted;
  const ScriptResult result =
      RunScript(scripted,
                "subtract\nadd\nposition 64 0 0\nstaircase\nadd\nposition 0 64 0\nsubtract\n"
                "pick 1\nposition 500 0 0\npick 2\ndelete\nsave half.3dz\n"
                "position 32 32 0\nadd\n",
                "s");
  ASSERT_EQ(result.error, "");
  CZANDODoc edited;
  SubtractFromWorld(edited);
  AddToWorld(edited);
  PlaceBrush(edited, {64.0, 0.0, 0.0});
  GeneratePrimitive(edited, StaircaseParameters());
  AddToWorld(edited);
  PlaceBrush(edited, {0.0, 64.0, 0.0});
  SubtractFromWorld(edited);
  SetCurrentBrush(edited, 1);
  PlaceBrush(edited, {500.0, 0.0, 0.0});
  SetCurrentBrush(edited, 2);
  DeleteCurrentBrush(edited);
  EXPECT_EQ(result.files[0].bytes, WriteDocument(edited));
  PlaceBrush(edited, {32.0, 32.0, 0.0});
  AddToWorld(edited);
  EXPECT_EQ(WriteDocument(scripted), WriteDocument(edited));

  CZANDODoc rebuilt;
  EXPECT_EQ(RunScript(rebuilt, "add\nrebuild quick\n", "s").error, "");
  EXPECT_EQ(rebuilt.GetLevel().World.Count().nodes, 6);
}

TEST(Script, FirstErrorIsToldWithItsLine) {
  const struct {
    const char* script;
    const char* error;
  } cases[] = {
      {"add\n\nad\n", "3: unknown command 'ad'"},
      {"add\r\ngroup old x", "2: unknown command 'group'"},
      {"name \"a b", "1: a quote that is not closed"},
      {"name \"a\\n\"", "1: unknown escape '\\n'"},
      {"name a\"b\"", "1: a quote inside a word"},
      {"name \"a\"b", "1: no blank after a closing quote"},
      {"add\n\x01", "2: a control character"},
      {"position 1 2", "1: too few words; usage: position X Y Z"},
      {"position 1 2 3 4", "1: too many words; usage: position X Y Z"},
      {"position 1 2 3x", "1: '3x' is not a number"},
      {"position nan 2 3", "1: 'nan' is not a number"},
      {"position 1e7 2 3", "1: '1e7' is beyond 1000000"},
      {"group new a\ngroup scale a 1 0 1", "2: '0' is not above 0"},
      {"box x=1 x=2", "1: 'x' is given twice"},
      {"box q=1", "1: unknown parameter 'q'"},
      {"spheroid horizontal=9", "1: There must be more vertical bands!"},
      {"spheroid vertical=3.5", "1: '3.5' is not a whole number"},
      {"cylinder wall=0.5", "1: the wall of a cylinder is 1 to 10000 thick"},
      {"staircase stairs=-1", "1: Please enter a whole number of stairs, from 0 to 4096."},
      {"ramp stairs=2", "1: unknown parameter 'stairs'"},
      {"pick next", "1: no brush is picked"},
      {"attributes current name=", "1: a brush's name cannot be empty"},
      {"group new a\ngroup new b\ngroup rename a b", "3: there is a group 'b' already"},
      {"entity light\nentity own-group", "2: no group is current"},
      {"entity light\nentity remove-key angle", "2: light has no key 'angle'"},
      {"entity light\nentity rename-key light origin", "2: there is a key 'origin' already"},
      {"face 6 own", "1: the current brush has 6 faces, counted from 0"},
      {"face 0 texture a b", "1: too many words; usage: face"},
      {"world ClassName x", "1: The class of the world is worldspawn."},
      {"box 64", "1: expected key=value, not '64'; usage: box"},
      {"box style=round", "1: expected solid or hollow, not 'round'"},
      {"name \"a b\"", "1: a brush's name cannot hold a blank"},
      {"name \"a\\\"\"", "1: a brush's name cannot hold a quote"},
      {"pick 0", "1: no brush 0, the level has 0"},
      {"add\npick wall", "2: no shown brush 'wall'"},
      {"add\nselect 0..1", "2: no brush 1, the level has 1"},
      {"add\nshow visible-groups\npick 0", "3: brush 0 is hidden"},
      {"group add", "1: nothing is selected"},
      {"group new a\ngroup new a", "2: there is a group 'a' already"},
      {"group new a\ngroup color a 12345g", "2: '12345g' is not a colour RRGGBB"},
      {"entity new lihgt", "1: unknown class 'lihgt'"},
      {"entity set light 1", "1: no entity is current"},
      {"entity light\nentity set angle 1", "2: light has no key 'angle' (entity add-key adds it)"},
      {"entity light\nentity add-key Light 1", "2: there is a key 'Light' already"},
      {"entity light\nentity origin 1.5 0 0", "2: '1.5' is not a whole number"},
      {"entity new func_wall\nentity own", "2: no brush is named or selected"},
      {"save \"\"", "1: the path is empty"},
  };
  for (const auto& [script, error] : cases) {
    CZANDODoc document;
    const ScriptResult result = RunScript(document, script, "s");
    EXPECT_TRUE(result.error.starts_with(std::string("s:") + error)) << result.error;
    EXPECT_TRUE(result.files.empty() && result.notes.empty()) << script;
  }
}

class ScriptFile : public CCliTest {};

TEST_F(ScriptFile, FailingScriptWritesNoFile) {
  Write("bad.zscript", "add\nsave saved.3dz\nexport out.map\nentity new lihgt\n");
  Write("out.3dz", "what was there");
  const std::string before = FilesHere();
  const Outcome outcome = Run("run bad.zscript out.3dz");
  EXPECT_EQ(outcome.status, kCliFailed);
  EXPECT_EQ(outcome.err, "bad.zscript:4: unknown class 'lihgt'\n");
  EXPECT_EQ(FilesHere(), before);
  EXPECT_EQ(Read("out.3dz"), "what was there");
}

TEST_F(ScriptFile, ScriptGoesOnFromAGivenLevel) {
  MakeLevel("one.3dz", "name base\nadd\n");
  Write("more.zscript", "pick base\ncopy-to-current\nadd\nsave saved.3dz");
  ASSERT_EQ(Run("run --level one.3dz more.zscript two.3dz").err, "");
  const auto two = LoadDocumentFile("two.3dz");
  ASSERT_TRUE(two) << two.Error();
  EXPECT_EQ(two->document->GetLevel().BrushList.BrushCount(), 2);
  EXPECT_EQ(Read("saved.3dz"), Read("two.3dz"));
}

TEST(Script, DamagedScriptsEndInOneLineAtMost) {
  std::minstd_rand random(1);
  const auto next = [&random](std::size_t below) { return random() % below; };
  int failed = 0;
  for (int round = 0; round < 300; ++round) {
    std::string script = kEveryCommand;
    for (int i = 0; i < 3; ++i) {
      const std::size_t at = next(script.size());
      if (next(2) == 0) {
        script.erase(at, 1 + next(8));
      } else {
        script[at] = static_cast<char>(next(256));
      }
    }
    CZANDODoc document;
    const ScriptResult result = RunScript(document, script, "damaged");
    failed += result.error.empty() ? 0 : 1;
    EXPECT_EQ(result.error.find('\n'), std::string::npos) << result.error;
    EXPECT_TRUE(result.error.empty() || result.files.empty());
  }
  EXPECT_GT(failed, 100);
}

TEST_F(ScriptFile, EveryCommandIsDocumentedAndTried) {
  const std::string documentation = Read(ZANDO_SOURCE_DIR "/docs/script.md");
  const std::string tried = std::string("\n") + kEveryCommand;
  for (const auto commands : AllCommands()) {
    for (const ScriptCommand& command : commands) {
      EXPECT_NE(documentation.find('`' + std::string(command.name)), std::string::npos)
          << command.name;
      EXPECT_NE(tried.find('\n' + std::string(command.name)), std::string::npos) << command.name;
    }
  }
}

}  // namespace
}  // namespace zando
