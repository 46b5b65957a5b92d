#include <array>

#include "channels/diary_items.h"
#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "channels/recipients.h"
#include "contract/tags.h"
#include "platform/format.h"
#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modApptNotifications", name>;

/// Columns that are written one after the other.
enum ColumnGroup { type, link, clientIds, date, fields, memo, groupCount };
using ColumnOrder = std::array<ColumnGroup, groupCount>;

constexpr ColumnOrder clientsLast{type, link, date, fields, memo, clientIds};
constexpr ColumnOrder clientsBehindLink{type, link, clientIds, date, fields, memo};
constexpr ColumnOrder clientsBeforeLink{type, clientIds, link, date, fields, memo};

/// A channel's way to its row.
struct ItemChannel {
  notifyType value;
  ChannelFields (*recipient)(Step&, const NotificationClient&);
  /// Absent where there is no subject.
  const char* subjectColumn;
  /// Clients that are not given are looked up.
  bool findsClient;
  ColumnOrder order;
  /// The add of a task's schedule entry.
  Id (*addForSchedule)(Id);
};

constexpr std::array<ItemChannel, 4> channels{{
    {nt_Email, itemEmailFields, "Field4", true, clientsLast,
     addNewEmailNotificationFromScheduleIDNum},
    {nt_Fax, itemFaxFields, "Field6", true, clientsBehindLink,
     addNewFaxNotificationFromScheduleIDNum},
    {nt_Letter, letterFields, nullptr, false, clientsBeforeLink,
     addNewLetterNotificationFromScheduleIDNum},
    {nt_Phone, itemPhoneFields, nullptr, true, clientsBeforeLink,
     addNewPhoneNotificationFromScheduleIDNum},
}};
const auto& [emailItem, faxItem, letterItem, phoneItem] = channels;

NotificationClient clientOf(const ItemChannel& channel, const ItemReminder& reminder) {
  NotificationClient client = reminder.client;
  if (!channel.findsClient) return client;
  if (client.companyId < 0) client.companyId = getCompanyIDFromAppointmentID(reminder.itemId);
  if (client.contactId < 0) client.contactId = getContactIDFromAppointmentID(reminder.itemId);
  return client;
}

/// All columns with their texts, in the order of the channel.
ChannelFields composeRow(Step& step, const ItemChannel& channel, const ItemReminder& reminder) {
  const DiaryKind& kind = diaryKind(reminder.kind);
  const NotificationClient client = clientOf(channel, reminder);
  std::array<ChannelFields, groupCount> groups;
  groups[fields] = channel.recipient(step, client);
  if (channel.subjectColumn) {
    groups[fields].emplace_back(channel.subjectColumn, itemSubject(step, kind, reminder.itemId));
  }
  groups[memo] = {{"Memo", getAppointmentBodyText(reminder.kind, reminder.itemId)}};
  groups[type] = {{"NotificationType", toText(int{channel.value})}};
  groups[link] = {{kind.link, toText(reminder.itemId)}};
  groups[clientIds] = {{"CompanyIDNum", toText(client.companyId)},
                       {"ContactIDNum", toText(client.contactId)}};
  groups[date] = {{"NotificationDate", formatDateTime(reminder.reminderDate, "mmm d yyyy")}};
  ChannelFields row;
  for (const ColumnGroup group : channel.order) {
    row.insert(row.end(), groups[group].begin(), groups[group].end());
  }
  return row;
}

void addItemRow(Step& step, const ChannelFields& columns, Id& key) {
  NewRow row(step, "ClientNotification");
  for (const auto& [column, text] : columns) row.set(column, text);
  row.save(key, "ClientNotificationID");
}

void updateItemRow(Step& step, const ChannelFields& columns, Id notificationId, Id& key) {
  const Rows row(step, notificationById, notificationId, keysetUpdate);
  if (!row) return;
  for (const auto& [column, text] : columns) row.write(column, text);
  key = row.id("ClientNotificationID");
}

Id addOrUpdate(std::string_view frameTag, const ItemChannel& channel,
               const ItemReminder& reminder) {
  return procedure(frameTag, noId, [&](Step& step, Id& result) {
    if (reminder.kind == Tasks) {
      result = channel.addForSchedule(getScheduleIDFromTaskID(reminder.itemId));
      return;
    }
    if (!isDatabaseOpen(step)) return;
    const ChannelFields row = composeRow(step, channel, reminder);
    if (isValidNotificationID(std::to_string(reminder.notificationId))) {
      updateItemRow(step, row, reminder.notificationId, result);
    } else {
      addItemRow(step, row, result);
    }
  });
}

}  // namespace

Id addNewApptEmailNotification(const ItemReminder& reminder) {
  return addOrUpdate(tagOf<"addNewApptEmailNotification">, emailItem, reminder);
}

Id addNewApptFaxNotification(const ItemReminder& reminder) {
  return addOrUpdate(tagOf<"addNewApptFaxNotification">, faxItem, reminder);
}

Id addNewApptLetterNotification(const ItemReminder& reminder) {
  return addOrUpdate(tagOf<"addNewApptLetterNotification">, letterItem, reminder);
}

Id addNewApptPhoneNotification(const ItemReminder& reminder) {
  return addOrUpdate(tagOf<"addNewApptPhoneNotification">, phoneItem, reminder);
}

}  // namespace autonotify
