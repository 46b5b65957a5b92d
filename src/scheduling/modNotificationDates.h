#pragma once

#include <cstdint>

#include "contract/date_explanation.h"
#include "platform/DateTime.h"
#include "platform/Value.h"

namespace autonotify {

// When a notification falls due: business days counted from the due date of its schedule entry.
//
// A day is open unless it is a weekend day or stands in `Holidays`. A period is stored and shown as
// days before the due date (negative: after it); for calculation its sign is turned round, so that
// it can be added to the due date.

/// Days of the kind of schedule entry, 15 when there is no such kind. For display as stored,
/// otherwise with the sign for calculation.
std::int16_t getNotificationPeriod(Id totalNum, Id ScheduleNum, bool getValueForUserDisplay);

/// The due date of the schedule entry moved by its period, or by the firm's own rule where that is
/// in force. The zero date when there is no such entry or the database is closed.
DateTime determineNotificationDate(Id scheduleID);

/// The date that a new notification of the schedule entry shares with those that exist: that of its
/// email, else its fax, its letter, its telephone call, in any state; else `proposed`.
DateTime getLastUsedNotificationDate(Id scheduleID, DateTime proposed);

/// A closed day goes back to the last open day before it, an open day stays. Without an open day
/// the walk goes on until a date cannot be held any more, which fails as an overflow (6).
DateTime adjustDateToFridayIfWeekendOrHoliday(DateTime date);

/// `date` moved by `days` open days, backward for a negative number. A result on a closed day (for
/// `days` 0) is moved on by up to 9 days; after that it stays. Without an open day the walk goes on
/// until a date cannot be held any more, which fails as an overflow (6).
DateTime dateAddBusinessDaysWithoutWeekendsAndHolidays(std::int32_t days, DateTime date);

/// True when a row of `Holidays` on that date closes it: type 1, 3 or none. False when the database
/// is closed.
bool isStatutoryHoliday(DateTime date);

/// Why the schedule entry's next notification gets its date: the steps of
/// determineNotificationDate, getLastUsedNotificationDate and adjustDateToFridayIfWeekendOrHoliday,
/// one after the other.
DateExplanation explainNotificationDate(Id scheduleID);

/// Moves the notifications of a schedule entry whose due date or kind has changed: the first row of
/// each channel, in any state. Knows neither the firm's own rule nor the date of a sibling, and may
/// leave a row on a closed day.
void refreshNotificationDate(Id scheduleID);

}  // namespace autonotify
