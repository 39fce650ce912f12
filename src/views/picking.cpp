#include "views/picking.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

#include "document/brush_edits.h"
#include "document/entity_edits.h"

namespace zando {
namespace {

/// How far from an entity's origin a pixel picks it.
constexpr std::int64_t kEntityReach = 12;

constexpr double kNoDepth = std::numeric_limits<double>::infinity();

/// The depth at which the ray meets the front of a polygon that is drawn there; none otherwise.
std::optional<double> DepthAt(const Ray& ray, const CZandoPoly& polygon) {
  const Plane plane = ComputePlane(polygon);
  const double toward = Dot(plane.normal, ray.direction);
  if (!(toward < 0.0)) return std::nullopt;
  const double depth = -SignedDistance(plane, ray.origin) / toward;
  if (!(depth >= kNearDepth)) return std::nullopt;
  // Each edge turns the same way about the ray. Faces that share an edge agree to the last bit on
  // which of them the ray meets, so that none slips through between them.
  for (std::int32_t i = 0; i < polygon.count; ++i) {
    const Vector from = polygon[i] - ray.origin;
    const Vector to = polygon[(i + 1) % polygon.count] - ray.origin;
    if (!(Dot(Cross(from, to), ray.direction) <= 0.0)) return std::nullopt;
  }
  return depth;
}

/// The owner of the visible face that the ray meets first; none where it has gone.
const CZandoBrush* OwnerOfFrontMostFace(const Level& level, const Ray& ray) {
  const CBspNode* met = nullptr;
  CWalkStack stack;
  WalkFrontToBack(level.World.root, ray.origin, stack, [&](const CBspNode* node) {
    for (; node != nullptr && met == nullptr; node = node->chain) {
      if (node->nValid != 0 && DepthAt(ray, node->polygon)) met = node;
    }
    return met != nullptr;
  });
  return met != nullptr ? level.BrushList.Find(met->nBid) : nullptr;
}

/// How deep the ray enters a brush.
double EntryDepth(const Ray& ray, const CZandoBrush& brush) {
  double nearest = kNoDepth;
  for (const CZandoPoly& polygon : brush.WorldPolys()) {
    nearest = std::min(nearest, DepthAt(ray, polygon).value_or(kNoDepth));
  }
  return nearest;
}

const CZandoBrush* FirstEntered(const Level& level, const Ray& ray) {
  const CZandoBrush* first = nullptr;
  double nearest = kNoDepth;
  for (const CZandoBrush& brush : level.BrushList) {
    if (!brush.IsShown()) continue;
    const double depth = EntryDepth(ray, brush);
    if (depth < nearest) first = &brush;
    nearest = std::min(nearest, depth);
  }
  return first;
}

/// The square of the distance on the screen; none for an entity that is not drawn.
std::optional<std::int64_t> DistanceOnScreen(const CEntity& entity, const CCamera& camera,
                                             ScreenPoint pixel) {
  if (!entity.IsShown() || entity.eStyle != 0) return std::nullopt;
  if (!camera.ProjectInFront(entity.eOrigin, 0.0)) return std::nullopt;
  const ScreenPoint mark = camera.WorldToScreen(entity.eOrigin);
  const std::int64_t dx = std::int64_t{mark.x} - pixel.x;
  const std::int64_t dy = std::int64_t{mark.y} - pixel.y;
  return dx * dx + dy * dy;
}

}  // namespace

void PickBrushAt(CZANDODoc& document, const CCamera& camera, ScreenPoint pixel) {
  if (IsOrthographic(camera.Kind())) {
    PickBrush(document, camera.ScreenToWorld(pixel), AxesOf(camera.Kind()));
    return;
  }
  const Level& level = document.GetLevel();
  const Ray ray = camera.RayThrough(pixel);
  const CZandoBrush* brush =
      ShowsSurfaces(camera.Kind()) ? OwnerOfFrontMostFace(level, ray) : FirstEntered(level, ray);
  if (brush != nullptr && brush->IsShown()) PickBrush(document, brush->BBid);
}

void PickEntityAt(CZANDODoc& document, const CCamera& camera, ScreenPoint pixel) {
  if (IsOrthographic(camera.Kind())) {
    PickEntity(document, camera.ScreenToWorld(pixel), AxesOf(camera.Kind()));
    return;
  }
  if (document.State().ShowEntities == 0) return;
  std::optional<std::int32_t> nearest;
  std::int64_t least = kEntityReach * kEntityReach + 1;
  const CEntList& entities = document.GetLevel().Entities;
  for (std::size_t i = 0; i < entities.size(); ++i) {
    const std::int64_t distance = DistanceOnScreen(entities[i], camera, pixel).value_or(least);
    if (distance >= least) continue;
    nearest = static_cast<std::int32_t>(i);
    least = distance;
  }
  if (nearest) SetCurrentEntity(document, *nearest);
}

void SelectInFrame(CZANDODoc& document, const CCamera& camera, const ScreenRect& frame,
                   Selection selection) {
  if (IsOrthographic(camera.Kind())) {
    // Up is up in the world, and down on the screen.
    const ViewRect rect{camera.ScreenToWorld({frame.left, frame.bottom}),
                        camera.ScreenToWorld({frame.right, frame.top}), AxesOf(camera.Kind())};
    BoxSelect(document, rect, selection);
    return;
  }
  const auto holds = [&](const Vector& point, double leastDepth) {
    const auto place = camera.ProjectInFront(point, leastDepth);
    return place && frame.left <= place->x && place->x <= frame.right && frame.top <= place->y &&
           place->y <= frame.bottom;
  };
  const auto holdsEntity = [&](const CEntity& entity) { return holds(entity.eOrigin, 0.0); };
  const auto holdsBrush = [&](const CZandoBrush& brush) {
    return !brush.WorldBounds().IsEmpty() &&
           std::ranges::all_of(brush.WorldPolys(), [&](const CZandoPoly& polygon) {
             return std::ranges::all_of(polygon.Vertices(), [&](const Vector& corner) {
               return holds(corner, kNearDepth);
             });
           });
  };
  SelectShown(document, holdsEntity, holdsBrush, selection);
}

}  // namespace zando
