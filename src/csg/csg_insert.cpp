#include <vector>

#include "csg/clipper.h"
#include "csg/csg_world.h"
#include "csg/insert_faces.h"
#include "csg/node_sides.h"

namespace zando {
namespace {

enum class KeepPiece { Always, NextToFresh };

/// Which side coplanar polygons take, and what becomes of a piece that reaches an empty half-space.
struct InsertRules {
  CoplanarRule coplanar;
  KeepPiece keepFront;
  KeepPiece keepBack;
};

constexpr InsertRules kAdditive{kCoplanarTable.insertAdd, KeepPiece::Always,
                                KeepPiece::NextToFresh};
constexpr InsertRules kSubtractive{kCoplanarTable.insertSubtract, KeepPiece::NextToFresh,
                                   KeepPiece::Always};

/// A polygon on its way down the tree, next to be sorted at a node.
struct Descent {
  CBspNode* at;
  CBspNode* piece;
};

class CInserter {
 public:
  CInserter(CConstructiveBsp& tree, const InsertRules& rules, std::vector<CBspNode*>* kept)
      : tree_(tree), rules_(rules), kept_(kept) {}

  void Insert(CBspNode* node) {
    ++tree_.inserted;
    if (tree_.root == nullptr) {
      Keep(tree_.root, node);
      return;
    }
    pending_.push_back({tree_.root, node});
    while (!pending_.empty()) {
      const Descent step = pending_.back();
      pending_.pop_back();
      Descend(step);
    }
  }

 private:
  void Descend(const Descent& step) {
    const auto [side, backPiece] = SortNode(tree_, step.at->plane, step.piece);
    if (backPiece != nullptr) GoBack({step.at, backPiece});
    if (GoesToFront(side, rules_.coplanar)) {
      GoFront(step);
    } else {
      GoBack(step);
    }
  }

  void GoFront(const Descent& step) { Go(step, step.at->front, rules_.keepFront); }
  void GoBack(const Descent& step) { Go(step, step.at->back, rules_.keepBack); }

  void Go(const Descent& step, CBspNode*& child, KeepPiece keep) {
    if (child != nullptr) {
      pending_.push_back({child, step.piece});
    } else if (keep == KeepPiece::Always || step.at->nFresh != 0) {
      Keep(child, step.piece);
    } else {
      tree_.FreeNode(step.piece);
    }
  }

  void Keep(CBspNode*& place, CBspNode* piece) {
    place = piece;
    if (kept_ != nullptr) kept_->push_back(piece);
  }

  CConstructiveBsp& tree_;
  InsertRules rules_;
  std::vector<CBspNode*>* kept_;
  std::vector<Descent> pending_;
};

}  // namespace

CoplanarRule OlderFaceRule(const CZandoBrush& clipper) {
  return clipper.TranT == kAddToWorld ? kCoplanarTable.olderFaceBySolid
                                      : kCoplanarTable.olderFaceByCarver;
}

void InsertFaces(CConstructiveBsp& world, const CZandoBrush& brush, std::int32_t id,
                 std::vector<CBspNode*>* kept) {
  const bool solid = brush.TranT == kAddToWorld;
  // There is nothing to carve from an empty world.
  if (!solid && world.root == nullptr) return;
  CInserter inserter(world, solid ? kAdditive : kSubtractive, kept);
  for (std::int32_t k = 0; k < brush.PolyCount(); ++k) {
    const CZandoPoly& face = brush.WorldPolys()[static_cast<std::size_t>(k)];
    if (face.count == 0) continue;
    CBspNode* node = world.NewNode();
    node->TakePolygon(solid ? face : ReverseCopy(face).polygon);
    node->nBid = id;
    node->nPolNum = k;
    node->pBrush = &brush;
    inserter.Insert(node);
  }
}

void InsertAdd(CConstructiveBsp& tree, CBspNode* node) {
  CInserter(tree, kAdditive, nullptr).Insert(node);
}

void InsertSubtract(CConstructiveBsp& tree, CBspNode* node) {
  if (tree.root == nullptr) {
    tree.FreeNode(node);
    return;
  }
  CInserter(tree, kSubtractive, nullptr).Insert(node);
}

void ClipWorldByBrush(CConstructiveBsp& world, const CConstructiveBsp& brushTree,
                      const CZandoBrush& clipper) {
  const CoplanarRule rule = OlderFaceRule(clipper);
  CClipper clip(world);
  std::vector<CBspNode*> pending;
  const auto push = [&pending](CBspNode* node) {
    // Everything below a fresh node is fresh.
    if (node != nullptr && node->nFresh == 0) pending.push_back(node);
  };
  push(world.root);
  while (!pending.empty()) {
    CBspNode* node = pending.back();
    pending.pop_back();
    push(node->front);
    push(node->back);
    // Pieces that join the chain meanwhile have been clipped already.
    CBspNode* member = node;
    for (std::int32_t left = ChainLength(node); left > 0; --left, member = member->chain) {
      if (member->nValid != 0) clip.ClipAdd(brushTree, member, rule);
    }
  }
}

void BuildBrushTree(CConstructiveBsp& tree, const CZandoBrush& brush) {
  tree.Clear();
  for (const CZandoPoly& face : brush.WorldPolys()) {
    if (face.count == 0) continue;
    CBspNode* node = tree.NewNode();
    node->TakePolygon(face);
    InsertAdd(tree, node);
  }
}

void InsertBrush(CConstructiveBsp& world, const CZandoBrush& brush, std::int32_t id) {
  world.ClearFresh();
  if (brush.TranT != kAddToWorld && brush.TranT != kSubtractFromWorld) return;
  if (!brush.HasVolume()) return;
  InsertFaces(world, brush, id, nullptr);
  CConstructiveBsp brushTree;
  BuildBrushTree(brushTree, brush);
  ClipWorldByBrush(world, brushTree, brush);
  world.refused += brushTree.refused;
}

}  // namespace zando
