#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "host/services/Descriptor.h"

namespace autonotify::host {

/// A new file under a hidden name of its own, which goes with the object unless it was given a
/// name, and with removeAbandoned when its program was ended. It is locked while the object lives.
class HiddenFile {
 public:
  /// `folder` is an open folder. `name` stands in the hidden one: what the file is to be, as 40
  /// hexadecimal digits, or `anyDocument`. `mode` are its permissions, of which the process's mask
  /// takes away.
  HiddenFile(int folder, const std::string& name, mode_t mode = S_IRUSR | S_IWUSR);
  ~HiddenFile();
  HiddenFile(const HiddenFile&) = delete;
  HiddenFile& operator=(const HiddenFile&) = delete;

  /// False with errno set when it could not be made.
  bool isOpen() const { return file_.isOpen(); }

  // All are false with errno set when it cannot be done.

  /// Puts the content behind what was written before.
  bool write(std::string_view content);
  /// All that was written is on the disk then.
  bool keep();
  /// Sets off what keep() waits for: of many files the first keep() then takes most of the time.
  void beginKeeping();
  /// `path` begins at the folder. Never replaces a file.
  bool giveName(const std::string& path);
  /// The same, but replaces a file of that name.
  bool takePlaceOf(const std::string& path);

  /// Takes away what programs left in the folder that were ended while they wrote.
  static void removeAbandoned(const std::string& folder);

  static constexpr const char* anyDocument = "hvnotify";

 private:
  int create(const std::string& name, mode_t mode);

  int folder_;
  std::string name_;
  Descriptor file_;
};

}  // namespace autonotify::host
