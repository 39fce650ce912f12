#include "views/camera.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zando {
namespace {

constexpr double kLeastZoom = 0.001;

}  // namespace

std::int32_t TruncateToPixel(double value) {
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(std::clamp(value, -kFarthestPixel, kFarthestPixel));
}

void CCamera::SetViewport(std::int32_t left, std::int32_t top, std::int32_t right,
                          std::int32_t bottom) {
  left_ = left;
  top_ = top;
  right_ = (right + 3) / 4 * 4;
  bottom_ = bottom;
  constexpr double kEighthTurn = 3.141592653589793 / 4.0;
  const std::int32_t half = Width() / 2;
  focalX_ = half * std::cos(kEighthTurn) / std::sin(kEighthTurn);
}

ScreenPoint CCamera::Centre() const { return {left_ + Width() / 2, top_ + Height() / 2}; }

void CCamera::BuildViewMatrix() {
  viewMatrix_.SetIdentity();
  viewMatrix_.Translate(-Position);
  viewMatrix_.Rotate(-Yaw, -Pitch, -Roll);
}

void CCamera::BeginDraw(ViewKind kind, double zoom) {
  kind_ = kind;
  zoom_ = zoom;
}

void CCamera::SetZoom(double zoom) { zoom_ = std::max(zoom, kLeastZoom); }

CCamera::Projected CCamera::ProjectPoint(const Vector& point) const {
  return ProjectInFront(point, 0.0).value_or(Projected{-32.0, -32.0});
}

std::optional<CCamera::Projected> CCamera::ProjectInFront(const Vector& point,
                                                          double leastDepth) const {
  Vector q = point;
  viewMatrix_.TransformPoint(q);
  if (!(q.z > 0.0) || q.z < leastDepth) return std::nullopt;
  const ScreenPoint centre = Centre();
  return Projected{FocalX() * q.x / q.z + centre.x, FocalY() * q.y / q.z + centre.y};
}

Ray CCamera::RayThrough(ScreenPoint pixel) const {
  const ScreenPoint centre = Centre();
  const double x = (pixel.x - centre.x) / FocalX();
  const double y = (pixel.y - centre.y) / FocalY();
  // The rows of a rotation are the axes of the view in the world.
  const auto& m = viewMatrix_.m;
  const auto along = [&](std::size_t axis) { return m[0][axis] * x + m[1][axis] * y + m[2][axis]; };
  return {Position, {along(0), along(1), along(2)}};
}

CProjectedPoly CCamera::ProjectPolygon(const CZandoPoly& polygon) const {
  std::array<Vector, MAX_POLY_VERTS> q;
  for (std::int32_t i = 0; i < polygon.count; ++i) {
    const auto index = static_cast<std::size_t>(i);
    q[index] = polygon[i];
    viewMatrix_.TransformPoint(q[index]);
  }

  CProjectedPoly result;
  result.color = polygon.tag;
  const ScreenPoint centre = Centre();
  // A vertex gives at most two points, so the capacity is never passed.
  const auto append = [&](double x, double y, double depth) {
    result.points[static_cast<std::size_t>(result.count++)] = {
        centre.x + x * FocalX() / depth, centre.y + y * FocalY() / depth, depth};
  };
  const auto count = static_cast<std::size_t>(polygon.count);
  for (std::size_t i = 0; i < count; ++i) {
    const Vector& vertex = q[i];
    if (vertex.z >= kNearDepth) {
      append(vertex.x, vertex.y, vertex.z);
      continue;
    }
    for (const std::size_t n : {(i + count - 1) % count, (i + 1) % count}) {
      const Vector& neighbour = q[n];
      if (!(neighbour.z >= kNearDepth)) continue;
      const double t = (kNearDepth - vertex.z) / (neighbour.z - vertex.z);
      append(vertex.x + (neighbour.x - vertex.x) * t, vertex.y + (neighbour.y - vertex.y) * t,
             kNearDepth);
    }
  }
  return result;
}

ScreenPoint CCamera::WorldToScreen(const Vector& point) const {
  if (!IsOrthographic(kind_)) {
    const Projected projected = ProjectPoint(point);
    return {TruncateToPixel(projected.x), TruncateToPixel(projected.y)};
  }
  const ScreenPoint centre = Centre();
  const ViewAxes& axes = AxesOf(kind_);
  return {centre.x + TruncateToPixel((point.*axes.across - Position.*axes.across) * zoom_),
          centre.y + TruncateToPixel((Position.*axes.up - point.*axes.up) * zoom_)};
}

Vector CCamera::ScreenToWorld(ScreenPoint point) const {
  Vector place{0.0, 0.0, 0.0};
  if (!IsOrthographic(kind_)) return place;
  const ScreenPoint centre = Centre();
  const ViewAxes& axes = AxesOf(kind_);
  const double right = static_cast<double>(point.x - centre.x) / zoom_;
  const double down = static_cast<double>(point.y - centre.y) / zoom_;
  place.*axes.across = right + Position.*axes.across;
  place.*axes.up = Position.*axes.up - down;
  return place;
}

void CCamera::Turn(double yaw, double pitch, double roll) {
  Yaw += yaw;
  Pitch = std::clamp(Pitch + pitch, -kMaxPitch, kMaxPitch);
  Roll += roll;
}

void CCamera::Fly(double strafe, double rise, double forward) {
  const double heading = UnitsToRadians(Yaw);
  const double sideways = UnitsToRadians(Yaw + 2048.0);
  Position.x -= 4.0 * forward * std::sin(heading);
  Position.z += 4.0 * forward * std::cos(heading);
  Position.y += 4.0 * rise;
  Position.x -= 4.0 * strafe * std::sin(sideways);
  Position.z += 4.0 * strafe * std::cos(sideways);
}

void CCamera::Pan(double dx, double dy, double dz) {
  Position = Position + Vector{2.0 * dx, 2.0 * dy, 2.0 * dz};
}

}  // namespace zando
