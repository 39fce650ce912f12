#pragma once

#include <functional>
#include <string>
#include <vector>

#include "texture_canvas.h"

namespace zando::samples {

struct SampleTexture {
  std::string name;  ///< at most 15 characters
  std::function<Picture()> paint;
};

/// The textures of examples/MYWAD.WAD, among them those which the examples name.
[[nodiscard]] const std::vector<SampleTexture>& SampleTextures();

}  // namespace zando::samples
