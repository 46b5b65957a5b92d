#include "host/services/HostWorkingFolder.h"

#include <filesystem>
#include <system_error>

#include "host/services/host_errors.h"

namespace autonotify::host {

std::string HostWorkingFolder::getWorkingFolder() {
  namespace fs = std::filesystem;
  std::error_code error;
  if (fs::create_directories(folder_, error)) fs::permissions(folder_, fs::perms::owner_all, error);
  if (error || !fs::is_directory(folder_, error)) {
    throw PlatformError(error_number::pathNotFound, "Cannot make the working folder " + folder_,
                        "WorkingFolderReference");
  }
  return folder_;
}

}  // namespace autonotify::host
