#include "textures/wad2.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "platform/file_io.h"

namespace zando {
namespace {

constexpr std::size_t kHeaderBytes = 12;
constexpr std::size_t kEntryBytes = 32;
constexpr std::size_t kMipHeaderBytes = 40;
constexpr std::size_t kNameBytes = 16;
constexpr char kMipTexture = 'D';

constexpr std::size_t kMostComplaints = 10;

/// The bytes of a file, or of a part of one; nothing outside them can be read.
class CBytes {
 public:
  explicit CBytes(std::string_view bytes) : bytes_(bytes) {}

  [[nodiscard]] std::size_t Size() const { return bytes_.size(); }

  /// `size` bytes from `offset` on, or none when they are not all there.
  [[nodiscard]] std::optional<CBytes> Part(std::uint64_t offset, std::uint64_t size) const {
    if (offset > bytes_.size() || size > bytes_.size() - offset) return std::nullopt;
    return CBytes(bytes_.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(size)));
  }

  /// Little-endian; the four bytes must be there.
  [[nodiscard]] std::uint32_t Unsigned(std::size_t offset) const {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      value |= std::uint32_t{static_cast<unsigned char>(bytes_[offset + i])} << 8 * i;
    }
    return value;
  }
  [[nodiscard]] char At(std::size_t offset) const { return bytes_[offset]; }
  [[nodiscard]] std::string_view Text() const { return bytes_; }

 private:
  std::string_view bytes_;
};

/// The directory of an archive, or none and the reason.
struct Directory {
  std::optional<CBytes> entries;
  std::string error;
};

Directory FindDirectory(const CBytes& file) {
  const auto header = file.Part(0, kHeaderBytes);
  if (!header || !header->Text().starts_with("WAD2")) return {std::nullopt, "no WAD2 archive"};
  const std::uint32_t lumps = header->Unsigned(4);
  const std::uint32_t offset = header->Unsigned(8);
  // A negative count is a huge one here, and no file holds so many entries.
  const std::string name = "the directory of " + std::to_string(static_cast<std::int32_t>(lumps)) +
                           " lumps at " + std::to_string(offset);
  if (lumps > 0 && offset < kHeaderBytes) return {std::nullopt, name + " lies in the header"};
  auto entries = file.Part(offset, std::uint64_t{lumps} * kEntryBytes);
  if (!entries && lumps > 0) return {std::nullopt, name + " reaches past the end of the file"};
  return {entries.value_or(CBytes({})), ""};
}

std::string NameIn(const CBytes& field) {
  const std::string_view text = field.Text();
  return std::string(text.substr(0, text.find('\0')));
}

/// A texture, or none and the reason.
struct ReadTexture {
  std::optional<Texture> texture;
  std::string error;
};

/// Reads the lump at `offset`. It takes no more than `room` pixels: those of all textures together
/// fit into the file, unless lumps lie over each other.
ReadTexture Read(const CBytes& file, std::uint64_t offset, std::size_t room,
                 const ColorTable& colors) {
  const auto header = file.Part(offset, kMipHeaderBytes);
  if (!header) return {std::nullopt, "its header reaches past the end of the file"};
  const std::uint32_t width = header->Unsigned(kNameBytes);
  const std::uint32_t height = header->Unsigned(kNameBytes + 4);
  const std::uint32_t image = header->Unsigned(kNameBytes + 8);
  // Sizes beyond the file are no sizes; below that their product fits 64 bits.
  const bool sized = width > 0 && height > 0 && width <= file.Size() && height <= file.Size();
  const auto pixels =
      sized ? file.Part(offset + image, std::uint64_t{width} * height) : std::nullopt;
  const std::string size = std::to_string(width) + " x " + std::to_string(height) + " pixels";
  if (!pixels) return {std::nullopt, "its " + size + " do not lie in the file"};
  if (pixels->Size() > room) return {std::nullopt, "its " + size + " lie over other lumps"};

  Texture texture;
  texture.name = NameIn(*header->Part(0, kNameBytes));
  texture.width = static_cast<std::int32_t>(width);
  texture.height = static_cast<std::int32_t>(height);
  if (!texture.surface.Create(texture.width, texture.height, colors)) {
    return {std::nullopt, "there is no memory for its " + size};
  }
  std::copy(pixels->Text().begin(), pixels->Text().end(), texture.surface.Pixels().begin());
  return {std::move(texture), ""};
}

}  // namespace

void CWad2::Create(const std::filesystem::path& palette, const std::filesystem::path& archive) {
  LoadPalette(palette);
  Load(archive);
}

bool CWad2::LoadPalette(const std::filesystem::path& path) {
  return zando::LoadPalette(path, palette_);
}

bool CWad2::Load(const std::filesystem::path& path) {
  complaints_.clear();
  const auto bytes = ReadWholeFile(path);
  return bytes && LoadBytes(*bytes);
}

bool CWad2::LoadBytes(std::string_view bytes) {
  complaints_.clear();
  const CBytes file(bytes);
  const Directory directory = FindDirectory(file);
  if (!directory.entries) {
    complaints_.push_back(directory.error);
    return false;
  }
  std::vector<Texture> textures;
  std::size_t room = file.Size();
  std::size_t damaged = 0;
  for (std::size_t i = 0; i < directory.entries->Size() / kEntryBytes; ++i) {
    const CBytes entry = *directory.entries->Part(i * kEntryBytes, kEntryBytes);
    if (entry.At(12) != kMipTexture) continue;
    ReadTexture read = Read(file, entry.Unsigned(0), room, palette_.colors);
    if (read.texture) {
      room -= read.texture->surface.Pixels().size();
      textures.push_back(std::move(*read.texture));
    } else if (++damaged <= kMostComplaints) {
      complaints_.push_back("lump " + std::to_string(i) + " left out: " + read.error);
    }
  }
  textures_ = std::move(textures);
  if (damaged > kMostComplaints) {
    complaints_.push_back("and " + std::to_string(damaged - kMostComplaints) + " more lumps");
  }
  return true;
}

}  // namespace zando
