#pragma once

#include <cstdint>

namespace zando::testing {

/// While it lives, one allocation fails: the one after this many that succeed.
class CFailingMemory {
 public:
  explicit CFailingMemory(std::int64_t successes);
  CFailingMemory(const CFailingMemory&) = delete;
  CFailingMemory& operator=(const CFailingMemory&) = delete;
  ~CFailingMemory();

  /// Whether it has failed.
  [[nodiscard]] static bool Failed();
};

}  // namespace zando::testing
