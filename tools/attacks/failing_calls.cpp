// Makes one system call of a program fail, or the program end there: loaded ahead of its libraries
// (LD_PRELOAD). Calls on files below one folder and on sockets are counted, in the order in which
// they are made. No part of the product.
//
//   FAIL_FOLDER  the folder whose files count
//   FAIL_AT      the number of the call, from 1; 0: none fails
//   FAIL_HOW     "EIO", "ENOSPC", "EINTR": the call is not made and gives this error;
//                "short": it writes, or takes off a socket, half of what it was to;
//                "kill", "kill-after": the program is killed before or after the call
//   FAIL_LIST    a file for the names of the calls made, written when the program ends

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

namespace {

const char* setting(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

struct Plan {
  const std::string folder = setting("FAIL_FOLDER");
  const std::string how = setting("FAIL_HOW");
  const std::string list = setting("FAIL_LIST");
  const int at = std::atoi(setting("FAIL_AT"));
  std::atomic<int> calls = 0;
  const char* names[1 << 16] = {};

  /// True for the call that is to fail.
  bool isNext(const char* name) {
    const int number = ++calls;
    if (number < 1 << 16) names[number] = name;
    return number == at;
  }
};

// Never destroyed: calls are made up to the end.
Plan& plan() {
  static Plan& made = *new Plan;
  return made;
}

__attribute__((destructor)) void writeList() {
  std::FILE* file = plan().list.empty() ? nullptr : std::fopen(plan().list.c_str(), "w");
  if (!file) return;
  const int count = plan().calls;
  for (int number = 1; number <= count; ++number) std::fprintf(file, "%s\n", plan().names[number]);
  std::fclose(file);
}

bool isBelow(const std::string& path) {
  const std::string& folder = plan().folder;
  return !folder.empty() && path.compare(0, folder.size(), folder) == 0;
}

std::string targetOf(int file) {
  char target[PATH_MAX];
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  const ssize_t length = ::readlink(link.c_str(), target, sizeof target);
  return length > 0 ? std::string(target, static_cast<std::size_t>(length)) : std::string{};
}

bool counts(int file) {
  const std::string target = targetOf(file);
  return isBelow(target) || target.rfind("socket:", 0) == 0;
}

bool counts(int folder, const char* path) {
  if (path[0] == '/') return isBelow(path);
  if (folder != AT_FDCWD) return counts(folder);
  char here[PATH_MAX];
  return ::getcwd(here, sizeof here) && isBelow(std::string(here) + "/" + path);
}

bool counts(const char* path) {
  return counts(AT_FDCWD, path);
}

template <class Function>
Function original(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

template <class Result>
Result failed() {
  const std::string& how = plan().how;
  errno = how == "ENOSPC" ? ENOSPC : how == "EINTR" ? EINTR : EIO;
  if constexpr (std::is_pointer_v<Result>)
    return reinterpret_cast<Result>(-1);
  else
    return -1;
}

/// Makes the call unless it is the one to fail; `halved` is what it does when it is cut short.
template <class Call, class Halved>
auto guarded(const char* name, bool isCounted, Call call, Halved halved) -> decltype(call()) {
  if (!isCounted || !plan().isNext(name)) return call();
  const std::string& how = plan().how;
  if (how == "short") return halved();
  if (how.rfind("kill", 0) != 0) {
    // A descriptor is gone though closing it fails.
    if (std::strcmp(name, "close") == 0) call();
    return failed<decltype(call())>();
  }
  if (how == "kill-after") call();
  ::kill(::getpid(), SIGKILL);
  for (;;) ::pause();
}

template <class Call>
auto guarded(const char* name, bool isCounted, Call call) -> decltype(call()) {
  return guarded(name, isCounted, call, call);
}

std::size_t half(std::size_t size) {
  return size > 1 ? size / 2 : size;
}

/// A process may die while it lets a lock go, but no file system refuses it.
bool isLock(int command, const void* lock) {
  const bool isLocking = command == F_SETLK || command == F_SETLKW || command == F_OFD_SETLK ||
                         command == F_OFD_SETLKW;
  return isLocking && (plan().how.rfind("kill", 0) == 0 ||
                       static_cast<const struct flock*>(lock)->l_type != F_UNLCK);
}

}  // namespace

// The call of this name; `arguments` repeat the names of the parameters.
#define CALL(result, name, parameters, arguments, isCounted)                      \
  result name parameters {                                                        \
    static const auto call = original<result(*) parameters>(#name);               \
    return guarded(#name, isCounted, [&]() -> result { return call arguments; }); \
  }
// One that moves bytes; `halved` are its arguments when it is cut short.
#define TRANSFER(result, name, parameters, arguments, halved)            \
  result name parameters {                                               \
    static const auto call = original<result(*) parameters>(#name);      \
    return guarded(                                                      \
        #name, counts(file), [&]() -> result { return call arguments; }, \
        [&]() -> result { return call halved; });                        \
  }
// Behind the flags stands a mode, but only where a file may be made.
#define OPEN(name, parameters, types, arguments, isCounted)                       \
  int name parameters {                                                           \
    va_list rest;                                                                 \
    va_start(rest, flags);                                                        \
    const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(rest, mode_t) : 0; \
    va_end(rest);                                                                 \
    static const auto call = original<int(*) types>(#name);                       \
    return guarded(#name, isCounted, [&] { return call arguments; });             \
  }
#define LOCK(name)                                                      \
  int name(int file, int command, ...) {                                \
    va_list rest;                                                       \
    va_start(rest, command);                                            \
    void* argument = va_arg(rest, void*);                               \
    va_end(rest);                                                       \
    static const auto call = original<int (*)(int, int, void*)>(#name); \
    return guarded(#name, isLock(command, argument) && counts(file),    \
                   [&] { return call(file, command, argument); });      \
  }

extern "C" {

OPEN(open, (const char* path, int flags, ...), (const char*, int, mode_t), (path, flags, mode),
     counts(path))
OPEN(open64, (const char* path, int flags, ...), (const char*, int, mode_t), (path, flags, mode),
     counts(path))
OPEN(openat, (int folder, const char* path, int flags, ...), (int, const char*, int, mode_t),
     (folder, path, flags, mode), counts(folder, path))
OPEN(openat64, (int folder, const char* path, int flags, ...), (int, const char*, int, mode_t),
     (folder, path, flags, mode), counts(folder, path))
CALL(int, close, (int file), (file), counts(file))

CALL(ssize_t, read, (int file, void* data, size_t size), (file, data, size), counts(file))
CALL(ssize_t, pread, (int file, void* data, size_t size, off_t at), (file, data, size, at),
     counts(file))
CALL(ssize_t, pread64, (int file, void* data, size_t size, off64_t at), (file, data, size, at),
     counts(file))
TRANSFER(ssize_t, write, (int file, const void* data, size_t size), (file, data, size),
         (file, data, half(size)))
TRANSFER(ssize_t, pwrite, (int file, const void* data, size_t size, off_t at),
         (file, data, size, at), (file, data, half(size), at))
TRANSFER(ssize_t, pwrite64, (int file, const void* data, size_t size, off64_t at),
         (file, data, size, at), (file, data, half(size), at))
TRANSFER(ssize_t, writev, (int file, const struct iovec* parts, int count), (file, parts, count),
         (file, parts, 1))
TRANSFER(ssize_t, send, (int file, const void* data, size_t size, int flags),
         (file, data, size, flags), (file, data, half(size), flags))
TRANSFER(ssize_t, recv, (int file, void* data, size_t size, int flags), (file, data, size, flags),
         (file, data, half(size), flags))
CALL(int, connect, (int file, const struct sockaddr* address, socklen_t size),
     (file, address, size), counts(file))

LOCK(fcntl)
LOCK(fcntl64)
CALL(void*, mmap, (void* at, size_t size, int access, int flags, int file, off_t from),
     (at, size, access, flags, file, from), counts(file))
CALL(void*, mmap64, (void* at, size_t size, int access, int flags, int file, off64_t from),
     (at, size, access, flags, file, from), counts(file))
CALL(int, fsync, (int file), (file), counts(file))
CALL(int, fdatasync, (int file), (file), counts(file))
CALL(int, sync_file_range, (int file, off64_t offset, off64_t length, unsigned flags),
     (file, offset, length, flags), counts(file))
CALL(int, ftruncate, (int file, off_t size), (file, size), counts(file))
CALL(int, ftruncate64, (int file, off64_t size), (file, size), counts(file))
CALL(int, fchmod, (int file, mode_t mode), (file, mode), counts(file))

CALL(int, stat, (const char* path, struct stat* state), (path, state), counts(path))
CALL(int, stat64, (const char* path, struct stat64* state), (path, state), counts(path))
CALL(int, lstat, (const char* path, struct stat* state), (path, state), counts(path))
CALL(int, lstat64, (const char* path, struct stat64* state), (path, state), counts(path))
CALL(int, fstat, (int file, struct stat* state), (file, state), counts(file))
CALL(int, fstat64, (int file, struct stat64* state), (file, state), counts(file))
CALL(int, fstatat, (int folder, const char* path, struct stat* state, int flags),
     (folder, path, state, flags), counts(folder, path))
CALL(int, fstatat64, (int folder, const char* path, struct stat64* state, int flags),
     (folder, path, state, flags), counts(folder, path))
CALL(int, statx, (int folder, const char* path, int flags, unsigned mask, struct statx* state),
     (folder, path, flags, mask, state), counts(folder, path))
CALL(int, access, (const char* path, int mode), (path, mode), counts(path))

CALL(int, unlink, (const char* path), (path), counts(path))
CALL(int, unlinkat, (int folder, const char* path, int flags), (folder, path, flags),
     counts(folder, path))
CALL(int, rmdir, (const char* path), (path), counts(path))
CALL(int, remove, (const char* path), (path), counts(path))
CALL(int, mkdir, (const char* path, mode_t mode), (path, mode), counts(path))
CALL(int, mkdirat, (int folder, const char* path, mode_t mode), (folder, path, mode),
     counts(folder, path))
CALL(int, rename, (const char* from, const char* to), (from, to), counts(from))
CALL(int, renameat, (int folder, const char* from, int other, const char* to),
     (folder, from, other, to), counts(folder, from))
CALL(int, renameat2, (int folder, const char* from, int other, const char* to, unsigned flags),
     (folder, from, other, to, flags), counts(folder, from))
CALL(int, link, (const char* from, const char* to), (from, to), counts(from))
CALL(int, linkat, (int folder, const char* from, int other, const char* to, int flags),
     (folder, from, other, to, flags), counts(folder, from))

}  // extern "C"
