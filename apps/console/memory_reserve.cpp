#include "memory_reserve.h"

#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#include "Reply.h"

namespace autonotify::console {
namespace {

constexpr std::size_t reserveSize = 256 * 1024;
void* reserve = nullptr;

/// Without a handler the next failure is thrown.
void giveReserve() {
  std::set_new_handler(nullptr);
  ::operator delete(reserve);
}

std::terminate_handler endOtherwise = nullptr;

/// A destructor that found no memory has nobody to tell: the program ends there as if killed, but
/// in words. What it was writing is taken back when the database is opened again.
[[noreturn]] void endInWords() {
  try {
    if (const std::exception_ptr error = std::current_exception()) std::rethrow_exception(error);
  } catch (const std::bad_alloc&) {
    tellNoMemory();
    _exit(exitDatabase);
  } catch (...) {
  }
  endOtherwise();
  std::abort();
}

}  // namespace

void tellNoMemory() {
  std::cerr << "hvnotify: there is not enough memory\n";
}

void keepMemoryReserve() {
  endOtherwise = std::set_terminate(endInWords);
  reserve = ::operator new(reserveSize, std::nothrow);
  if (reserve) std::set_new_handler(giveReserve);
}

}  // namespace autonotify::console
