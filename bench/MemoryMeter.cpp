#include "bench/MemoryMeter.h"

#include <malloc.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

// Plain variables: all benchmarks run on one thread.
bool isMetering = false;
std::int64_t blocksMade = 0;
std::int64_t bytesInUse = 0;
std::int64_t mostBytesInUse = 0;

void noteMade(void* block) {
  ++blocksMade;
  bytesInUse += static_cast<std::int64_t>(malloc_usable_size(block));
  mostBytesInUse = std::max(mostBytesInUse, bytesInUse);
}

void release(void* block) noexcept {
  if (isMetering) bytesInUse -= static_cast<std::int64_t>(malloc_usable_size(block));
  std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
  void* const block = std::malloc(size);
  if (!block) throw std::bad_alloc();
  if (isMetering) noteMade(block);
  return block;
}

void operator delete(void* block) noexcept {
  release(block);
}

void operator delete(void* block, std::size_t) noexcept {
  release(block);
}

namespace autonotify::bench {

void MemoryMeter::Start() {
  sqlite3_memory_highwater(1);
  sqliteBefore_ = sqlite3_memory_used();
  blocksMade = bytesInUse = mostBytesInUse = 0;
  isMetering = true;
}

void MemoryMeter::Stop(Result* result) {
  isMetering = false;
  result->num_allocs = blocksMade;
  result->max_bytes_used = mostBytesInUse + sqlite3_memory_highwater(0) - sqliteBefore_;
}

}  // namespace autonotify::bench
