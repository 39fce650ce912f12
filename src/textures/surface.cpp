#include "textures/surface.h"

#include <cstddef>
#include <new>

namespace zando {

bool CSurface::Create(std::int32_t width, std::int32_t height, const ColorTable& colors) {
  Delete();
  if (width <= 0 || height <= 0) return false;
  try {
    pixels_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  } catch (const std::bad_alloc&) {
    return false;
  }
  width_ = width;
  height_ = height;
  colors_ = colors;
  return true;
}

void CSurface::Delete() {
  width_ = 0;
  height_ = 0;
  pixels_ = {};
}

bool CSurface::Present(CDC& target, ScreenPoint at) const {
  if (!IsValid()) return false;
  target.StretchDIBits(at, {width_, height_, pixels_, colors_});
  return true;
}

}  // namespace zando
