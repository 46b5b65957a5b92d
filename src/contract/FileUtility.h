#pragma once

#include <string>

#include "platform/HostObject.h"

namespace autonotify {

/// Helpers for paths and files. Paths are UTF-8.
class FileUtility : public HostObject {
 public:
  static constexpr const char* className = "FileUtility";
  virtual bool fileExists(const std::string& path) = 0;
  /// Throws PlatformError when the file cannot be deleted.
  virtual void deleteFile(const std::string& path) = 0;
  /// The folder's text ending in the platform's separator.
  virtual std::string addTrailingBackslash(const std::string& folder) = 0;
  /// The path itself when it is free, otherwise one beside it that is.
  virtual std::string getUniqueFileName(const std::string& path) = 0;
};

}  // namespace autonotify
