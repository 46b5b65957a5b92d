#pragma once

#include <memory>
#include <string>

#include "platform/HostObject.h"

namespace autonotify {

/// A text file that is open. Texts are bytes, as they stand in the file.
class TextFile : public HostObject {
 public:
  virtual std::string readAll() = 0;
  virtual void write(const std::string& text) = 0;
  /// A file that was written has its name and its whole content from here on; one that is never
  /// closed does not come into being. After a failure it may be tried again.
  virtual void close() = 0;
};

/// The service for text files. Paths are UTF-8. All throw PlatformError: 53 when there is no such
/// file, 58 when there is one already, 61 when the disk is full, 75 or 76 when the path cannot be
/// used.
class FileSystemObject : public HostObject {
 public:
  static constexpr const char* className = "Scripting.FileSystemObject";
  enum class OpenFor : int { reading = 1 };
  /// Never null.
  virtual std::unique_ptr<TextFile> openTextFile(const std::string& path, OpenFor mode,
                                                 bool create) = 0;
  /// Never null. `overwrite` replaces a file of that name, or takes a name beside it where the host
  /// keeps what is there; without it there must be none.
  virtual std::unique_ptr<TextFile> createTextFile(const std::string& path, bool overwrite) = 0;
};

}  // namespace autonotify
