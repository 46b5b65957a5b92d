#pragma once

#include <functional>
#include <utility>

#include "contract/FileUtility.h"

namespace autonotify::host {

class HostFileUtility : public FileUtility {
 public:
  using Beside = std::function<void(const std::string& path)>;

  /// `beside` hears each name that is given in the place of one that is taken.
  explicit HostFileUtility(Beside beside = {}) : beside_(std::move(beside)) {}

  /// False for a folder, and for a path that cannot be looked at.
  bool fileExists(const std::string& path) override;
  /// Throws PlatformError: 53 when there is no such file, 75 when it cannot be deleted. Folders are
  /// never deleted.
  void deleteFile(const std::string& path) override;
  /// Empty text stays empty, so that it goes on meaning the current folder.
  std::string addTrailingBackslash(const std::string& folder) override;
  /// "Fax.mvw", "Fax (2).mvw", "Fax (3).mvw" ... A link that leads nowhere counts as taken.
  std::string getUniqueFileName(const std::string& path) override;

 private:
  Beside beside_;
};

}  // namespace autonotify::host
