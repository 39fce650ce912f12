#include "formats/map_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "support/map_solids.h"
#include "support/random_level.h"

namespace zando::testing {
namespace {

constexpr GridBox kBox{{0, 0, 0}, {64, 64, 64}};

CZandoBrush& AddBox(CZANDODoc& document, const GridBox& box, std::int32_t operation = kAddToWorld) {
  return *document.BrushList.Brushes()[static_cast<std::size_t>(
      document.AddBrush(*MakeBoxBrush(box, operation)))];
}

void GiveToEntity(CZandoBrush& brush, std::int32_t entity) {
  brush.BFlags |= BF_ENTITY;
  brush.BEnt = entity;
}

std::vector<MapEntity> Export(CZANDODoc& document) {
  const auto entities = ParseMap(WriteMap(document, "textures.wad"));
  EXPECT_TRUE(entities.has_value());
  return entities.value_or(std::vector<MapEntity>(1));
}

std::vector<MapBrush> ExportWorld(CZANDODoc& document) { return Export(document).front().brushes; }

double TotalVolume(const std::vector<MapBrush>& brushes) {
  double volume = 0.0;
  for (const MapBrush& brush : brushes) {
    const MapSolid solid = SolidOf(brush);
    EXPECT_TRUE(solid.closed);
    volume += solid.volume;
  }
  return volume;
}

TEST(MapWriter, WritesABoxAsTheHeaderAndOneBrushOfSixPlanes) {
  CZANDODoc document;
  AddBox(document, kBox);
  EXPECT_EQ(WriteMap(document, "c:\\textures.wad"),
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

TEST(MapWriter, CutsACornerOffWithTheFacesOfTheCarverReversed) {
  CZANDODoc document;
  AddBox(document, kBox).Name = "wall";
  AddBox(document, {{32, 32, 32}, {96, 96, 96}}, kSubtractFromWorld).Name = "hole";
  const std::string text = WriteMap(document, "");
  const std::vector<MapBrush> brushes = ExportWorld(document);
  EXPECT_GT(brushes.size(), 1U);
  EXPECT_NEAR(TotalVolume(brushes), 64.0 * 64.0 * 64.0 - 32.0 * 32.0 * 32.0, 1e-3);
  EXPECT_EQ(text.find("hole"), std::string::npos);
  // The carver's face of low x, from its third vertex to its first.
  EXPECT_NE(text.find("( 32 96 96 ) ( 32 96 32 ) ( 32 32 32 ) wall"), std::string::npos);
}

TEST(MapWriter, CarvesOnlyByShownCarversThatFollow) {
  constexpr GridBox half{{0, 0, 0}, {32, 64, 64}};
  constexpr GridBox more{{-8, -8, -8}, {72, 72, 72}};
  constexpr double whole = 64.0 * 64.0 * 64.0;
  struct Case {
    const char* what;
    GridBox carver;
    bool first;
    std::int32_t flags;
    double left;
  };
  for (const Case& c :
       {Case{"follows", half, false, BF_SHOWN, whole / 2.0},
        Case{"comes first", half, true, BF_SHOWN, whole}, Case{"is hidden", half, false, 0, whole},
        Case{"belongs to an entity", half, false, BF_SHOWN | BF_ENTITY, whole / 2.0},
        Case{"touches", {{64, 0, 0}, {96, 64, 64}}, false, BF_SHOWN, whole},
        Case{"swallows it", more, false, BF_SHOWN, 0.0}}) {
    CZANDODoc document;
    if (!c.first) AddBox(document, kBox);
    AddBox(document, c.carver, kSubtractFromWorld).BFlags = c.flags;
    if (c.first) AddBox(document, kBox);
    EXPECT_NEAR(TotalVolume(ExportWorld(document)), c.left, 1e-3) << c.what;
  }
}

TEST(MapWriter, OpensADoorCutFlushThroughAWall) {
  CZANDODoc document;
  AddBox(document, {{0, 0, 0}, {256, 128, 16}});
  AddBox(document, {{96, 0, 0}, {160, 96, 16}}, kSubtractFromWorld);
  const std::vector<MapBrush> brushes = ExportWorld(document);
  EXPECT_NEAR(TotalVolume(brushes), (256.0 * 128.0 - 64.0 * 96.0) * 16.0, 1e-3);
  for (const MapBrush& brush : brushes) EXPECT_GT(DistanceOutside(brush, {128.0, 48.0, 8.0}), 0.0);
}

TEST(MapWriter, WritesShownWorldBrushesAndAllBrushesOfShownEntities) {
  CZANDODoc document;
  for (const std::int32_t flags : {EF_SHOWN, 0, EF_SHOWN}) {
    CEntity entity;
    entity.eFlags = flags;
    entity.AddPair("classname", "func_wall");
    document.Entities.push_back(entity);
  }
  AddBox(document, kBox).Name = "shown";
  AddBox(document, kBox).Name = "hidden";
  document.BrushList.Brushes().back()->BFlags = 0;
  for (const std::int32_t entity : {2, 1, 0, 7, -1}) {
    CZandoBrush& brush = AddBox(document, kBox);
    brush.Name = "of" + std::to_string(entity);
    brush.BFlags = entity == 2 ? 0 : BF_SHOWN;
    GiveToEntity(brush, entity);
  }
  GiveToEntity(AddBox(document, {{99, 0, 0}, {100, 1, 1}}, kSubtractFromWorld), 0);

  std::vector<std::vector<std::string>> names;
  for (const MapEntity& entity : Export(document)) {
    names.emplace_back();
    for (const MapBrush& brush : entity.brushes) names.back().push_back(brush.front().texture);
  }
  const std::vector<std::vector<std::string>> expected{{"shown"}, {"of0"}, {"of2"}};
  EXPECT_EQ(names, expected);
}

TEST(MapWriter, WritesEntityPairsWithTheOriginInTheGamesOrder) {
  CZANDODoc document;
  CEntity entity;
  entity.eOrigin = {10.7, 20.2, -5.9};
  entity.AddPair("classname", "light");
  entity.AddPair("Origin", "1 2 3");
  entity.AddPair("mes\"sage", "say \"hi\"\r\n}");
  document.Entities.push_back(entity);
  const std::string text = WriteMap(document, "");
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

TEST(MapWriter, RoundsHalvesAwayFromZeroWithinTheRangeOfWholeNumbers) {
  struct Case {
    double low;
    double written;
  };
  for (const auto& [low, written] :
       {Case{2.5, 3.0}, Case{-2.5, -3.0}, Case{2.25, 2.0}, Case{-0.25, 0.0}, Case{-0.5, -1.0},
        Case{2.4999, 2.0}, Case{-1e13, std::numeric_limits<std::int32_t>::min()}}) {
    CZANDODoc document;
    AddBox(document, kBox).MoveTo({low + 32.0, 32.0, 32.0});
    const std::vector<MapBrush> brushes = ExportWorld(document);
    ASSERT_EQ(brushes.size(), 1U);
    double smallest = std::numeric_limits<double>::max();
    for (const MapPlane& plane : brushes.front()) {
      for (const Vector& point : plane.points) smallest = std::min(smallest, point.x);
    }
    EXPECT_EQ(smallest, written) << low;
  }
}

TEST(MapWriter, WritesTheNameAsOneWordOfThePlaneLine) {
  struct Case {
    const char* name;
    const char* word;
  };
  for (const auto& [name, word] :
       {Case{"*water1", "*water1"}, Case{"my wall\t2\r\n", "my_wall_2__"}, Case{"\"", "_"},
        Case{"", "tech05_1"}}) {
    CZANDODoc document;
    AddBox(document, kBox).Name = name;
    EXPECT_EQ(ExportWorld(document).at(0).at(0).texture, word);
  }
}

TEST(MapWriter, SkipsThePlaneOfAFaceWithoutThreeVertices) {
  for (const double broken : {0.0, std::numeric_limits<double>::quiet_NaN()}) {
    for (std::int32_t count = 0; count <= 4; ++count) {
      CZANDODoc document;
      CZandoBrush& brush = AddBox(document, kBox);
      AddBox(document, {{32, 32, 32}, {96, 96, 96}}, kSubtractFromWorld);
      brush.Polys[3].count = count;
      brush.Polys[3][0].x += broken;
      for (const MapBrush& cell : ExportWorld(document)) EXPECT_LE(cell.size(), 12U);
    }
  }
}

}  // namespace
}  // namespace zando::testing
