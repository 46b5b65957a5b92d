#pragma once

#include <filesystem>
#include <string>

#include "host/services/Descriptor.h"

namespace autonotify::host {

/// Digits of chance that nothing else has.
std::string newIdentity();

/// The folder of a database file that is being made. Drafts of the file that nobody works on any
/// more go when it is opened. Throws DatabaseError (inputOutput) when it cannot be.
class DraftFolder {
 public:
  explicit DraftFolder(const std::filesystem::path& target);

  /// What the folder lists outlives a power failure from here on. False when it may not, with the
  /// reason in errno.
  bool makeDurable() const;

 private:
  Descriptor folder_;
};

/// A file beside the wanted one, until everything is in it.
class Draft {
 public:
  Draft(const DraftFolder& folder, const std::filesystem::path& target);
  ~Draft();
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  const std::filesystem::path& path() const { return path_; }
  /// Gives the file its name, which must still be free. Throws DatabaseError (inputOutput).
  void finish() const;

 private:
  const DraftFolder& folder_;
  std::filesystem::path target_;
  std::filesystem::path path_;
};

}  // namespace autonotify::host
