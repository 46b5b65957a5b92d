#pragma once

#include <string>
#include <string_view>

#include "host/services/Descriptor.h"

namespace autonotify::host {

/// A new file under a hidden name of its own, which goes with the object unless it was given a
/// name, and with removeAbandoned when its program was ended. It is locked while the object lives.
class HiddenFile {
 public:
  /// `folder` is an open folder, `name` what the file is to be.
  HiddenFile(int folder, const std::string& name);
  ~HiddenFile();
  HiddenFile(const HiddenFile&) = delete;
  HiddenFile& operator=(const HiddenFile&) = delete;

  // Both are false with errno set when it cannot be done.

  /// All of the content is on the disk then.
  bool write(std::string_view content);
  /// `path` begins at the folder. Never replaces a file.
  bool giveName(const std::string& path);

  /// Takes away what programs left in the folder that were ended while they wrote.
  static void removeAbandoned(const std::string& folder);

 private:
  int create(const std::string& name);

  int folder_;
  std::string name_;
  Descriptor file_;
};

}  // namespace autonotify::host
