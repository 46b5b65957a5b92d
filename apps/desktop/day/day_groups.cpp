#include "day/day_groups.h"

#include <QLocale>
#include <QObject>
#include <algorithm>

#include "binding/DateBinding.h"
#include "day/day_formats.h"

namespace autonotify::desktop {
namespace {

/// What of a group is the same on each day.
struct GroupWords {
  const char* name;
  const char* noteWhenEmpty;
  DayTone tone;
  host::DayGroup host::WorkingDay::*group;
};
constexpr GroupWords overdueWords{QT_TRANSLATE_NOOP("QObject", "Overdue"),
                                  QT_TRANSLATE_NOOP("QObject", "Nothing overdue"), DayTone::overdue,
                                  &host::WorkingDay::overdue};
constexpr GroupWords todayWords{QT_TRANSLATE_NOOP("QObject", "Today"),
                                QT_TRANSLATE_NOOP("QObject", "Nothing today"), DayTone::today,
                                &host::WorkingDay::today};
constexpr GroupWords weekWords{QT_TRANSLATE_NOOP("QObject", "This week"),
                               QT_TRANSLATE_NOOP("QObject", "Nothing more this week"),
                               DayTone::later, &host::WorkingDay::thisWeek};

/// "Wednesday to Sunday"; the day alone where there is one left.
QString restOfWeek(QDate today) {
  const QDate first = today.addDays(1);
  const QDate last = today.addDays(Qt::Sunday - today.dayOfWeek());
  const QString end = QLocale().toString(last, "dddd");
  if (first > last) return {};
  return first == last ? end : QObject::tr("%1 to %2").arg(QLocale().toString(first, "dddd"), end);
}

}  // namespace

std::vector<DayGroupShown> dayGroups(const host::WorkingDay& day, int channels, QDate today) {
  const auto shownAs = [&](const GroupWords& words, const QString& note) {
    const host::DayGroup& group = day.*words.group;
    return DayGroupShown{QObject::tr(words.name),
                         note,
                         QObject::tr(words.noteWhenEmpty),
                         words.tone,
                         host::countOf(group.byChannel, channels),
                         group.lines};
  };
  return {shownAs(overdueWords, QObject::tr("the notify date has passed")),
          shownAs(todayWords, longDay(today)), shownAs(weekWords, restOfWeek(today))};
}

DayGroupShown weekGroup(DateTime monday, const host::WorkingDay& day, int channels,
                        std::vector<host::DayLine> lines) {
  const auto week = std::ranges::find(day.weeks, monday, &host::WeekAhead::monday);
  const std::size_t count =
      week == day.weeks.end() ? lines.size() : host::countOf(week->counts, channels);
  const QString last = longDay(qtDate(monday.addDays(6)));
  return {longDay(qtDate(monday)),
          QObject::tr("to %1").arg(last),
          QObject::tr("Nothing that week"),
          DayTone::later,
          count,
          std::move(lines)};
}

QString summaryText(const QString& date, const host::WorkingDay& day, int channels) {
  const QString counts = QObject::tr("%L1 overdue, %L2 today, %L3 later this week")
                             .arg(host::countOf(day.overdue.byChannel, channels))
                             .arg(host::countOf(day.today.byChannel, channels))
                             .arg(host::countOf(day.thisWeek.byChannel, channels));
  return QString("%1  \u00b7  %2").arg(date, counts);
}

std::size_t countLeftOut(const std::vector<DayGroupShown>& groups) {
  std::size_t count = 0;
  for (const DayGroupShown& group : groups)
    count += std::max(group.count, group.lines.size()) - group.lines.size();
  return count;
}

QString nextWeekText(const host::WorkingDay& day) {
  const auto week = std::ranges::find_if(
      day.weeks, [](const host::WeekAhead& each) { return host::totalOf(each.counts) > 0; });
  if (week == day.weeks.end()) return {};
  return QObject::tr("The next ones go out in the week of %1.")
      .arg(dayAndMonth(qtDate(week->monday)));
}

}  // namespace autonotify::desktop
