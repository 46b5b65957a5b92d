#pragma once

#include <memory>
#include <optional>

#include "contract/ClientDocumentFolder.h"
#include "contract/FileSystemObject.h"
#include "support/host_calls.h"
#include "support/temporary_folder.h"

namespace autonotify::test {

/// "Contact 3", "Company 5", with a folder for each kind; below 1, from `firstWithout` on, none.
class TestDocumentFolder : public ClientDocumentFolder {
 public:
  static constexpr Id firstWithout = 100;
  TestDocumentFolder(const TemporaryFolder& place, HostCalls& door) : place_(place), door_(door) {}

  bool openForContact(Id id) override { return open("Contact", id); }
  bool openForCompany(Id id) override { return open("Company", id); }
  void selectFolderKind(int kind) override {
    door_.pass("selectFolderKind");
    path_ += "/" + std::to_string(kind);
  }
  std::string getFolderPath() override {
    door_.pass("getFolderPath");
    std::filesystem::create_directories(path_);
    return path_;
  }

 private:
  bool open(const std::string& client, Id id) {
    door_.pass("openFor" + client, [&] { return std::to_string(id); });
    path_ = place_ / (client + " " + std::to_string(id));
    return id > 0 && id < firstWithout;
  }

  const TemporaryFolder& place_;
  HostCalls& door_;
  std::string path_;
};

/// Files on the disk; what is written is there once it is closed.
class TestTextFiles : public FileSystemObject {
 public:
  explicit TestTextFiles(HostCalls& door) : door_(door) {}

  std::unique_ptr<TextFile> openTextFile(const std::string& path, OpenFor, bool create) override {
    EXPECT_TRUE(create);
    return std::make_unique<File>(door_, "openTextFile", path);
  }
  std::unique_ptr<TextFile> createTextFile(const std::string& path, bool overwrite) override {
    EXPECT_TRUE(overwrite);
    if (path.empty()) throw PlatformError(52, "Bad file name", className);
    return std::make_unique<File>(door_, "createTextFile", path);
  }

 private:
  struct File : TextFile {
    File(HostCalls& calls, const char* call, std::string name)
        : door(calls), path(std::move(name)) {
      door.pass(call, [&] { return path; });
    }
    std::string readAll() override { return door.pass("readAll"), readFile(path); }
    void write(const std::string& text) override {
      door.pass("write");
      written = written.value_or("") + text;
    }
    void close() override {
      door.pass("close");
      if (written) writeFile(path, *written);
    }
    HostCalls& door;
    std::string path;
    std::optional<std::string> written;
  };

  HostCalls& door_;
};

}  // namespace autonotify::test
