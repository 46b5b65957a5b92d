#include "host/desk/work/remind_client.h"

#include "host/desk/work/calendar.h"

namespace autonotify::host {
namespace {

Outcome<DiaryItem> requireItem(Desk& desk, CurrentDayTimerType kind, Id id) {
  if (auto found = findDiaryItem(desk, kind, id)) return *std::move(found);
  return Refused{Refused::Why::notThere, subjectOf(diaryKind(kind).claim, id)};
}

bool isOver(Desk& desk, const DiaryItem& item) {
  return item.day->dateOnly() < desk.today();
}

std::optional<ReminderFault> faultOf(const DiaryItem& item) {
  if (item.kind == Tasks)
    return item.scheduleId < 0 ? std::optional(ReminderFault::noTask) : std::nullopt;
  // Of the others a sentence is made, and somebody must be told.
  if (!item.day) return ReminderFault::noDay;
  if (!item.from || !item.to) return ReminderFault::noTime;
  if (item.companyId <= 0 && item.contactId <= 0) return ReminderFault::noClient;
  return std::nullopt;
}

std::optional<ReminderFault> faultOf(Desk& desk, const DiaryItem& item,
                                     std::optional<DateTime> date) {
  if (item.kind == Tasks && date) return ReminderFault::dateOfTask;
  if (const auto fault = faultOf(item)) return fault;
  if (item.kind == Tasks) return std::nullopt;
  if (isOver(desk, item)) return date ? std::nullopt : std::optional(ReminderFault::isOver);
  return date && *date > *item.day ? std::optional(ReminderFault::dateIsLate) : std::nullopt;
}

/// The day on which the reminder falls due; a task's date is not asked for.
Outcome<DateTime> reminderDate(Desk& desk, const DiaryItem& item, std::optional<DateTime> date) {
  if (item.kind == Tasks) return DateTime{};
  if (date) return *date;
  return lastWorkingDay(desk, item.day->dateOnly().addDays(-1));
}

Outcome<Reminders> completed(Reminders reminders, ArmingOutcome outcome) {
  if (!outcome) return outcome.refused();
  reminders.channels = *std::move(outcome);
  return reminders;
}

}  // namespace

Outcome<Reminders> armReminders(Desk& desk, CurrentDayTimerType kind, Id id,
                                std::span<const notifyType> channels,
                                std::optional<DateTime> date) {
  const auto item = requireItem(desk, kind, id);
  if (!item) return item.refused();
  if (const auto fault = faultOf(desk, *item, date)) return Reminders{*item, fault};
  const auto day = reminderDate(desk, *item, date);
  if (!day) return Reminders{*item, ReminderFault::noWorkingDay, day.refused().errors};
  return completed({*item}, armChannels(desk, *armableItem(desk, *item, *day), channels));
}

Outcome<Reminders> disarmReminders(Desk& desk, CurrentDayTimerType kind, Id id,
                                   std::span<const notifyType> channels, bool force) {
  const auto item = requireItem(desk, kind, id);
  if (!item) return item.refused();
  if (item->kind == Tasks && item->scheduleId < 0) return Reminders{*item, ReminderFault::noTask};
  return completed({*item},
                   disarmChannels(desk, *armableItem(desk, *item, DateTime{}), channels, force));
}

}  // namespace autonotify::host
