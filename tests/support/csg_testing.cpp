#include "support/csg_testing.h"

#include <cmath>
#include <numbers>

#include "csg/csg_world.h"

namespace zando::testing {
namespace {

void SetFaces(CZandoBrush& brush, const std::vector<CZandoPoly>& faces) {
  brush.SetPolyCount(0);
  for (const CZandoPoly& face : faces) brush.AppendPoly(face);
  brush.ComputeFacePoints();
}

}  // namespace

CBrushList LevelOfBoxes(const std::vector<BoxBrush>& boxes) {
  CBrushList level;
  for (const BoxBrush& box : boxes) {
    std::unique_ptr<CZandoBrush> brush = MakeBoxBrush(box.box, box.operation);
    brush->BBid = level.BrushCount();
    level.Append(std::move(brush));
  }
  return level;
}

void BuildWorld(CConstructiveBsp& world, const CBrushList& brushes, Build build) {
  world.brushList = brushes.Head();
  switch (build) {
    case Build::StepByStep:
      world.Clear();
      for (const CZandoBrush& brush : brushes) InsertBrush(world, brush, brush.BBid);
      break;
    case Build::Quick:
      RebuildQuick(world, nullptr, WaterBrushes::Build);
      break;
    case Build::Optimal:
      RebuildOptimal(world, nullptr, WaterBrushes::Build);
      break;
  }
  world.CountStats();
}

std::vector<const CBspNode*> VisiblePolygons(const CConstructiveBsp& tree) {
  std::vector<const CBspNode*> visible;
  WalkBackFrontNode(tree.root, [&visible](const CBspNode* node) {
    for (; node != nullptr; node = node->chain) {
      if (node->nValid != 0) visible.push_back(node);
    }
  });
  return visible;
}

bool Contains(const CBspNode& node, const Vector& point) {
  const CZandoPoly& polygon = node.polygon;
  for (std::int32_t i = 0; i < polygon.count; ++i) {
    const Vector edge = polygon[(i + 1) % polygon.count] - polygon[i];
    if (Dot(Cross(edge, point - polygon[i]), node.plane.normal) < 0.0) return false;
  }
  return true;
}

double Area(const CZandoPoly& polygon) {
  Vector sum{0.0, 0.0, 0.0};
  for (std::int32_t i = 2; i < polygon.count; ++i) {
    sum = sum + Cross(polygon[i - 1] - polygon[0], polygon[i] - polygon[0]);
  }
  return Length(sum) / 2.0;
}

void AddZigzag(CZandoBrush& box) {
  const Vector half = (box.WorldBounds().high - box.WorldBounds().low) * 0.5;
  std::vector<CZandoPoly> faces = box.Polys();
  CZandoPoly& zigzag = faces.emplace_back();
  for (const double side : {1.0, -1.0}) {
    for (int i = 0; i < 12; ++i) {
      zigzag.Append({side * i, half.y + (i % 2 == 0 ? side : -side), half.z + 100.0 + side});
    }
  }
  SetFaces(box, faces);
}

void MakeDrum(CZandoBrush& box, std::int32_t sides) {
  const Vector half = (box.WorldBounds().high - box.WorldBounds().low) * 0.5;
  const auto rim = [&half, sides](std::int32_t i, double y) {
    const double angle = 2.0 * std::numbers::pi * i / sides;
    return Vector{half.x * std::cos(angle), y, half.z * std::sin(angle)};
  };
  std::vector<CZandoPoly> faces(2);
  for (std::int32_t i = 0; i < sides; ++i) {
    faces[0].Append(rim(sides - 1 - i, half.y));
    faces[1].Append(rim(i, -half.y));
    CZandoPoly& side = faces.emplace_back();
    side.Append(rim(i, -half.y));
    side.Append(rim(i, half.y));
    side.Append(rim(i + 1, half.y));
    side.Append(rim(i + 1, -half.y));
  }
  SetFaces(box, faces);
}

}  // namespace zando::testing
