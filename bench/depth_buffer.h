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

 private:
  struct Point {
    double x;
    double y;
  };
  /// The camera's axes in the world.
  struct Basis {
    Vector right;
    Vector up;
    Vector forward;
  };
  void DrawPolygon(const CCamera& camera, const Basis& basis, const CBspNode& node);
  [[nodiscard]] std::vector<Point> Project(const CCamera& camera, const Basis& basis,
                                           const CZandoPoly& polygon) const;

  std::int32_t width_;
  std::int32_t height_;
  std::vector<std::uint32_t> tags_;
  std::vector<double> nearness_;  ///< 1 / depth
};

}  // namespace zando::testing
