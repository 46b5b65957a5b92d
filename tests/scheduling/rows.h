#pragma once

#include <string>

#include "control/contract/recordsets.h"
#include "platform/date_time_text.h"
#include "store/rows.h"

namespace autonotify::test {

inline Id addTestRow(const char* table, const char* keyColumn, const RowFields& fields) {
  return addRowTo(database(), table, keyColumn, fields);
}

/// A holiday without a type when `type` is empty.
inline Id addHoliday(DateTime date, const std::string& type = "1") {
  RowFields fields{{"HolidayDate", dateTimeText(date)}};
  if (!type.empty()) fields.emplace_back("HolidayType", type);
  return addTestRow("Holidays", "HolidayID", fields);
}

inline Id addKind(Id totalNum, Id scheduleNum, int period, const std::string& comment = {}) {
  return addTestRow("ScheduleTypes", "ScheduleTypeID",
                    {{"TotalNum", std::to_string(totalNum)},
                     {"ScheduleNum", std::to_string(scheduleNum)},
                     {"NotificationPeriod", std::to_string(period)},
                     {"NotificationComment", comment}});
}

/// A schedule entry; `more` are further columns.
inline Id addSchedule(Id totalNum, Id scheduleNum, DateTime dueDate, const RowFields& more = {}) {
  RowFields fields{{"totalNum", std::to_string(totalNum)},
                   {"scheduleNum", std::to_string(scheduleNum)},
                   {"DueDate", dueDate.isZero() ? std::string{} : dateTimeText(dueDate)}};
  fields.insert(fields.end(), more.begin(), more.end());
  return addTestRow("Schedule", "ScheduleID", fields);
}

struct TestClient {
  Id clientNum;
  Id contactID;
};

/// A company of the client list and its default contact.
inline TestClient addClient(const std::string& company, const std::string& contact) {
  const std::string companyID =
      std::to_string(addTestRow("Companies", "CompanyID", {{"CompanyName", company}}));
  const Id contactID = addTestRow("Contacts", "ContactID", {{"DisplayName", contact}});
  addTestRow("ContactLinks", "ContactLinkID",
             {{"ContactIDNum", std::to_string(contactID)},
              {"CompanyNum", companyID},
              {"DefaultContact", "True"}});
  return {addTestRow("ClientData", "ClientDataID", {{"CompanyIDNum", companyID}}), contactID};
}

/// The task of a schedule entry, which a merge reads.
inline Id addTask(Id scheduleID, const std::string& subject) {
  return addTestRow("Tasks", "TaskID",
                    {{"ScheduleIDNum", std::to_string(scheduleID)}, {"Subject", subject}});
}

inline Id addNotification(Id scheduleID, int channel, DateTime date, bool sent = false) {
  return addTestRow("ClientNotification", "ClientNotificationID",
                    {{"ScheduleIDNum", std::to_string(scheduleID)},
                     {"NotificationType", std::to_string(channel)},
                     {"NotificationDate", dateTimeText(date)},
                     {"NotificationSent", sent ? "True" : "False"}});
}

inline Value valueOf(const char* table, const char* column, const std::string& where) {
  return readRowOf(database(), table, column, where);
}

}  // namespace autonotify::test
