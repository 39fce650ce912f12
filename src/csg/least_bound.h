#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace zando {

/// One number for each slot of a list, and the first slot with the least number. Numbers change
/// often and by little, so a block of slots keeps its own least.
class CLeastBound {
 public:
  static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

  /// All slots start with kNone, which takes no part.
  explicit CLeastBound(std::size_t slots)
      : bounds_(slots, kNone), blocks_((slots + kBlock - 1) / kBlock, kNone) {}

  [[nodiscard]] std::uint32_t operator[](std::size_t slot) const { return bounds_[slot]; }

  void Set(std::size_t slot, std::uint32_t bound) {
    const std::uint32_t old = bounds_[slot];
    bounds_[slot] = bound;
    std::uint32_t& block = blocks_[slot / kBlock];
    if (bound <= block) {
      block = bound;
    } else if (old == block) {
      block = LeastOfBlock(slot / kBlock);
    }
  }

  void Decrease(std::size_t slot) {
    const std::uint32_t bound = --bounds_[slot];
    std::uint32_t& block = blocks_[slot / kBlock];
    block = std::min(block, bound);
  }

  /// The first slot with the least number; slot 0 when none takes part. There must be slots.
  [[nodiscard]] std::uint32_t First() const {
    const auto block = std::min_element(blocks_.begin(), blocks_.end());
    const auto from = bounds_.begin() + (block - blocks_.begin()) * std::ptrdiff_t{kBlock};
    return static_cast<std::uint32_t>(std::find(from, bounds_.end(), *block) - bounds_.begin());
  }

 private:
  static constexpr std::ptrdiff_t kBlock = 64;

  [[nodiscard]] std::uint32_t LeastOfBlock(std::size_t block) const {
    const std::size_t from = block * kBlock;
    const std::size_t to = std::min(from + kBlock, bounds_.size());
    return *std::min_element(bounds_.begin() + static_cast<std::ptrdiff_t>(from),
                             bounds_.begin() + static_cast<std::ptrdiff_t>(to));
  }

  std::vector<std::uint32_t> bounds_;
  std::vector<std::uint32_t> blocks_;
};

}  // namespace zando
