#pragma once

#include <string>
#include <utility>
#include <vector>

#include "contract/DatabaseReference.h"
#include "host/database/schema/Schema.h"
#include "platform/Value.h"
#include "platform/date_time_text.h"

namespace autonotify::test {

/// The text of a column: as given, of a number, or of a date, where the zero date is none.
struct ColumnText : std::string {
  ColumnText(const char* given) : std::string(given) {}
  ColumnText(std::string given) : std::string(std::move(given)) {}
  ColumnText(Id id) : std::string(std::to_string(id)) {}
  ColumnText(DateTime date) : std::string(date.isZero() ? std::string{} : dateTimeText(date)) {}
};

/// Columns and their texts; a column left out takes its default.
using RowFields = std::vector<std::pair<const char*, ColumnText>>;

struct TestClient {
  Id clientNum, contactID;
};

/// Adds and reads rows past all procedures and all counting.
class TableRows {
 public:
  explicit TableRows(DatabaseReference& database) : database_(&database) {}

  /// Gives the key of the new row.
  Id addRow(const std::string& table, const RowFields& fields) {
    const RecordsetHandle handle = open("SELECT " + table + ".* FROM " + table + ";");
    database_->addNewRecord(handle);
    for (const auto& [column, text] : fields) database_->setFieldValue(handle, column, text);
    const std::string& key = host::findTable(table)->columns.front().name;
    const Id id = toInteger(database_->getFieldValue(handle, key));
    database_->saveNewRecord(handle);
    database_->closeRecordset(handle);
    return id;
  }
  /// A row whose texts are the names of their columns.
  Id addNamedByColumn(const std::string& table, const std::vector<std::string>& columns) {
    RowFields fields;
    for (const std::string& column : columns) fields.emplace_back(column.c_str(), column);
    return addRow(table, fields);
  }
  /// The column of the first row where `where` holds; null without a row.
  Value valueOf(const std::string& table, const std::string& column, const std::string& where) {
    const RecordsetHandle handle =
        open("SELECT " + table + ".* FROM " + table + " WHERE " + where + ";");
    const Value value =
        database_->hasRecords(handle) ? database_->getFieldValue(handle, column) : Value{};
    database_->closeRecordset(handle);
    return value;
  }

  /// A holiday without a type when `type` is empty.
  Id addHoliday(DateTime date, const std::string& type = "1") {
    RowFields fields{{"HolidayDate", date}};
    if (!type.empty()) fields.emplace_back("HolidayType", type);
    return addRow("Holidays", fields);
  }
  Id addKind(Id totalNum, Id scheduleNum, int period, const std::string& comment = {}) {
    return addRow("ScheduleTypes", {{"TotalNum", totalNum},
                                    {"ScheduleNum", scheduleNum},
                                    {"NotificationPeriod", period},
                                    {"NotificationComment", comment}});
  }
  /// A schedule entry; `more` are further columns.
  Id addSchedule(Id totalNum, Id scheduleNum, DateTime dueDate, const RowFields& more = {}) {
    RowFields fields{{"totalNum", totalNum}, {"scheduleNum", scheduleNum}, {"DueDate", dueDate}};
    fields.insert(fields.end(), more.begin(), more.end());
    return addRow("Schedule", fields);
  }
  /// The task of a schedule entry, which a merge reads.
  Id addTask(Id scheduleID, const std::string& subject) {
    return addRow("Tasks", {{"ScheduleIDNum", scheduleID}, {"Subject", subject}});
  }
  void linkDefaultContact(Id contact, Id company) {
    addRow("ContactLinks",
           {{"ContactIDNum", contact}, {"CompanyNum", company}, {"DefaultContact", "True"}});
  }
  /// A company of the client list and its default contact.
  TestClient addClient(const std::string& companyName, const std::string& contactName) {
    const Id company = addRow("Companies", {{"CompanyName", companyName}});
    const Id contact = addRow("Contacts", {{"DisplayName", contactName}});
    linkDefaultContact(contact, company);
    return {addRow("ClientData", {{"CompanyIDNum", company}}), contact};
  }
  Id addNotification(Id scheduleID, int channel, DateTime date, bool sent = false) {
    return addRow("ClientNotification", {{"ScheduleIDNum", scheduleID},
                                         {"NotificationType", channel},
                                         {"NotificationDate", date},
                                         {"NotificationSent", sent ? "True" : "False"}});
  }

 private:
  RecordsetHandle open(const std::string& sql) {
    return database_->openRecordset(sql, CursorMode::keyset, LockMode::updatable, -1, {}, -1,
                                    false);
  }

  DatabaseReference* database_;
};

}  // namespace autonotify::test
