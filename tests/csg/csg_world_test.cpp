#include "csg/csg_world.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "support/csg_testing.h"

namespace zando::testing {
namespace {

constexpr GridBox kBox{{0, 0, 0}, {8, 8, 8}};
constexpr Build kBuilds[] = {Build::StepByStep, Build::Quick, Build::Optimal};

/// The area of what can be seen of one brush.
double AreaOf(const CConstructiveBsp& world, std::int32_t id) {
  double area = 0.0;
  for (const CBspNode* node : VisiblePolygons(world)) {
    if (node->nBid == id) area += Area(node->polygon);
  }
  return area;
}

struct BoxCase {
  std::string name;
  std::vector<BoxBrush> boxes;
  std::vector<double> areas;  ///< what can be seen of each brush
};

class BoxWorld : public ::testing::TestWithParam<BoxCase> {};

TEST_P(BoxWorld, ShowsTheFacesThatBoundTheResultHoweverItIsBuilt) {
  for (const Build build : kBuilds) {
    BoxLevel level(GetParam().boxes);
    BuildWorld(level.world, level.brushes, build);
    for (std::size_t i = 0; i < GetParam().areas.size(); ++i) {
      EXPECT_DOUBLE_EQ(AreaOf(level.world, static_cast<std::int32_t>(i)), GetParam().areas[i])
          << "brush " << i << " build " << static_cast<int>(build);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, BoxWorld,
    ::testing::Values(
        BoxCase{"One", {Solid(kBox)}, {384}},
        BoxCase{"Apart", {Solid(kBox), Solid({{10, 2, 2}, {12, 4, 4}})}, {384, 24}},
        BoxCase{"BuriedInOlderSolid", {Solid(kBox), Solid({{2, 2, 2}, {4, 4, 4}})}, {384, 0}},
        BoxCase{"BuriedInNewerSolid", {Solid({{2, 2, 2}, {4, 4, 4}}), Solid(kBox)}, {0, 384}},
        BoxCase{"SideBySide", {Solid(kBox), Solid({{8, 0, 0}, {16, 8, 8}})}, {320, 320}},
        BoxCase{"CornerOverlap", {Solid(kBox), Solid({{4, 4, 4}, {12, 12, 12}})}, {336, 336}},
        BoxCase{"HoleInTheMiddle", {Solid(kBox), Carve({{2, 2, 2}, {4, 4, 4}})}, {384, 24}},
        BoxCase{"CarvedCorner", {Solid(kBox), Carve({{4, 4, 4}, {12, 12, 12}})}, {336, 48}},
        BoxCase{"CarverFirst", {Carve({{4, 4, 4}, {12, 12, 12}}), Solid(kBox)}, {0, 384}},
        BoxCase{"CarvedWhole", {Solid(kBox), Carve({{-1, -1, -1}, {9, 9, 9}})}, {0, 0}},
        BoxCase{"CarvedEmptyWorld", {Carve(kBox)}, {0}},
        BoxCase{"FilledHole",
                {Solid(kBox), Carve({{2, 2, 2}, {6, 6, 6}}), Solid({{3, 3, 3}, {4, 4, 4}})},
                {384, 96, 6}}),
    [](const auto& testInfo) { return testInfo.param.name; });

/// inserted, nodes, visible, splits, coplanar
std::vector<std::int32_t> Statistics(const CConstructiveBsp& world) {
  return {world.inserted, world.nodes, world.visible, world.splits, world.coplanar};
}

using Numbers = std::vector<std::int32_t>;

TEST(CsgWorld, StatisticsTellInsertedAndStoredPolygons) {
  BoxLevel level({Solid(kBox)});
  level.world.CountStats();
  EXPECT_EQ(Statistics(level.world), (Numbers{0, 0, 0, 0, 0}));
  BuildWorld(level.world, level.brushes, Build::StepByStep);
  EXPECT_EQ(Statistics(level.world), (Numbers{6, 6, 6, 0, 0}));
  BuildWorld(level.world, level.brushes, Build::Optimal);
  EXPECT_EQ(Statistics(level.world), (Numbers{0, 6, 6, 6, 0}));

  BoxLevel buried({Solid(kBox), Solid({{2, 2, 2}, {4, 4, 4}})});
  BuildWorld(buried.world, buried.brushes, Build::Quick);
  EXPECT_EQ(Statistics(buried.world), (Numbers{12, 6, 6, -6, 0}));

  BoxLevel hole({Solid(kBox), Carve({{2, 2, 2}, {4, 4, 4}})});
  BuildWorld(hole.world, hole.brushes, Build::Quick);
  EXPECT_EQ(Statistics(hole.world), (Numbers{12, 12, 12, 0, 0}));

  BoxLevel nothing({Carve(kBox)});
  BuildWorld(nothing.world, nothing.brushes, Build::Quick);
  EXPECT_EQ(nothing.world.root, nullptr);
  EXPECT_EQ(Statistics(nothing.world), (Numbers{0, 0, 0, 0, 0}));
}

TEST(CsgWorld, FacesOfACarverLookIntoTheHoleAndNameTheirBrush) {
  for (const Build build : kBuilds) {
    BoxLevel level({Solid(kBox), Carve({{2, 2, 2}, {4, 4, 4}})});
    level.Brush(1).BBid = 41;
    BuildWorld(level.world, level.brushes, build);
    std::int32_t faces = 0;
    for (const CBspNode* node : VisiblePolygons(level.world)) {
      if (node->nBid != 41) continue;
      faces |= 1 << node->nPolNum;
      EXPECT_EQ(node->pBrush, &level.Brush(1));
      EXPECT_EQ(node->Face(), &level.Brush(1).Faces[static_cast<std::size_t>(node->nPolNum)]);
      EXPECT_NEAR(SignedDistance(node->plane, {3, 3, 3}), 1.0, 1e-9);
    }
    EXPECT_EQ(faces, 63);
  }
}

TEST(CsgWorld, ABrushThatTouchesNothingLeavesOlderPolygonsWholeAndUnchanged) {
  BoxLevel level({Solid(kBox), Solid({{20, -4, 2}, {24, 20, 30}})});
  InsertBrush(level.world, level.Brush(0), 0);
  std::vector<CZandoPoly> before;
  for (const CBspNode* node : VisiblePolygons(level.world)) before.push_back(node->polygon);
  InsertBrush(level.world, level.Brush(1), 1);
  std::vector<CZandoPoly> after;
  for (const CBspNode* node : VisiblePolygons(level.world)) {
    if (node->nBid == 0) after.push_back(node->polygon);
  }
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    for (std::int32_t k = 0; k < 4; ++k) EXPECT_EQ(after[i][k], before[i][k]);
  }
}

TEST(CsgWorld, ABrushOfUnknownOperationIsNotInserted) {
  BoxLevel level({Solid(kBox), Solid({{4, 4, 4}, {12, 12, 12}})});
  level.Brush(1).TranT = 2;
  BuildWorld(level.world, level.brushes, Build::Quick);
  EXPECT_EQ(Statistics(level.world), (Numbers{6, 6, 6, 0, 0}));
}

TEST(CsgWorld, WaterNeitherShowsNorHidesUnlessItIsBuilt) {
  BoxLevel level({Solid(kBox), Solid({{4, 4, 4}, {12, 12, 12}})});
  level.Brush(1).Name = "*slime";
  for (const auto rebuild : {&RebuildQuick, &RebuildOptimal}) {
    rebuild(level.world, nullptr, WaterBrushes::Skip);
    EXPECT_DOUBLE_EQ(AreaOf(level.world, 0), 384.0);
    EXPECT_DOUBLE_EQ(AreaOf(level.world, 1), 0.0);
    rebuild(level.world, nullptr, WaterBrushes::Build);
    EXPECT_DOUBLE_EQ(AreaOf(level.world, 0), 336.0);
    EXPECT_DOUBLE_EQ(AreaOf(level.world, 1), 336.0);
  }
}

TEST(CsgWorld, HiddenBrushesAndLeadingEntityBrushesTakeNoPart) {
  BoxLevel level({Solid({{30, 0, 0}, {31, 1, 1}}), Solid(kBox), Solid({{4, 4, 4}, {12, 12, 12}}),
                  Solid({{40, 0, 0}, {41, 1, 1}})});
  level.Brush(0).BFlags |= BF_ENTITY;
  level.Brush(2).BFlags &= ~BF_SHOWN;
  level.Brush(3).BFlags |= BF_ENTITY;  // behind the first brush of the level proper: shown
  for (const auto rebuild : {&RebuildQuick, &RebuildOptimal}) {
    rebuild(level.world, nullptr, WaterBrushes::Build);
    EXPECT_DOUBLE_EQ(VisibleArea(level.world), 384.0 + 6.0);
    EXPECT_DOUBLE_EQ(AreaOf(level.world, 3), 6.0);
  }
}

TEST(CsgWorld, ACutThatTakesTooManyVerticesIsLeftOutAndCounted) {
  // The rim of the drum stands out of the plane of the second box by one corner.
  BoxLevel level({Solid({{0, 0, 0}, {64, 64, 64}}), Solid({{64, -8, -8}, {80, 72, 72}})});
  MakeDrum(level.Brush(0), MAX_POLY_VERTS);
  level.Brush(0).Scl[kOwnSlot] = {1.01, 1.0, 1.01};
  for (const Build build : kBuilds) {
    BuildWorld(level.world, level.brushes, build);
    EXPECT_EQ(level.world.refused, 2) << static_cast<int>(build);
    std::int32_t whole = 0;
    for (const CBspNode* node : VisiblePolygons(level.world)) {
      if (node->polygon.count == MAX_POLY_VERTS) ++whole;
    }
    EXPECT_EQ(whole, 2);
  }
}

/// A square across y = `y` from x, z = -8 to 8, alone in a tree.
CBspNode* Square(CConstructiveBsp& tree, double y) {
  CBspNode* node = tree.NewNode();
  CZandoPoly square;
  for (const auto& [x, z] : {std::pair{-8.0, -8.0}, {-8.0, 8.0}, {8.0, 8.0}, {8.0, -8.0}}) {
    square.Append({x, y, z});
  }
  node->TakePolygon(square);
  return node;
}

constexpr CoplanarRule kRule{Coplanar::Outside, Coplanar::Inside};

/// Clips squares in the box's middle and above it. Both planes x = -2 and x = 2 cut each; above the
/// box nothing lies inside, so ClipAdd takes the cuts back, while ClipSubtract keeps any cut that
/// leaves a piece outside.
TEST(CsgWorld, ClippingCountsPiecesAndUndoesCutsThatDecideNothing) {
  const auto box = MakeBoxBrush({{-2, -2, -2}, {2, 2, 2}});
  box->UpdateWorld();
  CConstructiveBsp brushTree;
  BuildBrushTree(brushTree, *box);
  CConstructiveBsp world;
  const auto expectClipped = [&world, &brushTree](bool add, double y, ClipCounts counts,
                                                  std::int32_t members, double visible) {
    CBspNode* node = Square(world, y);
    node->nValid = 0;
    const ClipCounts got =
        add ? ClipAdd(brushTree, world, node, kRule) : ClipSubtract(brushTree, world, node, kRule);
    EXPECT_EQ(got.outside, counts.outside);
    EXPECT_EQ(got.inside, counts.inside);
    EXPECT_EQ(ChainLength(node), members);
    double area = 0.0;
    for (const CBspNode* m = node; m != nullptr; m = m->chain) {
      if (m->nValid != 0) area += Area(m->polygon);
    }
    EXPECT_DOUBLE_EQ(area, visible);
  };
  expectClipped(true, 0.0, {4, 1}, 5, 256.0 - 16.0);
  expectClipped(false, 0.0, {4, 1}, 5, 16.0);
  expectClipped(true, 30.0, {1, 0}, 1, 256.0);
  expectClipped(false, 30.0, {3, 0}, 3, 0.0);
  brushTree.Clear();
  expectClipped(true, 0.0, {0, 0}, 1, 0.0);
}

std::size_t ClipTreeSize(const GridBox& box, const Plane& plane) {
  const auto brush = MakeBoxBrush(box);
  brush->UpdateWorld();
  CConstructiveBsp tree;
  BuildClipTree(tree, *brush, plane);
  tree.CountStats();
  return static_cast<std::size_t>(tree.nodes);
}

TEST(CsgWorld, AClipTreeHoldsTheFacesThatBoundTheBrushWithinThePlane) {
  const double r = std::sqrt(0.5);
  EXPECT_EQ(ClipTreeSize(kBox, {{0, 0, 1}, -4.0}), 4U);  // through the middle: the sides
  EXPECT_EQ(ClipTreeSize(kBox, {{0, 0, 1}, -8.0}), 5U);  // in a face: the face and the sides
  EXPECT_EQ(ClipTreeSize(kBox, {{0, 0, -1}, 0.0}), 5U);
  EXPECT_EQ(ClipTreeSize(kBox, {{0, 0, 1}, -8.1}), 0U);  // beside the box
  EXPECT_EQ(ClipTreeSize(kBox, {{r, r, 0}, 0.0}), 0U);   // touches an edge
  EXPECT_EQ(ClipTreeSize(kBox, {{r, -r, 0}, 0.0}), 6U);  // cuts along two edges: their four faces
}

/// Lists of heads with chains, written as visibilities: "011 1" is a hidden head with two visible
/// members, and a visible head. The result names members by position.
std::string Pruned(const std::string& list) {
  CConstructiveBsp tree;
  CNodeList heads;
  bool startsHead = true;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i] == ' ') {
      startsHead = true;
      continue;
    }
    CBspNode* node = tree.NewNode();
    node->nValid = list[i] - '0';
    node->nPolNum = static_cast<std::int32_t>(i);
    if (startsHead) {
      heads.Append(node);
    } else {
      ChainEnd(heads.tail)->chain = node;
    }
    startsHead = false;
  }
  std::string text;
  const CBspNode* last = nullptr;
  const CNodeList kept = PruneHidden(tree, heads);
  for (const CBspNode* head = kept.head; head != nullptr; head = head->link) {
    text += text.empty() ? "" : " ";
    for (const CBspNode* m = head; m != nullptr; m = m->chain) text += std::to_string(m->nPolNum);
    last = head;
  }
  EXPECT_EQ(kept.tail, last);
  return text;
}

TEST(CsgWorld, PruningKeepsVisiblePolygonsInOrder) {
  EXPECT_EQ(Pruned(""), "");
  EXPECT_EQ(Pruned("0 0"), "");
  EXPECT_EQ(Pruned("1 1"), "0 2");
  EXPECT_EQ(Pruned("101"), "02");
  EXPECT_EQ(Pruned("1001 0"), "03");
  EXPECT_EQ(Pruned("0 011 0"), "34");
  EXPECT_EQ(Pruned("0001 1"), "3 5");
  EXPECT_EQ(Pruned("000 101 0"), "46");
  EXPECT_EQ(Pruned("1 0 00 1"), "0 7");
}

}  // namespace
}  // namespace zando::testing
