#include "host/services/HostWorkingFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "host/services/host_errors.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

/// Another user could have made it before, to read what passes through it.
bool isOursAlone(const std::string& folder) {
  struct stat status {};
  return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         status.st_uid == ::geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

}  // namespace

HostWorkingFolder::~HostWorkingFolder() {
  std::error_code error;
  fs::remove(folder_, error);
}

std::string HostWorkingFolder::getWorkingFolder() {
  std::error_code error;
  if (fs::create_directories(folder_, error)) fs::permissions(folder_, fs::perms::owner_all, error);
  if (error || !isOursAlone(folder_)) {
    throw PlatformError(error_number::pathNotFound,
                        Words::tr("Cannot make the working folder %1", {folder_}),
                        "WorkingFolderReference");
  }
  return folder_;
}

}  // namespace autonotify::host
