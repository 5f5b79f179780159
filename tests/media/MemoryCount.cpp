#include "media/MemoryCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> inUse = 0;
std::atomic<std::size_t> peak = 0;

// Every block is preceded by its size, in a header that keeps the block aligned.
constexpr std::size_t kHeader = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
static_assert(kHeader >= sizeof(std::size_t));

}  // namespace

// The array and non-throwing forms call these two.
void* operator new(std::size_t size) {
  void* const block = std::malloc(size + kHeader);
  if (block == nullptr) throw std::bad_alloc();
  *static_cast<std::size_t*>(block) = size;
  const std::size_t now = inUse += size;
  for (std::size_t most = peak; now > most && !peak.compare_exchange_weak(most, now);) {
  }
  return static_cast<char*>(block) + kHeader;
}

void operator delete(void* pointer) noexcept {
  if (pointer == nullptr) return;
  char* const block = static_cast<char*>(pointer) - kHeader;
  inUse -= *reinterpret_cast<std::size_t*>(block);
  std::free(block);
}

void operator delete(void* pointer, std::size_t /*size*/) noexcept {
  operator delete(pointer);
}

namespace quillon::test {

std::size_t MemoryInUse() {
  return inUse;
}

std::size_t MemoryPeak() {
  return peak;
}

void RestartMemoryPeak() {
  peak = inUse.load();
}

}  // namespace quillon::test
