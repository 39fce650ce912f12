#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"

namespace zando {
namespace {

class ImportMap : public CCliTest {
 protected:
  ImportMap() {
    MakeLevel("box.3dz", "box x=64 y=64 z=64\nposition 32 32 32\nadd\nentity light\n");
    EXPECT_EQ(Run("export-map box.3dz box.map").err, "");
  }

  /// The exported box as newer editors write it, with a patch and a brush without volume.
  static std::string Newer() {
    std::string text = "// Format: Valve\r\n" + Read("box.map");
    const std::string numbers = "0 0 0 1.0";
    for (std::size_t at = 0; (at = text.find(numbers, at)) != text.npos; at += 20) {
      text.replace(at, 6, "[ 1 0 0 0 ] [ 0 -1 0 0 ] 0 ");
    }
    text.insert(text.find("{\r\n("), "{ patchDef2 { sky ( 3 3 0 ) } }\r\n{ }\r\n");
    return text;
  }
};

TEST_F(ImportMap, AnExportedLevelComesBackAndExportsTheSame) {
  for (const std::string line : {"import-map", "import-map --clean", "convert"}) {
    const Outcome outcome = Run(line + " box.map back.3dz");
    EXPECT_EQ(outcome.out, "back.3dz: 1 brush and 1 entity read\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(Run("convert back.3dz back.map").err, "");
    EXPECT_EQ(Read("back.map"), Read("box.map"));
  }
}

TEST_F(ImportMap, ANewerMapIsRefusedUnlessCleanedAndTheReportSaysWhatWasSkipped) {
  Write("newer.map", Newer());
  const Outcome refused = Run("import-map newer.map out.3dz");
  EXPECT_EQ(refused.status, kCliFailed);
  EXPECT_EQ(refused.err, "newer.map: Problem Parsing file (--clean may read it)\n");
  Write("text.map", "no map\n");
  EXPECT_EQ(Run("import-map text.map out.3dz").status, kCliFailed);
  EXPECT_EQ(Run("import-map box.map box.map").status, kCliFailed);
  EXPECT_EQ(Run("import-map --report xml box.map out.3dz").status, kCliWrongUsage);
  EXPECT_FALSE(std::filesystem::exists("out.3dz"));

  for (const std::string line : {"import-map --clean", "convert"}) {
    const Outcome cleaned = Run(line + " newer.map out.3dz");
    EXPECT_EQ(cleaned.status, kCliDone) << cleaned.err;
    EXPECT_EQ(
        cleaned.out.find("out.3dz: 1 brush and 1 entity read, 1 brush skipped (no volume: 1)"), 0U)
        << cleaned.out;
    EXPECT_EQ(cleaned.err,
              "warning: newer.map: line 7: brush skipped: no volume\n"
              "warning: newer.map: given up: 4 faces' own texture axes, 1 brush of another kind "
              "(patchDef2: 1)\n");
  }
  const Outcome json = Run("import-map --clean --report json newer.map out.3dz");
  const auto report = nlohmann::json::parse(json.out);
  EXPECT_EQ(json.err, "");
  EXPECT_EQ(report["brushes"], 1);
  EXPECT_EQ(report["faces"], 6);
  EXPECT_EQ(report["skipped_brushes"]["list"][0]["line"], 7);
  const auto& patch = report["cleaning"]["skipped_brushes"]["list"][0];
  EXPECT_EQ(patch["reason"], "patchDef2");
  EXPECT_EQ(patch["texture"], "sky");
  EXPECT_EQ(patch["line"], 6);
}

}  // namespace
}  // namespace zando
