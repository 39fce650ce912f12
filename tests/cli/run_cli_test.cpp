#include <clocale>
#include <locale>
#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"

namespace zando {
namespace {

const std::string kPond =
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

class ZandoCli : public CCliTest {
 protected:
  ZandoCli() { MakeLevel("pond.3dz", kPond); }
};

TEST_F(ZandoCli, ExitStatusTellsDoneFromFailedFromWronglyUsed) {
  Write("text.3dz", "no level\n");
  std::filesystem::create_directory("folder.map");
  const std::string before = FilesHere();
  const struct {
    int status;
    std::vector<std::string> lines;
  } cases[] = {
      {kCliDone, {"info pond.3dz", "--help", "--version", "rebuild --help"}},
      {kCliFailed,
       {"info missing.3dz", "info text.3dz", "run --level missing.3dz pond.3dz.zscript out.3dz",
        "rebuild pond.3dz nowhere/out.3dz", "convert pond.3dz nowhere/out.3dz",
        "export-map pond.3dz folder.map", "run pond.3dz.zscript nowhere/out.3dz",
        "export-map pond.3dz ./pond.3dz", "render pond.3dz pond.3dz",
        "run pond.3dz.zscript pond.3dz.zscript"}},
      {kCliWrongUsage,
       {"", "paint pond.3dz", "info pond.3dz pond.3dz", "info --xml pond.3dz", "rebuild pond.3dz",
        "rebuild --quick --optimal pond.3dz out.3dz", "convert level.map out.map"}},
  };
  for (const auto& [status, lines] : cases) {
    for (const std::string& line : lines) {
      const Outcome outcome = Run(line);
      EXPECT_EQ(outcome.status, status) << line << outcome.err;
      EXPECT_EQ(outcome.out.empty(), status != kCliDone) << line << outcome.out;
      EXPECT_EQ(LinesOf(outcome.err), status == kCliDone ? 0 : 1) << line << outcome.err;
    }
  }
  EXPECT_EQ(FilesHere(), before);
}

TEST_F(ZandoCli, EverySubcommandWarnsOfADamagedLevelAndReadsItAllTheSame) {
  const std::string whole = Read("pond.3dz");
  Write("cut.3dz", whole.substr(0, whole.rfind("End CGroupList")));
  Write("more.zscript", "add\n");
  for (const std::string line :
       {"info cut.3dz", "rebuild cut.3dz out.3dz", "export-map cut.3dz out.map",
        "convert cut.3dz out.3dz", "run --level cut.3dz more.zscript out.3dz"}) {
    const Outcome outcome = Run(line);
    EXPECT_EQ(outcome.status, kCliDone) << line;
    EXPECT_EQ(outcome.err.find("warning: cut.3dz: no line \"End CGroupList\""), 0U) << outcome.err;
  }
}

TEST_F(ZandoCli, InfoTellsWhatALevelHoldsAsTextAndAsUtf8Json) {
  MakeLevel("more.3dz", kPond + "box x=0 y=16 z=16\nadd\ngroup new gr\xFCn\n");
  const Outcome info = Run("info more.3dz");
  EXPECT_EQ(info.out.substr(0, info.out.find("world:")),
            "brushes:  5 (4 solid, 1 carving; 1 water, 1 of entities, 1 without volume)\n"
            "entities: 2\n"
            "  func_door: 1\n"
            "  light: 1\n"
            "groups:   2\n"
            "  pond: 3 brushes, 1 entity, colour 3060c0, hidden\n"
            "  gr\xC3\xBCn: 0 brushes, 0 entities, colour ff0000\n");
  EXPECT_TRUE(info.out.ends_with("bounds:   (-64 -64 -64) to (64 208 64)\n")) << info.out;

  const auto json = nlohmann::json::parse(Run("info --json more.3dz").out);
  EXPECT_EQ(json["brushes"]["of_entities"], 1);
  EXPECT_EQ(json["brushes"]["without_volume"], 1);
  EXPECT_EQ(json["entities"]["classes"]["func_door"], 1);
  const auto& pit = json["brushes"]["list"][1];
  EXPECT_EQ(pit["operation"], "subtract");
  EXPECT_EQ(pit["position"], nlohmann::json::array({0.0, 32.0, 0.0}));
  EXPECT_EQ(pit["size"], nlohmann::json::array({96.0, 64.5, 96.0}));
  EXPECT_EQ(pit["group"], 0);
  EXPECT_EQ(pit["entity"], nullptr);
  const auto& owned = json["brushes"]["list"][3];
  EXPECT_EQ(owned["name"], "door02_1");
  EXPECT_EQ(owned["entity"], 1);
  const auto& door = json["entities"]["list"][1];
  EXPECT_EQ(door["brushes"], nlohmann::json::array({3}));
  EXPECT_EQ(door["group"], nullptr);
  EXPECT_EQ(door["pairs"][4]["key"], "wait");
  EXPECT_EQ(door["pairs"][4]["value"], "4");
  EXPECT_EQ(json["entities"]["current"], 1);
  EXPECT_EQ(json["current_group"], 1);
  EXPECT_EQ(json["groups"][0]["visible"], false);
  EXPECT_EQ(json["groups"][1]["name"], "gr\xC3\xBCn");
  EXPECT_EQ(json["bounds"]["max"], nlohmann::json::array({64.0, 208.0, 64.0}));
  // One box with a pit, a door above it: 6 + 5 + 6 faces, more where a plane splits one.
  EXPECT_GE(json["world"]["visible"], 17);
}

TEST_F(ZandoCli, RebuildTakesWaterOnlyWhenAskedAndOptimalLeavesNothingHidden) {
  const auto worldAfter = [](const std::string& options) {
    EXPECT_EQ(Run("rebuild " + options + " pond.3dz out.3dz").err, "");
    return nlohmann::json::parse(Run("info --json out.3dz").out)["world"];
  };
  for (const std::string kind : {"--quick", "--optimal"}) {
    const auto world = worldAfter(kind);
    EXPECT_GT(worldAfter(kind + " --water")["visible"], world["visible"]) << kind;
    const int polygons = world["nodes"].get<int>() + world["coplanar"].get<int>();
    EXPECT_EQ(world["visible"] == polygons, kind == "--optimal");
  }
}

TEST_F(ZandoCli, ConvertGoesByTheExtensions) {
  EXPECT_EQ(Run("convert pond.3dz copy.3DZ").status, kCliDone);
  EXPECT_EQ(Read("copy.3DZ"), Read("pond.3dz"));
  EXPECT_EQ(Run("convert pond.3dz a.map").status, kCliDone);
  EXPECT_EQ(Run("export-map pond.3dz b.map").status, kCliDone);
  EXPECT_EQ(Read("a.map"), Read("b.map"));
  EXPECT_EQ(Run("export-map --wad other.wad pond.3dz c.map").out, "c.map: 7 brushes written\n");
  EXPECT_NE(Read("c.map").find("\"wad\" \"other.wad\""), std::string::npos);
}

TEST_F(ZandoCli, ExportsReportAsJsonAndWriteNothingIncompleteWhenStrict) {
  // The second carver swallows what the first left of a region.
  MakeLevel("thin.3dz",
            "box x=48 y=80 z=112\nposition -128 -160 64\nadd\n"
            "box x=112 y=112 z=128\nposition -176 -80 112\nsubtract\n"
            "box x=32 y=48 z=80\nposition -128 -160 80\nsubtract\n");
  const auto run = [](const std::string& line, int status) {
    const Outcome outcome = Run(line);
    EXPECT_EQ(outcome.status, status) << line << outcome.err;
    return outcome;
  };
  const auto json = [&run](const std::string& line, int status) {
    return nlohmann::json::parse(run(line, status).out);
  };
  const std::string told = "6 brushes written, 1 thin cell left out\n";
  EXPECT_EQ(run("export-map thin.3dz a.map", kCliDone).out, "a.map: " + told);
  EXPECT_EQ(run("export-map --strict thin.3dz b.map", kCliFailed).err,
            "b.map: not written: " + told);
  const auto refused = json("export-map --strict --report json thin.3dz b.map", kCliFailed);
  EXPECT_EQ(refused["written"], false);
  EXPECT_EQ(refused["left_out"]["thin_cells"], 1);
  EXPECT_FALSE(std::filesystem::exists("b.map"));
  const auto whole = json("export-map --strict --report json pond.3dz \"b\xFF.map\"", kCliDone);
  EXPECT_EQ(whole["written"], true);
  EXPECT_EQ(whole["brushes"], 7);
  EXPECT_EQ(whole["planes"]["with_decimals"], 0);

  const auto world = json("export-3dm --strict --report json pond.3dz a.3dm", kCliDone);
  EXPECT_GE(world["polygons"], 17);
  EXPECT_EQ(LinesOf(run("convert pond.3dz b.3DM", kCliDone).out), 1);
  EXPECT_EQ(Read("a.3dm"), Read("b.3DM"));
}

TEST_F(ZandoCli, FlushBrushesOfATurnedGroupStayFlushAcrossASave) {
  for (const std::string degrees : {"15", "30"}) {
    MakeLevel("turned.3dz",
              "group new g\nposition 1000 0 0\nadd\nposition 1128 0 0\nadd\nposition 1256 0 0\n"
              "add\nbox x=128 y=64 z=64\nposition 1128 0 0\nsubtract\ngroup rotate g " +
                  degrees + " 0 0\nrebuild optimal\nexport unsaved.map\n");
    EXPECT_EQ(Run("rebuild turned.3dz again.3dz").out, "again.3dz: 20 nodes, 20 visible\n");
    const std::string told = Run("export-map turned.3dz saved.map").out;
    EXPECT_TRUE(told.starts_with("saved.map: 6 brushes written, ")) << told;
    EXPECT_TRUE(told.ends_with(" planes written with decimals\n")) << told;
    EXPECT_EQ(Read("saved.map"), Read("unsaved.map"));
  }
}

TEST_F(ZandoCli, LocaleChangesNoByte) {
  const auto outputs = [] {
    MakeLevel("a.3dz", kPond + "box x=0.5\nposition 1.25 -0.5 1234.5\nadd\n");
    EXPECT_EQ(Run("convert a.3dz a.map").status, kCliDone);
    EXPECT_EQ(Run("convert a.3dz a.3dm").status, kCliDone);
    return Read("a.3dz") + Read("a.map") + Read("a.3dm") + Run("info --json a.3dz").out;
  };
  const std::string plain = outputs();
  const char* german = std::setlocale(LC_ALL, "de_DE.UTF-8");
  if (german == nullptr) GTEST_SKIP() << "there is no German locale here";
  const std::locale before = std::locale::global(std::locale(german));
  EXPECT_EQ(outputs(), plain);
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace zando
