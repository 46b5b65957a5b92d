#include "store/modNotifyClients.h"

#include <algorithm>
#include <array>

#include "contract/AutoNotifyListForm.h"
#include "store/channel_bits.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

struct ChannelName {
  notifyType channel;
  const char* name;
};
constexpr std::array<ChannelName, 4> channelNames{{
    {nt_Email, "Email"},
    {nt_Fax, "Fax"},
    {nt_Letter, "Letter"},
    {nt_Phone, "Phone"},
}};

bool isSelected(const char* tag, std::uint8_t bits, notifyType channel) {
  return procedure(tag, false, [&](Step&, bool& result) { result = hasBit(bits, channel); });
}

void writeStamp(Step& step, RecordsetHandle handle) {
  writeField(step, handle, "ClientNotificationModifiedStamp", nowText);
}

void writeCurrentUser(Step& step, RecordsetHandle handle) {
  writeField(step, handle, "SentByUserIDNum", [] { return toText(locale().getCurrentUserID()); });
}

void writeText(Step& step, RecordsetHandle handle, const char* column, const char* text) {
  writeField(step, handle, column, [&] { return text; });
}

void writeStatus(Step& step, RecordsetHandle handle, enumNotificationSendStatus status) {
  writeField(step, handle, "NotificationSentStatus", [&] { return toText(int{status}); });
}

void refreshOpenList(Step& step, Id notificationId) {
  AutoNotifyListForm* list = nullptr;
  step.assign(list, [] {
    return dynamic_cast<AutoNotifyListForm*>(findForm(AutoNotifyListForm::formName));
  });
  if (!list) return;
  step.run([&] { list->refreshAutoNotificationRowByAutoNotificationID(notificationId); });
}

/// Where an item names the person in charge: by name, or by the number of a user.
struct AssignedSource {
  const char* statement;
  const char* column;
  bool isUserId;
};
constexpr ItemTable<AssignedSource> assignedSources{{
    {"SELECT Schedule.ScheduleID, Schedule.EmployeeAssigned FROM Schedule WHERE ScheduleID=",
     "EmployeeAssigned", false},
    {"SELECT Tasks.TaskID, Tasks.UserIDNum FROM Tasks WHERE TaskID=", "UserIDNum", true},
    {"SELECT Appointments.AppointmentID, Appointments.UserIDNum FROM Appointments WHERE "
     "AppointmentID=",
     "UserIDNum", true},
    {"SELECT Dockets.DocketID, Dockets.UserIDNum FROM Dockets WHERE DocketID=", "UserIDNum", true},
}};

}  // namespace

bool IsEmailSelected(std::uint8_t notification) {
  return isSelected("Morvane.exe-modNotifyClients-IsEmailSelected", notification, nt_Email);
}

bool IsFaxSelected(std::uint8_t notification) {
  return isSelected("Morvane.exe-modNotifyClients-IsFaxSelected", notification, nt_Fax);
}

bool IsLetterSelected(std::uint8_t notification) {
  return isSelected("Morvane.exe-modNotifyClients-IsLetterSelected", notification, nt_Letter);
}

bool IsPhoneSelected(std::uint8_t notification) {
  return isSelected("Morvane.exe-modNotifyClients-IsPhoneSelected", notification, nt_Phone);
}

std::string getNotificationTypeNameFromNotificationTypeNum(std::uint8_t notificationTypeNum) {
  return procedure("Morvane.exe-modNotifyClients-getNotificationTypeNameFromNotificationTypeNum",
                   std::string("Unknown"), [&](Step&, std::string& result) {
                     if (notificationTypeNum == 0) result = "None";
                     const auto named = std::find_if(
                         channelNames.begin(), channelNames.end(), [&](const ChannelName& row) {
                           return hasBit(notificationTypeNum, row.channel);
                         });
                     if (named != channelNames.end()) result = named->name;
                   });
}

bool getNotificationStatus(Id scheduleId, notifyType channel) {
  return procedure(
      "Morvane.exe-modNotifyClients-getNotificationStatus", false, [&](Step& step, bool& result) {
        if (!isDatabaseOpen(step)) return;
        result = readStatus(
            step, "SELECT Schedule.ScheduleID, Schedule.notifyType FROM Schedule WHERE ScheduleID=",
            scheduleId, channel, [&] { return getNotificationID(scheduleId, channel); },
            [&] { changeNotificationStatus(channel, nt_RemoveStatus, scheduleId); });
      });
}

bool changeNotificationStatus(notifyType channel, changeStatus statusChange, Id scheduleId) {
  return procedure("Morvane.exe-modNotifyClients-changeNotificationStatus", true,
                   [&](Step& step, bool& result) {
                     if (!isDatabaseOpen(step)) return;
                     withRow(
                         step,
                         "SELECT Schedule.ScheduleModifiedStamp, Schedule.ScheduleID, "
                         "Schedule.notifyType FROM Schedule WHERE ScheduleID=",
                         scheduleId, keysetUpdate,
                         [&](RecordsetHandle handle) {
                           changeBit(step, handle, channel, statusChange, "ScheduleModifiedStamp");
                         },
                         [&] { result = false; });
                   });
}

Id getNotificationID(Id scheduleId, notifyType channel) {
  return procedure("Morvane.exe-modNotifyClients-getNotificationID", noId,
                   [&](Step& step, Id& result) {
                     if (scheduleId < 0 || !isDatabaseOpen(step)) return;
                     const std::string sql =
                         "SELECT ClientNotification.* FROM ClientNotification WHERE "
                         "ScheduleIDNum = " +
                         std::to_string(scheduleId) +
                         " AND NotificationType = " + std::to_string(int{channel}) + ";";
                     withFirstRow(step, sql, keysetRead, [&](RecordsetHandle handle) {
                       result = readId(step, handle, "ClientNotificationID");
                     });
                   });
}

bool isValidNotificationID(const std::string& notificationId) {
  return isPositiveIdText("Morvane.exe-modNotifyClients-isValidNotificationID", notificationId);
}

int getNumberOfUnsentNotifications() {
  return procedure(
      "Morvane.exe-modNotifyClients-getNumberOfUnsentNotifications", 0,
      [&](Step& step, int& result) {
        if (!isDatabaseOpen(step)) return;
        RecordsetHandle handle = noRecordset;
        step.assign(handle, [] {
          const std::string today = database().formatDateForSQL(platformClock().today());
          return openRecordset(
              "SELECT ClientNotification.NotificationSent, ClientNotification.NotificationDate "
              "FROM ClientNotification WHERE ClientNotification.NotificationDate <= #" +
                  today +
                  "# AND ClientNotification.NotificationSent=False "
                  "ORDER BY NotificationSent, NotificationDate;",
              keysetRead.cursor, keysetRead.lock);
        });
        step.assign(result, [&] { return database().getRecordCount(handle); });
        step.run([&] { database().closeRecordset(handle); });
      });
}

bool needToSendAutoNotificationsToday() {
  return procedure("Morvane.exe-modNotifyClients-needToSendAutoNotificationsToday", false,
                   [&](Step&, bool& result) { result = getNumberOfUnsentNotifications() > 0; });
}

std::string getNotificationEmployeeAssignedFromNotificationIDs(Id scheduleId, Id taskId,
                                                               Id appointmentId, Id docketId,
                                                               Id /*unused*/) {
  return procedure(
      "Morvane.exe-modNotifyClients-getNotificationEmployeeAssignedFromNotificationIDs",
      std::string("None Assigned"), [&](Step& step, std::string& result) {
        const auto item = firstItem(assignedSources, {scheduleId, taskId, appointmentId, docketId});
        if (!item || !isDatabaseOpen(step)) return;
        const auto& [source, id] = *item;
        const Value assigned = readColumn(step, {source.statement, source.column}, {}, id);
        if (!source.isUserId) {
          if (!isEmpty(step, assigned)) step.assign(result, [&] { return toText(assigned); });
          return;
        }
        const Id userId = idOf(step, assigned);
        if (userId < 0) return;
        step.assign(result, [&] { return clients().getUserNameFromID(userId); });
      });
}

void changeNotificationToSent(Id notificationId, std::optional<DateTime> sentTime,
                              bool refreshList) {
  procedure("Morvane.exe-modNotifyClients-changeNotificationToSent", [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    withRow(step, notificationById, notificationId, keysetUpdate, [&](RecordsetHandle handle) {
      writeStamp(step, handle);
      writeText(step, handle, "NotificationSent", "True");
      writeStatus(step, handle, enumNotificationSendStatus_Sent);
      writeCurrentUser(step, handle);
      if (!sentTime) return;
      writeField(step, handle, "SentTime", [&] { return toText(*sentTime); });
    });
    if (refreshList) refreshOpenList(step, notificationId);
  });
}

void cancelNotification(Id notificationId) {
  procedure("Morvane.exe-modNotifyClients-cancelNotification", [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    withRow(step, notificationById, notificationId, keysetUpdate, [&](RecordsetHandle handle) {
      writeStamp(step, handle);
      writeStatus(step, handle, enumNotificationSendStatus_Cancelled);
      writeText(step, handle, "NotificationSent", "True");
      writeText(step, handle, "SentTime", "");
      writeCurrentUser(step, handle);
    });
  });
}

void changeNotificationNotifiedDate(Id notificationId, DateTime newDate) {
  procedure("Morvane.exe-modNotifyClients-changeNotificationNotifiedDate", [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    withRow(step,
            "SELECT ClientNotification.ClientNotificationID, "
            "ClientNotification.ClientNotificationModifiedStamp, "
            "ClientNotification.NotificationDate FROM ClientNotification "
            "WHERE ClientNotificationID=",
            notificationId, keysetUpdate, [&](RecordsetHandle handle) {
              writeStamp(step, handle);
              writeField(step, handle, "NotificationDate", [&] { return toText(newDate); });
            });
  });
}

bool doesClientHaveAssociatedUnsentNotifications(Id clientId) {
  return procedure("Morvane.exe-modNotifyClients-doesClientHaveAssociatedUnsentNotifications",
                   false, [&](Step& step, bool& result) {
                     if (clientId < 0 || !isDatabaseOpen(step)) return;
                     withRow(step,
                             "SELECT Schedule.ClientNum FROM ClientNotification INNER JOIN "
                             "Schedule ON ClientNotification.ScheduleIDNum = "
                             "Schedule.ScheduleID WHERE Schedule.ClientNum=",
                             clientId, keysetRead, [&](RecordsetHandle) { result = true; });
                   });
}

void cancelAllUnsentNotificationsForClientID(Id clientId) {
  procedure("Morvane.exe-modNotifyClients-cancelAllUnsentNotificationsForClientID",
            [&](Step& step) {
              if (clientId < 0 || !isDatabaseOpen(step)) return;
              const std::string sql = statementFor(
                  "SELECT ClientNotification.ClientNotificationID, Schedule.ClientNum FROM "
                  "ClientNotification INNER JOIN Schedule ON ClientNotification.ScheduleIDNum = "
                  "Schedule.ScheduleID WHERE Schedule.ClientNum=",
                  clientId);
              forEachRow(step, sql, keysetUpdate, [&](RecordsetHandle handle) {
                std::optional<Bookmark> row;
                step.assign(row, [&] { return database().getBookmark(handle); });
                cancelNotification(readId(step, handle, "ClientNotificationID"));
                // The cancelling opened the same table, which may have moved this position.
                if (row) step.run([&] { database().gotoBookmark(handle, *row); });
                return true;
              });
            });
}

}  // namespace autonotify
