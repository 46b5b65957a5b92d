#include "host/desk/rows/Notification.h"

#include <fmt/format.h>

#include <array>

#include "host/desk/rows/channel_names.h"
#include "host/desk/rows/client_names.h"
#include "host/desk/unfinished_rows.h"
#include "platform/rich_text.h"

namespace autonotify::host {
namespace {

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
constexpr std::array<StateWords, 6> stateTable{{
    {"pending", "is pending"},
    {"sent", "was sent"},
    {"cancelled", "is cancelled"},
    {"interrupted while being sent", "was interrupted while being sent"},
    {"interrupted while being cancelled", "was interrupted while being cancelled"},
    {"being written", "is still being written"},
}};

const StateWords& wordsOf(NotificationState state) {
  return stateTable.at(static_cast<std::size_t>(state));
}

void readFields(const Row& row, Notification& into) {
  for (int i = 0; i < 6; ++i) into.fields[i] = row.text(fmt::format("Field{}", i + 1));
  into.sentTime = row.date("SentTime");
}

}  // namespace

const char* const notificationTable = "ClientNotification";
const char* const summaryColumns =
    "ClientNotification.ClientNotificationID, ClientNotification.NotificationType, "
    "ClientNotification.ScheduleIDNum, ClientNotification.ApptIDNum, "
    "ClientNotification.TaskIDNum, ClientNotification.DocketIDNum, "
    "ClientNotification.CompanyIDNum, ClientNotification.ContactIDNum, "
    "ClientNotification.OperatingProcedureIDNum, "
    "ClientNotification.NotificationDate, ClientNotification.NotificationSent, "
    "ClientNotification.NotificationSentStatus";

std::string listedColumns() {
  return fmt::format(
      "{}, {}", summaryColumns,
      "ClientNotification.Field1, ClientNotification.Field2, ClientNotification.Field3, "
      "ClientNotification.Field4, ClientNotification.Field5, ClientNotification.Field6, "
      "ClientNotification.SentTime, ClientNotification.SentByUserIDNum");
}

Notification readSummary(const Row& row) {
  Notification result;
  result.id = row.id("ClientNotificationID");
  result.channel = row.id("NotificationType", 0);
  result.scheduleId = row.id("ScheduleIDNum");
  if (result.scheduleId < 0) result.scheduleId = taskOfSent(row.id("OperatingProcedureIDNum"));
  result.appointmentId = row.id("ApptIDNum");
  result.taskId = row.id("TaskIDNum");
  result.docketId = row.id("DocketIDNum");
  result.companyId = row.id("CompanyIDNum");
  result.contactId = row.id("ContactIDNum");
  result.date = row.date("NotificationDate");
  result.sent = row.flag("NotificationSent");
  result.sentStatus = row.id("NotificationSentStatus", enumNotificationSendStatus_NotSent);
  return result;
}

Notification readListed(const Row& row) {
  Notification result = readSummary(row);
  readFields(row, result);
  result.sentBy = row.id("SentByUserIDNum");
  return result;
}

Notification readWhole(const Row& row) {
  Notification result = readSummary(row);
  readFields(row, result);
  result.memo = row.text("Memo");
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
      break;
  }
  if (notification.sent) return NotificationState::interruptedSending;
  return notification.docketId == unfinishedLink ? NotificationState::unfinished
                                                 : NotificationState::pending;
}

std::string stateName(NotificationState state) {
  return wordsOf(state).name;
}

std::string stateWords(NotificationState state) {
  return wordsOf(state).words;
}

std::string stateText(const Notification& notification) {
  const std::string name = stateName(stateOf(notification));
  const int status = notification.sentStatus;
  const bool isKnown = status >= enumNotificationSendStatus_NotSent &&
                       status <= enumNotificationSendStatus_Cancelled;
  return isKnown ? name : fmt::format("{} (unknown status {})", name, status);
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

bool isWordless(const Notification& notification) {
  return plainTextOf(notification.memo).find_first_not_of(" \t\r\n") == std::string::npos;
}

std::string missingParts(const Notification& notification) {
  const std::string address = missingAddress(notification);
  if (!isWordless(notification)) return address;
  return address.empty() ? "its text" : address + " and its text";
}

std::string addressOf(const Notification& notification) {
  const AddressField* field = findChannel(addressFields, notification.channel);
  return field ? notification.fields[field->field] : std::string();
}

std::string addressTerm() {
  std::string term = "CASE ClientNotification.NotificationType";
  for (const AddressField& field : addressFields)
    term += fmt::format(" WHEN {} THEN ClientNotification.Field{}", int{field.channel},
                        field.field + 1);
  return "LOWER(COALESCE(" + term + " END, ''))";
}

std::string clientName(Desk& desk, const Notification& notification) {
  return clientName(desk, notification.companyId, notification.contactId);
}

}  // namespace autonotify::host
