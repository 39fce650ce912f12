#include "formats/three_dm_writer.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "csg/csg_world.h"
#include "support/csg_testing.h"

namespace zando::testing {
namespace {

/// The file as a table that is searched from its beginning makes it.
std::string LiteralText(const CConstructiveBsp& world) {
  std::vector<Vector> vertices;
  std::string polygons;
  int count = 0;
  for (const CBspNode* node : VisiblePolygons(world)) {
    if (node->pBrush == nullptr) continue;
    ++count;
    polygons += node->pBrush->Name + "\r\n" + std::to_string(node->polygon.count) + "\r\n";
    for (const Vector& vertex : node->polygon.Vertices()) {
      std::size_t index = 0;
      while (index < vertices.size() && vertices[index] != vertex) ++index;
      if (index == vertices.size()) vertices.push_back(vertex);
      polygons += std::to_string(index) + ' ';
    }
    polygons += "\r\n0\r\n1\r\n0 0 0\r\n0 0 0\r\n0 0 0\r\n\r\n";
  }
  std::string text =
      "; 3DM Export from ZANDO\r\nVERTICES\r\n" + std::to_string(vertices.size()) + "\r\n";
  for (const Vector& v : vertices) {
    std::array<char, 1000> line{};
    std::snprintf(line.data(), line.size(), "%lf %lf %lf\r\n", v.x, v.y, v.z);
    text += line.data();
  }
  return text + "POLYGONS\r\n" + std::to_string(count) + "\r\n" + polygons;
}

TEST(ThreeDmWriter, WritesABoxWithItsEightCornersAndNothingForAnEmptyWorld) {
  CConstructiveBsp world;
  EXPECT_EQ(Write3Dm(world), "; 3DM Export from ZANDO\r\nVERTICES\r\n0\r\nPOLYGONS\r\n0\r\n");
  const CBrushList level = LevelOfBoxes({Solid({{0, -2, 0}, {3, 0, 5}})});
  InsertBrush(world, level[0], 0);
  std::string expected =
      "; 3DM Export from ZANDO\r\nVERTICES\r\n8\r\n"
      "0.000000 -2.000000 5.000000\r\n3.000000 -2.000000 5.000000\r\n"
      "3.000000 0.000000 5.000000\r\n0.000000 0.000000 5.000000\r\n"
      "0.000000 -2.000000 0.000000\r\n0.000000 0.000000 0.000000\r\n"
      "3.000000 0.000000 0.000000\r\n3.000000 -2.000000 0.000000\r\n"
      "POLYGONS\r\n6\r\n";
  for (const std::string indices :
       {"0 1 2 3 ", "4 5 6 7 ", "5 3 2 6 ", "4 7 1 0 ", "7 6 2 1 ", "4 0 3 5 "}) {
    expected += "tech05_1\r\n4\r\n" + indices + "\r\n0\r\n1\r\n0 0 0\r\n0 0 0\r\n0 0 0\r\n\r\n";
  }
  EXPECT_EQ(Write3Dm(world), expected);
}

TEST(ThreeDmWriter, SharesEqualVerticesOnlyAndLeavesOutHiddenAndOwnerlessPolygons) {
  CBrushList level = RandomLevel(7, {.brushes = 40, .tapered = 30, .turned = 30});
  level[3].Name = "other";
  CConstructiveBsp world;
  BuildWorld(world, level, Build::Quick);
  const double odd[] = {-0.0, 0.0, std::numeric_limits<double>::quiet_NaN(), 1e300};
  std::size_t next = 0;
  std::int32_t ownerless = 0;
  WalkBackFrontNode(world.root, [&](CBspNode* node) {
    for (; node != nullptr; node = node->chain) {
      if (++next % 8 == 0) node->polygon[0].x = odd[next / 8 % 4];
      if (next % 8 == 0) node->polygon[0].y = node->polygon[0].z = odd[next / 32 % 2];
      if (next % 7 != 0) continue;
      node->pBrush = nullptr;
      ownerless += node->nValid;
    }
  });
  ThreeDmReport report;
  const std::string text = Write3Dm(world, &report);
  EXPECT_TRUE(text == LiteralText(world));
  EXPECT_EQ(report.ownerless, ownerless);
  EXPECT_GT(report.polygons, 100);
}

}  // namespace
}  // namespace zando::testing
