#include <array>
#include <map>
#include <set>

#include "host/exchange/EntryBook.h"
#include "host/exchange/FirmIndex.h"
#include "host/exchange/cell_values.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

// Special codes of categories.
constexpr int businessCategory = 2;
constexpr int personalCategory = 3;

/// The fields whose names have the table in front, without it.
Fields fieldsOf(std::string_view table, const Fields& more) {
  Fields own;
  for (const Field& field : more)
    if (field.column.starts_with(table) && field.column[table.size()] == '.')
      own.push_back({field.column.substr(table.size() + 1), field.value});
  return own;
}

void setField(Fields& fields, std::string_view column, const Value& value) {
  for (Field& field : fields)
    if (field.column == column) field.value = value;
}

/// Where an address stands: as one text, and line by line.
struct AddressPlace {
  const char* whole;
  std::array<const char*, 3> lines;
};
constexpr AddressPlace companyAddress{"Address", {"Address1", "Address2", "Address3"}};
constexpr std::array contactAddresses{
    AddressPlace{"HomeAddress", {"HomeAddress1", "HomeAddress2", "HomeAddress3"}},
    AddressPlace{"BusinessAddress", {"BusinessAddress1", "BusinessAddress2", "BusinessAddress3"}}};

/// Lines of a cell, with the ends that lines of a whole address have.
std::string withLineEnds(const std::string& cell) {
  return replaceAll(replaceAll(cell, "\r\n", "\n"), "\n", "\r\n");
}

/// The address as one text, of the lines that the fields hold and those that the row keeps; nothing
/// where the fields hold none. The id is noId for a new row.
void addWholeAddress(HeldRows& rows, const std::string& table, Id id, const AddressPlace& place,
                     Fields& fields) {
  std::string whole;
  bool isGiven = false;
  for (const char* column : place.lines) {
    std::string line = textIn(fields, column);
    isGiven = isGiven || !line.empty();
    const Value* held = line.empty() ? rows.find(table, id, column) : nullptr;
    if (held) line = textOf(*held);
    if (!line.empty()) whole += (whole.empty() ? "" : "\r\n") + withLineEnds(line);
  }
  if (isGiven) fields.push_back({place.whole, whole});
}

class CompanyBook : public EntryBook {
 public:
  CompanyBook(FirmIndex& firm, RowSink& sink)
      : EntryBook(sink), firm_(firm), category_(firm.category(businessCategory)) {}

  void completeRow(Id id, Fields& fields) override {
    if (id < 0) fields.push_back({"CategoryNum", category_});
    addWholeAddress(firm_.rows(), "Companies", id, companyAddress, fields);
  }

  Id find(const Entry&, const Fields& fields) override {
    const Known* known = firm_.companies().match(knownIn(fields));
    return known ? known->id : noId;
  }

  void added(Id id, const Entry&, const Fields& fields, const Fields& more) override {
    remember(id, fields);
    sink().insert("CompaniesNotes", {{"CompanyNum", id}, {"ComapnyNum", id}});
    Fields data = fieldsOf("ClientData", more);
    data.push_back({"CompanyIDNum", id});
    const Id dataId = sink().insertRow("ClientData", data);
    firm_.addClientData(id, dataId);
    sink().insert("Clients", {{"CompanyIDNum", id}});
    addAccounts(dataId, fieldsOf("AccountingServices", more));
  }

  std::string changed(Id id, const Entry&, const Fields& fields) override {
    remember(id, fields);
    return {};
  }

  Id keyIn(std::string_view, Id id) override { return firm_.clientDataOf(id); }

 private:
  /// A client has one row in each of these, all under one key.
  void addAccounts(Id id, Fields services) {
    services.push_back({"AccountingServiceID", id});
    sink().insertRow("AccountingServices", services);
    sink().insert("ClientOptions", {{"ClientOptionID", id}});
    sink().insert("CorpTaxInfo", {{"CorpTaxInfoID", id}});
    sink().insert("WSIB_EHTInfo", {{"WSIB_EHTInfoID", id}});
    sink().insert("LawInfo", {{"LawInfoID", id}});
    sink().insert("OtherInfo", {{"OtherInfoID", id}});
    sink().insert("ClientUSInfo", {{"ClientUSInfoID", id}});
  }

  static Known knownIn(const Fields& fields) {
    return {.number = textIn(fields, "ClientIDStr"),
            .name = textIn(fields, "CompanyName"),
            .street = textIn(fields, "Address1")};
  }

  void remember(Id id, const Fields& fields) {
    Known known = knownIn(fields);
    known.id = id;
    firm_.companies().add(std::move(known));
  }

  FirmIndex& firm_;
  Id category_;
};

class ContactBook : public EntryBook {
 public:
  ContactBook(FirmIndex& firm, RowSink& sink)
      : EntryBook(sink), firm_(firm), category_(firm.category(personalCategory)) {
    forEachRow(firm.database(), "SELECT ContactIDNum FROM Clients WHERE ContactIDNum>=0;",
               [&](const Row& row) { clients_.insert(row.id("ContactIDNum")); });
  }

  void complete(const Entry&, Fields& fields) override { completeName(fields); }

  void completeRow(Id id, Fields& fields) override {
    for (const AddressPlace& place : contactAddresses)
      addWholeAddress(firm_.rows(), "Contacts", id, place, fields);
  }

  Id find(const Entry& entry, const Fields& fields) override {
    const Known wanted = knownIn(fields);
    const Known* known = firm_.contacts().match(wanted);
    if (!known && isNamedAsCompany(entry, wanted))
      throw EntryRefused('"' + wanted.name + "\" is one of the companies, and no person");
    return known ? known->id : noId;
  }

  void added(Id id, const Entry& entry, const Fields& fields, const Fields&) override {
    remember(id, fields);
    sink().insert("ContactsNotes", {{"ContactNum", id}});
    if (isClient(entry, true)) addClient(id);
    const Known* company = firm_.companies().named(textIn(fields, "BusinessName"));
    if (company) sink().insert("ContactLinks", {{"ContactIDNum", id}, {"CompanyNum", company->id}});
  }

  std::string changed(Id id, const Entry& entry, const Fields& fields) override {
    remember(id, fields);
    if (clients_.contains(id) || !isClient(entry, false)) return {};
    addClient(id);
    return "becomes a client";
  }

  std::string reference(const EntryColumn&, const Row& row) override {
    return clients_.contains(row.id("ContactID")) ? "yes" : "no";
  }

 private:
  /// Display name, first and last name each follow from the others.
  static void completeName(Fields& fields) {
    const std::string first = textIn(fields, "FirstName");
    const std::string last = textIn(fields, "LastName");
    const std::string display = textIn(fields, "DisplayName");
    if (display.empty() && first.empty() && last.empty())
      throw EntryRefused("it names nobody: Name, First Name and Last Name are empty");
    if (display.empty())
      fields.push_back({"DisplayName", withoutBlanks(first + ' ' + last)});
    else if (first.empty() && last.empty())
      splitName(fields, display);
  }

  /// "Jane Smith"; "Smith, Jane" becomes that.
  static void splitName(Fields& fields, const std::string& display) {
    const std::size_t comma = display.find(',');
    const bool isLastFirst = comma != display.npos;
    const std::size_t end = isLastFirst ? comma : display.rfind(' ') + 1;
    const std::string head = withoutBlanks(display.substr(0, end));
    const std::string tail = withoutBlanks(display.substr(end + (isLastFirst ? 1 : 0)));
    const std::string& first = isLastFirst ? tail : head;
    const std::string& last = isLastFirst ? head : tail;
    if (!first.empty()) fields.push_back({"FirstName", first});
    fields.push_back({"LastName", last});
    setField(fields, "DisplayName", withoutBlanks(first + ' ' + last));
  }

  bool isNamedAsCompany(const Entry& entry, const Known& wanted) const {
    const bool hasOwnNames = !entry.cell("First Name").empty() || !entry.cell("Last Name").empty();
    return !hasOwnNames && firm_.companies().named(wanted.name);
  }

  static bool isClient(const Entry& entry, bool fallback) {
    const std::string& cell = entry.cell("Client");
    return cell.empty() ? fallback : readFlag(cell);
  }

  void addClient(Id id) {
    clients_.insert(id);
    sink().insert("Clients", {{"ContactIDNum", id}});
    sink().insert(
        "ContactLinks",
        {{"ContactIDNum", id}, {"CategoryNum", category_}, {"IsPersonalTaxCategory", true}});
  }

  static Known knownIn(const Fields& fields) {
    const auto first = [&](const char* one, const char* other) {
      const std::string text = textIn(fields, one);
      return text.empty() ? textIn(fields, other) : text;
    };
    return {.number = textIn(fields, "ClientIDStr"),
            .name = textIn(fields, "DisplayName"),
            .street = textIn(fields, "HomeAddress1"),
            .phone = first("BusinessPhone_Main", "HomePhone_Main"),
            .fax = first("BusinessPhone_Fax", "HomePhone_Fax"),
            .email = first("BusinessEmail", "PersonalEmail")};
  }

  void remember(Id id, const Fields& fields) {
    Known known = knownIn(fields);
    known.id = id;
    firm_.contacts().add(std::move(known));
  }

  FirmIndex& firm_;
  Id category_;
  std::set<Id> clients_;
};

/// Which person belongs to which company, and whom to write to there.
class LinkBook : public EntryBook {
 public:
  LinkBook(FirmIndex& firm, RowSink& sink) : EntryBook(sink), firm_(firm) {
    forEachRow(firm.database(),
               "SELECT ContactLinkID, ContactIDNum, CompanyNum, DefaultContact FROM ContactLinks "
               "WHERE CompanyNum>=0;",
               [&](const Row& row) {
                 remember(row.id("ContactIDNum"), row.id("CompanyNum"), row.id("ContactLinkID"),
                          row.flag("DefaultContact"));
               });
  }

  void complete(const Entry& entry, Fields& fields) override {
    fields.push_back({"ContactIDNum", require(firm_.contacts(), "person", entry.cell("Contact"))});
    fields.push_back({"CompanyNum", require(firm_.companies(), "company", entry.cell("Company"))});
  }

  Id find(const Entry&, const Fields& fields) override {
    const auto found = links_.find({idIn(fields, "ContactIDNum"), idIn(fields, "CompanyNum")});
    return found == links_.end() ? noId : found->second;
  }

  void added(Id id, const Entry&, const Fields& fields, const Fields&) override {
    links_[{idIn(fields, "ContactIDNum"), idIn(fields, "CompanyNum")}] = id;
    if (isDefault(fields)) makeDefault(id, fields);
  }

  std::string changed(Id id, const Entry&, const Fields& fields) override {
    const auto former = defaults_.find(idIn(fields, "CompanyNum"));
    const bool isNew = former == defaults_.end() || former->second != id;
    if (!isDefault(fields) || !isNew) return {};
    makeDefault(id, fields);
    return "becomes the default contact";
  }

  bool isEntry(const Row& row) override {
    return firm_.contacts().find(row.id("ContactIDNum")) &&
           firm_.companies().find(row.id("CompanyNum"));
  }

  std::string reference(const EntryColumn& column, const Row& row) override {
    return column.heading == "Contact" ? firm_.contacts().referenceTo(row.id("ContactIDNum"))
                                       : firm_.companies().referenceTo(row.id("CompanyNum"));
  }

 private:
  static Id require(const KnownClients& clients, const char* noun, const std::string& name) {
    const Known* known = clients.named(name);
    if (!known) throw EntryRefused(std::string("there is no ") + noun + " \"" + name + '"');
    return known->id;
  }

  static Id idIn(const Fields& fields, std::string_view column) {
    return toInteger(fieldOf(fields, column));
  }

  static bool isDefault(const Fields& fields) {
    const Value& value = fieldOf(fields, "DefaultContact");
    return !value.isNull() && toFlag(value);
  }

  void remember(Id contact, Id company, Id link, bool isDefault) {
    links_[{contact, company}] = link;
    if (isDefault) defaults_[company] = link;
  }

  /// A company has one: its record holds how to reach that person.
  void makeDefault(Id link, const Fields& fields) {
    const Id company = idIn(fields, "CompanyNum");
    const auto former = defaults_.find(company);
    if (former != defaults_.end() && former->second != link)
      sink().updateRow("ContactLinks", former->second, Fields{{"DefaultContact", false}});
    defaults_[company] = link;
    const Known& person = *firm_.contacts().find(idIn(fields, "ContactIDNum"));
    sink().updateRow("Companies", company,
                     Fields{{"DefaultContactName", person.name},
                            {"DefaultContactPhoneNumber", person.phone},
                            {"DefaultContactFaxNumber", person.fax},
                            {"DefaultContactEmail", person.email}});
  }

  FirmIndex& firm_;
  std::map<std::pair<Id, Id>, Id> links_;
  std::map<Id, Id> defaults_;
};

}  // namespace

std::unique_ptr<EntryBook> openCompanies(FirmIndex& firm, RowSink& sink) {
  return std::make_unique<CompanyBook>(firm, sink);
}
std::unique_ptr<EntryBook> openContacts(FirmIndex& firm, RowSink& sink) {
  return std::make_unique<ContactBook>(firm, sink);
}
std::unique_ptr<EntryBook> openLinks(FirmIndex& firm, RowSink& sink) {
  return std::make_unique<LinkBook>(firm, sink);
}

}  // namespace autonotify::host
