#include "channels/diary_items.h"
#include "channels/modApptNotifications.h"
#include "contract/tags.h"
#include "store/channel_bits.h"
#include "store/channel_fields.h"
#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modApptNotifications", name>;

constexpr ColumnLookup dateOfNotification{
    tagOf<"getApptNotificationDate">,
    {"SELECT ClientNotification.ClientNotificationID, ClientNotification.NotificationDate FROM "
     "ClientNotification WHERE ClientNotificationID=",
     "NotificationDate"}};
constexpr ColumnSource typeOfNotification{
    "SELECT ClientNotification.ClientNotificationID, ClientNotification.NotificationType FROM "
    "ClientNotification WHERE ClientNotificationID=",
    "NotificationType"};

/// The rows of ClientNotification that meet the condition, with the kind's link.
std::string linkStatement(const DiaryKind& kind, const std::string& condition) {
  return std::string("SELECT ClientNotification.ClientNotificationID, ClientNotification.") +
         kind.link + " FROM ClientNotification WHERE " + condition + ";";
}

/// An item with the channel's bit counts as notified, for good.
void raiseFlag(const Row& item, notifyType channel) {
  const int bits = item.id("notifyType", 0);
  if (isOneChannel(channel) && hasBit(bits, channel)) item.write("ClientNotifiedFlag", true);
}

}  // namespace

Id getApptNotificationID(CurrentDayTimerType kind, Id itemId, notifyType channel) {
  return procedure(tagOf<"getApptNotificationID">, noId, [&](Step& step, Id& result) {
    if (kind == Tasks) {
      result = getNotificationID(getScheduleIDFromTaskID(itemId), channel);
      return;
    }
    if (itemId < 0 || !isDatabaseOpen(step)) return;
    const DiaryKind& items = diaryKind(kind);
    const std::string condition = std::string(items.link) + "=" + std::to_string(itemId) +
                                  " AND NotificationType = " + std::to_string(int{channel});
    if (Rows row(step, linkStatement(items, condition), keysetRead); row)
      result = row.id("ClientNotificationID");
  });
}

Id getAppointmentIDFromNotificationID(std::int32_t kind, Id notificationId) {
  return procedure(tagOf<"getAppointmentIDFromNotificationID">, noId, [&](Step& step, Id& result) {
    if (notificationId < 0 || !isDatabaseOpen(step)) return;
    const DiaryKind& items = diaryKind(kind);
    const std::string condition = "ClientNotificationID=" + std::to_string(notificationId);
    if (Rows row(step, linkStatement(items, condition), keysetRead); row)
      result = row.id(items.link);
  });
}

DateTime getApptNotificationDate(Id notificationId) {
  return lookUpDate(dateOfNotification, notificationId);
}

bool getApptNotificationStatus(CurrentDayTimerType kind, Id itemId, notifyType channel) {
  return procedure(tagOf<"getApptNotificationStatus">, false, [&](Step& step, bool& result) {
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

bool changeApptNotificationStatus(std::int32_t kind, notifyType channel, changeStatus change,
                                  Id itemId) {
  return procedure(tagOf<"changeApptNotificationStatus">, true, [&](Step& step, bool& result) {
    if (kind == Tasks) {
      const Id scheduleId = getScheduleIDFromTaskID(itemId);
      result = changeNotificationStatus(channel, change, scheduleId);
      return;
    }
    if (!isDatabaseOpen(step)) return;
    if (Rows item(step, itemStatement(diaryKind(kind)), itemId, keysetUpdate); item) {
      changeBit(item, channel, change);
      raiseFlag(item, channel);
    } else {
      result = false;
    }
  });
}

void deleteApptNotification(CurrentDayTimerType kind, notifyType channel, Id itemId) {
  procedure(tagOf<"deleteApptNotification">, [&](Step& step) {
    if (kind == Tasks) {
      deleteNotification(getApptNotificationID(kind, itemId, channel));
      return;
    }
    if (!isDatabaseOpen(step)) return;
    const Rows item(step, itemStatement(diaryKind(kind)), itemId, keysetUpdate);
    if (!item) return;
    const Id notificationId = getApptNotificationID(kind, itemId, channel);
    if (notificationId < 0 || !deleteNotification(notificationId)) return;
    changeApptNotificationStatus(kind, channel, nt_RemoveStatus, itemId);
  });
}

void copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(CurrentDayTimerType kind,
                                                                 Id newNotificationId,
                                                                 Id oldItemId) {
  procedure(tagOf<"copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum">, [&](Step& step) {
    if (kind == Tasks) {
      copyOldNotificationInfoToNewNotificationByScheduleIDNum(newNotificationId,
                                                              getScheduleIDFromTaskID(oldItemId));
      return;
    }
    if (!isDatabaseOpen(step)) return;
    const Id channel = idOf(step, readColumn(step, typeOfNotification, {}, newNotificationId));
    if (channel < 0) return;
    const Id oldId = getApptNotificationID(kind, oldItemId, static_cast<notifyType>(channel));
    if (!isValidNotificationID(std::to_string(oldId))) return;
    if (Rows newRow(step, notificationById, newNotificationId, keysetUpdate); newRow)
      copyChannelFields(newRow, channel, oldId);
  });
}

}  // namespace autonotify
