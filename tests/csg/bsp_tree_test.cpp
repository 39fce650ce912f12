#include "csg/bsp_tree.h"

#include <gtest/gtest.h>

#include <tuple>
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
  square.Append({-4.0, -4.0, z});
  square.Append({4.0, -4.0, z});
  square.Append({4.0, 4.0, z});
  square.Append({-4.0, 4.0, z});
  CBspNode* node = tree.NewNode();
  node->TakePolygon(up ? square : ReverseCopy(square).polygon);
  node->nPolNum = static_cast<std::int32_t>(z);
  return node;
}

TEST(BspTree, LinkingAfterADeletionFindsOwnersAgainAndDropsLostOnes) {
  constexpr std::int32_t kUnused = 9;
  CBrushList level =
      LevelOfBoxes({Solid({{0, 0, 0}, {8, 8, 8}}), Solid({{4, 4, 4}, {12, 12, 12}})});
  CZandoBrush* const first = &level[0];
  CZandoBrush* const second = &level[1];
  CConstructiveBsp world;
  BuildWorld(world, level, Build::StepByStep);
  ASSERT_GT(world.coplanar, 0);
  const auto expectOwners = [&](const CZandoBrush* of0, const CZandoBrush* of1) {
    world.LinkBrushes(first);
    for (const CBspNode* node : VisiblePolygons(world)) {
      EXPECT_EQ(node->pBrush, node->nBid == 0 ? of0 : of1);
      EXPECT_EQ(node->Face() == nullptr, node->pBrush == nullptr);
    }
  };
  expectOwners(first, second);
  second->BBid = 0;  // of two brushes with one id the first is meant
  expectOwners(first, nullptr);
  first->BBid = kUnused;
  second->BBid = 1;
  expectOwners(nullptr, second);
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
TEST(BspTree, PartitioningDissolvesChainsAndALeafKeepsTheSplittersPlaneInItsOwn) {
  for (const bool leaf : {false, true}) {
    CConstructiveBsp tree;
    CBspNode* splitter = SquareNode(tree, 0.0);
    CBspNode* const own = SquareNode(tree, 0.0);
    CBspNode* const head = SquareNode(tree, 0.0);
    CBspNode* const member = SquareNode(tree, 0.0);
    CBspNode* const before = SquareNode(tree, 5.0);
    CBspNode* const opposite = SquareNode(tree, 0.0, false);
    splitter->chain = own;
    head->chain = before;
    before->chain = member;
    CNodeList list;
    for (CBspNode* node : {head, splitter, opposite}) list.Append(node);
    const Partitioned sides =
        leaf ? PartitionLeaf(tree, splitter, list) : Partition(tree, splitter, list, nullptr);

    const auto nodes = [](const CBspNode* first, CBspNode* CBspNode::*next) {
      std::vector<const CBspNode*> all;
      for (; first != nullptr; first = first->*next) all.push_back(first);
      return all;
    };
    using Nodes = std::vector<const CBspNode*>;
    EXPECT_EQ(nodes(sides.front.head, &CBspNode::link),
              leaf ? Nodes{before} : (Nodes{head, before, member, own}));
    EXPECT_EQ(nodes(sides.back.head, &CBspNode::link), Nodes{opposite});
    EXPECT_EQ(nodes(splitter, &CBspNode::chain),
              leaf ? (Nodes{splitter, head, member, own}) : Nodes{splitter});
    EXPECT_EQ(before->chain, nullptr);
  }
}

/// Root at 0, facing up; in front of it 10 up and, in front of that, 12 down; behind it -10 up.
TEST(BspTree, TheWalkVisitsWhatFacesTheEyeNearestFirst) {
  CConstructiveBsp tree;
  tree.root = SquareNode(tree, 0.0);
  tree.root->front = SquareNode(tree, 10.0);
  tree.root->front->front = SquareNode(tree, 12.0, false);
  tree.root->back = SquareNode(tree, -10.0);
  const struct {
    double eye;
    std::vector<std::int32_t> heights;
  } cases[] = {
      {20.0, {10, 0, -10}}, {11.0, {12, 10, 0, -10}}, {5.0, {12, 0, -10}}, {0.0, {-10, 12}},
      {0.0009, {-10, 12}},  {0.0011, {12, 0, -10}},   {-5.0, {-10, 12}},   {-20.0, {12}},
  };
  for (const auto& [eye, heights] : cases) {
    for (std::size_t limit = 1; limit <= heights.size(); ++limit) {
      std::vector<std::int32_t> seen;
      CWalkStack stack;
      WalkFrontToBack(tree.root, {1.0, 2.0, eye}, stack, [&](const CBspNode* node) {
        seen.push_back(node->nPolNum);
        return seen.size() == limit;
      });
      EXPECT_EQ(seen, std::vector(heights.begin(), heights.begin() + std::ptrdiff_t(limit))) << eye;
    }
  }
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

}  // namespace
}  // namespace zando::testing
