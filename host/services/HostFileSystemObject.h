#pragma once

#include <functional>
#include <utility>

#include "contract/FileSystemObject.h"

namespace autonotify::host {

class HostFileSystemObject : public FileSystemObject {
 public:
  using Written = std::function<void(const std::string& path, bool isBeside)>;

  /// Below `keptFolder` no file is ever replaced: one that would be stays, and the new one takes
  /// the next free name beside it. `written` hears the path of each that is written there, and
  /// whether it had to step aside so. Empty for no such folder.
  explicit HostFileSystemObject(std::string keptFolder = {}, Written written = {})
      : keptFolder_(std::move(keptFolder)), written_(std::move(written)) {}

  std::unique_ptr<TextFile> openTextFile(const std::string& path, OpenFor mode,
                                         bool create) override;
  std::unique_ptr<TextFile> createTextFile(const std::string& path, bool overwrite) override;

 private:
  bool isKept(const std::string& path) const;

  std::string keptFolder_;
  Written written_;
};

}  // namespace autonotify::host
