#include "day/day_groups.h"

#include <QLocale>
#include <QObject>
#include <algorithm>

#include "binding/DateBinding.h"
#include "day/day_formats.h"

namespace autonotify::desktop {
namespace {

DayGroupShown shownGroup(const QString& name, const QString& note, const QString& noteWhenEmpty,
                         DayTone tone, const host::DayGroup& group) {
  return {name, note, noteWhenEmpty, tone, group.count, group.lines};
}

/// "Wednesday to Sunday"; the day alone where there is one left.
QString restOfWeek(QDate today) {
  const QDate first = today.addDays(1);
  const QDate last = today.addDays(Qt::Sunday - today.dayOfWeek());
  const QString end = QLocale().toString(last, "dddd");
  if (first > last) return {};
  return first == last ? end : QObject::tr("%1 to %2").arg(QLocale().toString(first, "dddd"), end);
}

}  // namespace

std::vector<DayGroupShown> dayGroups(const host::WorkingDay& day, QDate today) {
  return {shownGroup(QObject::tr("Overdue"), QObject::tr("the notify date has passed"),
                     QObject::tr("Nothing overdue"), DayTone::overdue, day.overdue),
          shownGroup(QObject::tr("Today"), longDay(today), QObject::tr("Nothing today"),
                     DayTone::today, day.today),
          shownGroup(QObject::tr("This week"), restOfWeek(today),
                     QObject::tr("Nothing more this week"), DayTone::later, day.thisWeek)};
}

DayGroupShown weekGroup(DateTime monday, const host::WorkingDay& day,
                        std::vector<host::DayLine> lines) {
  const auto week = std::ranges::find(day.weeks, monday, &host::WeekAhead::monday);
  const std::size_t count = week == day.weeks.end() ? lines.size() : host::totalOf(week->counts);
  const QString last = longDay(qtDate(monday.addDays(6)));
  return {longDay(qtDate(monday)),
          QObject::tr("to %1").arg(last),
          QObject::tr("Nothing that week"),
          DayTone::later,
          count,
          std::move(lines)};
}

QString summaryText(const QString& date, const host::WorkingDay& day) {
  const QString counts = QObject::tr("%L1 overdue, %L2 today, %L3 later this week")
                             .arg(day.overdue.count)
                             .arg(day.today.count)
                             .arg(day.thisWeek.count);
  return QString("%1  \u00b7  %2").arg(date, counts);
}

QString nextWeekText(const host::WorkingDay& day) {
  const auto week = std::ranges::find_if(
      day.weeks, [](const host::WeekAhead& each) { return host::totalOf(each.counts) > 0; });
  if (week == day.weeks.end()) return {};
  return QObject::tr("The next ones go out in the week of %1.")
      .arg(dayAndMonth(qtDate(week->monday)));
}

}  // namespace autonotify::desktop
