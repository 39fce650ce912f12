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
      {{"info", "--help"}, kCliDone},
      {{"rebuild", "--help"}, kCliDone},
      {{"export-map", "--help"}, kCliDone},
      {{"convert", "--help"}, kCliDone},
      {{"run", "--help"}, kCliDone},
      {{"info", Path("missing.3dz")}, kCliFailed},
      {{"info", Write("text.3dz", "no level\n")}, kCliFailed},
      {{"run", Path("missing.zscript"), Path("out.3dz")}, kCliFailed},
      {{"run", "--level", Path("missing.3dz"), Write("a.zscript", "add"), Path("out.3dz")},
       kCliFailed},
      {{}, kCliWrongUsage},
      {{"paint", level}, kCliWrongUsage},
      {{"info"}, kCliWrongUsage},
      {{"info", level, level}, kCliWrongUsage},
      {{"info", "--xml", level}, kCliWrongUsage},
      {{"rebuild", level}, kCliWrongUsage},
      {{"rebuild", "--quick", "--optimal", level, Path("out.3dz")}, kCliWrongUsage},
      {{"convert", level, Path("out.txt")}, kCliWrongUsage},
      {{"convert", Path("level.map"), Path("out.3dz")}, kCliWrongUsage},
  };
  const std::set<std::string> before = FilesHere();
  for (const auto& [arguments, status] : cases) {
    const Outcome outcome = Run(arguments);
    const std::string shown = testing::PrintToString(arguments);
    EXPECT_EQ(outcome.status, status) << shown << outcome.err;
    EXPECT_EQ(outcome.out.empty(), status != kCliDone) << shown << outcome.out;
    EXPECT_EQ(LinesOf(outcome.err), status == kCliDone ? 0 : 1) << shown << outcome.err;
  }
  EXPECT_EQ(FilesHere(), before);
}

TEST_F(ZandoCli, InfoTellsWhatALevelHolds) {
  const Outcome info = Run({"info", MakeLevel("pond.3dz", kPond)});
  EXPECT_EQ(info.out.substr(0, info.out.find("world:")),
            "brushes:  4 (3 solid, 1 carving; 1 water, 1 of entities)\n"
            "entities: 2\n"
            "  func_door: 1\n"
            "  light: 1\n"
            "groups:   1\n"
            "  pond: 3 brushes, 1 entity, colour 3060c0, hidden\n");
  EXPECT_TRUE(info.out.ends_with("bounds:   (-64 -64 -64) to (64 208 64)\n")) << info.out;

  const Outcome empty = Run({"info", MakeLevel("empty.3dz", "")});
  EXPECT_TRUE(empty.out.ends_with("bounds:   none\n")) << empty.out;
}

TEST_F(ZandoCli, InfoAsJsonHoldsTheSameFiguresAndIsUtf8) {
  const std::string name = "gr\xFCn";
  const std::string level = MakeLevel("pond.3dz", kPond + ("group new " + name + "\n"));
  const auto json = nlohmann::json::parse(Run({"info", "--json", level}).out);
  EXPECT_EQ(json["brushes"]["total"], 4);
  EXPECT_EQ(json["brushes"]["of_entities"], 1);
  EXPECT_EQ(json["entities"]["classes"]["func_door"], 1);
  EXPECT_EQ(json["groups"][0]["color"], "3060c0");
  EXPECT_EQ(json["groups"][0]["visible"], false);
  EXPECT_EQ(json["groups"][1]["name"], "gr\xC3\xBCn");
  EXPECT_EQ(json["bounds"]["max"], nlohmann::json::array({64.0, 208.0, 64.0}));
  // One box with a pit, a door above it: 6 + 5 + 6 faces, of which none is split in a tree of the
  // visible ones unless a plane of another crosses it.
  EXPECT_GE(json["world"]["visible"], 17);
  EXPECT_EQ(json["world"]["visible"],
            json["world"]["nodes"].get<int>() + json["world"]["coplanar"].get<int>());
}

TEST_F(ZandoCli, RebuildTakesWaterOnlyWhenAsked) {
  const std::string level = MakeLevel("pond.3dz", kPond);
  const auto nodesAfter = [&](std::vector<std::string> options) {
    options.insert(options.begin(), "rebuild");
    options.insert(options.end(), {level, Path("out.3dz")});
    EXPECT_EQ(Run(options).status, kCliDone);
    return nlohmann::json::parse(Run({"info", "--json", Path("out.3dz")}).out)["world"]["visible"]
        .get<int>();
  };
  EXPECT_EQ(nodesAfter({}), nodesAfter({"--optimal"}));
  EXPECT_GT(nodesAfter({"--water"}), nodesAfter({}));
  EXPECT_GT(nodesAfter({"--quick", "--water"}), nodesAfter({"--quick"}));
}

TEST_F(ZandoCli, ConvertGoesByTheExtensions) {
  const std::string level = MakeLevel("pond.3dz", kPond);
  EXPECT_EQ(Run({"convert", level, Path("copy.3DZ")}).status, kCliDone);
  EXPECT_EQ(Read(Path("copy.3DZ")), Read(level));
  EXPECT_EQ(Run({"convert", level, Path("a.map")}).status, kCliDone);
  EXPECT_EQ(Run({"export-map", level, Path("b.map")}).status, kCliDone);
  EXPECT_EQ(Read(Path("a.map")), Read(Path("b.map")));
  EXPECT_NE(Read(Path("a.map")).find("\"wad\" \"MYWAD.WAD\""), std::string::npos);

  const Outcome other = Run({"export-map", "--wad", "other.wad", level, Path("c.map")});
  EXPECT_NE(Read(Path("c.map")).find("\"wad\" \"other.wad\""), std::string::npos);
  EXPECT_EQ(other.out, Path("c.map") + ": 7 brushes written\n");
}

TEST_F(ZandoCli, OutputThatCannotBeWrittenLeavesNothing) {
  const std::string level = MakeLevel("pond.3dz", kPond);
  const std::string script = Write("add.zscript", "add\n");
  std::filesystem::create_directory(Path("folder.3dz"));
  std::filesystem::create_directory(Path("folder.map"));
  const std::set<std::string> before = FilesHere();
  for (const std::string& bad : {Path("nowhere/out"), Path("folder")}) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"rebuild", level, bad + ".3dz"},
          {"convert", level, bad + ".3dz"},
          {"convert", level, bad + ".map"},
          {"export-map", level, bad + ".map"},
          {"run", script, bad + ".3dz"}}) {
      const Outcome outcome = Run(arguments);
      EXPECT_EQ(outcome.status, kCliFailed) << testing::PrintToString(arguments);
      EXPECT_EQ(LinesOf(outcome.err), 1) << outcome.err;
      EXPECT_TRUE(outcome.err.starts_with(arguments.back() + ": ")) << outcome.err;
    }
  }
  EXPECT_EQ(FilesHere(), before);
}

TEST_F(ZandoCli, LocaleChangesNoByte) {
  const std::string script = std::string(kPond) + "box x=0.5\nposition 1.25 -0.5 1234.5\nadd\n";
  const std::string plain = MakeLevel("plain.3dz", script);
  const Outcome plainInfo = Run({"info", "--json", plain});
  EXPECT_EQ(Run({"convert", plain, Path("plain.map")}).status, kCliDone);

  const std::locale before;
  const char* found = nullptr;
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8"}) {
    if (found == nullptr) found = std::setlocale(LC_ALL, name);
  }
  if (found == nullptr) GTEST_SKIP() << "there is no German locale here";
  std::locale::global(std::locale(found));
  const std::string german = MakeLevel("german.3dz", script);
  const Outcome germanInfo = Run({"info", "--json", german});
  const Outcome converted = Run({"convert", plain, Path("german.map")});
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");

  EXPECT_EQ(converted.status, kCliDone);
  EXPECT_EQ(Read(german), Read(plain));
  EXPECT_EQ(germanInfo.out, plainInfo.out);
  EXPECT_EQ(Read(Path("german.map")), Read(Path("plain.map")));
}

}  // namespace
}  // namespace zando
