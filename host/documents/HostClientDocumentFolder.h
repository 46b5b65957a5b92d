#pragma once

#include <string>
#include <utility>

#include "contract/ClientDocumentFolder.h"
#include "contract/clientDropDownCtrlReference.h"

namespace autonotify::host {

/// A folder for each client in a folder of them all: the client's number and name, "12 Maple Ridge
/// Law Group" for a company and "P12 Jane Smith" for a contact. A client whose name has changed
/// keeps the folder of the number. No link is followed out of the folder of them all.
class HostClientDocumentFolder : public ClientDocumentFolder {
 public:
  /// `documents` is there.
  HostClientDocumentFolder(clientDropDownCtrlReference& clients, std::string documents)
      : clients_(clients), documents_(std::move(documents)) {}

  // Both throw PlatformError (75, 76) when there is such a client whose folder cannot be made.
  bool openForContact(Id contactID) override;
  bool openForCompany(Id companyID) override;
  /// What was sent to a client lies in the folder itself; there is no other kind: throws
  /// PlatformError (5).
  void selectFolderKind(int kind) override;
  /// Throws PlatformError (76) before one is open.
  std::string getFolderPath() override;

 private:
  void open(const std::string& number, const std::string& clientName);
  std::string folderOfNumber(const std::string& number) const;
  void makeFolder(const std::string& name) const;

  clientDropDownCtrlReference& clients_;
  std::string documents_;
  std::string path_;
};

}  // namespace autonotify::host
