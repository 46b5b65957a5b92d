#pragma once

#include <string>

namespace autonotify {

class WorkingFolderReference {
 public:
  virtual ~WorkingFolderReference() = default;
  /// The folder for temporary files.
  virtual std::string getWorkingFolder() = 0;
};

}  // namespace autonotify
