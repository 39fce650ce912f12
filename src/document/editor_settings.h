#pragma once

#include <cstdint>
#include <filesystem>

namespace zando {

/// What holds for the whole program while it runs; never saved. The application owns the one object
/// and hands it on by reference.
struct CEditorSettings {
  std::uint32_t ActiveAxisMask = 0;  ///< axes of the view last activated; see kAxisX and the others
  std::filesystem::path WadPath = "MYWAD.WAD";  ///< relative to the current directory
  std::filesystem::path PalettePath = "PALETTE.LMP";
};

}  // namespace zando
