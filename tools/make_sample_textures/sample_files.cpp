#include "sample_files.h"

#include <cstddef>
#include <cstdint>
#include <limits>

#include "sample_textures.h"
#include "textures/palette.h"

namespace zando::samples {
namespace {

constexpr std::size_t kNameBytes = 16;
constexpr std::size_t kMipHeadBytes = 40;
constexpr std::size_t kHeaderBytes = 12;
constexpr int kSizes = 4;
constexpr int kFirstGlowing = 224;

void AddNumber(std::string& bytes, std::size_t value) {
  for (unsigned shift = 0; shift < 32; shift += 8) {
    bytes += static_cast<char>(value >> shift & 0xFFU);
  }
}

void AddName(std::string& bytes, std::string name) {
  name.resize(kNameBytes);
  bytes += name;
}

struct Sum {
  int red = 0;
  int green = 0;
  int blue = 0;
  int glowing = 0;
};

/// The index whose colour is nearest to the mean of `count` colours. What mostly glows stays so.
std::uint8_t Nearest(const Sum& sum, int count) {
  const bool glows = 2 * sum.glowing >= count;
  const int begin = glows ? kFirstGlowing : 0;
  const int end = glows ? 256 : kFirstGlowing;
  int best = begin;
  int least = std::numeric_limits<int>::max();
  for (int i = begin; i < end; ++i) {
    const RgbQuad& color = BuiltInPalette().colors[static_cast<std::size_t>(i)];
    const int red = color.red - sum.red / count;
    const int green = color.green - sum.green / count;
    const int blue = color.blue - sum.blue / count;
    const int distance = red * red + green * green + blue * blue;
    if (distance >= least) continue;
    least = distance;
    best = i;
  }
  return static_cast<std::uint8_t>(best);
}

/// The picture with squares of `scale` texels made one.
std::string Reduced(const Picture& picture, int scale) {
  std::string pixels;
  for (int top = 0; top < picture.height; top += scale) {
    for (int left = 0; left < picture.width; left += scale) {
      Sum sum;
      for (int i = 0; i < scale * scale; ++i) {
        const std::uint8_t index = picture.At(left + i % scale, top + i / scale);
        const RgbQuad& color = BuiltInPalette().colors[index];
        sum.red += color.red;
        sum.green += color.green;
        sum.blue += color.blue;
        sum.glowing += index >= kFirstGlowing ? 1 : 0;
      }
      pixels += static_cast<char>(Nearest(sum, scale * scale));
    }
  }
  return pixels;
}

std::string MipTexture(const SampleTexture& sample) {
  const Picture picture = sample.paint();
  std::string head;
  AddName(head, sample.name);
  AddNumber(head, static_cast<std::size_t>(picture.width));
  AddNumber(head, static_cast<std::size_t>(picture.height));
  std::string images(picture.pixels.begin(), picture.pixels.end());
  AddNumber(head, kMipHeadBytes);
  for (int size = 1; size < kSizes; ++size) {
    AddNumber(head, kMipHeadBytes + images.size());
    images += Reduced(picture, 1 << size);
  }
  return head + images;
}

}  // namespace

std::string PaletteFile() {
  const auto& raw = BuiltInPalette().raw;
  return {raw.begin(), raw.end()};
}

std::string ArchiveFile() {
  std::string lumps;
  std::string directory;
  for (const SampleTexture& sample : SampleTextures()) {
    const std::string lump = MipTexture(sample);
    AddNumber(directory, kHeaderBytes + lumps.size());
    AddNumber(directory, lump.size());
    AddNumber(directory, lump.size());
    directory += {'D', '\0', '\0', '\0'};
    AddName(directory, sample.name);
    lumps += lump;
  }
  std::string header = "WAD2";
  AddNumber(header, SampleTextures().size());
  AddNumber(header, kHeaderBytes + lumps.size());
  return header + lumps + directory;
}

}  // namespace zando::samples
