#pragma once

#include <cstdint>
#include <vector>

#include "csg/bsp_tree.h"
#include "views/camera.h"

namespace zando::testing {

/// Draws a world pixel by pixel in doubles, every polygon in any order: a pixel shows the tag of
/// the nearest visible polygon that faces the camera. Shares nothing with the renderer but what a
/// pixel is: its top left corner decides.
class CDepthBuffer {
 public:
  CDepthBuffer(std::int32_t width, std::int32_t height);

  void Draw(const CCamera& camera, const CConstructiveBsp& world);

  /// Row by row; 0 where there is no polygon.
  [[nodiscard]] const std::vector<std::uint32_t>& Tags() const { return tags_; }

  struct Point {
    double x;
    double y;
  };
  /// The polygon on the screen, cut off at the near plane.
  [[nodiscard]] std::vector<Point> Outline(const CCamera& camera, const CZandoPoly& polygon) const;

 private:
  struct Basis {
    Vector right;
    Vector up;
    Vector forward;
  };
  [[nodiscard]] static Basis BasisOf(const CCamera& camera);
  void DrawPolygon(const CCamera& camera, const Basis& basis, const CBspNode& node);
  void Project(const CCamera& camera, const Basis& basis, const CZandoPoly& polygon,
               std::vector<Point>& outline) const;

  std::int32_t width_;
  std::int32_t height_;
  std::vector<std::uint32_t> tags_;
  std::vector<double> nearness_;  ///< 1 / depth
  std::vector<Point> outline_;
};

}  // namespace zando::testing
