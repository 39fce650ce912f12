#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "csg/csg_world.h"
#include "csg/node_tree_builder.h"
#include "csg/splitter.h"
#include "support/csg_testing.h"
#include "support/small_stack.h"

namespace zando::testing {
namespace {

/// A level square at height z, facing up or down. Its nPolNum names it by its height.
CBspNode* SquareNode(CConstructiveBsp& tree, double z, bool up = true, double reach = 4.0) {
  CZandoPoly square;
  square.Append({-reach, -reach, z});
  square.Append({reach, -reach, z});
  square.Append({reach, reach, z});
  square.Append({-reach, reach, z});
  CBspNode* node = tree.NewNode();
  node->TakePolygon(up ? square : ReverseCopy(square).polygon);
  node->nPolNum = static_cast<std::int32_t>(z);
  return node;
}

/// An upright square across x = `x`, from z = low to high.
CBspNode* WallNode(CConstructiveBsp& tree, double x, double low, double high) {
  CZandoPoly square;
  square.Append({x, -4.0, low});
  square.Append({x, 4.0, low});
  square.Append({x, 4.0, high});
  square.Append({x, -4.0, high});
  CBspNode* node = tree.NewNode();
  node->TakePolygon(square);
  return node;
}

CNodeList ListOf(const std::vector<CBspNode*>& nodes) {
  CNodeList list;
  for (CBspNode* node : nodes) list.Append(node);
  return list;
}

std::vector<const CBspNode*> Members(const CNodeList& list) {
  std::vector<const CBspNode*> members;
  for (const CBspNode* n = list.head; n != nullptr; n = n->link) members.push_back(n);
  return members;
}

CNodeList BoxFaces(CConstructiveBsp& tree) {
  const auto box = MakeBoxBrush({{0, 0, 0}, {8, 8, 8}});
  box->UpdateWorld();
  CNodeList list;
  for (const CZandoPoly& face : box->WorldPolys) {
    CBspNode* node = tree.NewNode();
    node->TakePolygon(face);
    list.Append(node);
  }
  return list;
}

using NodeNames = std::vector<const CBspNode*>;

TEST(BspTree, TheSplitterIsTheEarliestHeadThatCutsTheFewestVisiblePolygons) {
  CConstructiveBsp tree;
  CBspNode* cutsTwo = WallNode(tree, 0.0, -4.0, 20.0);
  CBspNode* floor = SquareNode(tree, 0.0);
  CBspNode* shelf = SquareNode(tree, 10.0);
  EXPECT_EQ(ChooseSplitter(ListOf({cutsTwo, floor, shelf})), floor);
  CBspNode* aside = SquareNode(tree, 30.0);
  EXPECT_EQ(ChooseSplitter(ListOf({cutsTwo, floor, shelf, aside})), aside);

  shelf->nValid = 0;  // hidden polygons do not count: the wall cuts one, as the floor does
  EXPECT_EQ(ChooseSplitter(ListOf({cutsTwo, floor, shelf})), cutsTwo);
  floor->chain = SquareNode(tree, -2.0);  // members of other heads' chains count
  EXPECT_EQ(ChooseSplitter(ListOf({cutsTwo, floor})), floor);
  cutsTwo->chain = floor->chain;  // members of the candidate's own chain do not
  aside->nValid = 0;
  EXPECT_EQ(ChooseSplitter(ListOf({cutsTwo, aside})), cutsTwo);
  EXPECT_EQ(ChooseSplitter({}), nullptr);
}

TEST(BspTree, FacesOfABoxBecomeAChainOfBackChildrenOrASingleCell) {
  CConstructiveBsp tree;
  const CNodeList faces = BoxFaces(tree);
  const NodeNames order = Members(faces);
  EXPECT_EQ(ChooseSplitter(faces), order[0]);
  EXPECT_EQ(ChooseLeafSplitter(faces), nullptr);
  BuildNodeTree(tree, faces, nullptr);
  NodeNames chain;
  for (const CBspNode* n = tree.root; n != nullptr; n = n->back) {
    EXPECT_EQ(n->front, nullptr);
    chain.push_back(n);
  }
  EXPECT_EQ(chain, order);
  tree.CountStats();
  EXPECT_EQ(tree.nodes, 6);
  EXPECT_EQ(tree.coplanar, 0);

  CConstructiveBsp leafTree;
  BuildLeafTree(leafTree, BoxFaces(leafTree));
  ASSERT_NE(leafTree.root, nullptr);
  EXPECT_EQ(leafTree.root->nLeaf, 1);
  EXPECT_EQ(Members({leafTree.root, nullptr}).size(), 6U);
}

TEST(BspTree, AnEmptyListIsAnEmptyTree) {
  CConstructiveBsp tree;
  BuildNodeTree(tree, {}, nullptr);
  EXPECT_EQ(tree.root, nullptr);
  BuildLeafTree(tree, {});
  EXPECT_EQ(tree.root, nullptr);
}

TEST(BspTree, PartitionSortsCoplanarPolygonsByFacingAndCutsSpanningOnes) {
  for (const bool leaf : {false, true}) {
    SCOPED_TRACE(leaf);
    CConstructiveBsp tree;
    CZandoBrush owner;
    CBspNode* splitter = SquareNode(tree, 0.0);
    CBspNode* same = SquareNode(tree, 0.0);
    CBspNode* opposite = SquareNode(tree, 0.0, false);
    CBspNode* wall = WallNode(tree, 0.0, -6.0, 6.0);
    CBspNode* above = SquareNode(tree, 5.0);
    CBspNode* below = SquareNode(tree, -5.0);
    splitter->chain = SquareNode(tree, 0.0);
    CBspNode* ownChain = splitter->chain;
    below->chain = above;
    wall->nBid = 7;
    wall->nPolNum = 3;
    wall->pBrush = &owner;
    const CNodeList list = ListOf({same, opposite, splitter, wall, below});
    const Partitioned sides =
        leaf ? PartitionLeaf(tree, splitter, list) : Partition(tree, splitter, list, nullptr);
    const NodeNames back = Members(sides.back);
    ASSERT_EQ(back.size(), 3U);
    EXPECT_EQ(back[0], opposite);
    EXPECT_EQ(back[2], below);
    EXPECT_EQ(below->chain, nullptr);
    EXPECT_EQ(back[1]->nBid, 7);
    EXPECT_EQ(back[1]->nPolNum, 3);
    EXPECT_EQ(back[1]->pBrush, &owner);
    EXPECT_EQ(back[1]->nValid, 1);
    EXPECT_DOUBLE_EQ(Area(back[1]->polygon) + Area(wall->polygon), 96.0);
    if (leaf) {
      EXPECT_EQ(Members(sides.front), (NodeNames{wall, above}));
      EXPECT_EQ(ChainLength(splitter), 3);
    } else {
      EXPECT_EQ(Members(sides.front), (NodeNames{same, ownChain, wall, above}));
      EXPECT_EQ(ChainLength(splitter), 1);
    }
  }
}

TEST(BspTree, StatisticsCountNodesChainsAndVisibleNodes) {
  CConstructiveBsp tree;
  for (int i = 0; i < 10; ++i) {
    CBspNode* node = SquareNode(tree, i);
    (i % 2 == 0 ? node->front : node->back) = tree.root;
    tree.root = node;
  }
  for (int i = 0; i < 3; ++i) ChainEnd(tree.root->back)->chain = SquareNode(tree, 0.0);
  tree.root->nValid = 0;
  tree.root->back->chain->nValid = 0;
  tree.inserted = 8;
  tree.CountStats();
  tree.CountStats();
  EXPECT_EQ(tree.nodes, 10);
  EXPECT_EQ(tree.coplanar, 3);
  EXPECT_EQ(tree.splits, 5);
  EXPECT_EQ(tree.visible, 9);
  EXPECT_EQ(tree.inserted, 8);
  tree.Clear();
  EXPECT_EQ(tree.root, nullptr);
  EXPECT_EQ(tree.nodes + tree.coplanar + tree.splits + tree.visible + tree.inserted, 0);
}

TEST(BspTree, LinkingAfterADeletionFindsOwnersAgainAndDropsLostOnes) {
  BoxLevel level({Solid({{0, 0, 0}, {8, 8, 8}}), Solid({{4, 4, 4}, {12, 12, 12}})});
  BuildWorld(level.world, level.brushes, Build::StepByStep);
  ASSERT_GT(level.world.coplanar, 0);
  level.Brush(1).BBid = 0;  // of two brushes with one id the first is meant
  level.world.LinkBrushes(level.brushes.Head());
  WalkBackFrontNode(level.world.root, [&level](const CBspNode* node) {
    EXPECT_EQ(node->pBrush, node->nBid == 0 ? &level.Brush(0) : nullptr);
  });
  level.Brush(1).BBid = 1;
  level.brushes.Remove(&level.Brush(0));
  level.world.LinkBrushes(level.brushes.Head());
  std::int32_t lost = 0;
  std::int32_t found = 0;
  WalkBackFrontNode(level.world.root, [&](const CBspNode* node) {
    for (; node != nullptr; node = node->chain) {
      ++(node->nBid == 0 ? lost : found);
      EXPECT_EQ(node->pBrush, node->nBid == 0 ? nullptr : level.brushes.Head());
      EXPECT_EQ(node->Face() == nullptr, node->nBid == 0);
    }
  });
  EXPECT_GT(lost, 6);  // chain members of the clipped brush among them
  EXPECT_GT(found, 0);
}

struct WalkCase {
  double eye;
  std::vector<std::int32_t> heights;
};

/// Root at 0, facing up; in front of it 10 up and, in front of that, 12 down; behind it -10 up.
TEST(BspTree, TheWalkVisitsWhatFacesTheEyeNearestFirst) {
  CConstructiveBsp tree;
  tree.root = SquareNode(tree, 0.0);
  tree.root->front = SquareNode(tree, 10.0);
  tree.root->front->front = SquareNode(tree, 12.0, false);
  tree.root->back = SquareNode(tree, -10.0);
  const WalkCase cases[] = {
      {20.0, {10, 0, -10}}, {11.0, {12, 10, 0, -10}}, {5.0, {12, 0, -10}}, {0.0, {-10, 12}},
      {0.0009, {-10, 12}},  {0.0011, {12, 0, -10}},   {-5.0, {-10, 12}},   {-20.0, {12}},
  };
  for (const auto& [eye, heights] : cases) {
    std::vector<std::int32_t> seen;
    WalkFrontToBack(tree.root, {1.0, 2.0, eye}, [&seen](const CBspNode* node) {
      seen.push_back(node->nPolNum);
      return false;
    });
    EXPECT_EQ(seen, heights) << "eye at " << eye;
  }
  int visits = 0;
  WalkFrontToBack(tree.root, {0.0, 0.0, 11.0},
                  [&visits](const CBspNode*) { return ++visits == 2; });
  EXPECT_EQ(visits, 2);
}

enum class Shape { Front, Back };

class DeepTree : public ::testing::TestWithParam<Shape> {
 protected:
  /// The height of the i-th node of a chain that runs the way of the parameter.
  static double Height(int i) { return GetParam() == Shape::Front ? i : -i; }
};

TEST_P(DeepTree, OfAHundredThousandNodesIsCountedLinkedClippedWalkedAndCleared) {
  RunOnSmallStack([] {
    constexpr int kNodes = 100'000;
    CConstructiveBsp world;
    CBspNode** end = &world.root;
    for (int i = 0; i < kNodes; ++i) {
      *end = SquareNode(world, Height(i));
      end = GetParam() == Shape::Front ? &(*end)->front : &(*end)->back;
    }
    const auto box = MakeBoxBrush({{-1, -1, -50}, {1, 1, 50}});
    box->BBid = 3;
    InsertBrush(world, *box, box->BBid);
    EXPECT_EQ(world.inserted, 6);
    world.CountStats();
    EXPECT_GE(world.nodes, kNodes);
    EXPECT_GE(world.coplanar, 49);  // the box cuts its own shape out of the squares that it meets
    world.LinkBrushes(box.get());
    int seen = 0;
    WalkFrontToBack(world.root, {0.0, 0.0, 2.0 * kNodes}, [&seen](const CBspNode*) {
      ++seen;
      return false;
    });
    EXPECT_GE(seen, kNodes);
    world.Clear();
    EXPECT_EQ(world.root, nullptr);
  });
}

TEST_P(DeepTree, OfAHundredThousandNodesIsBuiltFromAList) {
  RunOnSmallStack([] {
    constexpr int kNodes = 100'000;
    CConstructiveBsp tree;
    CNodeList list;
    for (int i = 0; i < kNodes; ++i) list.Append(SquareNode(tree, Height(i)));
    BuildNodeTree(tree, list, nullptr);
    tree.CountStats();
    EXPECT_EQ(tree.nodes, kNodes);
  });
}

INSTANTIATE_TEST_SUITE_P(Chains, DeepTree, ::testing::Values(Shape::Front, Shape::Back),
                         [](const auto& testInfo) {
                           return std::string(testInfo.param == Shape::Front ? "Front" : "Back");
                         });

}  // namespace
}  // namespace zando::testing
