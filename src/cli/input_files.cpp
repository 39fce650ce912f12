#include "cli/input_files.h"

#include <utility>

#include "cli/subcommands.h"
#include "platform/file_io.h"

namespace zando {

std::string ReadInput(const std::filesystem::path& path) {
  auto bytes = ReadWholeFile(path);
  if (!bytes) throw CCommandFailure(path, bytes.Error());
  return *std::move(bytes);
}

Palette ReadPalette(const std::optional<std::filesystem::path>& path,
                    const std::function<void(const std::string&)>& warn) {
  if (!path) return BuiltInPalette();
  const std::string bytes = ReadInput(*path);
  if (bytes.size() < kPaletteBytes && warn) {
    warn(path->string() + ": holds " + std::to_string(bytes.size()) + " of " +
         std::to_string(kPaletteBytes) + " bytes; the other colours are the built-in ones");
  }
  return WithEntries(BuiltInPalette(), bytes);
}

}  // namespace zando
