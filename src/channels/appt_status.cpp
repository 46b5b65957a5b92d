#include "channels/diary_items.h"
#include "channels/modApptNotifications.h"
#include "store/channel_bits.h"
#include "store/channel_fields.h"
#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"

namespace autonotify {
namespace {

/// The first row of ClientNotification where `column` holds the id, with the kind's link.
std::string linkStatement(const DiaryKind& kind, const std::string& condition) {
  return std::string("SELECT ClientNotification.ClientNotificationID, ClientNotification.") +
         kind.link + " FROM ClientNotification WHERE " + condition + ";";
}

}  // namespace

Id getApptNotificationID(CurrentDayTimerType kind, Id itemId, notifyType channel) {
  return procedure(
      "Morvane.exe-modApptNotifications-getApptNotificationID", noId, [&](Step& step, Id& result) {
        if (kind == Tasks) {
          result = getNotificationID(getScheduleIDFromTaskID(itemId), channel);
          return;
        }
        if (itemId < 0 || !isDatabaseOpen(step)) return;
        const DiaryKind& row = diaryKind(kind);
        const std::string condition = std::string(row.link) + "=" + std::to_string(itemId) +
                                      " AND NotificationType = " + std::to_string(int{channel});
        withFirstRow(step, linkStatement(row, condition), keysetRead, [&](RecordsetHandle handle) {
          result = readId(step, handle, "ClientNotificationID");
        });
      });
}

Id getAppointmentIDFromNotificationID(CurrentDayTimerType kind, Id notificationId) {
  return procedure(
      "Morvane.exe-modApptNotifications-getAppointmentIDFromNotificationID", noId,
      [&](Step& step, Id& result) {
        if (notificationId < 0 || !isDatabaseOpen(step)) return;
        const DiaryKind& row = diaryKind(kind);
        const std::string condition = "ClientNotificationID=" + std::to_string(notificationId);
        withFirstRow(step, linkStatement(row, condition), keysetRead,
                     [&](RecordsetHandle handle) { result = readId(step, handle, row.link); });
      });
}

DateTime getApptNotificationDate(Id notificationId) {
  return procedure("Morvane.exe-modApptNotifications-getApptNotificationDate", DateTime{},
                   [&](Step& step, DateTime& result) {
                     if (!isDatabaseOpen(step)) return;
                     const Value date = readColumn(
                         step,
                         {"SELECT ClientNotification.ClientNotificationID, "
                          "ClientNotification.NotificationDate FROM ClientNotification WHERE "
                          "ClientNotificationID=",
                          "NotificationDate"},
                         {}, notificationId);
                     if (!isEmpty(step, date))
                       step.assign(result, [&] { return toDateTime(date); });
                   });
}

bool getApptNotificationStatus(CurrentDayTimerType kind, Id itemId, notifyType channel) {
  return procedure(
      "Morvane.exe-modApptNotifications-getApptNotificationStatus", false,
      [&](Step& step, bool& result) {
        if (kind == Tasks) {
          result = getNotificationStatus(getScheduleIDFromTaskID(itemId), channel);
          return;
        }
        if (!isDatabaseOpen(step)) return;
        result = readStatus(
            step, itemStatement(diaryKind(kind)), itemId, channel,
            [&] { return getApptNotificationID(kind, itemId, channel); },
            [&] { changeApptNotificationStatus(kind, channel, nt_RemoveStatus, itemId); });
      });
}

bool changeApptNotificationStatus(CurrentDayTimerType kind, notifyType channel,
                                  changeStatus statusChange, Id itemId) {
  return procedure("Morvane.exe-modApptNotifications-changeApptNotificationStatus", true,
                   [&](Step& step, bool& result) {
                     if (kind == Tasks) {
                       const Id scheduleId = getScheduleIDFromTaskID(itemId);
                       result = changeNotificationStatus(channel, statusChange, scheduleId);
                       return;
                     }
                     if (!isDatabaseOpen(step)) return;
                     withRow(
                         step, itemStatement(diaryKind(kind)), itemId, keysetUpdate,
                         [&](RecordsetHandle item) {
                           changeBit(Row(step, item), channel, statusChange);
                           const int bits = readId(step, item, "notifyType", 0);
                           if (!isOneChannel(channel) || !hasBit(bits, channel)) return;
                           writeField(step, item, "ClientNotifiedFlag",
                                      [] { return toText(true); });
                         },
                         [&] { result = false; });
                   });
}

void deleteApptNotification(CurrentDayTimerType kind, notifyType channel, Id itemId) {
  procedure("Morvane.exe-modApptNotifications-deleteApptNotification", [&](Step& step) {
    if (kind == Tasks) {
      deleteNotification(getApptNotificationID(kind, itemId, channel));
      return;
    }
    if (!isDatabaseOpen(step)) return;
    withRow(step, itemStatement(diaryKind(kind)), itemId, keysetUpdate, [&](RecordsetHandle) {
      const Id notificationId = getApptNotificationID(kind, itemId, channel);
      if (notificationId < 0 || !deleteNotification(notificationId)) return;
      changeApptNotificationStatus(kind, channel, nt_RemoveStatus, itemId);
    });
  });
}

void copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(CurrentDayTimerType kind,
                                                                 Id newNotificationId,
                                                                 Id oldItemId) {
  procedure(
      "Morvane.exe-modApptNotifications-"
      "copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum",
      [&](Step& step) {
        if (kind == Tasks) {
          copyOldNotificationInfoToNewNotificationByScheduleIDNum(
              newNotificationId, getScheduleIDFromTaskID(oldItemId));
          return;
        }
        if (!isDatabaseOpen(step)) return;
        const Value type = readColumn(step,
                                      {"SELECT ClientNotification.ClientNotificationID, "
                                       "ClientNotification.NotificationType FROM "
                                       "ClientNotification WHERE ClientNotificationID=",
                                       "NotificationType"},
                                      {}, newNotificationId);
        const Id channel = idOf(step, type);
        if (channel < 0) return;
        const Id oldId = getApptNotificationID(kind, oldItemId, static_cast<notifyType>(channel));
        if (!isValidNotificationID(std::to_string(oldId))) return;
        withRow(step, notificationById, newNotificationId, keysetUpdate,
                [&](RecordsetHandle newRow) { copyChannelFields(step, newRow, channel, oldId); });
      });
}

}  // namespace autonotify
