#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "geometry/axes.h"
#include "geometry/polygon.h"
#include "geometry/transform.h"
#include "geometry/vector.h"
#include "platform/draw_context.h"

namespace zando {

/// What a view shows, by the id of the command that selects it.
enum class ViewKind : std::int32_t {
  Wireframe = 32806,
  Solid = 32807,
  Top = 32808,
  Side = 32809,
  Front = 32810,
  Texture = 32811
};

[[nodiscard]] constexpr bool IsOrthographic(ViewKind kind) {
  return kind == ViewKind::Top || kind == ViewKind::Side || kind == ViewKind::Front;
}

/// The axes that a kind shows; in perspective those of the world, x, y and z.
[[nodiscard]] constexpr const ViewAxes& AxesOf(ViewKind kind) {
  if (kind == ViewKind::Top) return kTopAxes;
  return kind == ViewKind::Side ? kSideAxes : kFrontAxes;
}

/// Whether the world's polygons are drawn with hidden surfaces removed, over the whole view.
[[nodiscard]] constexpr bool ShowsSurfaces(ViewKind kind) {
  return kind == ViewKind::Solid || kind == ViewKind::Texture;
}

/// Pitch stays within a quarter turn up and down.
inline constexpr double kMaxPitch = 2048.0;

/// Depth of the near plane, in map units.
inline constexpr double kNearDepth = 16.0;

/// Screen coordinates stay within this many pixels, so that sums of a few of them fit 32 bits.
inline constexpr double kFarthestPixel = 5e8;

/// Truncated toward zero; 0 for what is not a number, and the nearest of the farthest pixels for
/// what lies beyond them.
[[nodiscard]] std::int32_t TruncateToPixel(double value);

/// A polygon on the screen, with the depth of each vertex. Cut off at the near plane it can have up
/// to twice as many points as the polygon has vertices.
struct CProjectedPoly {
  static constexpr std::int32_t kCapacity = 64;
  struct Point {
    double x;
    double y;
    double depth;
  };
  std::uint32_t color = 0;  ///< the polygon's tag
  std::int32_t count = 0;
  std::array<Point, kCapacity> points;

  [[nodiscard]] std::span<const Point> Points() const {
    return {points.data(), static_cast<std::size_t>(count)};
  }
};

/// What a pixel shows lies along this.
struct Ray {
  Vector origin;
  Vector direction;  ///< as far as leads one map unit deeper into the view
};

/// Where a view looks from, its viewport, and every mapping between world and screen.
class CCamera {
 public:
  Vector Position{0.0, 0.0, -500.0};
  double Yaw = 0.0;  ///< rotation units, like pitch and roll
  double Pitch = 0.0;
  double Roll = 0.0;

  /// Viewport of the given client area; the width is rounded up to a multiple of 4. The horizontal
  /// field of view is a quarter turn, and pixels are square.
  void SetViewport(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);

  [[nodiscard]] std::int32_t Width() const { return right_ - left_; }
  [[nodiscard]] std::int32_t Height() const { return bottom_ - top_; }
  [[nodiscard]] ScreenPoint Centre() const;
  [[nodiscard]] double FocalX() const { return focalX_; }
  [[nodiscard]] double FocalY() const { return -focalX_; }

  /// Rebuilds the view matrix from position and angles; needed after either changed.
  void BuildViewMatrix();
  [[nodiscard]] const Transform& ViewMatrix() const { return viewMatrix_; }

  /// How the mappings below work, until it is said anew; the zoom is pixels per map unit in the
  /// orthographic kinds.
  void BeginDraw(ViewKind kind, double zoom);
  [[nodiscard]] ViewKind Kind() const { return kind_; }
  [[nodiscard]] double Zoom() const { return zoom_; }

  /// Raised to 0.001 when lower.
  void SetZoom(double zoom);

  /// Perspective projection of one point; (-32, -32) when it is not in front of the camera.
  struct Projected {
    double x;
    double y;
  };
  [[nodiscard]] Projected ProjectPoint(const Vector& point) const;

  /// The same; none when it is not in front of the camera or not so deep.
  [[nodiscard]] std::optional<Projected> ProjectInFront(const Vector& point,
                                                        double leastDepth) const;

  /// The reverse: from the eye through the top left corner of a pixel, in perspective.
  [[nodiscard]] Ray RayThrough(ScreenPoint pixel) const;

  /// Perspective projection cut off at the near plane. Fewer than 3 points are nothing to draw.
  [[nodiscard]] CProjectedPoly ProjectPolygon(const CZandoPoly& polygon) const;

  /// The pixel of a world point, in every kind of view; truncated toward zero.
  [[nodiscard]] ScreenPoint WorldToScreen(const Vector& point) const;

  /// The world point of a pixel in an orthographic view, with 0 along the view direction; the
  /// origin in a perspective view.
  [[nodiscard]] Vector ScreenToWorld(ScreenPoint point) const;

  void Turn(double yaw, double pitch, double roll);

  /// Moves by the heading only: sideways, up, forward; 4 units for each.
  void Fly(double strafe, double rise, double forward);

  /// 2 units for each.
  void Pan(double dx, double dy, double dz);

 private:
  std::int32_t left_ = 0;
  std::int32_t top_ = 0;
  std::int32_t right_ = 0;
  std::int32_t bottom_ = 0;
  double focalX_ = 0.0;
  Transform viewMatrix_ = Transform::Identity();
  ViewKind kind_ = ViewKind::Solid;
  double zoom_ = 0.1;
};

}  // namespace zando
