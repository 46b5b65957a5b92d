#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "contract/enumerations.h"
#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify {

/// Items of getCompanyInfoItem and getContactInfoItem.
namespace info_item {
inline constexpr std::int16_t clientId = 2;
inline constexpr std::int16_t supervisingPartner = 4;
inline constexpr std::int16_t managingAccountant = 5;
inline constexpr std::int16_t phone = 6;
inline constexpr std::int16_t fax = 7;
inline constexpr std::int16_t email = 8;
inline constexpr std::int16_t defaultContactName = 9;
inline constexpr std::int16_t defaultContactPhone = 10;
inline constexpr std::int16_t defaultContactEmail = 12;
}  // namespace info_item

/// The `ClientNum` that stands for the firm itself.
inline constexpr Id clientDataOfFirm = 0;

/// A client of the client list: a company or a contact, otherwise none.
struct ListedClient {
  enumAutoNotifyClientType type = enumAutoNotifyNone;
  Id id = noId;
  bool operator==(const ListedClient&) const = default;
};

/// The key of the panel that edits what the notification list searches for.
inline constexpr int searchPanelKey = 2;

/// The host's cached lookup of clients, contacts and staff. Unknown ids give -1 or empty text.
class clientDropDownCtrlReference {
 public:
  virtual ~clientDropDownCtrlReference() = default;
  /// The id is a company in the client list.
  virtual bool isCompanyClient(Id companyId) = 0;
  /// The id is a contact in the client list.
  virtual bool isContactClient(Id contactId) = 0;
  /// From a `Schedule.ClientNum` to the company.
  virtual Id getCompanyIDFromClientID(Id clientId) = 0;
  virtual Id getClientDataIDFromCompanyID(Id companyId) = 0;
  virtual Id getDefaultContactID(Id companyId) = 0;
  virtual std::string getCompanyDisplayName(Id companyId) = 0;
  virtual std::string getContactDisplayName(Id contactId) = 0;
  /// The company's name for a `Schedule.ClientNum`; for clientDataOfFirm the name under which the
  /// firm meets its clients.
  virtual std::string getCompanyNameFromClientID(Id clientId) = 0;
  /// Both names joined. Callers pass True and 2.
  virtual std::string getContactAndSpouseName(Id contactId, bool option1, int option2) = 0;
  /// See info_item.
  virtual std::string getCompanyInfoItem(Id companyId, std::int16_t item) = 0;
  virtual std::string getContactInfoItem(Id contactId, std::int16_t item) = 0;
  virtual std::string getUserNameFromID(Id userId) = 0;
  virtual Id getUserIDFromName(const std::string& name) = 0;
  virtual std::string getCategoryName(Id categoryId) = 0;
  virtual Id getMainAddressBookCategoryID() = 0;
  /// Announces the start (True) and the end (False) of a long scan.
  virtual void setClientLookupBatch(bool batch) = 0;
  /// The order of the client list: 1 company name, 2 corporate name, 3 and 4 client id, others
  /// none.
  virtual int getListOrder() = 0;

  // What a search offers: each name once, as people look for them.
  virtual std::vector<std::string> getClientNames() = 0;
  virtual std::vector<std::string> getEmployeeNames() = 0;
  /// The client of that name, in any case and whatever blanks stand around it.
  virtual ListedClient getClientFromName(const std::string& name) = 0;

  /// Keeps a window of the component for its next use, in place of the one that was kept; null
  /// gives that one back. The component gives back what is kept before its last object goes.
  virtual void registerPanel(int key, std::shared_ptr<HostObject> panel) = 0;
  /// Null when none is kept.
  virtual std::shared_ptr<HostObject> getPanel(int key) = 0;
};

}  // namespace autonotify
