#pragma once

#include <cstdint>
#include <string>

#include "channels/modChannelNotifications.h"
#include "contract/enumerations.h"
#include "platform/DateTime.h"
#include "platform/Value.h"

// The notifications of diary items: appointments, time entries (dockets) and tasks.
//
// They stand in the same table as those of schedule entries, under the link column of their kind.
// A task is only a door to its schedule entry: every procedure that takes an item does for it what
// the entry's own procedure does, and a task without an entry gets that procedure's default. A kind
// that is none of the three has no table, and its statements lead to the error dialog. What a
// composer calls takes any number as the kind: composers are given wider ones than items have.
//
// With the database closed all give their default: False (changeApptNotificationStatus: True), -1,
// the zero date or empty text.

namespace autonotify {

// Finding rows and changing their state.

/// The first row of the item and channel, or -1.
Id getApptNotificationID(CurrentDayTimerType kind, Id itemId, notifyType channel);
/// The item that the row is linked to as one of this kind, or -1.
Id getAppointmentIDFromNotificationID(std::int32_t kind, Id notificationId);
/// The day on which the row falls due; the zero date when there is none.
DateTime getApptNotificationDate(Id notificationId);

/// True when the item has the channel's bit and a row of the channel. A bit without a row is stale:
/// it is cleared, and the result is False.
bool getApptNotificationStatus(CurrentDayTimerType kind, Id itemId, notifyType channel);
/// Sets (nt_AddStatus) or clears (anything else) the channel's bit of the item, without any stamp.
/// A bit that is set in the end sets `ClientNotifiedFlag` too, which nothing clears. False when
/// there is no such item.
bool changeApptNotificationStatus(std::int32_t kind, notifyType channel, changeStatus change,
                                  Id itemId);
/// Deletes the item's row of the channel and clears the bit; that of a task's entry stays.
void deleteApptNotification(CurrentDayTimerType kind, notifyType channel, Id itemId);
/// Copies the channel fields of the old item's row of the new row's channel that hold anything,
/// except a subject.
void copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(CurrentDayTimerType kind,
                                                                 Id newNotificationId,
                                                                 Id oldItemId);

// Adding. The row `notificationId` is written anew, without a stamp, when it is above 0; otherwise
// a row is added, without the stamps of its making. Gives the row's id; -1 when there is none. The
// time of day of `reminderDate` is dropped. A client that is not given (below 0) is that of the
// appointment with the item's id, for a time entry too: callers name a time entry's clients. A
// letter takes the clients as they come. `notifyType` of the item is the caller's.

struct ItemReminder {
  CurrentDayTimerType kind;
  Id itemId;
  DateTime reminderDate;
  Id notificationId = noId;
  NotificationClient client = {};
};

Id addNewApptEmailNotification(const ItemReminder& reminder);
Id addNewApptFaxNotification(const ItemReminder& reminder);
Id addNewApptLetterNotification(const ItemReminder& reminder);
Id addNewApptPhoneNotification(const ItemReminder& reminder);

// Texts.

/// The fixed sentences about the item; empty when there is no such item. An item without a date or
/// one of its times leads to the error dialog.
std::string getAppointmentBodyText(CurrentDayTimerType kind, Id itemId);
/// Writes the modified stamp and those sentences over the text of the row. Hosts rely on the wide
/// kind here.
void resetApptNotificationBody(std::int32_t kind, Id notificationId, Id itemId);

// Editing, as for schedule entries; the kind plays no part.

void editApptEmailNotification(std::int32_t kind, Id notificationNum, const EmailTexts& texts);
void editApptFaxNotification(std::int32_t kind, Id notificationNum, const FaxTexts& texts);
void editApptLetterNotification(std::int32_t kind, Id notificationNum, const std::string& memo);
void editApptPhoneNotification(std::int32_t kind, Id notificationNum, const PhoneTexts& texts);

}  // namespace autonotify
