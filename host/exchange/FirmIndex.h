#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "contract/DatabaseReference.h"
#include "host/exchange/HeldRows.h"
#include "platform/Value.h"

namespace autonotify::host {

/// Small letters, single blanks for blanks and line ends: "ACME  Ltd." and "Acme Ltd." are one
/// name.
std::string foldName(std::string_view name);

/// A company or a person as files name them.
struct Known {
  Id id = noId;
  /// The client number; empty for none.
  std::string number = {};
  std::string name = {};
  /// The first line of the address; empty for none.
  std::string street = {};
  // How to reach a person as a company's default contact.
  std::string phone = {}, fax = {}, email = {};
};

/// Companies or persons by number, name and address.
class KnownClients {
 public:
  void add(Known known);

  /// The one that has this number; without a number, or where none has it, the one of this name
  /// that may be the same: whose own number is not another one, and at the same address where both
  /// have one. nullptr for none. Throws EntryRefused where several may be meant.
  const Known* match(const Known& wanted) const;
  /// The one of this number, this name, or "name; first line of the address". nullptr for none.
  /// Throws EntryRefused where several may be meant.
  const Known* named(const std::string& reference) const;
  /// The shortest text that `named` finds it by.
  std::string referenceTo(Id id) const;
  const Known* find(Id id) const;

 private:
  using Ids = std::vector<Id>;

  std::vector<const Known*> ofName(std::string_view name) const;

  std::unordered_map<Id, Known> all_;
  std::unordered_map<std::string, Ids> byNumber_;
  std::unordered_map<std::string, Ids> byName_;
};

/// A kind of tasks.
struct KnownKind {
  Id family = noId;
  Id number = noId;
  std::string name;
};

/// Whom a task is for.
struct KnownClient {
  Id company = noId;
  /// Of a company; -1 for a person.
  Id clientData = noId;
  /// The person; -1 for a company.
  Id contact = noId;
};

/// Who and what a firm has, by the names that files use. Read once; whoever adds says so.
class FirmIndex {
 public:
  /// The database must outlive it. Throws what the database throws.
  explicit FirmIndex(DatabaseReference& database);

  DatabaseReference& database() { return database_; }
  HeldRows& rows() { return rows_; }
  KnownClients& companies() { return companies_; }
  KnownClients& contacts() { return contacts_; }

  /// The accounting data of a company; noId for none.
  Id clientDataOf(Id company) const;
  Id companyOf(Id clientData) const;
  void addClientData(Id company, Id clientData);

  /// By number or name. Throws EntryRefused when there is none, or more than one.
  KnownClient client(const std::string& reference) const;
  std::string referenceTo(const KnownClient& client) const;

  /// By number of family and kind ("101/3") or name. Throws EntryRefused as above.
  const KnownKind& kind(const std::string& reference) const;
  std::string referenceToKind(Id family, Id number) const;
  void addKind(KnownKind kind) { kinds_.push_back(std::move(kind)); }

  /// By name; noId for none.
  Id staffMember(const std::string& name) const;
  void addStaffMember(const std::string& name, Id id) { staff_.emplace(foldName(name), id); }
  /// The category of the address book with this special code; noId for none.
  Id category(int specialCode);
  /// The record of the firm itself.
  Id firm();

 private:
  void readCompanies();
  void readContacts();
  Id firstId(const std::string& sql, const char* column);

  DatabaseReference& database_;
  HeldRows rows_;
  KnownClients companies_;
  KnownClients contacts_;
  std::unordered_map<Id, Id> clientData_;
  std::unordered_map<Id, Id> companyOfData_;
  std::vector<KnownKind> kinds_;
  std::unordered_map<std::string, Id> staff_;
};

}  // namespace autonotify::host
