#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "contract/enumerations.h"
#include "contract/procedure.h"
#include "platform/DateTime.h"
#include "platform/Value.h"

// The state of a notification and the channel bits of its schedule entry.
//
// Two values must not be confused: `Schedule.notifyType` is a set of channel bits, and
// `ClientNotification.NotificationType` is exactly one channel. A row is pending (NotificationSent
// False, status 1), sent (True, 2, SentTime when one was given) or cancelled (True, 3, no
// SentTime). Nothing returns a row to pending.
//
// All procedures settle their failures at the error dialog. With the database closed, and for a row
// that does not exist, they do nothing and give their default: False, -1 or 0. The columns of one
// change are written one by one, the modified stamp first, and each is durable by itself.

namespace autonotify {

class ComboBox;

// Channel bits of `Schedule.notifyType`.

bool IsEmailSelected(std::uint8_t notification);
bool IsFaxSelected(std::uint8_t notification);
bool IsLetterSelected(std::uint8_t notification);
bool IsPhoneSelected(std::uint8_t notification);

/// "Email", "Fax", "Letter" or "Phone" for the lowest channel bit that is set, "None" for 0,
/// "Unknown" for a value without any of the four.
std::string getNotificationTypeNameFromNotificationTypeNum(std::uint8_t notificationTypeNum);

/// Puts the four channels in place of the entries of the list, each with its bit as the number.
void populateAutoNotificationSendTypesInComboBox(ComboBox& combo);

/// True when the schedule entry has the channel's bit and a row of the channel. A bit without a row
/// is stale: it is cleared, and the result is False. False for anything that is not one channel.
bool getNotificationStatus(Id scheduleId, notifyType channel);

/// Sets (nt_AddStatus) or clears (anything else) the channel's bit of the schedule entry. False
/// when there is no such entry; True otherwise, also when nothing had to change, in which case
/// nothing is written, and when the database is closed.
bool changeNotificationStatus(notifyType channel, changeStatus statusChange, Id scheduleId);

// Finding rows.

/// The first row of the schedule entry and channel, or -1.
Id getNotificationID(Id scheduleId, notifyType channel);

/// True when the text is a number above 0. Judges the form of an id, not its existence.
bool isValidNotificationID(const std::string& notificationId);

/// Unsent rows dated up to midnight of today; a row with a later time of today does not count yet.
int getNumberOfUnsentNotifications();
bool needToSendAutoNotificationsToday();

/// The person in charge of the first item whose id is not below 0; "None Assigned" when there is
/// none or nobody is named. The last argument is not used.
std::string getNotificationEmployeeAssignedFromNotificationIDs(Id scheduleId, Id taskId,
                                                               Id appointmentId, Id docketId,
                                                               Id unused = noId);

// Changing a row's state.

/// Marks the row sent by the current user, also a row sent or cancelled before. Without a time,
/// SentTime stays as it is. With `refreshList` an open notification list is asked to redraw the
/// row, whether it exists or not.
void changeNotificationToSent(Id notificationId, std::optional<DateTime> sentTime,
                              bool refreshList);

/// The same at the present time, in statements of the caller's frame; without a time where that
/// cannot be told.
void markSentNow(Step& step, Id notificationId, bool refreshList = true);

/// Marks the row cancelled by the current user, also a sent one, and clears SentTime.
void cancelNotification(Id notificationId);

/// Moves the date of a row in any state.
void changeNotificationNotifiedDate(Id notificationId, DateTime newDate);

// All rows of a client, a `Schedule.ClientNum`. Despite their names both take every row of the
// client's schedule entries, whatever its state; appointment notifications do not belong to them.

bool doesClientHaveAssociatedUnsentNotifications(Id clientId);
void cancelAllUnsentNotificationsForClientID(Id clientId);

}  // namespace autonotify
