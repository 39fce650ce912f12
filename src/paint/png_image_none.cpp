#include "paint/png_image.h"

namespace zando {
namespace {

Failure NoImages() { return {"this program was built without images"}; }

}  // namespace

CResult<std::string> PaintPng(std::int32_t /*width*/, std::int32_t /*height*/,
                              const std::function<void(CDC&)>& /*paint*/) {
  return NoImages();
}

CResult<std::string> PackPng(const IndexedPicture& /*picture*/) { return NoImages(); }

}  // namespace zando
