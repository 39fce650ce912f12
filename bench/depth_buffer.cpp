#include "depth_buffer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

namespace zando::testing {
namespace {

/// A vector turned by an angle (rotation units) towards the second of two axes.
Vector Turned(const Vector& v, double angle, double Vector::*from, double Vector::*to) {
  const double radians = angle / 8192.0 * 2.0 * std::numbers::pi;
  Vector result = v;
  result.*from = v.*from * std::cos(radians) - v.*to * std::sin(radians);
  result.*to = v.*from * std::sin(radians) + v.*to * std::cos(radians);
  return result;
}

}  // namespace

CDepthBuffer::CDepthBuffer(std::int32_t width, std::int32_t height)
    : width_(width),
      height_(height),
      tags_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      nearness_(tags_.size()) {}

/// The polygon on the screen, cut off at the near plane.
std::vector<CDepthBuffer::Point> CDepthBuffer::Project(const CCamera& camera, const Basis& basis,
                                                       const CZandoPoly& polygon) const {
  std::vector<Point> outline;
  const double focal = width_ / 2;
  const auto append = [&](const Vector& p) {
    const double depth = Dot(p, basis.forward);
    outline.push_back({width_ / 2 + focal * Dot(p, basis.right) / depth,
                       height_ / 2 - focal * Dot(p, basis.up) / depth});
  };
  for (std::int32_t i = 0; i < polygon.count; ++i) {
    const Vector a = polygon[i] - camera.Position;
    const Vector b = polygon[(i + 1) % polygon.count] - camera.Position;
    const double beyond = Dot(a, basis.forward) - kNearDepth;
    const double nextBeyond = Dot(b, basis.forward) - kNearDepth;
    if (beyond >= 0.0) append(a);
    if ((beyond >= 0.0) != (nextBeyond >= 0.0)) {
      append(a + (b - a) * (beyond / (beyond - nextBeyond)));
    }
  }
  return outline;
}

void CDepthBuffer::DrawPolygon(const CCamera& camera, const Basis& basis, const CBspNode& node) {
  const double before = SignedDistance(node.plane, camera.Position);
  if (before <= PLANE_EPSILON) return;
  const std::vector<Point> outline = Project(camera, basis, node.polygon);
  if (outline.size() < 3) return;

  // A ray through pixel (x, y) meets the plane at depth 1 / (perColumn * x + perRow * y + base).
  const double scale = -1.0 / before;
  const double perColumn = scale * Dot(node.plane.normal, basis.right) / (width_ / 2);
  const double perRow = -scale * Dot(node.plane.normal, basis.up) / (width_ / 2);
  const double base = scale * Dot(node.plane.normal, basis.forward) - perColumn * (width_ / 2) -
                      perRow * (height_ / 2);

  const auto [top, bottom] = std::ranges::minmax(outline, {}, &Point::y);
  const double end = std::min<double>(bottom.y, height_);
  for (double y = std::max(std::ceil(top.y), 0.0); y < end; y += 1.0) {
    double left = std::numeric_limits<double>::infinity();
    double right = -left;
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const Point& a = outline[i];
      const Point& b = outline[i + 1 == outline.size() ? 0 : i + 1];
      if ((a.y <= y) == (b.y <= y)) continue;
      const double x = a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y);
      left = std::min(left, x);
      right = std::max(right, x);
    }
    const auto row = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
    const auto first = static_cast<std::size_t>(std::clamp(std::ceil(left), 0.0, 1.0 * width_));
    const auto last = static_cast<std::size_t>(std::clamp(std::ceil(right), 0.0, 1.0 * width_));
    double nearness = base + perRow * y + perColumn * static_cast<double>(first);
    for (std::size_t x = first; x < last; ++x, nearness += perColumn) {
      if (nearness <= nearness_[row + x]) continue;
      nearness_[row + x] = nearness;
      tags_[row + x] = node.polygon.tag;
    }
  }
}

void CDepthBuffer::Draw(const CCamera& camera, const CConstructiveBsp& world) {
  std::fill(tags_.begin(), tags_.end(), 0U);
  std::fill(nearness_.begin(), nearness_.end(), 0.0);
  // Turned by roll, then pitch, then yaw.
  const auto turn = [&](const Vector& axis) {
    const Vector rolled = Turned(axis, -camera.Roll, &Vector::x, &Vector::y);
    const Vector pitched = Turned(rolled, -camera.Pitch, &Vector::y, &Vector::z);
    return Turned(pitched, -camera.Yaw, &Vector::z, &Vector::x);
  };
  const Basis basis{turn({1.0, 0.0, 0.0}), turn({0.0, 1.0, 0.0}), turn({0.0, 0.0, 1.0})};
  WalkBackFrontNode(world.root, [&](const CBspNode* node) {
    for (; node != nullptr; node = node->chain) {
      if (node->nValid != 0) DrawPolygon(camera, basis, *node);
    }
  });
}

}  // namespace zando::testing
