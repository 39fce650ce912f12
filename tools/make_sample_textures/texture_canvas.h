#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace zando::samples {

/// A finished texture: indices of the built-in palette, row by row from the top.
struct Picture {
  int width;
  int height;
  std::vector<std::uint8_t> pixels;

  [[nodiscard]] std::uint8_t At(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

/// The ramps of the built-in palette, in its order.
enum class Ramp {
  Grey,
  Wood,
  Steel,
  Moss,
  Cloth,
  Slime,
  Rust,
  Sandstone,
  Violet,
  Brick,
  Stone,
  Copper,
  Gold,
  Water,
  Fire,
  BlueLamp,
  GreenLamp
};

/// A place of a texture while it is painted.
struct Texel {
  Ramp ramp = Ramp::Grey;
  int shade = 128;  ///< 0 to 255 along the ramp; ends there when painting goes beyond
  int height = 0;   ///< above the wall, for the light
};

/// A rectangle of texels; right and bottom lie outside.
struct Area {
  int left;
  int top;
  int right;
  int bottom;

  /// How far inside a texel lies: 0 at the edge and beyond 0 outside.
  [[nodiscard]] int Depth(int x, int y) const;
};

/// A number from 0 to 255 that looks like chance and is the same everywhere.
[[nodiscard]] int Chance(int x, int y, int seed);

/// What a texture is painted on. It repeats in both directions, as the texture does on a wall.
class CCanvas {
 public:
  CCanvas(int width, int height);

  [[nodiscard]] int Width() const { return width_; }
  [[nodiscard]] int Height() const { return height_; }
  Texel& At(int x, int y);

  void Each(const std::function<void(int x, int y, Texel&)>& paint);

  /// Hills of `cell` texels, which divides both sides, 0 to 255.
  [[nodiscard]] int Hills(int x, int y, int cell, int seed) const;
  /// Hills on hills, each half as large and half as high as those before, down to two texels.
  [[nodiscard]] int Clouds(int x, int y, int cell, int seed) const;

  struct Shard {
    int id;      ///< 0 to 255
    int border;  ///< distance to the next shard, in 16ths of a texel or so
  };
  /// The irregular piece that a texel belongs to, of about `cell` texels, which divides both sides.
  [[nodiscard]] Shard ShardAt(int x, int y, int cell, int seed) const;

  /// A plate with edges that slope over `slope` texels to `height` above what is there.
  void Raise(const Area& area, int height, int slope);
  /// A dome on the texel.
  void Rivet(int x, int y, int radius, int height);
  void Paint(const Area& area, Ramp ramp, int shade);

  /// Light from the top left on the heights, which are flat afterwards.
  void Light(int strength);
  /// Shades a little brighter or darker by chance.
  void Grain(int amount, int seed);

  [[nodiscard]] Picture Finish() const;

 private:
  int width_;
  int height_;
  std::vector<Texel> texels_;
};

}  // namespace zando::samples
