#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/draw_context.h"

namespace zando {

/// A painted picture as the bytes of a PNG file, or the reason why there is none.
struct PngImage {
  std::optional<std::string> bytes;
  std::string error;  ///< one line
};

/// Paints on a black picture of the given size in pixels. A program that was built without images
/// gives an error.
[[nodiscard]] PngImage PaintPng(std::int32_t width, std::int32_t height,
                                const std::function<void(CDC&)>& paint);

/// A picture with its indices and its colours as they are, and the same errors.
[[nodiscard]] PngImage PackPng(const IndexedPicture& picture);

}  // namespace zando
