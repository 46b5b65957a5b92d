#include <array>

#include "contract/enumerations.h"
#include "contract/tags.h"
#include "store/channel_fields.h"
#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modNotificationLinks", name>;

/// Hosts know this text as it is: whether it selects by key is up to their engine.
constexpr const char* unfinishedStatement =
    "SELECT ClientNotification.* FROM ClientNotification ClientNotificationID=";

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

/// The new row opened by the statement takes the fields of the row that `findOldRow` gives for its
/// channel.
template <class FindOldRow>
void copyIntoRow(Step& step, const char* newRowStatement, Id newNotificationId,
                 FindOldRow&& findOldRow) {
  if (!isDatabaseOpen(step)) return;
  if (Rows row(step, newRowStatement, newNotificationId, keysetUpdate); row) {
    const Id channel = row.id("NotificationType", 0);
    copyChannelFields(row, channel, findOldRow(static_cast<notifyType>(channel)));
  }
}

}  // namespace

void copyChannelFields(const Row& newRow, Id channel, Id oldNotificationId) {
  if (!isValidNotificationID(std::to_string(oldNotificationId))) return;
  Step& step = newRow.step();
  const Rows oldRow(step, notificationById, oldNotificationId, keysetUpdate);
  if (!oldRow) return;
  for (const CopiedField& field : copiedFields) {
    const Value old = oldRow.value(field.column);
    if (!isEmpty(step, old) && field.subjectOf != channel) newRow.write(field.column, old);
  }
}

void copyOldNotificationInfoToNewNotification(Id newNotificationId, Id oldNotificationId) {
  procedure(tagOf<"copyOldNotificationInfoToNewNotification">, [&](Step& step) {
    const auto oldRow = [&](notifyType) { return oldNotificationId; };
    copyIntoRow(step, unfinishedStatement, newNotificationId, oldRow);
  });
}

void copyOldNotificationInfoToNewNotificationByScheduleIDNum(Id newNotificationId,
                                                             Id oldScheduleId) {
  procedure(tagOf<"copyOldNotificationInfoToNewNotificationByScheduleIDNum">, [&](Step& step) {
    const auto oldRow = [&](notifyType channel) {
      return getNotificationID(oldScheduleId, channel);
    };
    copyIntoRow(step, notificationById, newNotificationId, oldRow);
  });
}

bool deleteNotification(Id notificationId) {
  return procedure(tagOf<"deleteNotification">, false, [&](Step& step, bool& result) {
    if (!isDatabaseOpen(step)) return;
    if (Rows row(step, notificationById, notificationId, keysetUpdate); row) {
      step.assign(result, [&] { return database().deleteRecord(row.handle()); });
    }
  });
}

}  // namespace autonotify
