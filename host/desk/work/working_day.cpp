#include "host/desk/work/working_day.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <numeric>
#include <unordered_set>

#include "host/desk/rows/item_names.h"
#include "host/desk/unfinished_rows.h"
#include "host/desk/work/note_call.h"

namespace autonotify::host {
namespace {

constexpr const char* notifyDay = "ClientNotification.NotificationDate";
constexpr const char* nothing = "ClientNotification.ClientNotificationID<0";
constexpr int daysOfWeek = 7;

DateTime mondayOf(DateTime day) {
  const int sinceMonday = (day.weekday() + 5) % daysOfWeek;
  return day.dateOnly().addDays(-sinceMonday);
}

/// Unsent, and nobody is at work on its first text.
std::string waits() {
  return fmt::format(
      "ClientNotification.NotificationSent=False AND COALESCE(ClientNotification.DocketIDNum, "
      "{})<>{}",
      noId, unfinishedLink);
}

/// The condition for a WHERE, to be added to others.
std::string channelCondition(int channels) {
  std::string types;
  for (const notifyType each : allNotifyTypes)
    if (each & channels)
      types += fmt::format("{}{}", types.empty() ? "" : ", ", static_cast<int>(each));
  return fmt::format(" AND ClientNotification.NotificationType IN ({})", types);
}

std::string compared(Desk& desk, const char* sign, DateTime day) {
  return fmt::format("{} {} #{}#", notifyDay, sign, desk.database().formatDateForSQL(day));
}

/// Whether the client's accountant is the one with that name.
std::string accountantCondition(Desk& desk, const std::string& name) {
  const auto theirs = [&](const char* key, const char* table) {
    return fmt::format("(SELECT {0}.{1} FROM {0} WHERE LOWER({0}.AccountantName)=LOWER('{2}'))",
                       table, key, desk.database().formatTextForSQL(name));
  };
  return fmt::format(
      "(ClientNotification.CompanyIDNum IN {} OR (COALESCE(ClientNotification.CompanyIDNum, -1)<=0 "
      "AND ClientNotification.ContactIDNum IN {}))",
      theirs("CompanyID", "Companies"), theirs("ContactID", "Contacts"));
}

/// The condition for a WHERE, to be added to others.
std::string shareCondition(Desk& desk, DayShare share) {
  if (share == DayShare::everyone) return {};
  const std::string name = desk.clients().getUserNameFromID(desk.locale().getCurrentUserID());
  if (name.empty()) return fmt::format(" AND {}", nothing);
  return " AND " + (share == DayShare::mine ? assignedCondition(desk, name)
                                            : accountantCondition(desk, name));
}

/// Reads one working day.
class DayReader {
 public:
  DayReader(Desk& desk, DayShare share, std::size_t mostLines, int channels)
      : desk_(desk),
        share_(shareCondition(desk, share)),
        channels_(channelCondition(channels)),
        mostLines_(mostLines) {
    for (std::size_t week = 0; week < day_.weeks.size(); ++week)
      day_.weeks[week].monday = monday_.addDays(static_cast<int>(week) * daysOfWeek);
  }

  WorkingDay read() {
    countAll();
    readGroup(day_.overdue, orNoDate(compared(desk_, "<", today_), notifyDay));
    std::erase_if(day_.overdue.lines, [&](const DayLine& line) { return line.row.date >= today_; });
    readGroup(day_.today, between(today_, tomorrow_));
    readGroup(day_.thisWeek, between(tomorrow_, nextMonday_));
    complete({&day_.overdue, &day_.today, &day_.thisWeek});
    countSent();
    return std::move(day_);
  }

  ReadableRows<DayLine> readDays(DateTime first, DateTime last) {
    DayGroup group;
    readGroup(group, between(first, last.addDays(1)));
    complete({&group});
    return {std::move(group.lines), std::move(day_.unreadable)};
  }

 private:
  DayGroup* groupOf(DateTime date) {
    if (date < today_) return &day_.overdue;
    if (date < tomorrow_) return &day_.today;
    return date < nextMonday_ ? &day_.thisWeek : nullptr;
  }

  std::string between(DateTime first, DateTime end) {
    return fmt::format("{} AND {}", compared(desk_, ">=", first), compared(desk_, "<", end));
  }

  void countAll() {
    const DateTime end = day_.weeks.back().monday.addDays(daysOfWeek);
    const std::string sql = fmt::format(
        "SELECT {0}, ClientNotification.NotificationType, Count(*) AS CountOfRows FROM "
        "ClientNotification WHERE {1} AND {2}{3} GROUP BY {0}, "
        "ClientNotification.NotificationType;",
        notifyDay, waits(), orNoDate(compared(desk_, "<", end), notifyDay), share_);
    forEachRow(desk_.database(), sql, [&](const Row& row) { countDay(row); });
  }

  void countDay(const Row& row) {
    const auto* channel = std::ranges::find(allNotifyTypes, row.id("NotificationType", 0));
    if (channel == std::end(allNotifyTypes)) return;
    const auto place = static_cast<std::size_t>(channel - std::begin(allNotifyTypes));
    const auto count = static_cast<std::size_t>(row.id("CountOfRows", 0));
    try {
      countAt(row.date("NotificationDate"), place, count);
    } catch (const UnreadableValue&) {
      day_.due[place] += count;
    }
  }

  void countAt(DateTime date, std::size_t channel, std::size_t count) {
    if (DayGroup* group = groupOf(date)) {
      group->count += count;
      group->byChannel[channel] += count;
    }
    if (date < tomorrow_) day_.due[channel] += count;
    if (date < today_) return;
    const auto week = static_cast<std::size_t>((date.days() - monday_.days()) / daysOfWeek);
    if (week < day_.weeks.size()) day_.weeks[week].counts[channel] += count;
  }

  void readGroup(DayGroup& group, const std::string& days) {
    ReadableRows<DayLine> found;
    const std::string sql = fmt::format(
        "SELECT {0} FROM ClientNotification WHERE {1} AND {2}{3}{4} ORDER BY {5}, "
        "ClientNotification.ClientNotificationID LIMIT {6};",
        listedColumns(), waits(), days, share_, channels_, notifyDay, mostLines_);
    readRows(desk_.database(), notificationTable, sql, found,
             [](const Row& row) { return DayLine{.row = readListed(row)}; });
    day_.unreadable.name(found.unreadable);
    group.lines = std::move(found.rows);
  }

  /// What stands in other tables, for all lines together.
  void complete(std::initializer_list<DayGroup*> groups) {
    std::vector<DayLine*> lines;
    std::vector<Notification> rows;
    for (DayGroup* group : groups) {
      for (DayLine& line : group->lines) {
        lines.push_back(&line);
        rows.push_back(line.row);
      }
    }
    const auto batch = lookupBatchFor(desk_, lines.size());
    auto items = readItems(desk_, rows, day_.unreadable);
    const std::unordered_set<Id> unreached = readUnreached(rows);
    for (DayLine* line : lines) {
      const NotifiedItem& item = items[line->row.id];
      line->item = item.name;
      line->due = item.day;
      line->state = stateOf(line->row, unreached);
      day_.unreadable.orName([&] { line->client = clientName(desk_, line->row); });
    }
  }

  DayState stateOf(const Notification& row, const std::unordered_set<Id>& unreached) {
    if (host::stateOf(row) != NotificationState::pending) return DayState::interrupted;
    if (!missingAddress(row).empty()) return DayState::noAddress;
    if (unreached.contains(row.id)) return DayState::callAgain;
    return row.date < tomorrow_ ? DayState::ready : DayState::scheduled;
  }

  /// The calls that nobody answered so far.
  std::unordered_set<Id> readUnreached(const std::vector<Notification>& rows) {
    std::vector<Id> calls;
    for (const Notification& row : rows)
      if (row.channel == nt_Phone) calls.push_back(row.id);
    std::unordered_set<Id> unreached;
    if (calls.empty()) return unreached;
    const std::string sql = fmt::format(
        "SELECT ClientNotification.ClientNotificationID, ClientNotification.Memo FROM "
        "ClientNotification WHERE ClientNotification.ClientNotificationID IN ({});",
        idList(std::move(calls)));
    forEachRow(desk_.database(), sql, [&](const Row& row) {
      if (wasNotReached(row.text("Memo"))) unreached.insert(row.id("ClientNotificationID"));
    });
    return unreached;
  }

  void countSent() {
    day_.sentToday =
        countRows(desk_.database(),
                  fmt::format("ClientNotification WHERE ClientNotification.SentTime >= #{}# AND "
                              "ClientNotification.NotificationSentStatus={}",
                              desk_.database().formatDateForSQL(today_),
                              static_cast<int>(enumNotificationSendStatus_Sent)));
  }

  Desk& desk_;
  const std::string share_;
  const std::string channels_;
  const std::size_t mostLines_;
  const DateTime today_ = desk_.today().dateOnly();
  const DateTime tomorrow_ = today_.addDays(1);
  const DateTime monday_ = mondayOf(today_);
  const DateTime nextMonday_ = monday_.addDays(daysOfWeek);
  WorkingDay day_;
};

}  // namespace

std::size_t totalOf(const ChannelCounts& counts) {
  return std::accumulate(counts.begin(), counts.end(), std::size_t{0});
}

std::size_t countOf(const ChannelCounts& counts, int channels) {
  std::size_t sum = 0;
  for (std::size_t i = 0; i < counts.size(); ++i)
    if (allNotifyTypes[i] & channels) sum += counts[i];
  return sum;
}

ReadableRows<DayLine> readDays(Desk& desk, DayShare share, DateTime first, DateTime last,
                               std::size_t mostLines, int channels) {
  return DayReader(desk, share, mostLines, channels).readDays(first, last);
}

WorkingDay readWorkingDay(Desk& desk, DayShare share, std::size_t mostLines, int channels) {
  return DayReader(desk, share, mostLines, channels).read();
}

}  // namespace autonotify::host
