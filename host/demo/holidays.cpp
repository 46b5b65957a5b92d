#include "host/demo/holidays.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include "platform/date_time_text.h"

namespace autonotify::host::demo {

namespace {

using SetsByName = std::map<std::string, std::vector<Holiday>, std::less<>>;

std::string_view cut(std::string_view& text, char end) {
  const std::size_t length = text.find(end);
  const std::string_view head = text.substr(0, length);
  text.remove_prefix(length == text.npos ? text.size() : length + 1);
  return head;
}

SetsByName readSets() {
  SetsByName result;
  std::string_view rest = holidayLines;
  cut(rest, '\n');
  while (!rest.empty()) {
    std::string_view line = cut(rest, '\n');
    const std::string_view set = cut(line, '\t');
    const auto date = parseDateTime(cut(line, '\t'));
    if (date) result[std::string(set)].push_back({*date, std::string(line)});
  }
  return result;
}

bool holds(const std::vector<Holiday>& holidays, DateTime date) {
  return std::ranges::find(holidays, date, &Holiday::date) != holidays.end();
}

std::vector<Holiday> sharedByCanada(const SetsByName& sets) {
  std::vector<Holiday> shared = sets.at("CA-ON");
  for (const auto& set : sets)
    if (set.first.starts_with("CA-"))
      std::erase_if(shared, [&](const Holiday& day) { return !holds(set.second, day.date); });
  return shared;
}

}  // namespace

std::vector<Holiday> holidaysOf(std::string_view set) {
  static const SetsByName sets = [] {
    SetsByName result = readSets();
    result["CA"] = sharedByCanada(result);
    return result;
  }();
  const auto found = sets.find(set);
  return found == sets.end() ? std::vector<Holiday>{} : found->second;
}

WorkCalendar::WorkCalendar(const std::vector<Holiday>& holidays) {
  for (const Holiday& holiday : holidays) holidays_.insert(holiday.date);
}

bool WorkCalendar::isWorkingDay(DateTime date) const {
  const int weekday = date.weekday();
  return weekday != 1 && weekday != 7 && !holidays_.contains(date.dateOnly());
}

DateTime WorkCalendar::workingDaysBefore(DateTime date, int count) const {
  const int step = count > 0 ? -1 : 1;
  for (int left = std::abs(count); left > 0;) {
    date = date.addDays(step);
    if (isWorkingDay(date)) --left;
  }
  return date;
}

DateTime WorkCalendar::workingDayOnOrBefore(DateTime date) const {
  while (!isWorkingDay(date)) date = date.addDays(-1);
  return date;
}

}  // namespace autonotify::host::demo
