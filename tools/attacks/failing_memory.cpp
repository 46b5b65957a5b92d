// Makes an allocation of a program fail: loaded ahead of its libraries (LD_PRELOAD). The
// allocations of operator new are counted from the start of main. No part of the product.
//
//   FAIL_AT    the number of the allocation, from 1; 0: none fails
//   FAIL_HOW   "once": it alone fails; "scarce": from it on there is only what is given back
//   FAIL_LIST  a file for the number of allocations made, written when the program ends

#include <dlfcn.h>
#include <malloc.h>

#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

const char* setting(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

struct Plan {
  const long at = std::atol(setting("FAIL_AT"));
  const bool isScarce = std::strcmp(setting("FAIL_HOW"), "scarce") == 0;
  std::atomic<bool> isMainRunning = false;
  std::atomic<long> allocations = 0;
  /// Bytes that were given back since memory is scarce.
  std::atomic<long> left = 0;
};

Plan& plan() {
  static Plan made;
  return made;
}

bool isScarceNow() {
  return plan().isMainRunning && plan().isScarce && plan().at > 0 &&
         plan().allocations >= plan().at;
}

bool mayHave(std::size_t size) {
  if (!plan().isMainRunning) return true;
  if (++plan().allocations == plan().at) return false;
  if (!isScarceNow()) return true;
  const long left = plan().left -= static_cast<long>(size);
  if (left < 0) plan().left += static_cast<long>(size);
  return left >= 0;
}

void* take(std::size_t size, std::size_t alignment) {
  if (!mayHave(size)) return nullptr;
  const std::size_t taken = size > 0 ? size : 1;
  if (alignment <= alignof(max_align_t)) return std::malloc(taken);
  return std::aligned_alloc(alignment, (taken + alignment - 1) / alignment * alignment);
}

/// As the language has it: a handler may give something back, or throw.
void* allocate(std::size_t size, std::size_t alignment) {
  while (true) {
    if (void* memory = take(size, alignment)) return memory;
    const std::new_handler handler = std::get_new_handler();
    if (!handler) throw std::bad_alloc();
    handler();
  }
}

void* allocateOrNot(std::size_t size) noexcept {
  try {
    return allocate(size, 0);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void release(void* memory) noexcept {
  if (isScarceNow()) plan().left += static_cast<long>(::malloc_usable_size(memory));
  std::free(memory);
}

void writeCount() {
  plan().isMainRunning = false;
  if (std::FILE* file = std::fopen(setting("FAIL_LIST"), "w")) {
    std::fprintf(file, "%ld\n", plan().allocations.load());
    std::fclose(file);
  }
}

int (*realMain)(int, char**, char**);

int countedMain(int count, char** arguments, char** environment) {
  std::atexit(writeCount);
  plan().isMainRunning = true;
  return realMain(count, arguments, environment);
}

}  // namespace

void* operator new(std::size_t size) {
  return allocate(size, 0);
}
void* operator new[](std::size_t size) {
  return allocate(size, 0);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return allocateOrNot(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return allocateOrNot(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept {
  release(memory);
}
void operator delete[](void* memory) noexcept {
  release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  release(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
  release(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  release(memory);
}

extern "C" int __libc_start_main(int (*main)(int, char**, char**), int count, char** arguments,
                                 void (*begin)(), void (*end)(), void (*finish)(), void* stack) {
  realMain = main;
  using Start =
      int (*)(int (*)(int, char**, char**), int, char**, void (*)(), void (*)(), void (*)(), void*);
  const auto start = reinterpret_cast<Start>(::dlsym(RTLD_NEXT, "__libc_start_main"));
  return start(countedMain, count, arguments, begin, end, finish, stack);
}
