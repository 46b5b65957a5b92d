#pragma once

#include <string>
#include <string_view>

#include "host/services/HiddenFile.h"

namespace autonotify::host {

/// A file that is there as a whole or not at all: it is written under a hidden name beside its
/// place, made durable, and given its name in one step. What interrupted programs left in a folder
/// goes when this program begins its first one there.
///
/// All throw PlatformError, which names the file: 61 when the disk is full, 76 when there is no
/// such folder, 75 for all else that stands in the way.
class NewFile {
 public:
  explicit NewFile(const std::string& path);

  void write(std::string_view content);
  /// Gives the file its name. False, with nothing done, when something of that name is there.
  bool publish();
  /// The same, in the place of a file that is there.
  void replace();

 private:
  void flush();
  void keep();
  void keepName();

  std::string path_;
  std::string name_;
  Descriptor folder_;
  HiddenFile file_;
  std::string unwritten_;
};

}  // namespace autonotify::host
