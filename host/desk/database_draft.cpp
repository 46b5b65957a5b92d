#include "host/desk/database_draft.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <random>
#include <string_view>

#include "host/database/dialect/DatabaseError.h"
#include "host/services/new_name.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t identityDigits = 32;
constexpr std::string_view draftEnding = ".new";
/// Of the files that the engine keeps beside a draft, and of the draft itself.
constexpr std::string_view engineEndings[] = {"-journal", "-wal", "-shm", ""};

[[noreturn]] void fail(const fs::path& target, const std::error_code& error) {
  throw DatabaseError(database_error::inputOutput,
                      fmt::format("cannot make {}: {}", target.string(), error.message()));
}

std::error_code lastError() {
  return {errno, std::generic_category()};
}

/// Whether the name is that of a draft of `target` or of a file that belongs to one.
bool isOfDraft(std::string_view name, std::string_view target) {
  const auto isDigit = [](char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'f');
  };
  for (const std::string_view ending : engineEndings) {
    if (!name.ends_with(ending)) continue;
    name.remove_suffix(ending.size());
    break;
  }
  if (name.size() != target.size() + 1 + identityDigits + draftEnding.size()) return false;
  return name.starts_with(target) && name[target.size()] == '.' && name.ends_with(draftEnding) &&
         std::ranges::all_of(name.substr(target.size() + 1, identityDigits), isDigit);
}

fs::path folderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : ".";
}

int openFolderOf(const fs::path& file) {
  const int folder = ::open(folderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) fail(file, lastError());
  return folder;
}

void removeDrafts(const fs::path& folder, const std::string& target) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    std::error_code ignored;
    if (isOfDraft(entry->path().filename().string(), target)) fs::remove(entry->path(), ignored);
  }
}

}  // namespace

std::string newIdentity() {
  std::random_device device;
  return fmt::format("{:08x}{:08x}{:08x}{:08x}", device(), device(), device(), device());
}

// Whoever makes a database shares the lock on its folder, and a process that ends gives it up: so
// who has it alone knows that no draft is worked on.
DraftFolder::DraftFolder(const fs::path& target) : folder_(openFolderOf(target)) {
  const int folder = folder_.get();
  if (::flock(folder, LOCK_EX | LOCK_NB) == 0)
    removeDrafts(folderOf(target), target.filename().string());
  while (::flock(folder, LOCK_SH) != 0 && errno == EINTR) continue;
}

// Some file systems have nothing to make last.
bool DraftFolder::makeDurable() const {
  return ::fsync(folder_.get()) == 0 || errno == EINVAL;
}

Draft::Draft(const DraftFolder& folder, const fs::path& target)
    : folder_(folder),
      target_(target),
      path_(fmt::format("{}.{}{}", target.string(), newIdentity(), draftEnding)) {}

Draft::~Draft() {
  std::error_code ignored;
  for (const std::string_view ending : engineEndings)
    fs::remove(path_.string().append(ending), ignored);
}

void Draft::finish() const {
  // With two names for a moment the file could be kept from being opened, if that moment were the
  // last.
  if (!giveNewName(AT_FDCWD, path_.c_str(), target_.c_str())) fail(target_, lastError());
  if (folder_.makeDurable()) return;
  const std::error_code error = lastError();
  std::error_code ignored;
  fs::remove(target_, ignored);
  fail(target_, error);
}

}  // namespace autonotify::host
