#include "cli/input_files.h"

#include <utility>

#include "cli/subcommands.h"
#include "document/document_file.h"
#include "platform/file_io.h"

namespace zando {

void WarnOf(const CReport& report, const std::filesystem::path& file, const Warn& warn) {
  for (const std::string& line : report.Lines()) {
    warn("warning: " + file.string() + ": " + line);
  }
}

std::string ReadInput(const std::filesystem::path& path) {
  auto bytes = ReadWholeFile(path);
  if (!bytes) throw CCommandFailure(path, bytes.Error());
  return *std::move(bytes);
}

std::unique_ptr<CZANDODoc> ReadLevel(const std::filesystem::path& path, const Warn& warn) {
  auto loaded = LoadDocumentFile(path);
  if (!loaded) throw CCommandFailure(path, loaded.Error());
  WarnOf(loaded->warnings, path, warn);
  return std::move(loaded->document);
}

Palette ReadPalette(const std::optional<std::filesystem::path>& path, const Warn& warn) {
  if (!path) return BuiltInPalette();
  const std::string bytes = ReadInput(*path);
  if (bytes.size() < kPaletteBytes && warn) {
    warn(path->string() + ": holds " + std::to_string(bytes.size()) + " of " +
         std::to_string(kPaletteBytes) + " bytes; the other colours are the built-in ones");
  }
  return WithEntries(BuiltInPalette(), bytes);
}

}  // namespace zando
