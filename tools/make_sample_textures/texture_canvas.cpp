#include "texture_canvas.h"

#include <algorithm>
#include <array>

namespace zando::samples {
namespace {

int Wrap(int value, int period) { return (value % period + period) % period; }

int SquareRoot(int value) {
  int root = 0;
  while ((root + 1) * (root + 1) <= value) ++root;
  return root;
}

/// 0 to 256 with level ends, for 0 to 256.
int Smooth(int t) { return t * t * (768 - 2 * t) / 65536; }

std::uint8_t IndexOf(const Texel& texel) {
  const int shade = std::clamp(texel.shade, 0, 255);
  switch (texel.ramp) {
    case Ramp::BlueLamp:
      return static_cast<std::uint8_t>(240 + shade / 32);
    case Ramp::GreenLamp:
      return static_cast<std::uint8_t>(248 + shade / 32);
    default:
      break;
  }
  const bool brightFirst = texel.ramp >= Ramp::Violet && texel.ramp <= Ramp::Water;
  const int place = brightFirst ? 15 - shade / 16 : shade / 16;
  return static_cast<std::uint8_t>(16 * static_cast<int>(texel.ramp) + place);
}

int Mix(int a, int b, int t) { return (a * (256 - t) + b * t) / 256; }

}  // namespace

int Area::Depth(int x, int y) const {
  return std::min({x - left, right - 1 - x, y - top, bottom - 1 - y});
}

int Chance(int x, int y, int seed) {
  auto bits = static_cast<std::uint32_t>(x) * 0x9E3779B1U +
              static_cast<std::uint32_t>(y) * 0x85EBCA77U +
              static_cast<std::uint32_t>(seed) * 0xC2B2AE3DU;
  for (const std::uint32_t factor : {0x7FEB352DU, 0x846CA68BU}) {
    bits ^= bits >> 16U;
    bits *= factor;
  }
  return static_cast<int>(bits >> 24U);
}

CCanvas::CCanvas(int width, int height)
    : width_(width),
      height_(height),
      texels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

Texel& CCanvas::At(int x, int y) {
  const auto row = static_cast<std::size_t>(Wrap(y, height_));
  return texels_[row * static_cast<std::size_t>(width_) +
                 static_cast<std::size_t>(Wrap(x, width_))];
}

void CCanvas::Each(const std::function<void(int x, int y, Texel&)>& paint) {
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) paint(x, y, At(x, y));
  }
}

int CCanvas::Hills(int x, int y, int cell, int seed) const {
  const int wrappedX = Wrap(x, width_);
  const int wrappedY = Wrap(y, height_);
  const int left = wrappedX / cell;
  const int top = wrappedY / cell;
  const auto corner = [&](int column, int row) {
    return Chance((left + column) % (width_ / cell), (top + row) % (height_ / cell), seed);
  };
  const int across = Smooth(wrappedX % cell * 256 / cell);
  const int down = Smooth(wrappedY % cell * 256 / cell);
  return Mix(Mix(corner(0, 0), corner(1, 0), across), Mix(corner(0, 1), corner(1, 1), across),
             down);
}

int CCanvas::Clouds(int x, int y, int cell, int seed) const {
  int sum = 0;
  int most = 0;
  int weight = 128;
  for (; cell >= 2 && weight > 0; cell /= 2, weight /= 2) {
    sum += Hills(x, y, cell, seed + cell) * weight;
    most += weight;
  }
  return sum / std::max(most, 1);
}

CCanvas::Shard CCanvas::ShardAt(int x, int y, int cell, int seed) const {
  constexpr int kFar = 1 << 28;
  int nearest = kFar;
  int second = kFar;
  int id = 0;
  const int column = Wrap(x, width_) / cell;
  const int row = Wrap(y, height_) / cell;
  for (int i = 0; i < 25; ++i) {
    const int acrossCell = column + i % 5 - 2;
    const int downCell = row + i / 5 - 2;
    const int keyX = Wrap(acrossCell, width_ / cell);
    const int keyY = Wrap(downCell, height_ / cell);
    // Places in 16ths of a texel.
    const int dx =
        acrossCell * cell * 16 + Chance(keyX, keyY, seed) * cell / 16 - Wrap(x, width_) * 16;
    const int dy =
        downCell * cell * 16 + Chance(keyX, keyY, seed + 1) * cell / 16 - Wrap(y, height_) * 16;
    const int distance = dx * dx + dy * dy;
    if (distance < nearest) {
      second = nearest;
      nearest = distance;
      id = Chance(keyX, keyY, seed + 2);
    } else if (distance < second) {
      second = distance;
    }
  }
  return {id, SquareRoot(second) - SquareRoot(nearest)};
}

void CCanvas::Raise(const Area& area, int height, int slope) {
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      At(x, y).height += height * std::min(area.Depth(x, y) + 1, slope) / slope;
    }
  }
}

void CCanvas::Rivet(int x, int y, int radius, int height) {
  for (int dy = -radius; dy <= radius; ++dy) {
    for (int dx = -radius; dx <= radius; ++dx) {
      const int left = radius * radius + 1 - dx * dx - dy * dy;
      if (left > 0) At(x + dx, y + dy).height += height * left / (radius * radius + 1);
    }
  }
}

void CCanvas::Paint(const Area& area, Ramp ramp, int shade) {
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      At(x, y).ramp = ramp;
      At(x, y).shade = shade;
    }
  }
}

void CCanvas::Light(int strength) {
  std::vector<int> light;
  light.reserve(texels_.size());
  Each([&](int x, int y, const Texel&) {
    const int rise =
        At(x + 1, y).height - At(x - 1, y).height + At(x, y + 1).height - At(x, y - 1).height;
    light.push_back(rise * strength / 16);
  });
  auto next = light.begin();
  for (Texel& texel : texels_) {
    texel.shade += *next++;
    texel.height = 0;
  }
}

void CCanvas::Grain(int amount, int seed) {
  Each([&](int x, int y, Texel& texel) {
    texel.shade += (Chance(x, y, seed) - 128) * amount / 128;
  });
}

Picture CCanvas::Finish() const {
  Picture picture{width_, height_, {}};
  picture.pixels.reserve(texels_.size());
  for (const Texel& texel : texels_) {
    picture.pixels.push_back(IndexOf(texel));
  }
  return picture;
}

}  // namespace zando::samples
