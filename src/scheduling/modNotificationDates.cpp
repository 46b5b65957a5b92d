#include "scheduling/modNotificationDates.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "contract/enumerations.h"
#include "contract/firm_rules.h"
#include "contract/rows.h"
#include "contract/tags.h"
#include "platform/text.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modNotificationDates", name>;

constexpr DateTime firstDate = DateTime::of(100, 1, 1);
constexpr DateTime lastDate = DateTime::of(9999, 12, 31);

/// How often a date that fell on a closed day is moved on.
constexpr int settlingMoves = 9;

/// The one firm's days by its payment method, a `Schedule.Custom2`.
struct MethodDays {
  std::string_view method;
  int days;
};
constexpr std::array<MethodDays, 7> firmMethodDays{{
    {"6WIRE", -7},
    {"5RAI", -7},
    {"4PAP", -6},
    {"3PAP", -5},
    {"2PAP", -4},
    {"1PAP", -4},
    {"0PAP", -4},
}};
constexpr int otherMethodDays = -7;

int daysOfMethod(const Value& custom2) {
  const std::string method = upperCase(trim(toText(custom2)));
  for (const MethodDays& row : firmMethodDays) {
    if (row.method == method) return row.days;
  }
  return otherMethodDays;
}

/// Throws PlatformError (6) for a date outside the years 100 to 9999.
DateTime movedByDays(DateTime date, int days) {
  const std::int64_t moved = std::int64_t{date.days()} + days;
  if (moved < firstDate.days() || moved > lastDate.days()) {
    throw PlatformError(error_number::overflow, "Overflow", "DateTime");
  }
  return date.addDays(days);
}

/// Moves the date, which fails at the ends of the calendar. False when that was skipped: there is
/// nowhere left to go, and the walk ends.
bool moveByDays(Step& step, DateTime& date, int days) {
  const DateTime before = date;
  step.assign(date, movedByDays, date, days);
  return date != before;
}

bool isWeekend(Step& step, DateTime date) {
  return step.holds([&] { return validation().isWeekend(date); });
}

DayStep::Verdict verdictOn(Step& step, DateTime date) {
  if (isWeekend(step, date)) return DayStep::Verdict::weekend;
  return isStatutoryHoliday(date) ? DayStep::Verdict::holiday : DayStep::Verdict::counted;
}

/// The days that a calculation looked at; null when nobody asks.
using DayLog = std::vector<DayStep>*;

void note(DayLog log, DateTime day, DayStep::Verdict verdict) {
  if (log) log->push_back({day, verdict});
}

/// Moves the date by `count` open days in the direction of 1 or -1. False at the end of the
/// calendar.
bool countOpenDays(Step& step, DateTime& date, std::int64_t count, int direction, DayLog log) {
  for (std::int64_t i = 1; i <= count;) {
    if (!moveByDays(step, date, direction)) return false;
    const DayStep::Verdict verdict = verdictOn(step, date);
    note(log, date, verdict);
    if (verdict == DayStep::Verdict::counted) ++i;
  }
  return true;
}

void settleOnOpenDay(Step& step, DateTime& date, int direction, DayLog log) {
  for (int move = 1; move <= settlingMoves; ++move) {
    const DayStep::Verdict verdict = verdictOn(step, date);
    if (verdict == DayStep::Verdict::counted) return;
    note(log, date, verdict);
    if (!moveByDays(step, date, direction)) return;
  }
}

/// One pass of the way back to an open day. False when it moved nothing.
bool moveBackOffClosedDay(Step& step, DateTime& date, DayLog log) {
  constexpr int sunday = 1;
  bool moved = false;
  if (isWeekend(step, date)) {
    note(log, date, DayStep::Verdict::weekend);
    moved = moveByDays(step, date, date.weekday() == sunday ? -2 : -1);
  }
  if (isStatutoryHoliday(date)) {
    note(log, date, DayStep::Verdict::holiday);
    moved = moveByDays(step, date, -1);
  }
  return moved;
}

DateTime walkBusinessDays(Step& step, std::int32_t days, DateTime date, DayLog walk,
                          DayLog settling) {
  const int direction = days < 0 ? -1 : 1;
  if (countOpenDays(step, date, std::int64_t{days} * direction, direction, walk)) {
    settleOnOpenDay(step, date, direction, settling);
  }
  return date;
}

/// The zero date, which is none, stays.
DateTime backToOpenDay(Step& step, DateTime date, DayLog log) {
  while (!date.isZero() && moveBackOffClosedDay(step, date, log)) {
  }
  return date;
}

bool isHolidayType(const Value& type) {
  if (generalUtilities().isValueEmpty(type)) return true;
  const Id number = toInteger(type);
  return number == 1 || number == 3;
}

/// What a notification date is worked out from. Without `dueDate`, reading it was skipped.
struct Deadline {
  std::optional<DateTime> dueDate;
  Id totalNum = noId;
  Id scheduleNum = noId;
};

Deadline readDeadline(const Row& entry) {
  Deadline result;
  entry.read(result.dueDate, "DueDate", toDateTime);
  result.totalNum = entry.id("totalNum");
  result.scheduleNum = entry.id("scheduleNum");
  return result;
}

/// Days for calculation, and who says so.
struct Period {
  int days = 0;
  bool isFirmRule = false;
};

Period readPeriod(const Row& entry, const Deadline& deadline) {
  if (!entry.step().holds(hasFirmRules))
    return {getNotificationPeriod(deadline.totalNum, deadline.scheduleNum, false), false};
  Period period{otherMethodDays, true};
  entry.read(period.days, "Custom2", daysOfMethod);
  return period;
}

constexpr const char* entryWithMethod =
    "SELECT Schedule.ScheduleID, Schedule.totalNum, Schedule.scheduleNum, "
    "Schedule.DueDate, Schedule.Custom2 FROM Schedule WHERE ScheduleID=";
constexpr const char* entryWithKind =
    "SELECT Schedule.ScheduleID, Schedule.DueDate, Schedule.totalNum, Schedule.scheduleNum "
    "FROM Schedule WHERE ScheduleID=";

/// Runs `body(deadline, dueDate, period)` for the schedule entry, when there is one with a due
/// date.
template <class Body>
void withDeadline(Step& step, Id scheduleID, Body&& body) {
  if (!isDatabaseOpen(step)) return;
  const Rows entry(step, entryWithMethod, scheduleID, keysetRead);
  if (!entry) return;
  const Deadline deadline = readDeadline(entry);
  const Period period = readPeriod(entry, deadline);
  if (deadline.dueDate) body(deadline, *deadline.dueDate, period);
}

/// Whether a row of this channel gives its date to a new one, when `lowest` is the channel that
/// gave it so far. A later fax replaces an earlier one; the first letter and call stay.
bool doesChannelTakeOver(int channel, int lowest) {
  switch (channel) {
    case nt_Email:
    case nt_Fax:
      return true;
    case nt_Letter:
    case nt_Phone:
      return lowest > channel;
    default:
      return false;
  }
}

/// Puts the date of the entry's row with the first channel in place of `date`. Gives that channel,
/// 0 without a row.
int takeSiblingDate(Step& step, Id scheduleID, DateTime& date) {
  constexpr int none = 16;
  int lowest = none;
  const std::string sql = statementFor(
      "SELECT ClientNotification.* FROM ClientNotification WHERE ScheduleIDNum=", scheduleID);
  for (const Row& row : Rows(step, sql, keysetRead)) {
    int channel = 0;
    row.read(channel, "NotificationType", toInteger);
    if (doesChannelTakeOver(channel, lowest)) {
      row.read(date, "NotificationDate", toDateTime);
      lowest = channel;
    }
    if (channel == nt_Email) break;
  }
  return lowest == none ? 0 : lowest;
}

/// The lowest number has no counterpart, which fails as an overflow.
std::int16_t negated(std::int16_t number) {
  return toInteger16(Value{-number});
}

}  // namespace

std::int16_t getNotificationPeriod(Id totalNum, Id ScheduleNum, bool getValueForUserDisplay) {
  const auto read = [&](Step& step, std::int16_t& result) {
    clsAutoNotifyTemplate kind;
    if (kind.openWithTotalNumAndScheduleNum(totalNum, ScheduleNum, false))
      result = kind.get_notificationPeriod();
    if (!getValueForUserDisplay) step.assign(result, negated, result);
  };
  return procedure(tagOf<"getNotificationPeriod">, defaultNotificationPeriod, read);
}

DateTime determineNotificationDate(Id scheduleID) {
  return procedure(
      tagOf<"determineNotificationDate">, DateTime{}, [&](Step& step, DateTime& result) {
        withDeadline(step, scheduleID, [&](const Deadline&, DateTime dueDate, Period period) {
          result = dateAddBusinessDaysWithoutWeekendsAndHolidays(period.days, dueDate);
        });
      });
}

DateTime getLastUsedNotificationDate(Id scheduleID, DateTime proposed) {
  const auto read = [&](Step& step, DateTime& result) {
    if (scheduleID < 0 || !isDatabaseOpen(step)) return;
    takeSiblingDate(step, scheduleID, result);
  };
  return procedure(tagOf<"getLastUsedNotificationDate">, proposed, read);
}

DateTime adjustDateToFridayIfWeekendOrHoliday(DateTime date) {
  return procedure(
      tagOf<"adjustDateToFridayIfWeekendOrHoliday">, DateTime{},
      [&](Step& step, DateTime& result) { result = backToOpenDay(step, date, nullptr); });
}

DateTime dateAddBusinessDaysWithoutWeekendsAndHolidays(std::int32_t days, DateTime date) {
  return procedure(tagOf<"dateAddBusinessDays">, DateTime{}, [&](Step& step, DateTime& result) {
    result = walkBusinessDays(step, days, date, nullptr, nullptr);
  });
}

bool isStatutoryHoliday(DateTime date) {
  return procedure(tagOf<"isStatutoryHoliday">, false, [&](Step& step, bool& result) {
    if (!isDatabaseOpen(step)) return;
    const std::string day =
        step.value(std::string{}, [&] { return database().formatDateForSQL(date.dateOnly()); });
    const std::string sql =
        "SELECT Holidays.HolidayDate, Holidays.HolidayType FROM Holidays "
        "WHERE Holidays.HolidayDate = #" +
        (day + "# ;");
    const auto isHoliday = [&](const Value& type) { return isHolidayType(type) || result; };
    for (const Row& row : Rows(step, sql, forwardRead)) row.read(result, "HolidayType", isHoliday);
  });
}

DateExplanation explainNotificationDate(Id scheduleID) {
  return procedure(
      tagOf<"explainNotificationDate">, DateExplanation{},
      [&](Step& step, DateExplanation& result) {
        withDeadline(step, scheduleID, [&](const Deadline& kind, DateTime dueDate, Period period) {
          result.found = true;
          result.dueDate = dueDate;
          result.totalNum = kind.totalNum;
          result.scheduleNum = kind.scheduleNum;
          result.usedFirmRule = period.isFirmRule;
          result.days = period.days;
          result.determined =
              walkBusinessDays(step, period.days, dueDate, &result.walk, &result.settling);
        });
        if (!result.found) return;
        result.afterSibling = result.determined;
        result.siblingChannel = takeSiblingDate(step, scheduleID, result.afterSibling);
        result.result = backToOpenDay(step, result.afterSibling, &result.backToWorkingDay);
      });
}

void refreshNotificationDate(Id scheduleID) {
  procedure(tagOf<"refreshNotificationDate">, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    const Rows entry(step, entryWithKind, scheduleID, keysetRead);
    if (!entry) return;
    const Deadline deadline = readDeadline(entry);
    const int days = getNotificationPeriod(deadline.totalNum, deadline.scheduleNum, false);
    if (!deadline.dueDate) return;
    const DateTime date = dateAddBusinessDaysWithoutWeekendsAndHolidays(days, *deadline.dueDate);
    for (const notifyType channel : allNotifyTypes) {
      const Id notificationID = getNotificationID(scheduleID, channel);
      if (notificationID >= 0) changeNotificationNotifiedDate(notificationID, date);
    }
  });
}

}  // namespace autonotify
