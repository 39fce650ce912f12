#include "formats/map_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "formats/map_cleaner.h"
#include "formats/map_writer.h"
#include "platform/number_text.h"
#include "support/map_solids.h"
#include "support/random_level.h"

namespace zando::testing {
namespace {

constexpr GridBox kBox{{0, 0, 0}, {64, 64, 64}};

/// Points of a plane in the map's axes.
using Points = std::array<Vector, 3>;

std::string PlaneLine(const Points& points, const std::string& covering = "brick 0 0 0 1 1") {
  std::string line;
  for (const Vector& point : points) {
    line += "( ";
    for (const double coordinate : {point.x, point.y, point.z}) {
      AppendNumber(line, coordinate, Digits::Shortest);
      line += ' ';
    }
    line += ") ";
  }
  return line + covering + '\n';
}

std::string BrushText(const CZandoBrush& brush, const Vector& offset = {0, 0, 0},
                      const std::string& more = {}) {
  std::string text = "{\n";
  for (const CZandoPoly& face : brush.WorldPolys()) {
    Points points{face[0], face[1], face[2]};
    for (Vector& point : points) point = Vector{point.x, point.z, point.y} + offset;
    text += PlaneLine(points);
  }
  return text + more + "}\n";
}

std::string BoxText() { return BrushText(*MakeBoxBrush(kBox)); }

MapImport Read(const std::string& text) {
  auto map = ReadMap(text);
  EXPECT_EQ(map.Error(), "");
  return map ? *std::move(map) : MapImport();
}

double VolumeOf(const CZandoBrush& brush) {
  double volume = 0.0;
  const Vector origin = brush.Polys()[0][0];
  for (const CZandoPoly& face : brush.Polys()) {
    for (std::int32_t i = 2; i < face.count; ++i) {
      volume += Dot(face[0] - origin, Cross(face[i - 1] - origin, face[i] - origin)) / 6.0;
    }
  }
  return volume;
}

TEST(MapReader, ReadsAnExportedBoxBackAsRectanglesThatFaceOutAndExportTheSame) {
  Level level;
  level.AddBrush(*MakeBoxBrush(kBox));
  const std::string text = WriteMap(level, "a.wad");
  const MapImport map = Read(text);
  ASSERT_EQ(map.level.brushes.size(), 1U);
  const CZandoBrush& brush = *map.level.brushes[0];
  EXPECT_EQ(brush.PolyCount(), 6);
  EXPECT_EQ(brush.Name, "tech05_1");
  EXPECT_EQ(brush.TranT, kAddToWorld);
  EXPECT_FALSE(brush.BelongsToEntity());
  EXPECT_NEAR(VolumeOf(brush), 64.0 * 64.0 * 64.0, 1e-6);
  for (const CZandoPoly& face : brush.Polys()) {
    EXPECT_EQ(face.count, 4);
    for (const Vector& v : face.Vertices()) {
      for (const double c : {v.x, v.y, v.z}) EXPECT_TRUE(c == 0.0 || c == 64.0) << c;
    }
  }
  for (const BrushFace& face : brush.Faces) EXPECT_FALSE(face.surface);
  Level again;
  again.AddBrush(brush);
  EXPECT_EQ(WriteMap(again, "a.wad"), text);
}

TEST(MapReader, TakesPairsAndBrushesToWhatTheyBelongTo) {
  const MapImport map =
      Read("{\n\"classname\" \"worldspawn\"\n\"message\" \"a { b\" stray }x \"y\n" + BoxText() +
           "\"wad\"\t\"x\xE9.wad\"\n}\n{\n\"message\" \"two  words\xFF\"\n" + BoxText() +
           "\"Origin\" \"1 -2.9 3\"\n" + BoxText() + "}\n{ }\n{\n\"classname\" \"light\"\n}");
  const std::vector<EntityPair> world{{"message", "a { b"}, {"wad", "x\xE9.wad"}};
  EXPECT_EQ(map.level.worldKeys, world);
  EXPECT_EQ(map.report.brushes, 3);
  ASSERT_EQ(map.level.entities.size(), 2U);
  const std::vector<EntityPair> pairs{{"message", "two  words\xFF"}, {"Origin", "1 3 -2"}};
  EXPECT_EQ(map.level.entities[0].Pairs, pairs);
  EXPECT_EQ(map.level.entities[0].eOrigin, (Vector{1, 3, -2}));
  EXPECT_EQ(map.level.entities[1].eStyle, 1);

  CZANDODoc document;
  for (int first = 0; first < 4; first += 2) {
    AppendLevel(document, std::move(Read("{\n\"Wad\" \"y\"\n\"k" + std::to_string(first) +
                                         "\" \"\"\n}\n{\n\"a\" \"b\"\n" + BoxText() + BoxText() +
                                         "}\n{\n\"c\" \"d\"\n}\n")
                                        .level));
    const CBrushList& brushes = document.GetLevel().BrushList;
    for (const std::int32_t i : {first, first + 1}) {
      EXPECT_EQ(brushes[i].BEnt, first);
      EXPECT_TRUE(brushes[i].BelongsToEntity());
      EXPECT_EQ(brushes[i].BBid, i);
    }
    EXPECT_EQ(document.State().CurrentEntity, first + 1);
  }
  const std::vector<EntityPair> keys{{"k0", ""}, {"Wad", "y"}, {"k2", ""}};
  EXPECT_EQ(document.GetLevel().WorldKeys, keys);
}

TEST(MapReader, KeepsWhatAFaceCarriesBesideTheTextureOfMostFaces) {
  std::string text = BoxText();
  const auto cover = [&text](int line, const std::string& covering) {
    std::size_t at = 0;
    for (int i = 0; i <= line; ++i) at = text.find("brick", at + 1);
    text.replace(at, text.find('\n', at) - at, covering);
  };
  for (const int line : {5, 4, 3}) cover(line, "floor 0 0 0 1 1");
  cover(2, "*water 0 0 0 1.000000 1");
  cover(1, "*water 1 -2.5 30 0.5 -1");
  cover(0, "*water 0 0 0 1 1");
  const MapImport map = Read("{\n" + text + "}\n");
  const CZandoBrush& brush = *map.level.brushes.at(0);
  EXPECT_TRUE(brush.IsWater());
  std::vector<std::optional<FaceSurface>> surfaces;
  for (const BrushFace& face : brush.Faces) surfaces.push_back(face.surface);
  // The last line is the first face.
  const std::vector<std::optional<FaceSurface>> expected{
      FaceSurface{"floor"},
      FaceSurface{"floor"},
      FaceSurface{"floor"},
      std::nullopt,
      FaceSurface{"*water", 1, -2.5, 30, 0.5, -1},
      std::nullopt};
  EXPECT_EQ(surfaces, expected);
}

/// A prism of n sides about a middle; turned inside out when its sides run the other way.
std::string Prism(int n, double direction = 1.0) {
  std::string text = "{\n";
  for (int i = 0; i < n; ++i) {
    const double angle = direction * 2.0 * std::numbers::pi * i / n;
    const Vector at{512.0 * std::cos(angle), 512.0 * std::sin(angle), 0.0};
    text += PlaneLine({at, at + Vector{std::sin(angle), -std::cos(angle), 0.0} * direction,
                       at + Vector{0.0, 0.0, 1.0}});
  }
  text += PlaneLine({Vector{0, 0, 64}, Vector{0, 1, 64}, Vector{1, 0, 64}});
  return text + PlaneLine({Vector{0, 0, 0}, Vector{1, 0, 0}, Vector{0, 1, 0}}) + "}\n";
}

TEST(MapReader, SkipsWhatCannotBeABrushWithLineReasonAndTexture) {
  const std::string collinear = "( 0 0 0 ) ( 1 1 1 ) ( 2 2 2 ) brick 0 0 0 1 1\n";
  const std::string twice = PlaneLine({Vector{0, 0, 64}, Vector{0, 1, 64}, Vector{1, 0, 64}});
  const std::string away = PlaneLine({Vector{0, 0, 99}, Vector{0, 1, 99}, Vector{1, 0, 99}});
  const struct {
    std::string brush;
    std::string said;
  } cases[] = {{Prism(30), "1 brush and 0 entities read"},
               {Prism(32), "1 brush and 0 entities read"},
               {Prism(33), "a face of more than 32 vertices"},
               {Prism(99), "more than 100 planes"},
               {Prism(8, -1.0), "no volume"},
               {"{ }\n", "no volume"},
               {BrushText(*MakeBoxBrush({{0, 0, 0}, {64, 0, 64}})), "three points on one line"},
               {"{\n" + collinear + "}\n", "three points on one line"},
               {"{\n( 1e300 nan 0 ) ( -1 +2 .5 ) ( 0 0 0 ) brick 0 0 0 1 1\n}\n",
                "coordinates beyond 32 bits"},
               {BrushText(*MakeBoxBrush(kBox), {}, collinear + twice + away),
                "1 brush and 0 entities read, 3 planes without a face"}};
  for (const auto& [brush, said] : cases) {
    const MapImport map = Read("{\n\n" + brush + "}\n");
    const MapImportReport& report = map.report;
    const auto& skipped = report.skippedBrushes.Kept();
    EXPECT_EQ(report.brushes, map.level.brushes.size());
    ASSERT_EQ(report.brushes + report.skippedBrushes.Count(), 1) << said;
    if (report.brushes == 1) {
      EXPECT_EQ(DescribeImport(report), said);
    } else {
      EXPECT_EQ(skipped[0].what, said);
      EXPECT_EQ(skipped[0].line, 3);
      EXPECT_EQ(skipped[0].texture, brush == "{ }\n" ? "" : "brick");
    }
  }
}

TEST(MapReader, RefusesWhatDoesNotBeginWithABlockAndReadsAFileThatIsCutAnywhere) {
  EXPECT_EQ(ReadMap("// {\n{\n}\n").Error(), "Problem Parsing file");
  EXPECT_EQ(ReadMap("{\"a\" \"b\"\n}").Error(), "Problem Parsing file");
  EXPECT_EQ(DescribeImport(Read(" \n").report), "0 brushes and 0 entities read");
  const std::string text = "{\n" + BoxText() + BoxText() + "}\n{\n\"a\" \"b\"\n" + BoxText() + "}";
  for (std::size_t length = 1; length < text.size(); ++length) {
    const MapImport map = Read(text.substr(0, length));
    EXPECT_LE(map.report.brushes + map.report.skippedBrushes.Count(), 3);
  }
  // Whole lines of a brush make it, open as it is; so does the last word of a file.
  const std::string box = "{\n" + BoxText();
  const std::string five = box.substr(0, box.rfind('(', box.rfind("brick") - 60));
  EXPECT_EQ(Read(box.substr(0, box.rfind('\n', box.rfind("brick")) + 1)).report.openBrushes.Count(),
            1);
  EXPECT_EQ(Read(box.substr(0, box.size() - 3)).level.brushes.at(0)->PolyCount(), 6);
}

/// Brushes come in whole wherever they lie, and whatever planes beside their own they have.
TEST(MapReader, ReadsTheSolidsOfRandomLevelsFarFromTheOriginToo) {
  for (std::uint64_t seed = 0; seed < 10; ++seed) {
    CRandom random(seed);
    const CBrushList level = RandomLevel(
        seed, {.brushes = 20, .extent = 4000, .maxSize = 3000, .tapered = 50, .turned = 50});
    for (const Vector& offset :
         {Vector{0, 0, 0}, Vector{7000, -9000, 100}, Vector{1e6, -1e6, 1e6}}) {
      std::string text = "{\n";
      for (const CZandoBrush& brush : level) text += BrushText(brush, offset);
      const MapImport map = Read(text + "}\n");
      ASSERT_EQ(map.level.brushes.size(), 20U);
      EXPECT_EQ(map.report.facelessPlanes.Count() + map.report.openBrushes.Count(), 0);
      const Vector moved{offset.x, offset.z, offset.y};
      for (std::int32_t i = 0; i < level.BrushCount(); ++i) {
        const CZandoBrush& brush = *map.level.brushes[static_cast<std::size_t>(i)];
        const auto& [low, high] = level[i].WorldBounds();
        EXPECT_NEAR(Length(brush.WorldBounds().low - moved - low), 0.0, 1e-3);
        EXPECT_NEAR(Length(brush.WorldBounds().high - moved - high), 0.0, 1e-3);
        const Planes expected = PlanesOf(level[i]);
        const Planes planes = PlanesOf(brush);
        ASSERT_EQ(planes.size(), expected.size());
        for (int k = 0; k < 50; ++k) {
          const Vector point{random.Real(low.x, high.x), random.Real(low.y, high.y),
                             random.Real(low.z, high.z)};
          EXPECT_NEAR(DistanceOutside(planes, point + moved), DistanceOutside(expected, point),
                      1e-3);
        }
      }
    }
  }
}

}  // namespace
}  // namespace zando::testing
