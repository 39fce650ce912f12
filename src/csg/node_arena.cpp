#include "csg/node_arena.h"

#include <algorithm>

namespace zando {
namespace {

/// A brush's own tree fits into the first block; later blocks double up to the largest size.
constexpr std::size_t kFirstBlock = 16;
constexpr std::size_t kLargestBlock = 1024;

constexpr std::size_t BlockSize(std::size_t index) {
  return index >= 6 ? kLargestBlock : std::min(kFirstBlock << index, kLargestBlock);
}

}  // namespace

CBspNode* CNodeArena::Allocate() {
  if (free_ != nullptr) {
    CBspNode* node = free_;
    free_ = node->link;
    *node = CBspNode();
    return node;
  }
  if (block_ < blocks_.size() && used_ == BlockSize(block_)) {
    ++block_;
    used_ = 0;
  }
  if (block_ == blocks_.size()) {
    blocks_.push_back(std::make_unique<CBspNode[]>(BlockSize(block_)));
  }
  CBspNode* node = &blocks_[block_][used_++];
  *node = CBspNode();
  return node;
}

void CNodeArena::Release(CBspNode* node) {
  node->link = free_;
  free_ = node;
}

void CNodeArena::ReleaseAll() {
  block_ = 0;
  used_ = 0;
  free_ = nullptr;
}

}  // namespace zando
