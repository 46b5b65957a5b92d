#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>

#include "contract/clientDropDownCtrlReference.h"
#include "host/clients/lookup_table.h"

namespace autonotify::host {

/// The client, contact and staff lookups over a firm's database, on any engine: it reads through
/// the database contract alone.
///
/// A single lookup reads the row of its key, so that it is never older than the question. Between
/// setClientLookupBatch(True) and (False) each table is read whole at the first lookup that wants
/// it and kept; changes made meanwhile are not seen. The end of the batch, the start of another and
/// refresh() drop what is kept. A host should call refresh() when an operation of the component has
/// returned: one that was left early may not have ended its batch.
///
/// With a closed database nothing is found. Failures of the database pass through as PlatformError.
class ClientDirectory : public clientDropDownCtrlReference {
 public:
  /// `database` must outlive this object. `onBatch` is told when a batch begins and when it ends:
  /// the database may be read differently meanwhile.
  explicit ClientDirectory(DatabaseReference& database, std::function<void(bool)> onBatch = {});

  /// A company with accounting data whose `ShowThisClient` is set.
  bool isCompanyClient(Id companyId) override;
  /// A contact of the address book. Companies' people count too: a diary item may be for one.
  bool isContactClient(Id contactId) override;
  Id getCompanyIDFromClientID(Id clientId) override;
  Id getClientDataIDFromCompanyID(Id companyId) override;
  Id getDefaultContactID(Id companyId) override;
  /// The company's name, or its corporate name when it has no other.
  std::string getCompanyDisplayName(Id companyId) override;
  /// The display name, or first and last name when it is empty.
  std::string getContactDisplayName(Id contactId) override;
  /// The firm's own name is that of its first record that has one.
  std::string getCompanyNameFromClientID(Id clientId) override;
  /// `withSpouse` False gives the contact's name alone. For `form` 2, "Jane & John Smith" when both
  /// bear one last name or the spouse's is not known; otherwise, and for every other form, both
  /// full names: "Jane Smith & John Doe". Without a spouse the contact's display name.
  std::string getContactAndSpouseName(Id contactId, bool withSpouse, int form) override;
  /// A default contact's name, phone and email that the company does not hold come from the
  /// contact.
  std::string getCompanyInfoItem(Id companyId, std::int16_t item) override;
  /// Phone, fax and email at work before those at home. A person has no default contact.
  std::string getContactInfoItem(Id contactId, std::int16_t item) override;
  std::string getUserNameFromID(Id userId) override;
  /// By display name in any case, blanks around it overlooked.
  Id getUserIDFromName(const std::string& name) override;
  std::string getCategoryName(Id categoryId) override;
  /// The category whose special code is 1.
  Id getMainAddressBookCategoryID() override;
  void setClientLookupBatch(bool batch) override;
  int getListOrder() override { return listOrder_; }
  /// By name, whatever its case; of clients of one name the company counts before the contact, and
  /// the older one before the younger.
  std::vector<std::string> getClientNames() override;
  std::vector<std::string> getEmployeeNames() override;
  ListedClient getClientFromName(const std::string& name) override;
  void registerPanel(int key, std::shared_ptr<HostObject> panel) override {
    panels_[key] = std::move(panel);
  }
  std::shared_ptr<HostObject> getPanel(int key) override { return panels_[key]; }

  void setListOrder(int order) { listOrder_ = order; }
  /// Drops what is kept and ends a batch that is under way.
  void refresh() { setClientLookupBatch(false); }

 private:
  const LookupRow* find(LookupTable& table, Id key) { return table.find(key, isBatch_); }
  std::string firmName();
  /// What a company does not hold itself.
  std::string itemOfDefaultContact(Id companyId, std::int16_t item);
  static std::string companyName(const LookupRow& company);
  static std::string contactName(const LookupRow& contact);
  std::vector<std::pair<std::string, ListedClient>> readClients();

  LookupTable companies_;
  LookupTable contacts_;
  LookupTable clientData_;
  LookupTable clientDataOfCompany_;
  LookupTable shownCompanies_;
  LookupTable defaultContacts_;
  LookupTable staff_;
  LookupTable categories_;
  LookupTable firms_;
  bool isBatch_ = false;
  std::function<void(bool)> onBatch_;
  int listOrder_ = 1;
  std::map<int, std::shared_ptr<HostObject>> panels_;
};

}  // namespace autonotify::host
