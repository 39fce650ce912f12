#include <exception>
#include <filesystem>
#include <iostream>

#include "platform/file_io.h"
#include "sample_files.h"

namespace {

bool Write(const std::filesystem::path& path, std::string_view bytes) {
  const auto written = zando::WriteFileAtomically(path, bytes);
  if (!written) std::cerr << path.string() << ": " << written.Error() << '\n';
  return static_cast<bool>(written);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc != 2) {
      std::cerr << "usage: make-sample-textures FOLDER\n"
                   "Writes PALETTE.LMP and MYWAD.WAD into the folder.\n";
      return 2;
    }
    const std::filesystem::path folder = argv[1];
    return Write(folder / "PALETTE.LMP", zando::samples::PaletteFile()) &&
                   Write(folder / "MYWAD.WAD", zando::samples::ArchiveFile())
               ? 0
               : 1;
  } catch (const std::exception& error) {
    std::cerr << "make-sample-textures: " << error.what() << '\n';
    return 1;
  }
}
