#include "cli/framing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

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

class CBounds {
 public:
  void Include(const Vector& point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z)) return;
    const auto near = [](double value) { return std::clamp(value, -kFarthest, kFarthest); };
    const Vector p{near(point.x), near(point.y), near(point.z)};
    if (empty_) low_ = high_ = p;
    empty_ = false;
    low_ = {std::min(low_.x, p.x), std::min(low_.y, p.y), std::min(low_.z, p.z)};
    high_ = {std::max(high_.x, p.x), std::max(high_.y, p.y), std::max(high_.z, p.z)};
  }

  [[nodiscard]] bool IsEmpty() const { return empty_; }
  [[nodiscard]] Vector Middle() const { return (low_ + high_) * 0.5; }
  [[nodiscard]] Vector HalfSize() const { return (high_ - low_) * 0.5; }

  /// How far they reach from a point, along each axis.
  [[nodiscard]] Vector ReachFrom(const Vector& point) const {
    const auto reach = [](double low, double high, double from) {
      return std::max(std::fabs(low - from), std::fabs(high - from));
    };
    return {reach(low_.x, high_.x, point.x), reach(low_.y, high_.y, point.y),
            reach(low_.z, high_.z, point.z)};
  }

 private:
  bool empty_ = true;
  Vector low_{0.0, 0.0, 0.0};
  Vector high_{0.0, 0.0, 0.0};
};

CBounds BoundsOfShown(CZANDODoc& document) {
  CBounds bounds;
  for (const auto& brush : document.BrushList.Brushes()) {
    if (!brush->IsShown()) continue;
    brush->UpdateWorld();
    const bool hasVertices = std::any_of(brush->Polys.begin(), brush->Polys.end(),
                                         [](const auto& polygon) { return polygon.count > 0; });
    if (!hasVertices) continue;
    bounds.Include(brush->BoundsMin);
    bounds.Include(brush->BoundsMax);
  }
  if (document.ShowEntities != 0) {
    for (const CEntity& entity : document.Entities) {
      if (entity.IsShown() && entity.eStyle == 0) bounds.Include(entity.WorkOrigin);
    }
  }
  return bounds;
}

/// The zoom at which everything within reach of the middle is in the picture.
double FittingZoom(const Vector& reach, const PictureRequest& request) {
  const double across = request.kind == ViewKind::Side ? reach.z : reach.x;
  const double up = request.kind == ViewKind::Top ? reach.z : reach.y;
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
Vector EyeOutside(const CBounds& bounds, CCamera& camera) {
  camera.Position = {0.0, 0.0, 0.0};
  camera.BuildViewMatrix();
  const auto& m = camera.ViewMatrix().m;
  const Vector half = bounds.HalfSize();
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
  return bounds.Middle() - forward * distance;
}

void PlaceEye(const CBounds& bounds, const PictureRequest& request, CCamera& camera) {
  ViewAngles angles = request.angles.value_or(bounds.IsEmpty() ? ViewAngles{} : kFromACorner);
  if (request.at && !request.angles && !bounds.IsEmpty()) {
    angles = Toward(bounds.Middle() - *request.at);
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

double FrameLevel(CZANDODoc& document, const PictureRequest& request, CCamera& camera) {
  camera.SetViewport(0, 0, request.width, request.height);
  const CBounds bounds = BoundsOfShown(document);
  double zoom = kZoomOfNothing;
  if (IsOrthographic(request.kind)) {
    camera.Position = request.at.value_or(bounds.Middle());
    if (!bounds.IsEmpty()) zoom = FittingZoom(bounds.ReachFrom(camera.Position), request);
    zoom = request.zoom.value_or(zoom);
  } else {
    PlaceEye(bounds, request, camera);
  }
  camera.BuildViewMatrix();
  camera.BeginDraw(request.kind, zoom);
  return zoom;
}

}  // namespace zando
