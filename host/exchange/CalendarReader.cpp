#include "host/exchange/CalendarReader.h"

#include <libical/ical.h>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "host/exchange/BlockReader.h"
#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr int yearsBehind = 1;
constexpr int yearsAhead = 5;
constexpr int longestEvent = 366;
constexpr std::size_t longestNames = 200;
constexpr int secondsOfDay = 24 * 60 * 60;

using Component = std::unique_ptr<icalcomponent, void (*)(icalcomponent*)>;
using Rounds = std::unique_ptr<icalrecur_iterator, void (*)(icalrecur_iterator*)>;

/// An event that cannot be taken for holidays: why.
class NoHoliday : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Years {
  DateTime first;
  DateTime end;
  bool has(DateTime day) const { return first <= day && day < end; }
};

std::optional<DateTime> dayOf(const icaltimetype& time) {
  const auto month = static_cast<unsigned>(time.month);
  const auto day = static_cast<unsigned>(time.day);
  const bool isThere =
      (std::chrono::year{time.year} / std::chrono::month{month} / std::chrono::day{day}).ok();
  if (!isThere || time.year < 100 || time.year > 9998) return std::nullopt;
  return DateTime::of(time.year, month, day);
}

Component parse(const TextBlock& block) {
  std::string text = "BEGIN:VEVENT\r\n";
  for (const std::string& line : block.lines) text += line + "\r\n";
  icalerror_set_errors_are_fatal(0);
  return {icalparser_parse_string((text + "END:VEVENT\r\n").c_str()), &icalcomponent_free};
}

/// The days that all properties of a kind name.
template <class TimeOf>
std::set<DateTime> daysOf(icalcomponent* event, icalproperty_kind kind, TimeOf&& timeOf) {
  std::set<DateTime> days;
  for (icalproperty* each = icalcomponent_get_first_property(event, kind); each;
       each = icalcomponent_get_next_property(event, kind))
    if (const auto day = dayOf(timeOf(each))) days.insert(*day);
  return days;
}

/// The days on which the rule lets it come round.
void addRounds(icalrecurrencetype rule, icaltimetype start, const Years& years,
               std::set<DateTime>& days) {
  if (rule.freq < ICAL_DAILY_RECURRENCE) throw NoHoliday("it comes round more than once a day");
  start.is_date = rule.until.is_date = 1;
  start.zone = nullptr;
  const Rounds rounds(icalrecur_iterator_new(rule, start), &icalrecur_iterator_free);
  while (rounds) {
    const auto day = dayOf(icalrecur_iterator_next(rounds.get()));
    if (!day || *day >= years.end) return;
    if (years.has(*day)) days.insert(*day);
  }
}

std::set<DateTime> startsOf(icalcomponent* event, const icaltimetype& start, const Years& years) {
  const auto first = dayOf(start);
  if (!first) throw NoHoliday("it has no date that exists");
  std::set<DateTime> days = daysOf(event, ICAL_RDATE_PROPERTY, [](icalproperty* each) {
    return icalproperty_get_rdate(each).time;
  });
  icalproperty* rule = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY);
  if (!rule || years.has(*first)) days.insert(*first);
  if (rule) addRounds(icalproperty_get_rrule(rule), start, years, days);
  for (const DateTime day : daysOf(event, ICAL_EXDATE_PROPERTY, &icalproperty_get_exdate))
    days.erase(day);
  return days;
}

int lengthOf(icalcomponent* event, const icaltimetype& start) {
  const icaltimetype end = icalcomponent_get_dtend(event);
  if (icaltime_is_null_time(end) || icaltime_compare(start, end) == 0) return 1;
  const int seconds = icaldurationtype_as_int(icaltime_subtract(end, start));
  if (seconds < secondsOfDay) throw NoHoliday("it lasts less than a day");
  if (seconds / secondsOfDay > longestEvent) throw NoHoliday("it lasts longer than a year");
  return (seconds + secondsOfDay - 1) / secondsOfDay;
}

struct Holiday {
  std::size_t line;
  std::string names;
};
using Holidays = std::map<DateTime, Holiday>;

void addHoliday(Holidays& holidays, DateTime day, std::size_t line, const std::string& name) {
  const auto [found, isNew] = holidays.try_emplace(day, Holiday{line, name});
  std::string& names = found->second.names;
  const bool isTold = names.find(name) != names.npos || names.size() > longestNames;
  if (!isNew && !isTold) names += (names.empty() ? "" : " / ") + name;
}

std::string nameOf(icalcomponent* event) {
  const char* name = icalcomponent_get_summary(event);
  return name ? std::string(trim(utf8Of(name))) : std::string();
}

/// The days on which an event begins.
struct Occurrences {
  std::string series;
  std::size_t line;
  std::string name;
  int length;
  std::set<DateTime> starts;
  /// In place of one of its series.
  bool isReplacement;
};
using Replaced = std::set<std::pair<std::string, DateTime>>;

std::string seriesOf(icalcomponent* event) {
  const char* uid = icalcomponent_get_uid(event);
  return uid ? uid : "";
}

std::optional<DateTime> replacedDay(icalcomponent* event) {
  return dayOf(icalcomponent_get_recurrenceid(event));
}

std::optional<Occurrences> occurrencesOf(const TextBlock& block, icalcomponent* event,
                                         const Years& years) {
  if (icalcomponent_get_status(event) == ICAL_STATUS_CANCELLED) return std::nullopt;
  const icaltimetype start = icalcomponent_get_dtstart(event);
  const int length = lengthOf(event, start);
  return Occurrences{seriesOf(event),
                     block.line,
                     nameOf(event),
                     length,
                     startsOf(event, start, years),
                     replacedDay(event).has_value()};
}

void addHolidays(const Occurrences& event, const Replaced& replaced, Holidays& holidays) {
  for (const DateTime start : event.starts) {
    if (!event.isReplacement && replaced.contains({event.series, start})) continue;
    for (int i = 0; i < event.length; ++i)
      addHoliday(holidays, start.addDays(i), event.line, event.name);
  }
}

Years yearsAround(DateTime today) {
  return {DateTime::of(today.year() - yearsBehind, 1, 1),
          DateTime::of(today.year() + yearsAhead + 1, 1, 1)};
}

}  // namespace

CalendarReader::CalendarReader(TextFile file, DateTime today)
    : path_(file.path()), records_{{.line = 1, .cells = {"Date", "Name"}, .fault = {}}} {
  const Years years = yearsAround(today);
  BlockReader events(std::move(file), "VEVENT");
  std::vector<Occurrences> found;
  Replaced replaced;
  TextBlock block;
  while (events.next(block)) {
    const Component event = parse(block);
    if (!event) continue;
    if (const auto day = replacedDay(event.get())) replaced.emplace(seriesOf(event.get()), *day);
    try {
      if (auto days = occurrencesOf(block, event.get(), years)) found.push_back(*std::move(days));
    } catch (const NoHoliday& why) {
      records_.push_back({block.line, {"", nameOf(event.get())}, why.what()});
    }
  }
  Holidays holidays;
  for (const Occurrences& event : found) addHolidays(event, replaced, holidays);
  for (const auto& [day, holiday] : holidays)
    records_.push_back({holiday.line, {dateTimeText(day), holiday.names}, {}});
}

bool CalendarReader::next(FileRecord& record) {
  if (at_ == records_.size()) return false;
  record = std::move(records_[at_++]);
  return true;
}

}  // namespace autonotify::host
