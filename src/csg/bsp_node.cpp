#include "csg/bsp_node.h"

#include <cstddef>
#include <random>

namespace zando {
namespace {

/// The one piece of global state of the program: views reseed it so that flat colours hold still.
std::minstd_rand& ColorTagGenerator() {
  static std::minstd_rand generator;
  return generator;
}

constexpr std::uint32_t kFirstColorTag = 4;
constexpr std::uint32_t kColorTagCount = 250;

}  // namespace

void CBspNode::TakePolygon(const CZandoPoly& source) {
  polygon = source;
  polygon.tag = NextColorTag();
  plane = ComputePlane(polygon);
}

const BrushFace* CBspNode::Face() const {
  if (pBrush == nullptr || nPolNum < 0) return nullptr;
  const auto index = static_cast<std::size_t>(nPolNum);
  return index < pBrush->Faces.size() ? &pBrush->Faces[index] : nullptr;
}

void CNodeList::Append(CBspNode* node) {
  node->link = nullptr;
  if (tail == nullptr) {
    head = node;
  } else {
    tail->link = node;
  }
  tail = node;
}

CBspNode* ChainEnd(CBspNode* node) {
  while (node->chain != nullptr) node = node->chain;
  return node;
}

std::int32_t ChainLength(const CBspNode* node) {
  std::int32_t length = 0;
  for (; node != nullptr; node = node->chain) ++length;
  return length;
}

std::uint32_t NextColorTag() {
  return kFirstColorTag + static_cast<std::uint32_t>(ColorTagGenerator()()) % kColorTagCount;
}

void SeedColorTags(std::uint32_t seed) { ColorTagGenerator().seed(seed); }

}  // namespace zando
