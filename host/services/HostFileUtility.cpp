#include "host/services/HostFileUtility.h"

#include <filesystem>
#include <system_error>

#include "host/services/host_errors.h"
#include "host/words/Words.h"
#include "platform/PlatformError.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

bool isTaken(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

}  // namespace

bool HostFileUtility::fileExists(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  return fs::exists(status) && !fs::is_directory(status);
}

void HostFileUtility::deleteFile(const std::string& path) {
  std::error_code error;
  if (fs::is_directory(fs::symlink_status(path, error)))
    throw PlatformError(error_number::pathFileAccess, Words::tr("This is a folder: %1", {path}),
                        className);
  const bool removed = fs::remove(path, error);
  if (error)
    throw PlatformError(error_number::pathFileAccess,
                        Words::tr("Cannot delete %1: %2", {path, error.message()}), className);
  if (!removed)
    throw PlatformError(error_number::fileNotFound, Words::tr("No such file: %1", {path}),
                        className);
}

std::string HostFileUtility::addTrailingBackslash(const std::string& folder) {
  constexpr char separator = fs::path::preferred_separator;
  return folder.empty() || folder.back() == separator ? folder : folder + separator;
}

std::string HostFileUtility::getUniqueFileName(const std::string& path) {
  const fs::path wanted(path);
  fs::path candidate = wanted;
  for (int number = 2; isTaken(candidate); ++number) {
    const std::string name = wanted.stem().string() + " (" + std::to_string(number) + ")";
    candidate.replace_filename(name + wanted.extension().string());
  }
  if (beside_ && candidate != wanted) beside_(candidate.string());
  return candidate.string();
}

}  // namespace autonotify::host
