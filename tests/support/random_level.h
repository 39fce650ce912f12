#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "document/brush_list.h"
#include "geometry/brush.h"

namespace zando::testing {

/// Pseudo-random numbers that are the same on every machine.
class CRandom {
 public:
  explicit CRandom(std::uint64_t seed) : state_(seed) {}

  [[nodiscard]] std::uint64_t Next();

  /// A whole number in low..high, both included.
  [[nodiscard]] std::int32_t Between(std::int32_t low, std::int32_t high);

  /// A number from low up to high.
  [[nodiscard]] double Real(double low, double high);

  [[nodiscard]] bool Percent(std::int32_t chance) { return Between(0, 99) < chance; }

 private:
  std::uint64_t state_;
};

/// An axis-aligned box with whole coordinates.
struct GridBox {
  std::array<std::int32_t, 3> low{};
  std::array<std::int32_t, 3> high{};
};

/// A box brush; placed by its centre, with BBid -1.
[[nodiscard]] std::unique_ptr<CZandoBrush> MakeBoxBrush(const GridBox& box,
                                                        std::int32_t operation = kAddToWorld);

struct LevelOptions {
  enum class Layout {
    General,    ///< no two boxes share a coordinate on any axis
    CoarseGrid  ///< coordinates on a grid so coarse that faces coincide everywhere
  };

  enum class Shapes {
    Square,  ///< hollow boxes and staircases
    Any      ///< also ramps, and cylinders and spheroids, hollow or not
  };

  Layout layout = Layout::General;
  std::int32_t brushes = 10;
  std::int32_t extent = 256;   ///< coordinates lie in 0..extent, before boxes are turned
  std::int32_t grid = 32;      ///< step of the coarse grid
  std::int32_t maxSize = 128;  ///< of a box along an axis; at least one step of the grid
  std::int32_t carving = 40;   ///< percent of carving brushes; the first brush is always solid
  std::int32_t tapered = 0;    ///< percent of frustums in place of boxes
  std::int32_t turned = 0;     ///< percent of brushes with a rotation, scale and shear
  std::int32_t shaped = 0;     ///< percent of brushes of the shapes in place of boxes
  Shapes shapes = Shapes::Any;
  std::int32_t water = 0;  ///< percent of brushes named as water
};

/// A level made of random convex brushes, the same for the same seed and options. Their ids are
/// their positions. `extent` must offer General enough coordinates: at least 2 for each brush.
[[nodiscard]] CBrushList RandomLevel(std::uint64_t seed, const LevelOptions& options);

}  // namespace zando::testing
