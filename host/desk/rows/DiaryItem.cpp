#include "host/desk/rows/DiaryItem.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <tuple>

#include "host/desk/rows/Task.h"
#include "host/desk/rows/client_names.h"
#include "platform/format.h"

namespace autonotify::host {
namespace {

constexpr std::array<DiaryKind, 3> kinds{{
    {.word = "appointment",
     .kind = Appointments,
     .claim = WorkItem::appointment,
     .table = "Appointments",
     .key = "AppointmentID"},
    {.word = "time-entry",
     .kind = Dockets,
     .claim = WorkItem::timeEntry,
     .table = "Dockets",
     .key = "DocketID"},
    {.word = "task", .kind = Tasks, .claim = WorkItem::task, .table = "Tasks", .key = "TaskID"},
}};

std::string selectItems(const DiaryKind& kind, const std::string& condition) {
  return fmt::format(
      "SELECT {0}.{1}, {0}.CompanyIDNum, {0}.ContactIDNum, {0}.Subject, {0}.DateFrom, "
      "{0}.TimeFrom, {0}.TimeTo, {0}.{2} FROM {0} WHERE {3}",
      kind.table, kind.key, kind.kind == Tasks ? "ScheduleIDNum" : "notifyType", condition);
}

std::optional<DateTime> momentOf(const Row& row, const char* column) {
  return row.value(column).isNull() ? std::nullopt : std::optional(row.date(column));
}

DiaryItem readItem(const DiaryKind& kind, const Row& row) {
  DiaryItem item;
  item.kind = kind.kind;
  item.id = row.id(kind.key);
  item.companyId = row.id("CompanyIDNum");
  item.contactId = row.id("ContactIDNum");
  item.subject = row.text("Subject");
  item.day = momentOf(row, "DateFrom");
  item.from = momentOf(row, "TimeFrom");
  item.to = momentOf(row, "TimeTo");
  if (kind.kind == Tasks) {
    item.scheduleId = row.id("ScheduleIDNum");
  } else {
    item.channels = row.id("notifyType", 0);
  }
  return item;
}

/// A task's channels are those of its entry.
void completeTask(Desk& desk, DiaryItem& item) {
  if (item.kind != Tasks) return;
  if (const auto task = findTask(desk, item.scheduleId)) item.channels = task->channels;
}

/// The last day counts to its end.
DateTime dayBehind(DateTime until) {
  return until.addDays(1);
}

bool isWithin(const DiaryItem& item, const DiaryQuery& query) {
  return item.day >= query.since && (!query.until || item.day < dayBehind(*query.until));
}

std::string conditionOf(Desk& desk, const DiaryKind& kind, const DiaryQuery& query) {
  const auto day = [&](DateTime moment) { return desk.database().formatDateForSQL(moment); };
  const std::string column = fmt::format("{}.DateFrom", kind.table);
  std::string days = fmt::format("{} >= #{}#", column, day(query.since));
  if (query.until) days += fmt::format(" AND {} < #{}#", column, day(dayBehind(*query.until)));
  std::string condition = orNoDate(days, column.c_str());
  if (query.company)
    condition += fmt::format(" AND {}.CompanyIDNum={}", kind.table, *query.company);
  if (query.contact)
    condition += fmt::format(" AND {}.ContactIDNum={}", kind.table, *query.contact);
  return condition;
}

bool isAskedFor(const DiaryKind& kind, const DiaryQuery& query) {
  return query.kind ? kind.kind == *query.kind : kind.kind != Tasks;
}

}  // namespace

std::span<const DiaryKind> diaryKinds() {
  return kinds;
}

const DiaryKind& diaryKind(CurrentDayTimerType kind) {
  return *std::ranges::find_if(kinds, [&](const DiaryKind& row) { return row.kind == kind; });
}

ReadableRows<DiaryItem> readDiary(Desk& desk, const DiaryQuery& query) {
  ReadableRows<DiaryItem> items;
  for (const DiaryKind& kind : kinds) {
    if (!isAskedFor(kind, query)) continue;
    const std::string sql = selectItems(kind, conditionOf(desk, kind, query)) + ";";
    readRows(desk.database(), kind.table, sql, items,
             [&](const Row& row) { return readItem(kind, row); });
  }
  std::erase_if(items.rows, [&](const DiaryItem& item) { return !isWithin(item, query); });
  for (DiaryItem& item : items.rows) items.unreadable.orName([&] { completeTask(desk, item); });
  std::ranges::stable_sort(items.rows, [](const DiaryItem& a, const DiaryItem& b) {
    return std::tie(a.day, a.from, a.id) < std::tie(b.day, b.from, b.id);
  });
  return items;
}

std::optional<DiaryItem> findDiaryItem(Desk& desk, CurrentDayTimerType kind, Id id) {
  if (id < 0) return std::nullopt;
  const DiaryKind& row = diaryKind(kind);
  auto found = findRow(desk.database(), row.table,
                       selectItems(row, fmt::format("{}.{}={};", row.table, row.key, id)),
                       [&](const Row& record) { return readItem(row, record); });
  if (found) completeTask(desk, *found);
  return found;
}

std::string clientName(Desk& desk, const DiaryItem& item) {
  return clientName(desk, item.companyId, item.contactId);
}

std::string subjectOf(const DiaryItem& item) {
  return subjectOf(diaryKind(item.kind).claim, item.id);
}

std::string timeText(const DiaryItem& item) {
  constexpr const char* pattern = "hh:nn";
  std::string text = item.from ? formatDateTime(*item.from, pattern) : std::string();
  if (item.to) text += "-" + formatDateTime(*item.to, pattern);
  return text;
}

}  // namespace autonotify::host
