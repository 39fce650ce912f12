#include "formats/map_cleaner.h"

#include <gtest/gtest.h>

#include <string>

#include "formats/map_reader.h"

namespace zando {
namespace {

TEST(MapCleaner, RewritesNewerFormsInTheSameLinesAndTellsWhatItGaveUp) {
  const std::string points = "( 0 0 64 ) ( 0 8.5 64 ) ( 8 0 64 ) ";
  const CleanedMap cleaned = CleanMap(
      "// Format: Valve // {\n"
      "{\"classname\" \"world// spawn\"\n"
      "message x\n"
      "{ // brush 0\n" +
      points + "brick [ 1 0 0 16.5 ] [ 0 -1 0 -8 ] 0 1 2\n" + points +
      "\"my wall\" [ 0 1 0 1 ] [ 1 0 0 2 ] 90 1 1\n" + points +
      "{fence [ 0.6 0.8 0 3 ] [ 0.8 -0.6 0 4 ] 0 1 1\n"
      "(0 0 64)(0 8.5 64)(8 0 64) sky 1 2 3 4 5 128 0 0\n"
      "}\n"
      "{\npatchDef2\n{\ncommon/caulk\n( 3 3 0 0 0 )\n(\n( ( 0 0 0 0 0 ) )\n)\n}\n}\n"
      "{\nbrushDef { ( 0 0 0 ) ( ( 1 0 0 ) ( 0 1 0 ) ) metal/a 0 0 0 } }\n"
      "{\n( 0 0 0 ) ( 1 }\n"
      "{\n( 0 0 0 ) ( 1 0 0 ) ( 0 1 0 ) cut");
  const std::string expected =
      "\n"
      "{ \"classname\" \"world// spawn\"\n"
      "\"message\" \"x\"\n"
      "{\n" +
      points + "brick 16.5 -8 0 1 2\n" + points + "my_wall 1 2 90 1 1\n" + points +
      "{fence 3 4 0 1 1\n" + points + "sky 1 2 3 4 5\n" + "}\n" + std::string(14, '\n') +
      "{\n} }\n";
  EXPECT_EQ(cleaned.text, expected);
  EXPECT_EQ(DescribeCleaning(cleaned.report),
            "2 comments dropped, 2 faces with texture axes rewritten without, "
            "11 words separated or quoted");
  EXPECT_EQ(DescribeGivenUp(cleaned.report),
            "1 face's own texture axes, 3 brushes of another kind (brushDef: 1, not readable: 1, "
            "patchDef2: 1), 3 words at the ends of lines, 1 name of a texture that is no plain "
            "word");
  const auto& skipped = cleaned.report.skippedBrushes.Kept();
  EXPECT_EQ(skipped[0].line, 10);
  EXPECT_EQ(skipped[0].texture, "common/caulk");
  EXPECT_EQ(skipped[1].texture, "metal/a");
  EXPECT_TRUE(CleanMap(cleaned.text).report.IsEmpty());
}

TEST(MapCleaner, TellsAxesThatARotationSaysTooFromOthers) {
  const struct {
    const char* line;
    bool plain;
  } cases[] = {
      {"( 0 0 8 ) ( 0 1 8 ) ( 1 0 8 ) a [ 1 0 0 0 ] [ 0 -1 0 0 ] 0 1 1", true},
      {"( 0 0 0 ) ( 1 0 0 ) ( 0 1 0 ) a [ 1 0 0 0 ] [ 0 -1 0 0 ] 0 1 1", true},
      {"( 8 0 0 ) ( 8 0 1 ) ( 8 1 0 ) a [ 0 1 0 0 ] [ 0 0 -1 0 ] 0 1 1", true},
      {"( 0 0 0 ) ( 0 1 0 ) ( 0 0 1 ) a [ 0 1 0 0 ] [ 0 0 -1 0 ] 0 1 1", true},
      {"( 0 8 0 ) ( 1 8 0 ) ( 0 8 1 ) a [ 1 0 0 0 ] [ 0 0 -1 0 ] 0 1 1", true},
      {"( 0 0 8 ) ( 0 1 8 ) ( 1 0 8 ) a [ 0.866 0.5 0 0 ] [ 0.5 -0.866 0 0 ] 30 1 1", true},
      {"( 0 0 8 ) ( 0 1 8 ) ( 1 0 8 ) a [ 0.866 0.5 0 0 ] [ 0.5 -0.866 0 0 ] 31 1 1", false},
      {"( 0 0 8 ) ( 0 1 8 ) ( 1 0 8 ) a [ 1 0 0 0 ] [ 0 1 0 0 ] 0 1 1", false},
      {"( 8 0 0 ) ( 8 0 1 ) ( 8 1 0 ) a [ 1 0 0 0 ] [ 0 0 -1 0 ] 0 1 1", false}};
  for (const auto& [line, plain] : cases) {
    const MapCleaningReport report = CleanMap(std::string("{\n{\n") + line + "\n}\n}\n").report;
    EXPECT_EQ(report.plainAxes, plain ? 1 : 0) << line;
    EXPECT_EQ(report.turnedAxes, plain ? 0 : 1) << line;
  }
}

}  // namespace
}  // namespace zando
