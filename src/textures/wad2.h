#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "textures/palette.h"
#include "textures/surface.h"

namespace zando {

/// One texture of an archive.
struct Texture {
  std::string name;  ///< 8-bit text, at most 16 characters
  std::int32_t width = 0;
  std::int32_t height = 0;
  CSurface surface;  ///< the full-size image
};

/// The textures of a WAD2 archive, in the order of its directory, with the palette that they are
/// shown in. A level owns one. Only reading is supported.
class CWad2 {
 public:
  /// The palette file, then the archive. A file that is not there is passed over in silence: the
  /// built-in palette stands in, and there are no textures.
  void Create(const std::filesystem::path& palette, const std::filesystem::path& archive);

  /// Reads the palette that archives loaded from now on are shown in; see LoadPalette.
  bool LoadPalette(const std::filesystem::path& path);

  /// Reads an archive in place of the one held. False when it cannot be read, is no WAD2, or has a
  /// directory that does not lie within it; what is held then stays. A damaged texture is left out.
  /// Complaints says what was wrong, but for a file that cannot be read.
  bool Load(const std::filesystem::path& path);

  /// The same from the bytes of a file.
  bool LoadBytes(std::string_view bytes);

  [[nodiscard]] const Palette& GetPalette() const { return palette_; }
  [[nodiscard]] const std::vector<Texture>& Textures() const { return textures_; }
  [[nodiscard]] std::int32_t TextureCount() const {
    return static_cast<std::int32_t>(textures_.size());
  }

  /// What was wrong with the archive last loaded, a line each, without the file's name. No more
  /// than a screenful; the last line then tells how many more there were.
  [[nodiscard]] const std::vector<std::string>& Complaints() const { return complaints_; }

 private:
  Palette palette_ = BuiltInPalette();
  std::vector<Texture> textures_;
  std::vector<std::string> complaints_;
};

}  // namespace zando
