#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "platform/draw_context.h"

namespace zando {

/// Red, green and blue of each index.
inline constexpr std::size_t kPaletteBytes = 768;

/// The 256 colours that every picture of the editor shares.
struct Palette {
  std::array<std::uint8_t, kPaletteBytes> raw{};  ///< as a palette file has them
  ColorTable colors{};                            ///< the same, made from raw
};

/// The palette of our own that stands in for a missing file: ramps of sixteen colours each. The
/// first is grey and begins with black; those from 128 to 223 go from bright to dark, all others
/// from dark to bright. The last 32 colours, which the game shows at full brightness wherever they
/// are, are those of fire and lamps; lamps have two ramps of eight.
[[nodiscard]] const Palette& BuiltInPalette();

/// The palette with its first entries replaced by these bytes, three an entry; what they do not
/// fill stays. Bytes beyond the 768th are passed over.
[[nodiscard]] Palette WithEntries(const Palette& palette, std::string_view bytes);

/// Reads a palette file. One that is short leaves the later entries as they are. False, with
/// nothing changed, when it cannot be read.
[[nodiscard]] bool LoadPalette(const std::filesystem::path& path, Palette& palette);

}  // namespace zando
