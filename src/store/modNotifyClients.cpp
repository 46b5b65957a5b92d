#include "store/modNotifyClients.h"

#include <array>

#include "contract/AutoNotifyListForm.h"
#include "contract/rows.h"
#include "contract/tags.h"
#include "contract/windows.h"
#include "platform/controls/ComboBox.h"
#include "store/channel_bits.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modNotifyClients", name>;

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

const char* channelName(std::uint8_t bits) {
  if (bits == 0) return "None";
  for (const auto& [channel, name] : channelNames) {
    if (hasBit(bits, channel)) return name;
  }
  return "Unknown";
}

bool isSelected(std::string_view frameTag, std::uint8_t bits, notifyType channel) {
  return procedure(frameTag, false, [&](Step&, bool& result) { result = hasBit(bits, channel); });
}

void writeStamp(const Row& row) {
  row.write("ClientNotificationModifiedStamp", nowText);
}

void writeCurrentUser(const Row& row) {
  row.write("SentByUserIDNum", [] { return locale().getCurrentUserID(); });
}

AutoNotifyListForm* findOpenList() {
  return dynamic_cast<AutoNotifyListForm*>(findForm(AutoNotifyListForm::formName));
}

void refreshOpenList(Step& step, Id notificationId) {
  AutoNotifyListForm* list = nullptr;
  step.assign(list, findOpenList);
  if (!list) return;
  step.run(&AutoNotifyListForm::refreshAutoNotificationRowByAutoNotificationID, list,
           notificationId);
}

/// Where an item names the person in charge: by name, or by the number of a user.
struct AssignedSource {
  ColumnSource column;
  bool isUserId;
};
constexpr ItemTable<AssignedSource> assignedSources{{
    {{"SELECT Schedule.ScheduleID, Schedule.EmployeeAssigned FROM Schedule WHERE ScheduleID=",
      "EmployeeAssigned"},
     false},
    {{"SELECT Tasks.TaskID, Tasks.UserIDNum FROM Tasks WHERE TaskID=", "UserIDNum"}, true},
    {{"SELECT Appointments.AppointmentID, Appointments.UserIDNum FROM Appointments WHERE "
      "AppointmentID=",
      "UserIDNum"},
     true},
    {{"SELECT Dockets.DocketID, Dockets.UserIDNum FROM Dockets WHERE DocketID=", "UserIDNum"},
     true},
}};

constexpr const char* entryWithChannels =
    "SELECT Schedule.ScheduleModifiedStamp, Schedule.ScheduleID, Schedule.notifyType FROM Schedule "
    "WHERE ScheduleID=";

constexpr const char* dateOfNotification =
    "SELECT ClientNotification.ClientNotificationID, "
    "ClientNotification.ClientNotificationModifiedStamp, ClientNotification.NotificationDate FROM "
    "ClientNotification WHERE ClientNotificationID=";

constexpr const char* clientNumOfNotifications =
    "SELECT Schedule.ClientNum FROM ClientNotification INNER JOIN Schedule ON "
    "ClientNotification.ScheduleIDNum = Schedule.ScheduleID WHERE Schedule.ClientNum=";

constexpr const char* notificationsOfClient =
    "SELECT ClientNotification.ClientNotificationID, Schedule.ClientNum FROM ClientNotification "
    "INNER JOIN Schedule ON ClientNotification.ScheduleIDNum = Schedule.ScheduleID WHERE "
    "Schedule.ClientNum=";

void findNotifications(Step& step, Id clientId, bool& found) {
  if (clientId < 0 || !isDatabaseOpen(step)) return;
  const Rows rows(step, clientNumOfNotifications, clientId, keysetRead);
  if (rows) found = true;
}

std::string unsentStatement() {
  return "SELECT ClientNotification.NotificationSent, ClientNotification.NotificationDate FROM "
         "ClientNotification WHERE ClientNotification.NotificationDate <= #" +
         database().formatDateForSQL(platformClock().today()) +
         "# AND ClientNotification.NotificationSent=False ORDER BY NotificationSent, "
         "NotificationDate;";
}

}  // namespace

bool IsEmailSelected(std::uint8_t notification) {
  return isSelected(tagOf<"IsEmailSelected">, notification, nt_Email);
}

bool IsFaxSelected(std::uint8_t notification) {
  return isSelected(tagOf<"IsFaxSelected">, notification, nt_Fax);
}

bool IsLetterSelected(std::uint8_t notification) {
  return isSelected(tagOf<"IsLetterSelected">, notification, nt_Letter);
}

bool IsPhoneSelected(std::uint8_t notification) {
  return isSelected(tagOf<"IsPhoneSelected">, notification, nt_Phone);
}

std::string getNotificationTypeNameFromNotificationTypeNum(std::uint8_t notificationTypeNum) {
  const auto name = [&](Step&, std::string& result) { result = channelName(notificationTypeNum); };
  return procedure(tagOf<"getNotificationTypeNameFromNotificationTypeNum">, std::string{}, name);
}

void populateAutoNotificationSendTypesInComboBox(ComboBox& combo) {
  procedure(tagOf<"populateAutoNotificationSendTypesInComboBox">, [&](Step& step) {
    step.run(&ComboBox::clear, combo);
    for (const auto& [channel, name] : channelNames) addEntry(step, combo, name, channel);
  });
}

bool getNotificationStatus(Id scheduleId, notifyType channel) {
  return procedure(tagOf<"getNotificationStatus">, false, [&](Step& step, bool& result) {
    if (!isDatabaseOpen(step)) return;
    result = readStatus(
        step, "SELECT Schedule.ScheduleID, Schedule.notifyType FROM Schedule WHERE ScheduleID=",
        scheduleId, channel, [&] { return getNotificationID(scheduleId, channel); },
        [&] { changeNotificationStatus(channel, nt_RemoveStatus, scheduleId); });
  });
}

bool changeNotificationStatus(notifyType channel, changeStatus statusChange, Id scheduleId) {
  return procedure(tagOf<"changeNotificationStatus">, true, [&](Step& step, bool& result) {
    if (!isDatabaseOpen(step)) return;
    if (Rows entry(step, entryWithChannels, scheduleId, keysetUpdate); entry) {
      changeBit(entry, channel, statusChange, "ScheduleModifiedStamp");
    } else {
      result = false;
    }
  });
}

Id getNotificationID(Id scheduleId, notifyType channel) {
  return procedure(tagOf<"getNotificationID">, noId, [&](Step& step, Id& result) {
    if (scheduleId < 0 || !isDatabaseOpen(step)) return;
    const std::string sql =
        "SELECT ClientNotification.* FROM ClientNotification WHERE ScheduleIDNum = " +
        std::to_string(scheduleId) + " AND NotificationType = " + std::to_string(int{channel}) +
        ";";
    if (Rows row(step, sql, keysetRead); row) result = row.id("ClientNotificationID");
  });
}

bool isValidNotificationID(const std::string& notificationId) {
  return isPositiveIdText(tagOf<"isValidNotificationID">, notificationId);
}

int getNumberOfUnsentNotifications() {
  return procedure(tagOf<"getNumberOfUnsentNotifications">, 0, [&](Step& step, int& result) {
    if (!isDatabaseOpen(step)) return;
    RecordsetHandle handle = noRecordset;
    step.assign(handle, [] { return openRecordset(unsentStatement(), keysetRead); });
    step.assign(result, [&] { return database().getRecordCount(handle); });
    step.run([&] { database().closeRecordset(handle); });
  });
}

bool needToSendAutoNotificationsToday() {
  const auto ask = [](Step&, bool& result) { result = getNumberOfUnsentNotifications() > 0; };
  return procedure(tagOf<"needToSendAutoNotificationsToday">, false, ask);
}

std::string getNotificationEmployeeAssignedFromNotificationIDs(Id scheduleId, Id taskId,
                                                               Id appointmentId, Id docketId,
                                                               Id /*unused*/) {
  return procedure(
      tagOf<"getNotificationEmployeeAssignedFromNotificationIDs">, std::string("None Assigned"),
      [&](Step& step, std::string& result) {
        const auto item = firstItem(assignedSources, {scheduleId, taskId, appointmentId, docketId});
        if (!item || !isDatabaseOpen(step)) return;
        const Value assigned = readColumn(step, item.source->column, {}, item.id);
        if (!item.source->isUserId) {
          if (!isEmpty(step, assigned)) step.assign(result, toText, assigned);
        } else if (const Id userId = idOf(step, assigned); userId >= 0) {
          step.assign(result, [&] { return clients().getUserNameFromID(userId); });
        }
      });
}

void changeNotificationToSent(Id notificationId, std::optional<DateTime> sentTime,
                              bool refreshList) {
  procedure(tagOf<"changeNotificationToSent">, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    if (Rows row(step, notificationById, notificationId, keysetUpdate); row) {
      writeStamp(row);
      row.write("NotificationSent", "True");
      row.write("NotificationSentStatus", int{enumNotificationSendStatus_Sent});
      writeCurrentUser(row);
      if (sentTime) row.write("SentTime", *sentTime);
    }
    if (refreshList) refreshOpenList(step, notificationId);
  });
}

void markSentNow(Step& step, Id notificationId, bool refreshList) {
  std::optional<DateTime> now;
  step.assign(now, [] { return platformClock().now(); });
  changeNotificationToSent(notificationId, now, refreshList);
}

void cancelNotification(Id notificationId) {
  procedure(tagOf<"cancelNotification">, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    if (Rows row(step, notificationById, notificationId, keysetUpdate); row) {
      writeStamp(row);
      row.write("NotificationSentStatus", int{enumNotificationSendStatus_Cancelled});
      row.write("NotificationSent", "True");
      row.write("SentTime", "");
      writeCurrentUser(row);
    }
  });
}

void changeNotificationNotifiedDate(Id notificationId, DateTime newDate) {
  procedure(tagOf<"changeNotificationNotifiedDate">, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    if (Rows row(step, dateOfNotification, notificationId, keysetUpdate); row) {
      writeStamp(row);
      row.write("NotificationDate", newDate);
    }
  });
}

bool doesClientHaveAssociatedUnsentNotifications(Id clientId) {
  const auto find = [&](Step& step, bool& result) { findNotifications(step, clientId, result); };
  return procedure(tagOf<"doesClientHaveAssociatedUnsentNotifications">, false, find);
}

void cancelAllUnsentNotificationsForClientID(Id clientId) {
  procedure(tagOf<"cancelAllUnsentNotificationsForClientID">, [&](Step& step) {
    if (clientId < 0 || !isDatabaseOpen(step)) return;
    for (const Row& row : Rows(step, notificationsOfClient, clientId, keysetUpdate)) {
      const auto place = row.place();
      cancelNotification(row.id("ClientNotificationID"));
      row.goTo(place);  // the cancelling opened the same table, which may have moved this position
    }
  });
}

}  // namespace autonotify
