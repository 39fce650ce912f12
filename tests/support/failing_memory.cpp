#include "support/failing_memory.h"

#include <cstdlib>
#include <new>

namespace {

constexpr std::int64_t kNever = -1;
std::int64_t successesLeft = kNever;
bool failed = false;

bool FailsNow() {
  if (successesLeft == kNever) return false;
  if (successesLeft-- > 0) return false;
  successesLeft = kNever;
  return failed = true;
}

}  // namespace

void* operator new(std::size_t size) {
  void* memory = FailsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace zando::testing {

CFailingMemory::CFailingMemory(std::int64_t successes) {
  failed = false;
  successesLeft = successes;
}
CFailingMemory::~CFailingMemory() { successesLeft = kNever; }
bool CFailingMemory::Failed() { return failed; }

}  // namespace zando::testing
