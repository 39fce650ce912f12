#include "cli/texture_commands.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string_view>
#include <system_error>
#include <vector>

#include "cli/input_files.h"
#include "cli/subcommands.h"
#include "paint/png_image.h"
#include "platform/file_io.h"
#include "platform/text.h"
#include "textures/wad2.h"

namespace zando {
namespace {

namespace fs = std::filesystem;

CWad2 ReadArchive(const TextureRequest& request) {
  CWad2 archive;
  const bool read = archive.LoadBytes(ReadInput(request.archive));
  if (!read) throw CCommandFailure(request.archive, archive.Complaints().front());
  for (const std::string& complaint : archive.Complaints()) {
    request.warn(request.archive.string() + ": " + complaint);
  }
  return archive;
}

std::string Counted(std::size_t textures) {
  return std::to_string(textures) + (textures == 1 ? " texture" : " textures");
}

std::string Escaped(std::string_view name) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  if (name.empty()) return "\"\"";
  std::string text;
  for (const char c : name) {
    if (c > ' ' && c <= '~' && c != '\\' && c != '"') {
      text += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    text += "\\x";
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 0xFU];
  }
  return text;
}

bool MayStandInFileName(char c) {
  const char lower = LowerCase(c);
  return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '+' ||
         c == '-';
}

/// Makes names of files, each of them once, also where the case of letters makes no difference.
class CFileNames {
 public:
  std::string NameFor(std::string_view texture) {
    std::string base(texture);
    for (char& c : base) {
      if (!MayStandInFileName(c)) c = c == '*' ? '#' : '_';
    }
    if (!base.empty() && taken_.insert(Lower(base)).second) return base;
    int& number = numbers_[Lower(base)];
    for (;;) {
      std::string name = base + (base.empty() ? "" : "_") + std::to_string(++number);
      if (taken_.insert(Lower(name)).second) return name;
    }
  }

 private:
  static std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), LowerCase);
    return text;
  }

  std::set<std::string> taken_;
  std::map<std::string, int> numbers_;
};

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw CCommandFailure(folder, error.message());
}

}  // namespace

void ListTextures(const TextureRequest& request, std::ostream& out) {
  static_cast<void>(ReadPalette(
      request.palette, request.warn));  // a palette that cannot be read is an error here too
  const CWad2 archive = ReadArchive(request);
  for (std::size_t i = 0; i < archive.Textures().size(); ++i) {
    const Texture& texture = archive.Textures()[i];
    out << i << ' ' << Escaped(texture.name) << ' ' << texture.width << 'x' << texture.height
        << '\n';
  }
  out << request.archive.string() << ": " << Counted(archive.Textures().size()) << '\n';
}

void WriteTextures(const TextureRequest& request, const fs::path& folder, std::ostream& out) {
  const Palette palette = ReadPalette(request.palette, request.warn);
  const CWad2 archive = ReadArchive(request);
  MakeFolder(folder);
  CFileNames names;
  for (const Texture& texture : archive.Textures()) {
    const fs::path path = folder / (names.NameFor(texture.name) + ".png");
    const CResult<std::string> image =
        PackPng({texture.width, texture.height, texture.surface.Pixels(), palette.colors});
    if (!image) throw CCommandFailure(path, image.Error());
    RequireWritten(WriteFileAtomically(path, *image), path, request.warn);
  }
  out << folder.string() << ": " << Counted(archive.Textures().size()) << " written\n";
}

}  // namespace zando
