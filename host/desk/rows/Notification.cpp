#include "host/desk/rows/Notification.h"

#include <fmt/format.h>

#include <array>

#include "host/desk/rows/channel_names.h"
#include "host/desk/rows/client_names.h"

namespace autonotify::host {
namespace {

/// Where the name of a diary item is found.
struct ItemTable {
  Id Notification::*link;
  const char* sql;
  const char* column;
};
constexpr std::array<ItemTable, 4> itemTables{{
    {&Notification::scheduleId,
     "SELECT Schedule.ScheduleID, Schedule.scheduleName FROM Schedule WHERE ScheduleID=",
     "scheduleName"},
    {&Notification::appointmentId,
     "SELECT Appointments.AppointmentID, Appointments.Subject FROM Appointments WHERE "
     "AppointmentID=",
     "Subject"},
    {&Notification::taskId,
     "SELECT Tasks.TaskID, Tasks.Subject FROM Tasks WHERE TaskID=", "Subject"},
    {&Notification::docketId,
     "SELECT Dockets.DocketID, Dockets.Subject FROM Dockets WHERE DocketID=", "Subject"},
}};

constexpr const char* archivedName =
    "SELECT archiveSchedule.oldScheduleID, archiveSchedule.scheduleName FROM archiveSchedule WHERE "
    "oldScheduleID=";

/// The field without which a channel cannot reach anyone.
struct AddressField {
  notifyType channel;
  int field;
  const char* words;
};
constexpr AddressField addressFields[] = {
    {nt_Email, Notification::emailTo, "an email address"},
    {nt_Fax, Notification::faxNumber, "a fax number"},
    {nt_Phone, Notification::phoneNumber, "a telephone number"},
};

/// In the order of NotificationState.
struct StateWords {
  const char* name;
  const char* words;
};
constexpr std::array<StateWords, 5> stateTable{{
    {"pending", "is pending"},
    {"sent", "was sent"},
    {"cancelled", "is cancelled"},
    {"interrupted while being sent", "was interrupted while being sent"},
    {"interrupted while being cancelled", "was interrupted while being cancelled"},
}};

const StateWords& wordsOf(NotificationState state) {
  return stateTable.at(static_cast<std::size_t>(state));
}

}  // namespace

const char* const notificationTable = "ClientNotification";
const char* const summaryColumns =
    "ClientNotification.ClientNotificationID, ClientNotification.NotificationType, "
    "ClientNotification.ScheduleIDNum, ClientNotification.ApptIDNum, "
    "ClientNotification.TaskIDNum, ClientNotification.DocketIDNum, "
    "ClientNotification.CompanyIDNum, ClientNotification.ContactIDNum, "
    "ClientNotification.NotificationDate, ClientNotification.NotificationSent, "
    "ClientNotification.NotificationSentStatus";

Notification readSummary(const Row& row) {
  Notification result;
  result.id = row.id("ClientNotificationID");
  result.channel = row.id("NotificationType", 0);
  result.scheduleId = row.id("ScheduleIDNum");
  result.appointmentId = row.id("ApptIDNum");
  result.taskId = row.id("TaskIDNum");
  result.docketId = row.id("DocketIDNum");
  result.companyId = row.id("CompanyIDNum");
  result.contactId = row.id("ContactIDNum");
  result.date = row.date("NotificationDate");
  result.sent = row.flag("NotificationSent");
  result.sentStatus = row.id("NotificationSentStatus", 0);
  return result;
}

Notification readWhole(const Row& row) {
  Notification result = readSummary(row);
  for (int i = 0; i < 6; ++i) result.fields[i] = row.text(fmt::format("Field{}", i + 1));
  result.memo = row.text("Memo");
  result.sentTime = row.date("SentTime");
  return result;
}

NotificationState stateOf(const Notification& notification) {
  switch (notification.sentStatus) {
    case enumNotificationSendStatus_Sent:
      return NotificationState::sent;
    case enumNotificationSendStatus_Cancelled:
      return notification.sent ? NotificationState::cancelled
                               : NotificationState::interruptedCancel;
    default:
      return notification.sent ? NotificationState::interruptedSending : NotificationState::pending;
  }
}

std::string stateName(NotificationState state) {
  return wordsOf(state).name;
}

std::string stateWords(NotificationState state) {
  return wordsOf(state).words;
}

std::optional<Notification> findNotification(Desk& desk, Id id) {
  if (id < 0) return std::nullopt;
  return findRow(desk.database(), notificationTable,
                 fmt::format("SELECT ClientNotification.* FROM ClientNotification WHERE "
                             "ClientNotificationID={};",
                             id),
                 readWhole);
}

ReadableRows<Notification> readNotificationsOf(Desk& desk, Id scheduleId) {
  ReadableRows<Notification> found;
  readRows(desk.database(), notificationTable,
           fmt::format("SELECT {} FROM ClientNotification WHERE ScheduleIDNum={};", summaryColumns,
                       scheduleId),
           found, readSummary);
  return found;
}

bool isOverdue(Desk& desk, const Notification& notification) {
  return stateOf(notification) == NotificationState::pending && notification.date < desk.today();
}

std::string missingAddress(const Notification& notification) {
  const AddressField* needed = findChannel(addressFields, notification.channel);
  return needed && notification.fields[needed->field].empty() ? needed->words : "";
}

std::string itemName(Desk& desk, const Notification& notification) {
  std::string name;
  for (const ItemTable& table : itemTables) {
    const Id id = notification.*table.link;
    if (id < 0) continue;
    const auto take = [&](const Row& row) { name = row.text(table.column); };
    const bool found = firstRow(desk.database(), fmt::format("{}{};", table.sql, id), take);
    if (!found && table.link == &Notification::scheduleId) {
      firstRow(desk.database(), fmt::format("{}{};", archivedName, id), take);
    }
    break;
  }
  return name;
}

std::string clientName(Desk& desk, const Notification& notification) {
  return clientName(desk, notification.companyId, notification.contactId);
}

}  // namespace autonotify::host
