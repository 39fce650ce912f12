#include "csg/literal_csg.h"

#include <cstddef>

#include "geometry/brush.h"

namespace zando::literal {
namespace {

/// Where a polygon in the plane of a brush face goes.
struct Rule {
  bool sameIsFront;
  bool oppositeIsFront;
};
constexpr Rule kAsGiven{true, false};     // by a solid; by a carver as the first pass sees it
constexpr Rule kAllInside{false, false};  // by a carver: its own face takes over
constexpr Rule kReversed{false, true};    // a carving face, seen from the other side

struct Counts {
  int outside = 0;
  int inside = 0;
};

void Take(CBspNode& node, const CZandoPoly& polygon) {
  node.polygon = polygon;
  node.polygon.tag = 4;
  node.plane = ComputePlane(polygon);
}

void CopyOwner(CBspNode& node, const CBspNode& source) {
  node.nBid = source.nBid;
  node.nPolNum = source.nPolNum;
  node.pBrush = source.pBrush;
}

enum class Way { Front, Back, Both };

/// The way of the polygon past a plane. For Both it is cut: `polygon` is the front piece then.
Way Sort(Tree& counter, const Plane& plane, CZandoPoly& polygon, CZandoPoly& back, Rule rule) {
  switch (ClassifyPolygon(plane, polygon)) {
    case PolygonClass::Front:
      return Way::Front;
    case PolygonClass::Back:
      return Way::Back;
    case PolygonClass::CoplanarSame:
      return rule.sameIsFront ? Way::Front : Way::Back;
    case PolygonClass::CoplanarOpposite:
      return rule.oppositeIsFront ? Way::Front : Way::Back;
    case PolygonClass::Spanning:
      break;
  }
  if (SplitPolygon(plane, polygon, back) == SplitResult::Done) return Way::Both;
  ++counter.refused;
  return SideOfMean(plane, polygon) == PolygonClass::Front ? Way::Front : Way::Back;
}

CBspNode* ChainTail(CBspNode* node) {
  while (node->chain != nullptr) node = node->chain;
  return node;
}

/// The members that a chain has now; pieces that join it later are not among them.
List ChainMembers(CBspNode* head) {
  List members;
  for (CBspNode* m = head; m != nullptr; m = m->chain) members.push_back(m);
  return members;
}

/// Walks a node down from `at`. Pieces that reach an empty child are kept there, or dropped where
/// the tree is older than the insertion and the side is not the one that keeps.
void Insert(Tree& tree, CBspNode* at, CBspNode* piece, Rule rule, bool keepInFront) {
  CZandoPoly back;
  const Way way = Sort(tree, at->plane, piece->polygon, back, rule);
  CBspNode* backPiece = piece;
  if (way == Way::Both) {
    backPiece = tree.NewNode();
    *backPiece = *piece;
    Take(*backPiece, back);
  }
  if (way != Way::Back) {
    if (at->front != nullptr) {
      Insert(tree, at->front, piece, rule, keepInFront);
    } else if (keepInFront || at->nFresh == 1) {
      at->front = piece;
    }
  }
  if (way != Way::Front) {
    if (at->back != nullptr) {
      Insert(tree, at->back, backPiece, rule, keepInFront);
    } else if (!keepInFront || at->nFresh == 1) {
      at->back = backPiece;
    }
  }
}

void InsertAdd(Tree& tree, CBspNode* node) {
  ++tree.inserted;
  if (tree.root == nullptr) {
    tree.root = node;
    return;
  }
  Insert(tree, tree.root, node, {true, false}, true);
}

void InsertSubtract(Tree& tree, CBspNode* node) {
  if (tree.root == nullptr) return;
  ++tree.inserted;
  Insert(tree, tree.root, node, {false, true}, false);
}

void ClipAdd(Tree& owner, const CBspNode* at, CBspNode* piece, Rule rule, Counts& counts) {
  if (at == nullptr) return;
  const CZandoPoly saved = piece->polygon;
  CZandoPoly back;
  const Way way = Sort(owner, at->plane, piece->polygon, back, rule);
  if (way == Way::Front) {
    if (at->front != nullptr) return ClipAdd(owner, at->front, piece, rule, counts);
    piece->nValid = 1;
    ++counts.outside;
    return;
  }
  if (way == Way::Back) {
    if (at->back != nullptr) return ClipAdd(owner, at->back, piece, rule, counts);
    piece->nValid = 0;
    ++counts.inside;
    return;
  }
  CBspNode* rest = owner.NewNode();
  Take(*rest, back);
  CopyOwner(*rest, *piece);
  rest->nValid = piece->nValid;
  Counts local;
  if (at->front != nullptr) {
    ClipAdd(owner, at->front, piece, rule, local);
  } else {
    piece->nValid = 1;
    ++local.outside;
  }
  if (at->back != nullptr) {
    ClipAdd(owner, at->back, rest, rule, local);
  } else {
    rest->nValid = 0;
    ++local.inside;
  }
  if (local.inside == 0) {
    Take(*piece, saved);
    ++counts.outside;
    return;
  }
  ChainTail(piece)->chain = rest;
  counts.outside += local.outside;
  counts.inside += local.inside;
}

void ClipSubtract(Tree& owner, const CBspNode* at, CBspNode* piece, Rule rule, Counts& counts) {
  if (at == nullptr) return;
  const CZandoPoly saved = piece->polygon;
  CZandoPoly back;
  const Way way = Sort(owner, at->plane, piece->polygon, back, rule);
  if (way == Way::Front) {
    if (at->front != nullptr) return ClipSubtract(owner, at->front, piece, rule, counts);
    ++counts.outside;
    return;
  }
  if (way == Way::Back) {
    if (at->back != nullptr) return ClipSubtract(owner, at->back, piece, rule, counts);
    piece->nValid = 1;
    ++counts.inside;
    return;
  }
  CBspNode* rest = owner.NewNode();
  Take(*rest, back);
  CopyOwner(*rest, *piece);
  rest->nValid = piece->nValid;
  Counts local;
  if (at->front != nullptr) {
    ClipSubtract(owner, at->front, piece, rule, local);
  } else {
    ++local.outside;
  }
  if (at->back != nullptr) {
    ClipSubtract(owner, at->back, rest, rule, local);
  } else {
    rest->nValid = 1;
    ++local.inside;
  }
  if (local.outside == 0) {
    Take(*piece, saved);
    ++counts.outside;
    return;
  }
  ChainTail(piece)->chain = rest;
  counts.outside += local.outside;
  counts.inside += local.inside;
}

void ClearFresh(CBspNode* node) {
  if (node == nullptr) return;
  node->nFresh = 0;
  ClearFresh(node->front);
  ClearFresh(node->back);
}

void ClipWorldByBrush(Tree& world, CBspNode* node, const Tree& clipper, Rule rule) {
  if (node == nullptr || node->nFresh == 1) return;
  ClipWorldByBrush(world, node->back, clipper, rule);
  ClipWorldByBrush(world, node->front, clipper, rule);
  for (CBspNode* member : ChainMembers(node)) {
    Counts counts;
    if (member->nValid == 1) ClipAdd(world, clipper.root, member, rule, counts);
  }
}

void BuildFullTree(Tree& tree, const CZandoBrush& brush) {
  for (const CZandoPoly& face : brush.WorldPolys) {
    CBspNode* node = tree.NewNode();
    Take(*node, face);
    InsertAdd(tree, node);
  }
}

/// The faces that bound the brush within a plane. One that merely touches it bounds nothing there.
void BuildClipTree(Tree& tree, const CZandoBrush& brush, const Plane& plane) {
  bool before = false;
  bool behind = false;
  bool faceInPlane = false;
  for (const CZandoPoly& face : brush.WorldPolys) {
    const PolygonClass kind = ClassifyPolygon(plane, face);
    faceInPlane |= kind == PolygonClass::CoplanarSame || kind == PolygonClass::CoplanarOpposite;
    for (const Vector& vertex : face.Vertices()) {
      before |= ClassifyPoint(plane, vertex) == PointClass::Front;
      behind |= ClassifyPoint(plane, vertex) == PointClass::Back;
    }
  }
  if (!faceInPlane && !(before && behind)) return;
  for (const CZandoPoly& face : brush.WorldPolys) {
    const PolygonClass kind = ClassifyPolygon(plane, face);
    int on = 0;
    for (const Vector& vertex : face.Vertices()) {
      if (ClassifyPoint(plane, vertex) == PointClass::On) ++on;
    }
    const bool aside = kind == PolygonClass::Front || kind == PolygonClass::Back;
    if (aside && on < 2) continue;
    CBspNode* node = tree.NewNode();
    Take(*node, face);
    InsertAdd(tree, node);
  }
}

List PruneHidden(const List& list) {
  List kept;
  for (CBspNode* head : list) {
    CBspNode* first = nullptr;
    CBspNode* last = nullptr;
    for (CBspNode* member : ChainMembers(head)) {
      if (member->nValid == 0) continue;
      member->chain = nullptr;
      if (first == nullptr) {
        first = member;
      } else {
        last->chain = member;
      }
      last = member;
    }
    if (first != nullptr) kept.push_back(first);
  }
  return kept;
}

void Count(Tree& tree, const CBspNode* node) {
  if (node == nullptr) return;
  Count(tree, node->back);
  Count(tree, node->front);
  ++tree.nodes;
  if (node->nValid != 0) ++tree.visible;
  for (const CBspNode* m = node->chain; m != nullptr; m = m->chain) ++tree.coplanar;
}

bool TakesPart(const CZandoBrush& brush, bool water) {
  return water || brush.Name.empty() || brush.Name[0] != '*';
}

bool Overlap(double lowA, double highA, double lowB, double highB) {
  return highA >= lowB && lowA <= highB;
}

bool Overlap(const CZandoBrush& a, const CZandoBrush& b) {
  return Overlap(a.BoundsMin.x, a.BoundsMax.x, b.BoundsMin.x, b.BoundsMax.x) &&
         Overlap(a.BoundsMin.y, a.BoundsMax.y, b.BoundsMin.y, b.BoundsMax.y) &&
         Overlap(a.BoundsMin.z, a.BoundsMax.z, b.BoundsMin.z, b.BoundsMax.z);
}

/// From the first shown brush without an entity, every shown brush.
std::vector<CZandoBrush*> ShownBrushes(CZandoBrush* head) {
  while (head != nullptr && ((head->BFlags & BF_SHOWN) == 0 || (head->BFlags & BF_ENTITY) != 0)) {
    head = head->Next;
  }
  std::vector<CZandoBrush*> shown;
  for (CZandoBrush* b = head; b != nullptr; b = b->Next) {
    if ((b->BFlags & BF_SHOWN) != 0) shown.push_back(b);
  }
  return shown;
}

CBspNode* FaceNode(Tree& tree, CZandoBrush& brush, std::size_t face, std::int32_t id) {
  CBspNode* node = tree.NewNode();
  const CZandoPoly& polygon = brush.WorldPolys[face];
  Take(*node, brush.TranT == kAddToWorld ? polygon : ReverseCopy(polygon).polygon);
  node->nBid = id;
  node->nPolNum = static_cast<std::int32_t>(face);
  node->pBrush = &brush;
  return node;
}

/// Brush i's new face against brush j, in the pass over solid faces.
void ClipSolidFace(Tree& world, CBspNode* f, std::size_t i, std::size_t j, const CZandoBrush& o) {
  const bool carves = o.TranT != kAddToWorld;
  Tree clip;
  Counts counts;
  if (carves && i > j) {
    BuildClipTree(clip, o, f->plane);
    ClipSubtract(world, clip.root, f, kAsGiven, counts);
  } else if (f->nValid == 1) {
    BuildClipTree(clip, o, f->plane);
    ClipAdd(world, clip.root, f, carves ? kAllInside : kAsGiven, counts);
  }
}

/// Carver i's new face against the full tree of brush j, in the pass over carving faces.
void ClipCarvingFace(Tree& world, CBspNode* f, std::size_t i, std::size_t j, const CZandoBrush& o,
                     const Tree& full) {
  Counts counts;
  if (o.TranT != kAddToWorld) {
    if (f->nValid == 1) ClipAdd(world, full.root, f, j > i ? kAllInside : kReversed, counts);
  } else if (i > j) {
    if (f->nValid == 0) ClipSubtract(world, full.root, f, kReversed, counts);
  } else if (f->nValid == 1) {
    ClipAdd(world, full.root, f, kAsGiven, counts);
  }
}

struct Sides {
  List front;
  List back;
};

CBspNode* ChooseSplitter(const List& list) {
  CBspNode* best = nullptr;
  int bestScore = 5555555;
  for (CBspNode* candidate : list) {
    int spans = 0;
    for (CBspNode* head : list) {
      if (head == candidate) continue;
      for (const CBspNode* m = head; m != nullptr; m = m->chain) {
        if (m->nValid != 0 &&
            ClassifyPolygon(candidate->plane, m->polygon) == PolygonClass::Spanning) {
          ++spans;
        }
      }
    }
    if (100 * spans < bestScore) {
      best = candidate;
      bestScore = 100 * spans;
    }
  }
  return best;
}

Sides Partition(Tree& tree, const CBspNode* splitter, const List& list, std::int32_t& steps) {
  ++steps;
  Sides sides;
  for (CBspNode* head : list) {
    for (CBspNode* m : ChainMembers(head)) {
      m->chain = nullptr;
      if (m == splitter) continue;
      CZandoPoly back;
      const Way way = Sort(tree, splitter->plane, m->polygon, back, kAsGiven);
      if (way != Way::Back) sides.front.push_back(m);
      if (way == Way::Back) sides.back.push_back(m);
      if (way != Way::Both) continue;
      CBspNode* rest = tree.NewNode();
      Take(*rest, back);
      CopyOwner(*rest, *m);
      sides.back.push_back(rest);
    }
  }
  return sides;
}

void BuildSubtrees(Tree& tree, CBspNode* node, const Sides& lists, std::int32_t& steps) {
  if (CBspNode* c = ChooseSplitter(lists.front)) {
    node->front = c;
    BuildSubtrees(tree, c, Partition(tree, c, lists.front, steps), steps);
  }
  if (CBspNode* c = ChooseSplitter(lists.back)) {
    node->back = c;
    BuildSubtrees(tree, c, Partition(tree, c, lists.back, steps), steps);
  }
}

}  // namespace

std::int32_t BuildNodeTree(Tree& tree, const List& list) {
  std::int32_t steps = 0;
  tree.root = ChooseSplitter(list);
  if (tree.root == nullptr) return steps;
  BuildSubtrees(tree, tree.root, Partition(tree, tree.root, list, steps), steps);
  return steps;
}

void CountStats(Tree& tree) {
  tree.nodes = tree.coplanar = tree.visible = 0;
  Count(tree, tree.root);
  tree.splits = tree.nodes - tree.inserted + tree.coplanar;
}

void InsertBrush(Tree& world, CZandoBrush& brush, std::int32_t id) {
  brush.UpdateWorld();
  ClearFresh(world.root);
  if (brush.TranT != kAddToWorld && brush.TranT != kSubtractFromWorld) return;
  for (std::size_t k = 0; k < brush.WorldPolys.size(); ++k) {
    CBspNode* node = FaceNode(world, brush, k, id);
    if (brush.TranT == kAddToWorld) {
      InsertAdd(world, node);
    } else {
      InsertSubtract(world, node);
    }
  }
  Tree own;
  BuildFullTree(own, brush);
  ClipWorldByBrush(world, world.root, own, brush.TranT == kAddToWorld ? kAsGiven : kAllInside);
}

std::int32_t RebuildQuick(Tree& world, CZandoBrush* head, bool water) {
  world = Tree{};
  std::int32_t steps = 0;
  for (CZandoBrush* brush : ShownBrushes(head)) {
    ++steps;
    if (TakesPart(*brush, water)) InsertBrush(world, *brush, brush->BBid);
  }
  return steps;
}

std::int32_t RebuildOptimal(Tree& world, CZandoBrush* head, bool water) {
  world = Tree{};
  std::int32_t steps = 0;
  List result;
  const std::vector<CZandoBrush*> a = ShownBrushes(head);
  for (CZandoBrush* brush : a) brush->UpdateWorld();

  for (std::size_t i = 0; i < a.size(); ++i) {
    ++steps;
    if (a[i]->TranT != kAddToWorld || !TakesPart(*a[i], water)) continue;
    for (std::size_t k = 0; k < a[i]->WorldPolys.size(); ++k) {
      result.push_back(FaceNode(world, *a[i], k, a[i]->BBid));
      for (std::size_t j = 0; j < a.size(); ++j) {
        if (j == i || !TakesPart(*a[j], water) || !Overlap(*a[i], *a[j])) continue;
        for (CBspNode* f : ChainMembers(result.back())) ClipSolidFace(world, f, i, j, *a[j]);
      }
    }
  }

  std::vector<Tree> full(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) BuildFullTree(full[i], *a[i]);

  for (std::size_t i = 0; i < a.size(); ++i) {
    ++steps;
    if (a[i]->TranT != kSubtractFromWorld || !TakesPart(*a[i], water)) continue;
    for (std::size_t k = 0; k < a[i]->WorldPolys.size(); ++k) {
      result.push_back(FaceNode(world, *a[i], k, a[i]->BBid));
      result.back()->nValid = 0;
      for (std::size_t j = 0; j < a.size(); ++j) {
        if (j == i || !TakesPart(*a[j], water) || !Overlap(*a[i], *a[j])) continue;
        for (CBspNode* f : ChainMembers(result.back())) {
          ClipCarvingFace(world, f, i, j, *a[j], full[j]);
        }
      }
    }
  }

  return steps + BuildNodeTree(world, PruneHidden(result));
}

}  // namespace zando::literal
