#include "host/services/NewFile.h"

#include <fcntl.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <set>

#include "host/services/host_errors.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

constexpr mode_t ofOrdinaryFiles = 0666;
constexpr std::size_t largestBuffer = 1u << 16;

std::string folderOf(const std::string& path) {
  const std::string folder = fs::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

int numberOf(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return error_number::diskFull;
    case ENOENT:
    case ENOTDIR:
      return error_number::pathNotFound;
    default:
      return error_number::pathFileAccess;
  }
}

[[noreturn]] void fail(const std::string& path) {
  const int error = errno;
  throw PlatformError(numberOf(error),
                      Words::tr("Cannot write %1: %2", {path, std::strerror(error)}), "NewFile");
}

/// True the first time that the program asks for the folder.
bool isNewTo(const std::string& folder) {
  static std::set<fs::path> known;
  std::error_code error;
  return known.insert(fs::absolute(folder, error)).second;
}

int openFolderOf(const std::string& path) {
  const std::string folder = folderOf(path);
  if (isNewTo(folder)) HiddenFile::removeAbandoned(folder);
  const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) fail(path);
  return opened;
}

}  // namespace

NewFile::NewFile(const std::string& path)
    : path_(path),
      name_(fs::path(path).filename().string()),
      folder_(openFolderOf(path)),
      file_(folder_.get(), HiddenFile::anyDocument, ofOrdinaryFiles) {
  if (!file_.isOpen()) fail(path_);
}

void NewFile::write(std::string_view content) {
  unwritten_ += content;
  if (unwritten_.size() >= largestBuffer) flush();
}

void NewFile::flush() {
  if (!file_.write(unwritten_)) fail(path_);
  unwritten_.clear();
}

void NewFile::keep() {
  flush();
  if (!file_.keep()) fail(path_);
}

bool NewFile::publish() {
  keep();
  if (!file_.giveName(name_)) {
    if (errno == EEXIST) return false;
    fail(path_);
  }
  keepName();
  return true;
}

void NewFile::replace() {
  keep();
  if (!file_.takePlaceOf(name_) || ::fsync(folder_.get()) != 0) fail(path_);
}

void NewFile::keepName() {
  if (::fsync(folder_.get()) == 0) return;
  const int error = errno;
  // It would pass for one that lasts.
  ::unlinkat(folder_.get(), name_.c_str(), 0);
  errno = error;
  fail(path_);
}

}  // namespace autonotify::host
