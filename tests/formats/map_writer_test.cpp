#include "formats/map_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/map_solids.h"
#include "support/random_level.h"

namespace zando::testing {
namespace {

constexpr GridBox kBox{{0, 0, 0}, {64, 64, 64}};

CZandoBrush& AddBox(Level& level, const GridBox& box, std::int32_t operation = kAddToWorld) {
  return level.BrushList[level.AddBrush(*MakeBoxBrush(box, operation))];
}

std::vector<MapEntity> Export(const Level& level, MapExportReport* report = nullptr) {
  const auto entities = ParseMap(WriteMap(level, "textures.wad", report));
  EXPECT_TRUE(entities.has_value());
  return entities.value_or(std::vector<MapEntity>(1));
}

std::vector<MapBrush> ExportWorld(const Level& level) { return Export(level).front().brushes; }

TEST(MapWriter, WritesABoxAsTheHeaderAndOneBrushOfSixPlanes) {
  Level level;
  AddBox(level, kBox);
  EXPECT_EQ(WriteMap(level, "c:\\textures.wad"),
            "{\r\n"
            "\"message\"  \"Entering ZANDOLEVEL\"\r\n"
            "\"wad\" \"c:\\textures.wad\"\r\n"
            "\"classname\" \"worldspawn\"\r\n"
            "{\r\n"
            "( 0 64 0 ) ( 64 64 0 ) ( 64 64 64 ) tech05_1 0 0 0 1.000000 1.000000\r\n"
            "( 0 0 0 ) ( 0 0 64 ) ( 64 0 64 ) tech05_1 0 0 0 1.000000 1.000000\r\n"
            "( 0 0 64 ) ( 0 64 64 ) ( 64 64 64 ) tech05_1 0 0 0 1.000000 1.000000\r\n"
            "( 0 0 0 ) ( 64 0 0 ) ( 64 64 0 ) tech05_1 0 0 0 1.000000 1.000000\r\n"
            "( 64 0 0 ) ( 64 0 64 ) ( 64 64 64 ) tech05_1 0 0 0 1.000000 1.000000\r\n"
            "( 0 0 0 ) ( 0 64 0 ) ( 0 64 64 ) tech05_1 0 0 0 1.000000 1.000000\r\n"
            "}\r\n"
            "}\r\n");
}

TEST(MapWriter, HiddenCarversDoNotCarveAndThoseOfEntitiesDo) {
  for (const auto& [flags, cells] : {std::pair{BF_SHOWN, 1}, {0, 2}, {BF_SHOWN | BF_ENTITY, 1}}) {
    Level level;
    AddBox(level, kBox);
    AddBox(level, {{64, 0, 0}, {96, 64, 64}});
    AddBox(level, {{64, -8, -8}, {99, 72, 72}}, kSubtractFromWorld).BFlags = flags;
    EXPECT_EQ(ExportWorld(level).size(), static_cast<std::size_t>(cells)) << flags;
  }
}

TEST(MapWriter, WritesShownWorldBrushesAndAllBrushesOfShownEntitiesAndCountsTheOthers) {
  Level level;
  for (const std::int32_t flags : {EF_SHOWN, 0, EF_SHOWN}) {
    level.Entities.emplace_back().eFlags = flags;
  }
  constexpr GridBox kFlat{{0, 0, 0}, {64, 0, 64}};
  const struct {
    const char* name;
    std::int32_t flags;
    std::int32_t entity;
    std::int32_t operation = kAddToWorld;
    GridBox box = kBox;
  } brushes[] = {{"shown", BF_SHOWN, 0},
                 {"hidden", 0, 0},
                 {"hidden carver", 0, 0, kSubtractFromWorld},
                 {"flat", BF_SHOWN, 0, kAddToWorld, kFlat},
                 {"flat carver", BF_SHOWN, 0, kSubtractFromWorld, kFlat},
                 {"flat of0", BF_SHOWN | BF_ENTITY, 0, kAddToWorld, kFlat},
                 {"of2", BF_ENTITY, 2},
                 {"of1", BF_SHOWN | BF_ENTITY, 1},
                 {"of1 too", BF_ENTITY, 1},
                 {"of0", BF_SHOWN | BF_ENTITY, 0},
                 {"of7", BF_SHOWN | BF_ENTITY, 7},
                 {"of-1", BF_SHOWN | BF_ENTITY, -1}};
  for (const auto& [name, flags, entity, operation, box] : brushes) {
    CZandoBrush& brush = AddBox(level, box, operation);
    brush.Name = name;
    brush.BFlags = flags;
    brush.BEnt = entity;
  }
  std::vector<std::vector<std::string>> names;
  MapExportReport report;
  for (const MapEntity& entity : Export(level, &report)) {
    names.emplace_back();
    for (const MapBrush& brush : entity.brushes) names.back().push_back(brush.front().texture);
  }
  const std::vector<std::vector<std::string>> expected{{"shown"}, {"of0"}, {"of2"}};
  EXPECT_EQ(names, expected);
  EXPECT_EQ(DescribeExport(report),
            "3 brushes written, 3 brushes without volume left out, 4 hidden brushes left out, "
            "1 hidden entity left out");
}

TEST(MapWriter, WritesEntityPairsWithTheOriginInTheGamesOrder) {
  Level level;
  CEntity entity;
  entity.eOrigin = {10.7, 20.2, -5.9};
  entity.AddPair("classname", "light");
  entity.AddPair("Origin", "1 2 3");
  entity.AddPair("mes\"sage", "say \"hi\"\r\n}");
  level.Entities.push_back(entity);
  const std::string text = WriteMap(level, "");
  EXPECT_TRUE(
      text.ends_with("\"worldspawn\"\r\n"
                     "}\r\n"
                     "{\r\n"
                     "\"classname\"\t\"light\"\r\n"
                     "\"Origin\"\t\"10 -5 20\"\r\n"
                     "\"mes'sage\"\t\"say 'hi'  }\"\r\n"
                     "}\r\n"))
      << text;
}

TEST(MapWriter, RoundsHalvesAwayFromZeroAndWritesWhatNoWholeNumberHoldsWithDecimals) {
  const std::pair<double, double> cases[] = {{2.5, 3.0},    {-2.5, -3.0}, {2.25, 2.0},
                                             {-0.25, 0.0},  {-0.5, -1.0}, {2.4999, 2.0},
                                             {-1e13, -1e13}};
  for (const auto& [low, written] : cases) {
    Level level;
    AddBox(level, kBox).MoveTo({low + 32.0, 32.0, 32.0});
    const MapPlane plane = ExportWorld(level).at(0).at(0);
    EXPECT_EQ(plane.points[0].x, written) << low;
    EXPECT_EQ(WriteMap(level, "").find("e+"), std::string::npos) << "no exponent";
  }
}

TEST(MapWriter, WritesTheNameAsOneWordOfThePlaneLine) {
  const std::pair<const char*, const char*> cases[] = {
      {"*water1", "*water1"}, {"my wall\t2\r\n", "my_wall_2__"}, {"\"", "_"}, {"", "tech05_1"}};
  for (const auto& [name, word] : cases) {
    Level level;
    AddBox(level, kBox).Name = name;
    EXPECT_EQ(ExportWorld(level).at(0).at(0).texture, word);
  }
}

TEST(MapWriter, WritesSurfacesOfSolidsAndCarversAndTheKeysOfTheWorld) {
  Level level;
  level.WorldKeys = {{"CLASSNAME", "other"}, {"sounds", "4"}, {"WAD", "own.wad"}, {"wad", "more"}};
  AddBox(level, kBox).Faces[1].surface = {"side \"1", 0.5, -8.0, 45.0, 1e-05, 1.0};
  CZandoBrush& carver = AddBox(level, {{-8, 32, -8}, {72, 96, 72}}, kSubtractFromWorld);
  for (BrushFace& face : carver.Faces) face.surface = {"cut", 1.0};
  const std::string text = WriteMap(level, "given.wad");
  EXPECT_TRUE(
      text.starts_with("{\r\n\"message\"  \"Entering ZANDOLEVEL\"\r\n\"WAD\" \"own.wad\"\r\n"
                       "\"classname\" \"worldspawn\"\r\n\"sounds\" \"4\"\r\n"
                       "\"wad\" \"more\"\r\n{\r\n"))
      << text;
  const auto lines = [&text](const std::string& end) {
    std::string found;
    for (std::size_t at = 0; (at = text.find(end + "\r\n", at)) != std::string::npos; ++at) {
      const std::size_t start = text.rfind('\n', at) + 1;
      found += text.substr(start, at - start) + '|';
    }
    return found;
  };
  EXPECT_EQ(lines("side__1 0.5 -8 45 1e-05 1"), "( 64 0 0 ) ( 64 0 64 ) ( 64 64 64 ) |");
  EXPECT_EQ(lines("cut 1 0 0 1 1"), "( 72 72 32 ) ( 72 -8 32 ) ( -8 -8 32 ) |");
  const std::string given = lines("tech05_1 0 0 0 1.000000 1.000000");
  EXPECT_EQ(std::count(given.begin(), given.end(), '|'), 4);
}

TEST(MapWriter, SkipsThePlaneOfAFaceWithoutThreeVertices) {
  for (const double broken : {0.0, std::numeric_limits<double>::quiet_NaN()}) {
    for (std::int32_t count = 0; count <= 4; ++count) {
      Level level;
      CZandoBrush& brush = AddBox(level, kBox);
      AddBox(level, {{32, 32, 32}, {96, 96, 96}}, kSubtractFromWorld);
      brush.EditPoly(3).count = count;
      brush.EditPoly(3)[0].x += broken;
      for (const MapBrush& cell : ExportWorld(level)) EXPECT_LE(cell.size(), 12U);
    }
  }
}

}  // namespace
}  // namespace zando::testing
