#include "paint/png_image.h"

namespace zando {
namespace {

PngImage NoImages() { return {std::nullopt, "this program was built without images"}; }

}  // namespace

PngImage PaintPng(std::int32_t /*width*/, std::int32_t /*height*/,
                  const std::function<void(CDC&)>& /*paint*/) {
  return NoImages();
}

PngImage PackPng(const IndexedPicture& /*picture*/) { return NoImages(); }

}  // namespace zando
