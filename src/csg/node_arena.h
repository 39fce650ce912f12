#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "csg/bsp_node.h"

namespace zando {

/// Hands out nodes of a tree and takes them back. Owns all of them, so that a tree of any depth is
/// dropped without a walk. Grows in blocks; addresses stay valid until ReleaseAll or the end.
class CNodeArena {
 public:
  CNodeArena() = default;
  CNodeArena(const CNodeArena&) = delete;
  CNodeArena& operator=(const CNodeArena&) = delete;
  ~CNodeArena() = default;

  void Swap(CNodeArena& other) noexcept {
    blocks_.swap(other.blocks_);
    std::swap(block_, other.block_);
    std::swap(used_, other.used_);
    std::swap(free_, other.free_);
  }

  /// A node in its starting state.
  [[nodiscard]] CBspNode* Allocate();

  /// Takes back one node; it may be handed out again.
  void Release(CBspNode* node);

  /// Takes back every node and keeps the storage.
  void ReleaseAll();

 private:
  std::vector<std::unique_ptr<CBspNode[]>> blocks_;
  std::size_t block_ = 0;  ///< the block that nodes are taken from
  std::size_t used_ = 0;   ///< nodes taken from that block
  CBspNode* free_ = nullptr;
};

}  // namespace zando
