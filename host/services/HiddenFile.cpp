#include "host/services/HiddenFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <random>
#include <regex>

#include "host/services/new_name.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

std::string newHiddenName(const std::string& name) {
  return "." + name + "." + std::to_string(std::random_device{}()) + ".tmp";
}

bool isHiddenName(const std::string& name) {
  static const std::regex hidden("\\.([0-9a-f]{40}|hvnotify)\\.[0-9]+\\.tmp");
  return std::regex_match(name, hidden);
}

/// Whether the new file was locked before anyone took it for an abandoned one. Where a file system
/// has no locks, nobody does.
bool lockNew(int folder, const std::string& name, int file) {
  ::flock(file, LOCK_EX);
  return ::faccessat(folder, name.c_str(), F_OK, 0) == 0 || errno != ENOENT;
}

bool writeAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

HiddenFile::HiddenFile(int folder, const std::string& name, mode_t mode)
    : folder_(folder), file_(create(name, mode)) {}

HiddenFile::~HiddenFile() {
  // Of a file that was renamed there is nothing left to take away.
  if (file_.isOpen()) ::unlinkat(folder_, name_.c_str(), 0);
}

int HiddenFile::create(const std::string& name, mode_t mode) {
  while (true) {
    name_ = newHiddenName(name);
    const int file = ::openat(folder_, name_.c_str(),
                              O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    if (file < 0 || lockNew(folder_, name_, file)) return file;
    ::close(file);
  }
}

bool HiddenFile::write(std::string_view content) {
  return file_.isOpen() && writeAll(file_.get(), content);
}

bool HiddenFile::keep() {
  return file_.isOpen() && ::fsync(file_.get()) == 0;
}

void HiddenFile::beginKeeping() {
  if (file_.isOpen()) ::sync_file_range(file_.get(), 0, 0, SYNC_FILE_RANGE_WRITE);
}

bool HiddenFile::giveName(const std::string& path) {
  return giveNewName(folder_, name_.c_str(), path.c_str());
}

bool HiddenFile::takePlaceOf(const std::string& path) {
  return ::renameat(folder_, name_.c_str(), folder_, path.c_str()) == 0;
}

void HiddenFile::removeAbandoned(const std::string& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (!isHiddenName(entry->path().filename().string())) continue;
    const Descriptor file(::open(entry->path().c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC));
    if (file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0)
      ::unlink(entry->path().c_str());
  }
}

}  // namespace autonotify::host
