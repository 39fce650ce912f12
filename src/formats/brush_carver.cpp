#include "formats/brush_carver.h"

#include <algorithm>
#include <cstdint>

#include "csg/csg_world.h"
#include "csg/splitter.h"

namespace zando {
namespace {

/// How far a cell may reach beyond its brush: room for rounding, no more.
constexpr double kCellReach = 1.0;

/// How far behind a face its solid is looked for: clear of the tolerance of the planes.
constexpr double kProbeDepth = 2.0 * PLANE_EPSILON;

/// Planes whose normals are this far apart face each other; a sliver tells little about that.
constexpr double kOppositeCosine = -0.9999;

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
  explicit CCellCloser(CConstructiveBsp& tree) : tree_(tree) {}

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
  [[nodiscard]] static bool FacesAgainst(const CellFace& face, const Plane& plane);
  [[nodiscard]] CBspNode* NewCellNode(const CellFace& face);
  [[nodiscard]] bool KeepBack(const Plane& plane, CZandoPoly& polygon);

  CConstructiveBsp& tree_;
  std::vector<Visit> visits_;
  std::vector<CBspNode*> emptyCells_;  ///< cells between two planes that face each other
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
    PushToCell(splitter->back, {BasePolygonForPlane(plane), splitter, 0});
    PushToCell(splitter->front, {BasePolygonForPlane(reversed), splitter, 1});
    if (splitter->front != nullptr) splitters.push_back(splitter->front);
    if (splitter->back != nullptr) splitters.push_back(splitter->back);
  }
  for (CBspNode* cell : emptyCells_) {
    for (; cell != nullptr; cell = cell->link) cell->nValid = 0;
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
    if (side == PolygonClass::Spanning) {
      if (tree_.Split(plane, visit.face.polygon, back.polygon) == SplitResult::Refused) {
        side = SideOfMean(plane, visit.face.polygon);
        back = visit.face;
      }
    }
    if (side == PolygonClass::Front || side == PolygonClass::CoplanarSame) {
      visits_.push_back({visit.node->front, visit.face});
      continue;
    }
    if (side == PolygonClass::Spanning) visits_.push_back({visit.node->front, visit.face});
    PushToBack(visit.node, back);
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

/// Whether the face and a plane of the cell that it lies in have nothing between them.
bool CCellCloser::FacesAgainst(const CellFace& face, const Plane& plane) {
  const double cosine = Dot(face.source->plane.normal, plane.normal);
  return (face.side == 0 ? cosine : -cosine) < kOppositeCosine;
}

/// Cuts the face down to the cell and adds it, then cuts the faces of the cell by one another. A
/// face that lies outside, or in the plane of one that the cell already has, is dropped.
void CCellCloser::ClipIntoCell(CBspNode* cell, CellFace face) {
  CBspNode* last = cell;
  for (CBspNode* other = cell; other != nullptr; other = other->link) {
    const PolygonClass side = ClassifyPolygon(other->plane, face.polygon);
    if (side == PolygonClass::CoplanarSame || side == PolygonClass::CoplanarOpposite) {
      if (FacesAgainst(face, other->plane)) emptyCells_.push_back(cell);
      return;
    }
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
  const PolygonClass side = ClassifyPolygon(plane, polygon);
  if (side != PolygonClass::Spanning) return side != PolygonClass::Front;
  CZandoPoly back;
  if (tree_.Split(plane, polygon, back) == SplitResult::Refused) {
    return SideOfMean(plane, polygon) == PolygonClass::Back;
  }
  polygon = back;
  return true;
}

Vector MeanVertex(const CZandoPoly& polygon) {
  Vector sum{0.0, 0.0, 0.0};
  for (const Vector& vertex : polygon.Vertices()) sum = sum + vertex;
  return sum * (1.0 / polygon.count);
}

/// Whether the point lies inside the brush, clear of its faces.
bool IsDeepInside(const CZandoBrush& brush, const Vector& point) {
  const Vector& low = brush.BoundsMin;
  const Vector& high = brush.BoundsMax;
  if (point.x <= low.x || point.x >= high.x || point.y <= low.y || point.y >= high.y ||
      point.z <= low.z || point.z >= high.z) {
    return false;
  }
  return std::all_of(brush.WorldPolys.begin(), brush.WorldPolys.end(), [&](const auto& face) {
    return ClassifyPoint(ComputePlane(face), point) == PointClass::Back;
  });
}

/// Hides every face of a carver with no solid behind it. A carver that contains a region of the
/// tree whole puts no face into it, so the tree goes on calling it solid, and keeps the faces that
/// later carvers have there.
void HideFalseFaces(CConstructiveBsp& tree, const CZandoBrush& brush,
                    std::span<const CZandoBrush* const> carvers) {
  WalkBackFrontNode(tree.root, [&](CBspNode* node) {
    for (CBspNode* member = node; member != nullptr; member = member->chain) {
      if (member->nValid == 0 || member->pBrush == &brush) continue;
      const Vector probe = MeanVertex(member->polygon) - member->plane.normal * kProbeDepth;
      if (std::any_of(carvers.begin(), carvers.end(), [&](const CZandoBrush* carver) {
            return carver != member->pBrush && IsDeepInside(*carver, probe);
          })) {
        member->nValid = 0;
      }
    }
  });
}

bool ReachesBeyond(const Vector& point, const CZandoBrush& brush) {
  const Vector& low = brush.BoundsMin;
  const Vector& high = brush.BoundsMax;
  return point.x < low.x - kCellReach || point.x > high.x + kCellReach ||
         point.y < low.y - kCellReach || point.y > high.y + kCellReach ||
         point.z < low.z - kCellReach || point.z > high.z + kCellReach;
}

}  // namespace

void CarveBrush(CConstructiveBsp& tree, CZandoBrush& brush, std::span<CZandoBrush* const> carvers) {
  tree.Clear();
  InsertBrush(tree, brush, 0);
  std::vector<const CZandoBrush*> inserted;
  for (CZandoBrush* carver : carvers) {
    if (!BoundsOverlap(brush, *carver)) continue;
    InsertBrush(tree, *carver, 0);
    inserted.push_back(carver);
  }
  HideFalseFaces(tree, brush, inserted);
  BuildLeafTree(tree, FlattenVisible(tree));
  CCellCloser(tree).AddCellFaces();
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
