#pragma once

#include <string>
#include <utility>

#include "contract/WorkingFolderReference.h"

namespace autonotify::host {

class HostWorkingFolder : public WorkingFolderReference {
 public:
  explicit HostWorkingFolder(std::string folder) : folder_(std::move(folder)) {}
  /// Takes the folder away unless something is left in it.
  ~HostWorkingFolder() override;
  HostWorkingFolder(const HostWorkingFolder&) = delete;
  HostWorkingFolder& operator=(const HostWorkingFolder&) = delete;

  /// Makes the folder when it is missing, for its owner alone: letters and faxes pass through it.
  /// Throws PlatformError (76) when it cannot be made or others may read it.
  std::string getWorkingFolder() override;

 private:
  std::string folder_;
};

}  // namespace autonotify::host
