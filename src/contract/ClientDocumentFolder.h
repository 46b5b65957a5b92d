#pragma once

#include <string>

#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify {

/// Where the documents of one client live; a new object for each use.
class ClientDocumentFolder : public HostObject {
 public:
  static constexpr const char* className = "ClientDocumentFolder";
  // Makes the client's folder when there is none yet. False when there is no such client. Throws
  // PlatformError when the folder cannot be used.
  virtual bool openForContact(Id contactID) = 0;
  virtual bool openForCompany(Id companyID) = 0;
  /// Of the kinds of folders that a client has; see document_folder_kind.
  virtual void selectFolderKind(int kind) = 0;
  /// The path of the selected folder of the client that was opened.
  virtual std::string getFolderPath() = 0;
};

namespace document_folder_kind {
/// What the firm sent to the client.
inline constexpr int correspondence = 2;
}  // namespace document_folder_kind

}  // namespace autonotify
