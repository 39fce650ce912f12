#include "cli/png_image.h"

namespace zando {

PngImage PaintPng(std::int32_t /*width*/, std::int32_t /*height*/,
                  const std::function<void(CDC&)>& /*paint*/) {
  return {std::nullopt, "this zando-cli was built without images"};
}

}  // namespace zando
