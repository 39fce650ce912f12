#include "csg/bsp_tree.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>
#include <vector>

#include "csg/csg_world.h"
#include "csg/node_tree_builder.h"
#include "csg/splitter.h"
#include "support/csg_testing.h"
#include "support/small_stack.h"

namespace zando::testing {
namespace {

/// A level square at height z, facing up or down. Its nPolNum names it by its height.
CBspNode* SquareNode(CConstructiveBsp& tree, double z, bool up = true) {
  CZandoPoly square;
  for (const auto& [x, y] : {std::pair{-4.0, -4.0}, {4.0, -4.0}, {4.0, 4.0}, {-4.0, 4.0}}) {
    square.Append({x, y, z});
  }
  CBspNode* node = tree.NewNode();
  node->TakePolygon(up ? square : ReverseCopy(square).polygon);
  node->nPolNum = static_cast<std::int32_t>(z);
  return node;
}

TEST(BspTree, StatisticsCountHiddenNodesAndChainMembersApart) {
  CConstructiveBsp tree;
  tree.root = SquareNode(tree, 0.0);
  tree.root->front = SquareNode(tree, 10.0);
  tree.root->back = SquareNode(tree, -10.0);
  tree.root->back->nValid = 0;
  tree.root->chain = SquareNode(tree, 0.0);
  tree.root->front->chain = SquareNode(tree, 10.0);
  tree.inserted = 4;
  tree.CountStats();
  EXPECT_EQ(std::tie(tree.nodes, tree.coplanar, tree.visible, tree.splits), std::tuple(3, 2, 2, 1));
}

/// A head at 0 with a chain of its kind, the splitter between them; then what lies on its sides.
TEST(BspTree, ALeafKeepsTheSplittersPlaneInItsChainAndDissolvesOtherChains) {
  CConstructiveBsp tree;
  CBspNode* const splitter = SquareNode(tree, 0.0);
  CBspNode* const own = splitter->chain = SquareNode(tree, 0.0);
  CBspNode* const head = SquareNode(tree, 0.0);
  CBspNode* const before = head->chain = SquareNode(tree, 5.0);
  CBspNode* const member = before->chain = SquareNode(tree, 0.0);
  CBspNode* const opposite = SquareNode(tree, 0.0, false);
  CNodeList list;
  for (CBspNode* node : {head, splitter, opposite}) list.Append(node);
  const Partitioned sides = PartitionLeaf(tree, splitter, list);
  const auto nodes = [](const CBspNode* first, CBspNode* CBspNode::*next) {
    std::vector<const CBspNode*> all;
    for (; first != nullptr; first = first->*next) all.push_back(first);
    return all;
  };
  using Nodes = std::vector<const CBspNode*>;
  EXPECT_EQ(nodes(sides.front.head, &CBspNode::link), Nodes{before});
  EXPECT_EQ(nodes(sides.back.head, &CBspNode::link), Nodes{opposite});
  EXPECT_EQ(nodes(splitter, &CBspNode::chain), (Nodes{splitter, head, member, own}));
  EXPECT_EQ(before->chain, nullptr);
}

/// Chains of front children, and of back children.
TEST(BspTree, AHundredThousandNodesDeepIsBuiltClippedLinkedWalkedAndCleared) {
  RunOnSmallStack([] {
    constexpr int kNodes = 100'000;
    for (const int step : {1, -1}) {
      CConstructiveBsp world;
      CNodeList list;
      for (int i = 0; i < kNodes; ++i) list.Append(SquareNode(world, i * step));
      BuildNodeTree(world, list, nullptr);
      world.CountStats();
      EXPECT_EQ(world.nodes, kNodes);

      const auto box = MakeBoxBrush({{-1, -1, -50}, {1, 1, 50}});
      InsertBrush(world, *box, 3);
      EXPECT_EQ(world.inserted, 6);
      world.CountStats();
      EXPECT_EQ(world.splits, world.nodes + world.coplanar - 6);
      EXPECT_GE(world.coplanar, 49);  // the box cuts its shape out of the squares that it meets
      world.LinkBrushes(box.get());
      int seen = 0;
      CWalkStack stack;
      WalkFrontToBack(world.root, {0.0, 0.0, 2.0 * kNodes}, stack, [&seen](const CBspNode*) {
        ++seen;
        return false;
      });
      EXPECT_GE(seen, kNodes);
      world.Clear();
      EXPECT_EQ(world.root, nullptr);
    }
  });
}

/// The face that zigzags is refused a cut by the top of its own brush, in the world and in the
/// brush's tree, and by the tops of two solids far from it. An optimal rebuild makes the brush's
/// tree once for each carver, and its faces in two planes of the last solid.
TEST(BspTree, EverySplitThatIsRefusedIsCountedHoweverTheWorldIsBuilt) {
  CBrushList level =
      LevelOfBoxes({Solid({{-20, -20, 0}, {20, 0, 10}}), Solid({{-20, -20, -60}, {20, 0, -50}}),
                    Solid({{-20, -20, -90}, {20, 0, -80}}), Carve({{-15, -5, 2}, {-12, 5, 8}}),
                    Carve({{12, -5, 2}, {15, 5, 8}}), Solid({{0, -19, 2}, {5, -15, 8}})});
  AddZigzag(level[0]);
  for (const Build build : {Build::StepByStep, Build::Quick, Build::Optimal}) {
    CConstructiveBsp world;
    BuildWorld(world, level, build);
    EXPECT_EQ(world.refused, 4) << "build " << static_cast<int>(build);
  }
}

}  // namespace
}  // namespace zando::testing
