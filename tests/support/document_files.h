#pragma once

#include <memory>
#include <string>
#include <utility>

#include "contract/ClientDocumentFolder.h"
#include "contract/FileSystemObject.h"
#include "support/host_calls.h"
#include "support/temporary_folder.h"

namespace autonotify::test {

/// The folders of clients, as files of a folder that goes with the test.
struct DocumentFiles {
  TemporaryFolder folder;
  bool openContacts = true;
  bool openCompanies = true;
};

/// "contact 3" and "company 5", with a folder below for each kind.
class TestDocumentFolder : public ClientDocumentFolder {
 public:
  TestDocumentFolder(const DocumentFiles& files, HostCalls& door) : files_(files), door_(door) {}

  bool openForContact(Id id) override { return open("Contact", id, files_.openContacts); }
  bool openForCompany(Id id) override { return open("Company", id, files_.openCompanies); }
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
  bool open(const std::string& client, Id id, bool opens) {
    door_.pass("openFor" + client, [&] { return std::to_string(id); });
    path_ = files_.folder / (client + " " + std::to_string(id));
    return opens;
  }

  const DocumentFiles& files_;
  HostCalls& door_;
  std::string path_;
};

/// A file that is written is there once it is closed.
class TestTextFile : public TextFile {
 public:
  TestTextFile(std::string path, HostCalls& door) : path_(std::move(path)), door_(door) {}

  std::string readAll() override {
    door_.pass("readAll");
    return readFile(path_);
  }
  void write(const std::string& text) override {
    door_.pass("write", [&] { return text; });
    written_ += text;
  }
  void close() override {
    door_.pass("close");
    if (!written_.empty()) writeFile(path_, written_);
  }

 private:
  std::string path_, written_;
  HostCalls& door_;
};

class TestTextFiles : public FileSystemObject {
 public:
  explicit TestTextFiles(HostCalls& door) : door_(door) {}

  std::unique_ptr<TextFile> openTextFile(const std::string& path, OpenFor, bool create) override {
    EXPECT_TRUE(create);
    return make("openTextFile", path);
  }
  std::unique_ptr<TextFile> createTextFile(const std::string& path, bool overwrite) override {
    EXPECT_TRUE(overwrite);
    if (path.empty()) throw PlatformError(52, "Bad file name", className);
    return make("createTextFile", path);
  }

 private:
  std::unique_ptr<TextFile> make(const char* call, const std::string& path) {
    door_.pass(call, [&] { return path; });
    return std::make_unique<TestTextFile>(path, door_);
  }

  HostCalls& door_;
};

}  // namespace autonotify::test
