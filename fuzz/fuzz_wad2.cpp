#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "textures/wad2.h"

/// Any bytes are read or refused with a reason, the pixels of all textures fit into the file, and
/// every texture has what it says.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  zando::CWad2 wad;
  const bool read = wad.LoadBytes(bytes);
  if (!read && (wad.Complaints().empty() || wad.TextureCount() != 0)) std::abort();
  std::size_t pixels = 0;
  for (const zando::Texture& texture : wad.Textures()) {
    const zando::CSurface& surface = texture.surface;
    if (texture.name.size() > 16 || texture.width <= 0 || texture.height <= 0) std::abort();
    if (surface.Width() != texture.width || surface.Height() != texture.height) std::abort();
    if (surface.Pixels().size() !=
        static_cast<std::size_t>(texture.width) * static_cast<std::size_t>(texture.height)) {
      std::abort();
    }
    pixels += surface.Pixels().size();
  }
  if (pixels > size) std::abort();
  return 0;
}
