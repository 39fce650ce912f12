#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/draw_context.h"
#include "platform/result.h"

namespace zando {

/// Paints on a black picture of the given size in pixels, and gives the bytes of a PNG file. A
/// program that was built without images gives an error.
[[nodiscard]] CResult<std::string> PaintPng(std::int32_t width, std::int32_t height,
                                            const std::function<void(CDC&)>& paint);

/// A picture with its indices and its colours as they are, and the same errors.
[[nodiscard]] CResult<std::string> PackPng(const IndexedPicture& picture);

}  // namespace zando
