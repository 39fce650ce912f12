#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zando::testing {

/// A 32-bit number, little-endian.
inline std::string Word(std::uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift & 0xFF);
  return bytes;
}

inline std::string Padded(std::string name) {
  name.resize(16);
  return name;
}

/// The head of a mip texture whose image stands right behind it.
inline std::string MipHead(const std::string& name, std::uint32_t width, std::uint32_t height,
                           std::uint32_t image = 40) {
  return Padded(name) + Word(width) + Word(height) + Word(image) + std::string(12, '\0');
}

inline std::string Entry(std::uint32_t offset, char type = 'D') {
  return Word(offset) + Word(0) + Word(0) + type + std::string(3, '\0') + Padded("not used");
}

inline std::string Header(std::uint32_t lumps, std::uint32_t directory) {
  return "WAD2" + Word(lumps) + Word(directory);
}

struct Lump {
  std::string bytes;
  char type = 'D';
};

/// Lumps in order, then their directory, each behind some bytes that belong to none.
inline std::string Archive(const std::vector<Lump>& lumps) {
  std::string data = "??";
  std::string directory;
  for (const Lump& lump : lumps) {
    directory += Entry(static_cast<std::uint32_t>(12 + data.size()), lump.type);
    data += lump.bytes + "???";
  }
  return Header(static_cast<std::uint32_t>(lumps.size()),
                static_cast<std::uint32_t>(12 + data.size())) +
         data + directory;
}

}  // namespace zando::testing
