#include "host/mail/Outbox.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <random>
#include <string_view>
#include <utility>

namespace autonotify::host {
namespace {

[[noreturn]] void fail(const std::string& what, int error) {
  throw MailError(what + ": " + std::strerror(error) + ".");
}

/// An open file or folder. Numbers below 0 stand for none.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int get() const { return number_; }
  /// Closes now; an error of a write may only show here.
  bool close() { return ::close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

Descriptor openFolder(const std::string& path) {
  return Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

std::string fileName(const std::string& name) {
  return name + ".eml";
}

std::string sentName(const std::string& name) {
  return "sent/" + fileName(name);
}

enum class Entry { none, file, other };

Entry entryAt(int folder, const std::string& name) {
  struct stat status {};
  if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return Entry::none;
  return S_ISREG(status.st_mode) && status.st_size > 0 ? Entry::file : Entry::other;
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

/// A file under a hidden name of its own, which goes with the object unless it was given a name.
class HiddenFile {
 public:
  HiddenFile(int folder, const std::string& name)
      : folder_(folder),
        name_("." + name + "." + std::to_string(std::random_device{}()) + ".tmp"),
        file_(::openat(folder, name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                       S_IRUSR | S_IWUSR)) {}
  ~HiddenFile() {
    if (exists_) ::unlinkat(folder_, name_.c_str(), 0);
  }
  HiddenFile(const HiddenFile&) = delete;
  HiddenFile& operator=(const HiddenFile&) = delete;

  bool write(std::string_view content) {
    exists_ = file_.get() >= 0;
    return exists_ && writeAll(file_.get(), content) && ::fsync(file_.get()) == 0 && file_.close();
  }

  /// Never replaces a file. File systems without such a renaming have links.
  bool giveName(const std::string& name) {
    constexpr unsigned noReplace = 1;  // RENAME_NOREPLACE
    if (::renameat2(folder_, name_.c_str(), folder_, name.c_str(), noReplace) == 0) {
      exists_ = false;
      return true;
    }
    if (errno != EINVAL && errno != ENOSYS) return false;
    return ::linkat(folder_, name_.c_str(), folder_, name.c_str(), 0) == 0;
  }

 private:
  int folder_;
  std::string name_;
  Descriptor file_;
  bool exists_ = false;
};

}  // namespace

bool Outbox::holds(const std::string& name) const {
  const Descriptor folder = openFolder(folder_);
  return folder.get() >= 0 && (entryAt(folder.get(), fileName(name)) == Entry::file ||
                               entryAt(folder.get(), sentName(name)) == Entry::file);
}

bool Outbox::wasSent(const std::string& name) const {
  const Descriptor folder = openFolder(folder_);
  return folder.get() >= 0 && entryAt(folder.get(), sentName(name)) == Entry::file;
}

void Outbox::moveToSent(const std::string& name) const {
  const Descriptor folder = openFolder(folder_);
  ::mkdirat(folder.get(), "sent", S_IRWXU);
  if (::renameat(folder.get(), fileName(name).c_str(), folder.get(), sentName(name).c_str()) != 0)
    fail("The message was sent, but cannot be put aside in the outbox folder \"" + folder_ + "\"",
         errno);
  // Not being able to make the move last is no failure: a crash that undoes it leaves a message of
  // which it is not known whether it went out, and that is not sent again by itself.
  const Descriptor sent(::openat(folder.get(), "sent", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  ::fsync(sent.get());
  ::fsync(folder.get());
}

void Outbox::withdraw(const std::string& name) const {
  const Descriptor folder = openFolder(folder_);
  if (::unlinkat(folder.get(), fileName(name).c_str(), 0) != 0 && errno != ENOENT)
    fail("The message cannot be taken out of the outbox folder \"" + folder_ + "\"", errno);
}

bool Outbox::put(const std::string& name, const std::string& content) const {
  const std::string own = fileName(name);
  const Descriptor folder = openFolder(folder_);
  if (folder.get() < 0) fail("The outbox folder \"" + folder_ + "\" cannot be opened", errno);
  if (entryAt(folder.get(), sentName(name)) == Entry::file) return false;
  switch (entryAt(folder.get(), own)) {
    case Entry::file:
      return false;
    case Entry::other:
      fail("The message cannot be put into the outbox, \"" + own + "\" is in its way", EEXIST);
    case Entry::none:
      break;
  }
  HiddenFile file(folder.get(), name);
  if (!file.write(content))
    fail("The message cannot be written into the outbox folder \"" + folder_ + "\"", errno);
  if (!file.giveName(own)) {
    const int error = errno;
    if (error == EEXIST && entryAt(folder.get(), own) == Entry::file) return false;
    fail("The message cannot be put into the outbox folder \"" + folder_ + "\"", error);
  }
  // A mail system may have taken another sender's message of this name since the first look.
  if (entryAt(folder.get(), sentName(name)) == Entry::file) {
    ::unlinkat(folder.get(), own.c_str(), 0);
    return false;
  }
  if (::fsync(folder.get()) != 0) {
    const int error = errno;
    // Left there, it would pass for one that was put in, though it may not last. Where it is gone
    // already, a mail system has it.
    const bool isTaken = ::unlinkat(folder.get(), own.c_str(), 0) != 0 && errno == ENOENT;
    if (!isTaken)
      fail("The message may not be kept in the outbox folder \"" + folder_ + "\"", error);
  }
  return true;
}

}  // namespace autonotify::host
