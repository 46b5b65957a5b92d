#include <array>

#include "contract/enumerations.h"
#include "store/channel_fields.h"
#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

/// A channel field, and the channel whose subject it holds.
struct CopiedField {
  static constexpr int noChannel = -1;
  const char* column;
  int subjectOf = noChannel;
};
constexpr std::array<CopiedField, 6> copiedFields{{
    {"Field1"},
    {"Field2"},
    {"Field3"},
    {"Field4", nt_Email},
    {"Field5"},
    {"Field6", nt_Fax},
}};

/// Opens the new row by the statement and copies into it from the row that `findOldRow` gives for
/// its channel.
template <class FindOldRow>
void copyIntoRow(Step& step, const char* newRowStatement, Id newNotificationId,
                 FindOldRow&& findOldRow) {
  if (!isDatabaseOpen(step)) return;
  withRow(step, newRowStatement, newNotificationId, keysetUpdate, [&](RecordsetHandle newRow) {
    const Id channel = readId(step, newRow, "NotificationType", 0);
    copyChannelFields(step, newRow, channel, findOldRow(static_cast<notifyType>(channel)));
  });
}

}  // namespace

void copyChannelFields(Step& step, RecordsetHandle newRow, Id channel, Id oldNotificationId) {
  if (!isValidNotificationID(std::to_string(oldNotificationId))) return;
  withRow(step, notificationById, oldNotificationId, keysetUpdate, [&](RecordsetHandle oldRow) {
    for (const CopiedField& field : copiedFields) {
      const Value old = readField(step, oldRow, field.column);
      if (isEmpty(step, old) || field.subjectOf == channel) continue;
      writeField(step, newRow, field.column, [&] { return toText(old); });
    }
  });
}

void copyOldNotificationInfoToNewNotification(Id newNotificationId, Id oldNotificationId) {
  procedure("Morvane.exe-modNotificationLinks-copyOldNotificationInfoToNewNotification",
            [&](Step& step) {
              // Hosts know this text as it is: whether it selects by key is up to their engine.
              copyIntoRow(step,
                          "SELECT ClientNotification.* FROM ClientNotification "
                          "ClientNotificationID=",
                          newNotificationId, [&](notifyType) { return oldNotificationId; });
            });
}

void copyOldNotificationInfoToNewNotificationByScheduleIDNum(Id newNotificationId,
                                                             Id oldScheduleId) {
  procedure(
      "Morvane.exe-modNotificationLinks-copyOldNotificationInfoToNewNotificationByScheduleIDNum",
      [&](Step& step) {
        copyIntoRow(step, notificationById, newNotificationId,
                    [&](notifyType channel) { return getNotificationID(oldScheduleId, channel); });
      });
}

bool deleteNotification(Id notificationId) {
  return procedure(
      "Morvane.exe-modNotificationLinks-deleteNotification", false, [&](Step& step, bool& result) {
        if (!isDatabaseOpen(step)) return;
        withRow(step, notificationById, notificationId, keysetUpdate, [&](RecordsetHandle handle) {
          step.assign(result, [&] { return database().deleteRecord(handle); });
        });
      });
}

}  // namespace autonotify
