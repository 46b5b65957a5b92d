#include "host/desk/notifications.h"

#include <fmt/format.h>

#include <array>

#include "host/clients/record_rows.h"
#include "platform/format.h"

namespace autonotify::host {
namespace {

struct ChannelName {
  notifyType channel;
  const char* name;
};
constexpr std::array<ChannelName, 4> channelTable{
    {{nt_Email, "email"}, {nt_Fax, "fax"}, {nt_Letter, "letter"}, {nt_Phone, "phone"}}};

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

struct ClaimedLink {
  Id Notification::*link;
  WorkItem item;
};
constexpr std::array<ClaimedLink, 3> claimedLinks{{
    {&Notification::scheduleId, WorkItem::task},
    {&Notification::appointmentId, WorkItem::appointment},
    {&Notification::docketId, WorkItem::timeEntry},
}};

/// Two claims that stand and fall together.
struct BothClaims : Claim {
  std::unique_ptr<Claim> item;
  std::unique_ptr<Claim> notification;
};

constexpr const char* archivedName =
    "SELECT archiveSchedule.oldScheduleID, archiveSchedule.scheduleName FROM archiveSchedule WHERE "
    "oldScheduleID=";

Notification readWhole(const Row& row) {
  Notification result = readSummary(row);
  for (int i = 0; i < 6; ++i) result.fields[i] = row.text(fmt::format("Field{}", i + 1));
  result.memo = row.text("Memo");
  result.sentTime = row.date("SentTime");
  return result;
}

std::string nameOf(Desk& desk, Id companyId, Id contactId) {
  if (companyId > 0) return desk.clients().getCompanyDisplayName(companyId);
  if (contactId >= 0) return desk.clients().getContactDisplayName(contactId);
  return {};
}

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

std::string channelName(int channel) {
  for (const ChannelName& row : channelTable) {
    if (row.channel == channel) return row.name;
  }
  return fmt::format("channel {}", channel);
}

std::string channelNames(int bits) {
  std::string names;
  for (const ChannelName& row : channelTable) {
    if (bits & row.channel) names += (names.empty() ? "" : ",") + std::string(row.name);
  }
  return names.empty() ? "-" : names;
}

std::string dayText(DateTime moment) {
  return moment.isZero() ? "-" : formatDateTime(moment, "yyyy-mm-dd");
}

std::optional<Notification> findNotification(Desk& desk, Id id) {
  std::optional<Notification> found;
  if (id < 0) return found;
  firstRow(desk.database(),
           fmt::format("SELECT ClientNotification.* FROM ClientNotification WHERE "
                       "ClientNotificationID={};",
                       id),
           [&](const Row& row) { found = readWhole(row); });
  return found;
}

// The item first, as whoever disarms it does: so no two desks wait for each other.
std::unique_ptr<Claim> claimNotification(Desk& desk, const Notification& notification) {
  auto both = std::make_unique<BothClaims>();
  for (const auto& [link, item] : claimedLinks) {
    if (notification.*link < 0) continue;
    both->item = desk.claims().take(item, notification.*link);
    if (!both->item) return nullptr;
    break;
  }
  both->notification = desk.claims().take(WorkItem::notification, notification.id);
  if (!both->notification) return nullptr;
  return both;
}

bool isOverdue(Desk& desk, const Notification& notification) {
  return stateOf(notification) == NotificationState::pending && notification.date < desk.today();
}

std::string pastNote(Desk& desk, const Notification& notification) {
  return isOverdue(desk, notification) ? ", which is past: it is due at once" : "";
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
  return nameOf(desk, notification.companyId, notification.contactId);
}

const char* const taskColumns =
    "Schedule.ScheduleID, Schedule.ClientNum, Schedule.ContactIDNum, Schedule.scheduleName, "
    "Schedule.DueDate, Schedule.notifyType, Schedule.Closed";

Task readTask(const Row& row) {
  return {row.id("ScheduleID"),     row.id("ClientNum"), row.id("ContactIDNum"),
          row.text("scheduleName"), row.date("DueDate"), row.id("notifyType", 0),
          row.flag("Closed")};
}

std::optional<Task> findTask(Desk& desk, Id id) {
  std::optional<Task> found;
  if (id < 0) return found;
  firstRow(desk.database(),
           fmt::format("SELECT {} FROM Schedule WHERE ScheduleID={};", taskColumns, id),
           [&](const Row& row) { found = readTask(row); });
  return found;
}

std::string clientName(Desk& desk, const Task& task) {
  const Id company =
      task.clientNum >= 0 ? desk.clients().getCompanyIDFromClientID(task.clientNum) : noId;
  return nameOf(desk, company, task.contactId);
}

}  // namespace autonotify::host
