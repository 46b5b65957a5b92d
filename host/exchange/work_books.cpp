#include <map>
#include <unordered_map>

#include "host/database/schema/Schema.h"
#include "host/exchange/EntryBook.h"
#include "host/exchange/FirmIndex.h"
#include "platform/date_time_text.h"

namespace autonotify::host {
namespace {

/// A kind whose rows are known by what some of their columns hold.
class KeyedBook : public EntryBook {
 public:
  KeyedBook(FirmIndex& firm, RowSink& sink, std::string_view table,
            std::vector<std::string_view> columns)
      : EntryBook(sink), firm_(firm), columns_(std::move(columns)) {
    const std::string key = findTable(table)->key();
    std::string sql = "SELECT " + key;
    for (const std::string_view column : columns_) (sql += ", ") += column;
    forEachRow(firm.database(), sql + " FROM " + std::string(table) + ';', [&](const Row& row) {
      rows_.emplace(keyOf([&](std::string_view column) { return row.text(std::string(column)); }),
                    row.id(key));
    });
  }

  Id find(const Entry&, const Fields& fields) override {
    const auto found = rows_.find(keyIn(fields));
    return found == rows_.end() ? noId : found->second;
  }

  void added(Id id, const Entry&, const Fields& fields, const Fields&) override {
    rows_.emplace(keyIn(fields), id);
  }

 protected:
  FirmIndex& firm() { return firm_; }

 private:
  template <class TextOf>
  std::string keyOf(TextOf&& textOfColumn) const {
    std::string key;
    for (const std::string_view column : columns_) (key += foldName(textOfColumn(column))) += '\n';
    return key;
  }
  std::string keyIn(const Fields& fields) const {
    return keyOf([&](std::string_view column) { return textIn(fields, column); });
  }
  using EntryBook::keyIn;

  FirmIndex& firm_;
  std::vector<std::string_view> columns_;
  std::map<std::string, Id> rows_;
};

class StaffBook : public KeyedBook {
 public:
  StaffBook(FirmIndex& firm, RowSink& sink)
      : KeyedBook(firm, sink, "AccountantEmployeeInfo", {"DisplayName"}), firmId_(firm.firm()) {}

  void completeRow(Id id, Fields& fields) override {
    if (id < 0) fields.push_back({"CompanyNum", firmId_});
  }

  void added(Id id, const Entry& entry, const Fields& fields, const Fields& more) override {
    KeyedBook::added(id, entry, fields, more);
    firm().addStaffMember(textIn(fields, "DisplayName"), id);
  }

 private:
  Id firmId_;
};

class ScheduleKindBook : public KeyedBook {
 public:
  ScheduleKindBook(FirmIndex& firm, RowSink& sink)
      : KeyedBook(firm, sink, "ScheduleTypes", {"TotalNum", "ScheduleNum"}) {}

  void added(Id id, const Entry& entry, const Fields& fields, const Fields& more) override {
    KeyedBook::added(id, entry, fields, more);
    firm().addKind({toInteger(fieldOf(fields, "TotalNum")),
                    toInteger(fieldOf(fields, "ScheduleNum")), textIn(fields, "ScheduleTypeName")});
  }
};

/// A task is known by its client, kind, name and period; one that tells no period by its due date.
class TaskBook : public EntryBook {
 public:
  TaskBook(FirmIndex& firm, RowSink& sink) : EntryBook(sink), firm_(firm) {
    forEachRow(firm.database(),
               "SELECT ScheduleID, ClientNum, ContactIDNum, totalNum, scheduleNum, scheduleName, "
               "DueDate, PeriodEndDate, PeriodDescription FROM Schedule;",
               [&](const Row& row) {
                 Fields fields;
                 for (const char* column :
                      {"ClientNum", "ContactIDNum", "totalNum", "scheduleNum", "scheduleName",
                       "DueDate", "PeriodEndDate", "PeriodDescription"})
                   fields.push_back({column, row.value(column)});
                 remember(row.id("ScheduleID"), fields);
               });
  }

  void complete(const Entry& entry, Fields& fields) override {
    const KnownClient client = firm_.client(entry.cell("Client"));
    const KnownKind& kind = firm_.kind(entry.cell("Kind"));
    fields.push_back({"ClientNum", client.clientData});
    fields.push_back({"ContactIDNum", client.contact});
    fields.push_back({"totalNum", kind.family});
    fields.push_back({"scheduleNum", kind.number});
    if (fieldOf(fields, "scheduleName").isNull()) fields.push_back({"scheduleName", kind.name});
    if (fieldOf(fields, "Year").isNull()) fields.push_back({"Year", yearIn(fields)});
    const std::string& staff = entry.cell("Assigned To");
    if (!staff.empty() && firm_.staffMember(staff) < 0)
      throw EntryRefused("there is no member of staff \"" + staff + '"');
    if (!staff.empty()) fields.push_back({"EmployeeAssigned", staff});
  }

  Id find(const Entry&, const Fields& fields) override {
    const auto byPeriod = hasPeriod(fields) ? byPeriod_.find(periodKey(fields)) : byPeriod_.end();
    if (byPeriod != byPeriod_.end()) return byPeriod->second;
    const auto byDate = byDate_.find(dateKey(fields));
    if (byDate == byDate_.end()) return noId;
    return hasPeriod(fields) && byDate->second.hasPeriod ? noId : byDate->second.id;
  }

  void added(Id id, const Entry& entry, const Fields& fields, const Fields&) override {
    remember(id, fields);
    const Id clientData = toInteger(fieldOf(fields, "ClientNum"));
    sink().insert("Tasks", {{"ScheduleIDNum", id},
                            {"UserIDNum", firm_.staffMember(entry.cell("Assigned To"))},
                            {"CompanyIDNum", firm_.companyOf(clientData)},
                            {"ContactIDNum", fieldOf(fields, "ContactIDNum")},
                            {"Subject", fieldOf(fields, "scheduleName")},
                            {"DateFrom", fieldOf(fields, "DueDate")},
                            {"TaskStatus", statusIn(fields)}});
  }

  std::string changed(Id id, const Entry&, const Fields& fields) override {
    remember(id, fields);
    return {};
  }

  std::string reference(const EntryColumn& column, const Row& row) override {
    if (column.heading == "Client")
      return firm_.referenceTo(
          {.company = firm_.companyOf(row.id("ClientNum")), .contact = row.id("ContactIDNum")});
    if (column.heading == "Kind")
      return firm_.referenceToKind(row.id("totalNum"), row.id("scheduleNum"));
    return row.text("EmployeeAssigned");
  }

 private:
  struct Held {
    Id id;
    bool hasPeriod;
  };

  static Value yearIn(const Fields& fields) {
    return static_cast<std::int32_t>(toDateTime(fieldOf(fields, "DueDate")).year());
  }

  static const char* statusIn(const Fields& fields) {
    const Value& closed = fieldOf(fields, "Closed");
    return !closed.isNull() && toFlag(closed) ? "Completed" : "Not Started";
  }

  static bool hasPeriod(const Fields& fields) {
    return !(textIn(fields, "PeriodEndDate") + textIn(fields, "PeriodDescription")).empty();
  }

  static std::string keyOf(const Fields& fields, std::initializer_list<const char*> columns) {
    std::string key;
    for (const char* column :
         {"ClientNum", "ContactIDNum", "totalNum", "scheduleNum", "scheduleName"})
      (key += foldName(textIn(fields, column))) += '\n';
    for (const char* column : columns) (key += foldName(textIn(fields, column))) += '\n';
    return key;
  }
  static std::string periodKey(const Fields& fields) {
    return keyOf(fields, {"PeriodEndDate", "PeriodDescription"});
  }
  static std::string dateKey(const Fields& fields) { return keyOf(fields, {"DueDate"}); }

  void remember(Id id, const Fields& fields) {
    if (hasPeriod(fields)) byPeriod_.emplace(periodKey(fields), id);
    byDate_.emplace(dateKey(fields), Held{id, hasPeriod(fields)});
  }

  FirmIndex& firm_;
  std::unordered_map<std::string, Id> byPeriod_;
  std::unordered_map<std::string, Held> byDate_;
};

}  // namespace

std::unique_ptr<EntryBook> openStaff(FirmIndex& firm, RowSink& sink) {
  return std::make_unique<StaffBook>(firm, sink);
}
std::unique_ptr<EntryBook> openScheduleKinds(FirmIndex& firm, RowSink& sink) {
  return std::make_unique<ScheduleKindBook>(firm, sink);
}
std::unique_ptr<EntryBook> openHolidays(FirmIndex& firm, RowSink& sink) {
  return std::make_unique<KeyedBook>(firm, sink, "Holidays",
                                     std::vector<std::string_view>{"HolidayDate"});
}
std::unique_ptr<EntryBook> openTasks(FirmIndex& firm, RowSink& sink) {
  return std::make_unique<TaskBook>(firm, sink);
}

}  // namespace autonotify::host
