#include "platform/text.h"

#include <cstddef>

namespace zando {
namespace {

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// Number of bytes of the character that begins with this byte; 1 for one that begins none.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0xC2U || lead > 0xF4U) return 1;
  if (lead < 0xE0U) return 2;
  return lead < 0xF0U ? 3 : 4;
}

}  // namespace

std::string ToLatin1(std::string_view utf8) {
  std::string text;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    const std::size_t expected = SequenceLength(lead);
    std::size_t length = 1;
    while (length < expected && i + length < utf8.size() && IsContinuation(utf8[i + length])) {
      ++length;
    }
    if (lead < 0x80U) {
      text += utf8[i];
    } else if (length == 2 && expected == 2 && lead <= 0xC3U) {
      const auto low = static_cast<unsigned char>(utf8[i + 1]);
      text += static_cast<char>((lead & 0x03U) << 6U | (low & 0x3FU));
    } else {
      text += '?';
    }
    i += length;
  }
  return text;
}

std::string FromLatin1(std::string_view text) {
  std::string utf8;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80U) {
      utf8 += c;
    } else {
      utf8 += static_cast<char>(0xC0U | (byte >> 6U));
      utf8 += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return utf8;
}

std::string Counted(std::int64_t count, std::string_view one, std::string_view many) {
  return std::to_string(count) + ' ' + std::string(count == 1 ? one : many);
}

std::string PathText(const std::filesystem::path& path) { return ToLatin1(path.string()); }

std::string FileNameText(const std::filesystem::path& path) { return PathText(path.filename()); }

}  // namespace zando
