#include "host/desk/work/firm_holidays.h"

#include <fmt/format.h>

#include "host/desk/rows/readable_rows.h"
#include "platform/date_time_text.h"

namespace autonotify::host {
namespace {

/// From the one day to before the other.
std::string selectBetween(Desk& desk, DateTime first, DateTime end) {
  const auto day = [&](DateTime moment) { return desk.database().formatDateForSQL(moment); };
  return fmt::format(
      "SELECT Holidays.* FROM Holidays WHERE Holidays.HolidayDate >= #{}# AND "
      "Holidays.HolidayDate < #{}# ORDER BY Holidays.HolidayDate;",
      day(first), day(end));
}

OpenRows openDay(Desk& desk, DateTime day) {
  return {desk.database(), selectBetween(desk, day, day.addDays(1)), CursorMode::keyset,
          LockMode::updatable};
}

bool hasHolidays(Desk& desk, int year) {
  constexpr int lastYear = 9998;  // one behind it has no date
  if (year > lastYear) return true;
  const std::string sql =
      selectBetween(desk, DateTime::of(year, 1, 1), DateTime::of(year + 1, 1, 1));
  return firstRow(desk.database(), sql, [](const Row&) {});
}

}  // namespace

UnreadableRows listHolidays(
    Desk& desk, std::optional<int> year,
    const std::function<void(DateTime day, const std::string& name)>& tell) {
  const std::string sql =
      year ? selectBetween(desk, DateTime::of(*year, 1, 1), DateTime::of(*year + 1, 1, 1))
           : "SELECT Holidays.* FROM Holidays ORDER BY Holidays.HolidayDate;";
  UnreadableRows unreadable;
  forEachRow(desk.database(), sql, [&](const Row& row) {
    unreadable.orName([&] {
      const DateTime day =
          readRow("Holidays", row, [](const Row& each) { return each.date("HolidayDate"); });
      tell(day, row.text("HolidayName"));
    });
  });
  return unreadable;
}

bool addHoliday(Desk& desk, DateTime day, const std::string& name) {
  const OpenRows rows = openDay(desk, day);
  DatabaseReference& database = desk.database();
  if (database.hasRecords(rows.handle())) return false;
  database.addNewRecord(rows.handle());
  database.setFieldValue(rows.handle(), "HolidayDate", dateTimeText(day));
  database.setFieldValue(rows.handle(), "HolidayType", "1");
  database.setFieldValue(rows.handle(), "HolidayName", name);
  return database.saveNewRecord(rows.handle());
}

bool removeHoliday(Desk& desk, DateTime day) {
  OpenRows rows = openDay(desk, day);
  const bool isThere = !rows.isAtEnd();
  for (; !rows.isAtEnd(); rows.moveNext()) desk.database().deleteRecord(rows.handle());
  return isThere;
}

std::optional<int> yearWithoutHolidays(Desk& desk, DateTime first, DateTime last) {
  for (const int year : {first.year(), last.year()})
    if (!hasHolidays(desk, year)) return year;
  return std::nullopt;
}

}  // namespace autonotify::host
