#include "formats/brush_carver.h"

#include <algorithm>
#include <cstdint>

#include "csg/csg_world.h"
#include "csg/leaf_tree_builder.h"

namespace zando {
namespace {

/// How far a cell may reach beyond its brush: room for rounding, no more.
constexpr double kCellReach = 1.0;

/// A polygon on its way into the cells that it bounds.
struct CellFace {
  CZandoPoly polygon;
  const CBspNode* source = nullptr;  ///< the splitter whose plane it lies in
  std::int32_t side = 0;             ///< 0 facing as the splitter does, 1 facing the other way
};

/// Closes the cells of a leaf tree: the faces of a cell that lie within the solid come from the
/// planes of the splitters above it.
class CCellCloser {
 public:
  CCellCloser(CConstructiveBsp& tree, const Bounds& solid)
      : tree_(tree),
        middle_((solid.low + solid.high) * 0.5),
        reach_(std::max(kBasePolygonReach, Length(solid.high - solid.low))) {}

  /// Adds the planes of all splitters.
  void AddCellFaces();

 private:
  struct Visit {
    CBspNode* node;
    CellFace face;
  };

  void PushToCell(CBspNode* start, const CellFace& face);
  void PushToBack(CBspNode* splitter, const CellFace& face);
  void ClipIntoCell(CBspNode* cell, CellFace face);
  void TrimCell(CBspNode* cell);
  [[nodiscard]] CBspNode* NewCellNode(const CellFace& face);
  [[nodiscard]] bool KeepBack(const Plane& plane, CZandoPoly& polygon);

  CConstructiveBsp& tree_;
  Vector middle_;  ///< base polygons lie about the middle of the solid's bounds
  double reach_;   ///< and beyond them
  std::vector<Visit> visits_;
};

void CCellCloser::AddCellFaces() {
  std::vector<CBspNode*> splitters;
  if (tree_.root != nullptr) splitters.push_back(tree_.root);
  while (!splitters.empty()) {
    CBspNode* splitter = splitters.back();
    splitters.pop_back();
    if (splitter->nLeaf != 0) continue;
    const Plane& plane = splitter->plane;
    const Plane reversed{-plane.normal, -plane.d};
    PushToCell(splitter->back, {BasePolygonForPlane(plane, middle_, reach_), splitter, 0});
    PushToCell(splitter->front, {BasePolygonForPlane(reversed, middle_, reach_), splitter, 1});
    if (splitter->front != nullptr) splitters.push_back(splitter->front);
    if (splitter->back != nullptr) splitters.push_back(splitter->back);
  }
}

void CCellCloser::PushToCell(CBspNode* start, const CellFace& face) {
  visits_.push_back({start, face});
  while (!visits_.empty()) {
    Visit visit = visits_.back();
    visits_.pop_back();
    if (visit.node == nullptr) continue;
    if (visit.node->nLeaf != 0) {
      ClipIntoCell(visit.node, visit.face);
      continue;
    }
    const Plane& plane = visit.node->plane;
    PolygonClass side = ClassifyPolygon(plane, visit.face.polygon);
    CellFace back = visit.face;
    if (side == PolygonClass::Spanning) side = tree_.Split(plane, visit.face.polygon, back.polygon);
    const bool front = GoesToFront(side, kCoplanarTable.partition);
    if (front) visits_.push_back({visit.node->front, visit.face});
    if (!front || side == PolygonClass::Spanning) PushToBack(visit.node, back);
  }
}

/// Space behind a splitter is solid: where no cell is yet, the face begins one. Before a splitter
/// it is empty, and a face that finds no cell there is dropped.
void CCellCloser::PushToBack(CBspNode* splitter, const CellFace& face) {
  if (splitter->back == nullptr) {
    splitter->back = NewCellNode(face);
  } else {
    visits_.push_back({splitter->back, face});
  }
}

/// Cuts the face down to the cell and adds it, then cuts the faces of the cell by one another. A
/// face that lies outside, or in the plane of one that the cell already has, is dropped.
void CCellCloser::ClipIntoCell(CBspNode* cell, CellFace face) {
  CBspNode* last = cell;
  for (CBspNode* other = cell; other != nullptr; other = other->link) {
    const PolygonClass side = ClassifyPolygon(other->plane, face.polygon);
    if (side == PolygonClass::CoplanarSame || side == PolygonClass::CoplanarOpposite) return;
    if (!KeepBack(other->plane, face.polygon)) return;
    last = other;
  }
  last->link = NewCellNode(face);
  TrimCell(cell);
}

void CCellCloser::TrimCell(CBspNode* cell) {
  for (const CBspNode* plane = cell; plane != nullptr; plane = plane->link) {
    for (CBspNode* other = cell; other != nullptr; other = other->link) {
      if (other != plane && !KeepBack(plane->plane, other->polygon)) other->nValid = 0;
    }
  }
}

CBspNode* CCellCloser::NewCellNode(const CellFace& face) {
  CBspNode* node = tree_.NewNode();
  node->TakePolygon(face.polygon);
  node->TakeOwner(*face.source);
  node->nSide = face.side;
  node->nLeaf = 1;
  return node;
}

/// Reduces the polygon to its part behind the plane; false, with the polygon as it was, when it
/// lies in front.
bool CCellCloser::KeepBack(const Plane& plane, CZandoPoly& polygon) {
  PolygonClass side = ClassifyPolygon(plane, polygon);
  CZandoPoly back;
  if (side == PolygonClass::Spanning) {
    side = tree_.Split(plane, polygon, back);
    if (side == PolygonClass::Spanning) polygon = back;
  }
  return side != PolygonClass::Front;
}

bool ReachesBeyond(const Vector& point, const CZandoBrush& brush) {
  const auto& [low, high] = brush.WorldBounds();
  return point.x < low.x - kCellReach || point.x > high.x + kCellReach ||
         point.y < low.y - kCellReach || point.y > high.y + kCellReach ||
         point.z < low.z - kCellReach || point.z > high.z + kCellReach;
}

}  // namespace

void CarveBrush(CConstructiveBsp& tree, const CZandoBrush& brush,
                std::span<const CZandoBrush* const> carvers) {
  tree.Clear();
  InsertBrush(tree, brush, 0);
  for (const CZandoBrush* carver : carvers) {
    if (BoundsOverlap(brush, *carver)) InsertBrush(tree, *carver, 0);
  }
  BuildLeafTree(tree, FlattenVisible(tree));
  CCellCloser(tree, brush.WorldBounds()).AddCellFaces();
}

CNodeList FlattenVisible(CConstructiveBsp& tree) {
  CNodeList list;
  WalkBackFrontNode(tree.root, [&tree, &list](CBspNode* node) {
    CBspNode* last = nullptr;
    while (node != nullptr) {
      CBspNode* member = node;
      node = member->chain;
      member->front = member->back = member->chain = nullptr;
      if (member->nValid == 0) {
        tree.FreeNode(member);
        continue;
      }
      if (last == nullptr) {
        list.Append(member);
      } else {
        last->chain = member;
      }
      last = member;
    }
  });
  tree.root = nullptr;
  return list;
}

bool IsStrayCell(const CBspNode* cell, const CZandoBrush& brush) {
  for (; cell != nullptr; cell = cell->link) {
    if (cell->nValid == 0) continue;
    const auto vertices = cell->polygon.Vertices();
    if (std::any_of(vertices.begin(), vertices.end(),
                    [&brush](const Vector& point) { return ReachesBeyond(point, brush); })) {
      return true;
    }
  }
  return false;
}

}  // namespace zando
