#include "memory_reserve.h"

#include <cstddef>
#include <new>

namespace autonotify::console {
namespace {

constexpr std::size_t reserveSize = 256 * 1024;
void* reserve = nullptr;

/// Without a handler the next failure is thrown.
void giveReserve() {
  std::set_new_handler(nullptr);
  ::operator delete(reserve);
}

}  // namespace

void keepMemoryReserve() {
  reserve = ::operator new(reserveSize, std::nothrow);
  if (reserve) std::set_new_handler(giveReserve);
}

}  // namespace autonotify::console
