#include "host/services/HostFileSystemObject.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/services/HostFileUtility.h"
#include "host/services/NewFile.h"
#include "host/services/host_errors.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(int number, const std::string& what) {
  throw PlatformError(number, what, FileSystemObject::className);
}

class ReadTextFile : public TextFile {
 public:
  explicit ReadTextFile(const std::string& path) : path_(path), file_(path, std::ios::binary) {
    if (!file_.is_open() || fs::is_directory(path))
      fail(error_number::pathFileAccess,
           Words::tr("Cannot read %1: %2", {path, std::strerror(errno)}));
  }

  std::string readAll() override {
    std::string content{std::istreambuf_iterator<char>(file_), {}};
    if (file_.bad()) fail(error_number::pathFileAccess, Words::tr("Cannot read %1", {path_}));
    return content;
  }
  void write(const std::string&) override {
    fail(error_number::pathFileAccess, Words::tr("Open for reading alone: %1", {path_}));
  }
  void close() override { file_.close(); }

 private:
  std::string path_;
  std::ifstream file_;
};

enum class AtPlace { mustBeFree, replaced, kept };

/// Touches the disk when it is closed alone, so that closing it again after a failure is whole too.
class NewTextFile : public TextFile {
 public:
  NewTextFile(std::string path, AtPlace atPlace, HostFileSystemObject::Written written)
      : wanted_(path), path_(std::move(path)), atPlace_(atPlace), written_(std::move(written)) {}

  std::string readAll() override { return content_; }
  void write(const std::string& text) override { content_ += text; }
  void close() override {
    if (isClosed_) return;
    NewFile file(path_);
    file.write(content_);
    if (atPlace_ == AtPlace::replaced) {
      file.replace();
    } else if (!file.publish()) {
      return nameIsTaken();
    }
    isClosed_ = true;
    if (written_ && atPlace_ == AtPlace::kept) written_(path_, path_ != wanted_);
  }

 private:
  void nameIsTaken() {
    if (atPlace_ == AtPlace::mustBeFree)
      fail(error_number::fileAlreadyExists, Words::tr("There is a file %1 already", {path_}));
    path_ = HostFileUtility().getUniqueFileName(path_);
    close();
  }

  std::string wanted_;
  std::string path_;
  AtPlace atPlace_;
  HostFileSystemObject::Written written_;
  std::string content_;
  bool isClosed_ = false;
};

}  // namespace

std::unique_ptr<TextFile> HostFileSystemObject::openTextFile(const std::string& path, OpenFor,
                                                             bool create) {
  std::error_code error;
  if (!fs::exists(path, error)) {
    if (!create) fail(error_number::fileNotFound, Words::tr("No such file: %1", {path}));
    createTextFile(path, false)->close();
  }
  return std::make_unique<ReadTextFile>(path);
}

std::unique_ptr<TextFile> HostFileSystemObject::createTextFile(const std::string& path,
                                                               bool overwrite) {
  if (path.empty())
    fail(error_number::pathNotFound, Words::tr("There is no place to write the file to"));
  std::error_code error;
  if (!overwrite && fs::exists(fs::symlink_status(path, error)))
    fail(error_number::fileAlreadyExists, Words::tr("There is a file %1 already", {path}));
  const AtPlace atPlace = isKept(path) ? AtPlace::kept
                          : overwrite  ? AtPlace::replaced
                                       : AtPlace::mustBeFree;
  return std::make_unique<NewTextFile>(path, atPlace, written_);
}

bool HostFileSystemObject::isKept(const std::string& path) const {
  return !keptFolder_.empty() &&
         path.starts_with(HostFileUtility().addTrailingBackslash(keptFolder_));
}

}  // namespace autonotify::host
