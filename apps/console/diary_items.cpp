#include "diary_items.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "notifications.h"
#include "platform/format.h"

namespace autonotify::console {
namespace {

constexpr std::array<DiaryWord, 3> words{{
    {"appointment", "appointment", Appointments, host::WorkItem::appointment, "Appointments",
     "AppointmentID"},
    {"time-entry", "time entry", Dockets, host::WorkItem::timeEntry, "Dockets", "DocketID"},
    {"task", "task", Tasks, host::WorkItem::task, "Tasks", "TaskID"},
}};

std::string selectItems(const DiaryWord& kind, const std::string& condition) {
  return fmt::format(
      "SELECT {0}.{1}, {0}.CompanyIDNum, {0}.ContactIDNum, {0}.Subject, {0}.DateFrom, "
      "{0}.TimeFrom, {0}.TimeTo, {0}.{2} FROM {0} WHERE {3}",
      kind.table, kind.key, kind.kind == Tasks ? "ScheduleIDNum" : "notifyType", condition);
}

std::optional<DateTime> momentOf(const Row& row, const char* column) {
  const Value value = row.value(column);
  return value.isNull() ? std::nullopt : std::optional(toDateTime(value));
}

DiaryItem readItem(const DiaryWord& kind, const Row& row) {
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
void completeTask(Session& session, DiaryItem& item) {
  if (item.kind != Tasks) return;
  if (const auto task = host::findTask(session, item.scheduleId)) item.channels = task->channels;
}

std::string conditionOf(Session& session, const DiaryWord& kind, const DiaryQuery& query) {
  const auto day = [&](DateTime moment) { return session.database().formatDateForSQL(moment); };
  std::string condition = fmt::format("{}.DateFrom >= #{}#", kind.table, day(query.since));
  // The last day counts to its end.
  if (query.until)
    condition += fmt::format(" AND {}.DateFrom < #{}#", kind.table, day(query.until->addDays(1)));
  if (query.company)
    condition += fmt::format(" AND {}.CompanyIDNum={}", kind.table, *query.company);
  if (query.contact)
    condition += fmt::format(" AND {}.ContactIDNum={}", kind.table, *query.contact);
  return condition;
}

bool isAskedFor(const DiaryWord& kind, const DiaryQuery& query) {
  return query.kind ? kind.kind == *query.kind : kind.kind != Tasks;
}

}  // namespace

std::span<const DiaryWord> diaryWords() {
  return words;
}

const DiaryWord& diaryWord(CurrentDayTimerType kind) {
  return *std::ranges::find_if(words, [&](const DiaryWord& row) { return row.kind == kind; });
}

std::vector<DiaryItem> readDiary(Session& session, const DiaryQuery& query) {
  std::vector<DiaryItem> items;
  for (const DiaryWord& kind : words) {
    if (!isAskedFor(kind, query)) continue;
    const std::string sql = selectItems(kind, conditionOf(session, kind, query)) + ";";
    forEachRow(session.database(), sql,
               [&](const Row& row) { items.push_back(readItem(kind, row)); });
  }
  for (DiaryItem& item : items) completeTask(session, item);
  std::ranges::stable_sort(items, [](const DiaryItem& a, const DiaryItem& b) {
    return std::tie(a.day, a.from, a.id) < std::tie(b.day, b.from, b.id);
  });
  return items;
}

DiaryItem loadDiaryItem(Session& session, CurrentDayTimerType kind, Id id) {
  const DiaryWord& word = diaryWord(kind);
  DiaryItem item;
  const std::string sql = selectItems(word, fmt::format("{}.{}={};", word.table, word.key, id));
  const bool found = id >= 0 && firstRow(session.database(), sql,
                                         [&](const Row& row) { item = readItem(word, row); });
  if (!found) throw Refusal(fmt::format("there is no {} {}", word.name, id));
  completeTask(session, item);
  return item;
}

std::string clientName(Session& session, const DiaryItem& item) {
  if (item.companyId > 0) return session.clients().getCompanyDisplayName(item.companyId);
  if (item.contactId > 0) return session.clients().getContactDisplayName(item.contactId);
  return {};
}

std::string timeText(const DiaryItem& item) {
  constexpr const char* pattern = "hh:nn";
  std::string text = item.from ? formatDateTime(*item.from, pattern) : std::string();
  if (item.to) text += "-" + formatDateTime(*item.to, pattern);
  return text;
}

}  // namespace autonotify::console
