#include "host/documents/HostClientDocumentFolder.h"

#include <filesystem>
#include <system_error>

#include "host/documents/safe_name.h"
#include "host/services/host_errors.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(int number, const std::string& what) {
  throw PlatformError(number, what, ClientDocumentFolder::className);
}

bool isFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(fs::symlink_status(path, error));
}

}  // namespace

bool HostClientDocumentFolder::openForContact(Id contactID) {
  if (!clients_.isContactClient(contactID)) return false;
  open("P" + std::to_string(contactID), clients_.getContactDisplayName(contactID));
  return true;
}

bool HostClientDocumentFolder::openForCompany(Id companyID) {
  const std::string name = clients_.getCompanyDisplayName(companyID);
  if (name.empty() && !clients_.isCompanyClient(companyID)) return false;
  open(std::to_string(companyID), name);
  return true;
}

void HostClientDocumentFolder::selectFolderKind(int kind) {
  if (kind != document_folder_kind::correspondence)
    fail(error_number::invalidProcedureCall,
         "There is no folder of kind " + std::to_string(kind) + " for a client");
}

std::string HostClientDocumentFolder::getFolderPath() {
  if (path_.empty()) fail(error_number::pathNotFound, Words::tr("The folder of no client is open"));
  return path_;
}

void HostClientDocumentFolder::open(const std::string& number, const std::string& clientName) {
  const std::string safe = safeName(clientName);
  std::string name = safe.empty() ? number : number + ' ' + safe;
  if (!isFolder(fs::path(documents_) / name)) {
    const std::string known = folderOfNumber(number);
    if (known.empty()) {
      makeFolder(name);
    } else {
      name = known;
    }
  }
  path_ = (fs::path(documents_) / name).string();
}

/// The first by name; empty for none.
std::string HostClientDocumentFolder::folderOfNumber(const std::string& number) const {
  std::string found;
  std::error_code error;
  for (fs::directory_iterator entry(documents_, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const bool isOfNumber = name == number || name.starts_with(number + ' ');
    if (isOfNumber && isFolder(entry->path()) && (found.empty() || name < found)) found = name;
  }
  return found;
}

void HostClientDocumentFolder::makeFolder(const std::string& name) const {
  const fs::path path = fs::path(documents_) / name;
  std::error_code error;
  // Another desk may make it at the same moment.
  if (fs::create_directory(path, error) || isFolder(path)) return;
  if (!error) error = std::make_error_code(std::errc::file_exists);
  fail(error == std::errc::no_such_file_or_directory ? error_number::pathNotFound
                                                     : error_number::pathFileAccess,
       Words::tr("Cannot make the folder for documents %1: %2", {path.string(), error.message()}));
}

}  // namespace autonotify::host
