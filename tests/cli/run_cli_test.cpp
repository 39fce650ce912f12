#include <clocale>
#include <locale>
#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"

namespace zando {
namespace {

constexpr const char* kPond =
    "group new pond\n"
    "group color pond 3060c0\n"
    "group visible pond off\n"
    "add\n"
    "box x=96 y=64.5 z=96\nposition 0 32 0\nsubtract\n"
    "name *water1\nbox x=96 y=32 z=96\nposition 0 16 0\nadd\n"
    "entity light\n"
    "group current none\n"
    "name door02_1\nbox x=16 y=16 z=16\nposition 0 200 0\nadd\n"
    "entity new func_door\nentity own last\n"
    "rebuild optimal\n";

class ZandoCli : public CCliTest {};

TEST_F(ZandoCli, ExitStatusTellsDoneFromFailedFromWronglyUsed) {
  const std::string level = MakeLevel("level.3dz", kPond);
  const struct {
    std::vector<std::string> arguments;
    int status;
  } cases[] = {
      {{"info", level}, kCliDone},
      {{"--help"}, kCliDone},
      {{"--version"}, kCliDone},
      {{"rebuild", "--help"}, kCliDone},
      {{"info", Path("missing.3dz")}, kCliFailed},
      {{"info", Write("text.3dz", "no level\n")}, kCliFailed},
      {{"run", "--level", Path("missing.3dz"), Write("a.zscript", "add"), Path("out.3dz")},
       kCliFailed},
      {{}, kCliWrongUsage},
      {{"paint", level}, kCliWrongUsage},
      {{"info", level, level}, kCliWrongUsage},
      {{"info", "--xml", level}, kCliWrongUsage},
      {{"rebuild", level}, kCliWrongUsage},
      {{"rebuild", "--quick", "--optimal", level, Path("out.3dz")}, kCliWrongUsage},
      {{"convert", Path("level.map"), Path("out.3dz")}, kCliWrongUsage},
  };
  const std::string before = FilesHere();
  for (const auto& [arguments, status] : cases) {
    const Outcome outcome = Run(arguments);
    const std::string shown = testing::PrintToString(arguments);
    EXPECT_EQ(outcome.status, status) << shown << outcome.err;
    EXPECT_EQ(outcome.out.empty(), status != kCliDone) << shown << outcome.out;
    EXPECT_EQ(LinesOf(outcome.err), status == kCliDone ? 0 : 1) << shown << outcome.err;
  }
  EXPECT_EQ(FilesHere(), before);
}

TEST_F(ZandoCli, InfoTellsWhatALevelHoldsAsTextAndAsUtf8Json) {
  const std::string level = MakeLevel("pond.3dz", kPond + std::string("group new gr\xFCn\n"));
  const Outcome info = Run({"info", level});
  EXPECT_EQ(info.out.substr(0, info.out.find("world:")),
            "brushes:  4 (3 solid, 1 carving; 1 water, 1 of entities)\n"
            "entities: 2\n"
            "  func_door: 1\n"
            "  light: 1\n"
            "groups:   2\n"
            "  pond: 3 brushes, 1 entity, colour 3060c0, hidden\n"
            "  gr\xC3\xBCn: 0 brushes, 0 entities, colour ff0000\n");
  EXPECT_TRUE(info.out.ends_with("bounds:   (-64 -64 -64) to (64 208 64)\n")) << info.out;

  const auto json = nlohmann::json::parse(Run({"info", "--json", level}).out);
  EXPECT_EQ(json["brushes"]["of_entities"], 1);
  EXPECT_EQ(json["entities"]["classes"]["func_door"], 1);
  EXPECT_EQ(json["groups"][0]["visible"], false);
  EXPECT_EQ(json["groups"][1]["name"], "gr\xC3\xBCn");
  EXPECT_EQ(json["bounds"]["max"], nlohmann::json::array({64.0, 208.0, 64.0}));
  // One box with a pit, a door above it: 6 + 5 + 6 faces, more where a plane splits one.
  EXPECT_GE(json["world"]["visible"], 17);
}

TEST_F(ZandoCli, RebuildTakesWaterOnlyWhenAskedAndOptimalLeavesNothingHidden) {
  const std::string level = MakeLevel("pond.3dz", kPond);
  const auto worldAfter = [&](std::vector<std::string> options) {
    options.insert(options.begin(), "rebuild");
    options.insert(options.end(), {level, Path("out.3dz")});
    EXPECT_EQ(Run(options).status, kCliDone);
    return nlohmann::json::parse(Run({"info", "--json", Path("out.3dz")}).out)["world"];
  };
  for (const char* kind : {"--quick", "--optimal"}) {
    const auto world = worldAfter({kind});
    EXPECT_GT(worldAfter({kind, "--water"})["visible"], world["visible"]) << kind;
    const int polygons = world["nodes"].get<int>() + world["coplanar"].get<int>();
    EXPECT_EQ(world["visible"] == polygons, kind == std::string("--optimal"));
  }
}

TEST_F(ZandoCli, ConvertGoesByTheExtensions) {
  const std::string level = MakeLevel("pond.3dz", kPond);
  EXPECT_EQ(Run({"convert", level, Path("copy.3DZ")}).status, kCliDone);
  EXPECT_EQ(Read(Path("copy.3DZ")), Read(level));
  EXPECT_EQ(Run({"convert", level, Path("a.map")}).status, kCliDone);
  EXPECT_EQ(Run({"export-map", level, Path("b.map")}).status, kCliDone);
  EXPECT_EQ(Read(Path("a.map")), Read(Path("b.map")));
  const Outcome other = Run({"export-map", "--wad", "other.wad", level, Path("c.map")});
  EXPECT_NE(Read(Path("c.map")).find("\"wad\" \"other.wad\""), std::string::npos);
  EXPECT_EQ(other.out, Path("c.map") + ": 7 brushes written\n");
}

TEST_F(ZandoCli, OutputThatCannotBeWrittenLeavesNothing) {
  const std::string level = MakeLevel("pond.3dz", kPond);
  const std::string script = Write("add.zscript", "add\n");
  std::filesystem::create_directory(Path("folder.map"));
  const std::string before = FilesHere();
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"rebuild", level, Path("nowhere/out.3dz")},
                                             {"convert", level, Path("nowhere/out.3dz")},
                                             {"export-map", level, Path("folder.map")},
                                             {"run", script, Path("nowhere/out.3dz")}}) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, kCliFailed) << testing::PrintToString(arguments);
    EXPECT_EQ(LinesOf(outcome.err), 1) << outcome.err;
    EXPECT_TRUE(outcome.err.starts_with(arguments.back() + ": ")) << outcome.err;
  }
  EXPECT_EQ(FilesHere(), before);
}

TEST_F(ZandoCli, LocaleChangesNoByte) {
  const std::string script = std::string(kPond) + "box x=0.5\nposition 1.25 -0.5 1234.5\nadd\n";
  const auto outputs = [&](const std::string& name) {
    const std::string level = MakeLevel(name + ".3dz", script);
    EXPECT_EQ(Run({"convert", level, Path(name + ".map")}).status, kCliDone);
    const std::string info = Run({"info", "--json", level}).out;
    return std::vector{Read(level), Read(Path(name + ".map")), info};
  };
  const std::vector<std::string> plain = outputs("plain");
  const char* german = std::setlocale(LC_ALL, "de_DE.UTF-8");
  if (german == nullptr) GTEST_SKIP() << "there is no German locale here";
  const std::locale before = std::locale::global(std::locale(german));
  EXPECT_EQ(outputs("german"), plain);
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace zando
