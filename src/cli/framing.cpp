#include "cli/framing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "geometry/bounds.h"

namespace zando {
namespace {

/// The level takes this part of the picture; the rest is border.
constexpr double kFill = 0.9;

/// Zooms that a fit may choose. The lower end is that of every view.
constexpr double kLowestZoom = 0.001;
constexpr double kHighestZoom = 1000.0;
constexpr double kZoomOfNothing = 0.1;

/// Nothing of a level that can be worked with lies further out.
constexpr double kFarthest = 1000000.0;

/// From a corner, a little from above.
constexpr ViewAngles kFromACorner{DegreesToUnits(30.0), DegreesToUnits(-30.0), 0.0};

Vector Middle(const Bounds& bounds) {
  return bounds.IsEmpty() ? Vector{0.0, 0.0, 0.0} : (bounds.low + bounds.high) * 0.5;
}

/// How far the bounds reach from a point, along each axis.
Vector ReachFrom(const Bounds& bounds, const Vector& point) {
  const auto reach = [](double low, double high, double from) {
    return std::max(std::fabs(low - from), std::fabs(high - from));
  };
  return {reach(bounds.low.x, bounds.high.x, point.x), reach(bounds.low.y, bounds.high.y, point.y),
          reach(bounds.low.z, bounds.high.z, point.z)};
}

void IncludeNear(Bounds& bounds, const Vector& point) {
  if (!IsFinite(point)) return;
  const auto near = [](double value) { return std::clamp(value, -kFarthest, kFarthest); };
  bounds.Include(Vector{near(point.x), near(point.y), near(point.z)});
}

Bounds BoundsOfShown(const CZANDODoc& document) {
  Bounds bounds;
  for (const CZandoBrush& brush : document.GetLevel().BrushList) {
    if (!brush.IsShown() || brush.WorldBounds().IsEmpty()) continue;
    IncludeNear(bounds, brush.WorldBounds().low);
    IncludeNear(bounds, brush.WorldBounds().high);
  }
  if (document.State().ShowEntities == 0) return bounds;
  for (const CEntity& entity : document.GetLevel().Entities) {
    if (entity.IsShown() && entity.eStyle == 0) IncludeNear(bounds, entity.WorkOrigin);
  }
  return bounds;
}

/// The zoom at which everything within reach of the middle is in the picture.
double FittingZoom(const Vector& reach, const PictureRequest& request) {
  const ViewAxes& axes = AxesOf(request.kind);
  const double across = reach.*axes.across;
  const double up = reach.*axes.up;
  double zoom = kHighestZoom;
  if (across > 0.0) zoom = std::min(zoom, kFill * request.width / (2.0 * across));
  if (up > 0.0) zoom = std::min(zoom, kFill * request.height / (2.0 * up));
  if (across <= 0.0 && up <= 0.0) zoom = 1.0;
  return std::max(zoom, kLowestZoom);
}

ViewAngles Toward(const Vector& direction) {
  constexpr double kUnitsPerRadian = kRotationUnitsPerTurn / (2.0 * std::numbers::pi);
  return {std::atan2(-direction.x, direction.z) * kUnitsPerRadian,
          std::atan2(direction.y, std::hypot(direction.x, direction.z)) * kUnitsPerRadian, 0.0};
}

/// The place to look from with the camera's angles so that all of the bounds is in the picture.
Vector EyeOutside(const Bounds& bounds, CCamera& camera) {
  camera.Position = {0.0, 0.0, 0.0};
  camera.BuildViewMatrix();
  const auto& m = camera.ViewMatrix().m;
  const Vector half = (bounds.high - bounds.low) * 0.5;
  const double across = camera.FocalX() / (kFill * 0.5 * camera.Width());
  const double up = camera.FocalX() / (kFill * 0.5 * camera.Height());
  double distance = 0.0;
  for (int corner = 0; corner < 8; ++corner) {
    Vector point{(corner & 1) != 0 ? half.x : -half.x, (corner & 2) != 0 ? half.y : -half.y,
                 (corner & 4) != 0 ? half.z : -half.z};
    camera.ViewMatrix().TransformPoint(point);
    const double needed =
        std::max({std::fabs(point.x) * across, std::fabs(point.y) * up, kNearDepth});
    distance = std::max(distance, needed - point.z);
  }
  const Vector forward{m[2][0], m[2][1], m[2][2]};
  return Middle(bounds) - forward * distance;
}

void PlaceEye(const Bounds& bounds, const PictureRequest& request, CCamera& camera) {
  ViewAngles angles = request.angles.value_or(bounds.IsEmpty() ? ViewAngles{} : kFromACorner);
  if (request.at && !request.angles && !bounds.IsEmpty()) {
    angles = Toward(Middle(bounds) - *request.at);
  }
  camera.Yaw = angles.yaw;
  camera.Pitch = angles.pitch;
  camera.Roll = angles.roll;
  if (request.at) {
    camera.Position = *request.at;
  } else if (!bounds.IsEmpty()) {
    camera.Position = EyeOutside(bounds, camera);
  }
}

}  // namespace

void FrameLevel(const CZANDODoc& document, const PictureRequest& request, CCamera& camera) {
  camera.SetViewport(0, 0, request.width, request.height);
  const Bounds bounds = BoundsOfShown(document);
  double zoom = kZoomOfNothing;
  if (IsOrthographic(request.kind)) {
    camera.Position = request.at.value_or(Middle(bounds));
    if (!bounds.IsEmpty()) zoom = FittingZoom(ReachFrom(bounds, camera.Position), request);
    zoom = request.zoom.value_or(zoom);
  } else {
    PlaceEye(bounds, request, camera);
  }
  camera.BuildViewMatrix();
  camera.BeginDraw(request.kind, zoom);
}

}  // namespace zando
