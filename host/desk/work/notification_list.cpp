#include "host/desk/work/notification_list.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>
#include <unordered_map>

#include "host/desk/rows/item_names.h"
#include "host/desk/work/due_list.h"

namespace autonotify::host {
namespace {

constexpr std::array<NotificationStanding, 5> standings{{
    {.word = "due", .condition = "", .isDue = true},
    {.word = "unsent", .condition = "ClientNotification.NotificationSent=False"},
    {.word = "sent",
     .condition = "ClientNotification.NotificationSent<>False AND "
                  "COALESCE(ClientNotification.NotificationSentStatus, 1)<>3"},
    {.word = "cancelled",
     .condition = "ClientNotification.NotificationSent<>False AND "
                  "ClientNotification.NotificationSentStatus=3"},
    {.word = "all", .condition = ""},
}};

constexpr const char* dateColumn = "ClientNotification.NotificationDate";
constexpr const char* clientTerm =
    "LOWER(COALESCE((SELECT Companies.CompanyName FROM Companies WHERE "
    "Companies.CompanyID=ClientNotification.CompanyIDNum), (SELECT Contacts.DisplayName FROM "
    "Contacts WHERE Contacts.ContactID=ClientNotification.ContactIDNum), ''))";
constexpr const char* sentByTerm =
    "LOWER(COALESCE((SELECT AccountantEmployeeInfo.DisplayName FROM AccountantEmployeeInfo WHERE "
    "AccountantEmployeeInfo.ContactID=ClientNotification.SentByUserIDNum), ''))";

/// Lines that are read together, with a few statements for all of them.
constexpr std::size_t blockSize = 256;

/// The last day counts to its end.
DateTime endOf(DateTime day) {
  return day.addDays(1);
}

bool isDueList(const NotificationQuery& query) {
  return query.standing && query.standing->isDue;
}

DateTime dueDay(Desk& desk, const NotificationQuery& query) {
  return query.until.value_or(desk.today());
}

/// The conditions of a statement, joined.
class Conditions {
 public:
  void add(const std::string& condition) {
    if (condition.empty()) return;
    text_ += (text_.empty() ? " WHERE " : " AND ") + condition;
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

std::string dayCondition(Desk& desk, const NotificationQuery& query) {
  const auto compared = [&](const char* sign, DateTime day) {
    return fmt::format("{} {} #{}#", dateColumn, sign, desk.database().formatDateForSQL(day));
  };
  std::string days;
  if (query.from) days = compared(">=", *query.from);
  if (query.until && !isDueList(query))
    days += (days.empty() ? "" : " AND ") + compared("<", endOf(*query.until));
  return days.empty() ? days : orNoDate(days, dateColumn);
}

std::string channelCondition(const NotificationQuery& query) {
  if (query.channels.empty()) return {};
  return fmt::format("ClientNotification.NotificationType IN ({})",
                     idList({query.channels.begin(), query.channels.end()}));
}

std::string clientCondition(const NotificationQuery& query) {
  if (!query.client) return {};
  return fmt::format("ClientNotification.{}={}",
                     query.client->type == enumAutoNotifyCompany ? "CompanyIDNum" : "ContactIDNum",
                     query.client->id);
}

std::string conditionsOf(Desk& desk, const NotificationQuery& query) {
  Conditions conditions;
  if (query.standing) conditions.add(query.standing->condition);
  if (isDueList(query)) conditions.add(dueCondition(desk, dueDay(desk, query)));
  conditions.add(dayCondition(desk, query));
  conditions.add(channelCondition(query));
  conditions.add(clientCondition(query));
  if (!query.assigned.empty()) conditions.add(assignedCondition(desk, query.assigned));
  return conditions.text();
}

/// A date that could not be compared may be another day's after all.
bool isWithin(Desk& desk, const NotificationQuery& query, const Notification& row) {
  if (isDueList(query) && row.date > dueDay(desk, query)) return false;
  return (!query.from || row.date >= *query.from) &&
         (!query.until || row.date < endOf(*query.until));
}

struct PassedIds {
  ReadableRows<Id> ids;
  /// With those that could not be read.
  std::size_t count = 0;
};

/// The ids in their order, from `offset` on.
PassedIds readIds(Desk& desk, const NotificationQuery& query, std::size_t offset,
                  std::optional<std::size_t> limit) {
  const auto& order = query.order ? *query.order : notificationOrder("date");
  const char* const direction = query.descending ? " DESC" : "";
  const std::string part = limit ? fmt::format(" LIMIT {} OFFSET {}", *limit, offset) : "";
  const std::string sql = fmt::format(
      "SELECT ClientNotification.ClientNotificationID FROM ClientNotification{0} ORDER BY {1}{2}, "
      "ClientNotification.ClientNotificationID{2}{3};",
      conditionsOf(desk, query), order.term, direction, part);
  PassedIds passed;
  readRows(desk.database(), notificationTable, sql, passed.ids, [&](const Row& row) {
    ++passed.count;
    return row.id("ClientNotificationID");
  });
  return passed;
}

/// The rows in the order of their ids; one that is not there any more is left out.
std::vector<Notification> readBlock(Desk& desk, std::span<const Id> ids,
                                    UnreadableRows& unreadable) {
  ReadableRows<Notification> found;
  readRows(desk.database(), notificationTable,
           fmt::format("SELECT {} FROM ClientNotification WHERE "
                       "ClientNotification.ClientNotificationID IN ({});",
                       listedColumns(), idList({ids.begin(), ids.end()})),
           found, readListed);
  unreadable.name(found.unreadable);
  std::unordered_map<Id, std::size_t> places;
  for (std::size_t i = 0; i < ids.size(); ++i) places.emplace(ids[i], i);
  std::ranges::sort(found.rows, {}, [&](const Notification& row) { return places.at(row.id); });
  return std::move(found.rows);
}

/// Shows the lines of a block; gives their number.
std::size_t showBlock(Desk& desk, const NotificationQuery& query, std::span<const Id> ids,
                      UnreadableRows& unreadable,
                      const std::function<void(const NotificationLine&)>& show) {
  std::vector<Notification> rows = readBlock(desk, ids, unreadable);
  std::erase_if(rows, [&](const Notification& row) { return !isWithin(desk, query, row); });
  auto items = readItems(desk, rows, unreadable);
  for (Notification& row : rows) {
    const NotifiedItem item = items[row.id];
    NotificationLine line{std::move(row), {}, item.name, item.assigned, {}};
    unreadable.orName([&] { line.client = clientName(desk, line.row); });
    if (line.row.sentBy >= 0) line.sentBy = desk.clients().getUserNameFromID(line.row.sentBy);
    show(line);
  }
  return rows.size();
}

}  // namespace

std::span<const NotificationStanding> notificationStandings() {
  return standings;
}

const NotificationStanding& notificationStanding(std::string_view word) {
  return *std::ranges::find(notificationStandings(), word, &NotificationStanding::word);
}

std::span<const NotificationOrder> notificationOrders() {
  static const std::array<NotificationOrder, 10> rows{{
      {"notification", "ClientNotification.ClientNotificationID"},
      {"date", dateColumn},
      {"channel", "ClientNotification.NotificationType"},
      {"state", "ClientNotification.NotificationSentStatus"},
      {"client", clientTerm},
      {"task", itemNameTerm()},
      {"address", addressTerm()},
      {"sent", "ClientNotification.SentTime"},
      {"sent-by", sentByTerm},
      {"assigned", assignedTerm()},
  }};
  return rows;
}

const NotificationOrder& notificationOrder(std::string_view word) {
  return *std::ranges::find(notificationOrders(), word, &NotificationOrder::word);
}

UnreadableRows listNotifications(Desk& desk, const NotificationQuery& query,
                                 const std::function<void(const NotificationLine&)>& show) {
  UnreadableRows unreadable;
  std::size_t passed = 0;
  std::size_t shown = 0;
  const auto rest = [&] { return query.limit ? std::optional(*query.limit - shown) : query.limit; };
  for (bool isAtEnd = false; !isAtEnd;) {
    const PassedIds found = readIds(desk, query, passed, rest());
    unreadable.name(found.ids.unreadable);
    const std::span<const Id> ids = found.ids.rows;
    const auto batch = lookupBatchFor(desk, ids.size());
    for (std::size_t begin = 0; begin < ids.size(); begin += blockSize)
      shown += showBlock(desk, query, ids.subspan(begin, std::min(blockSize, ids.size() - begin)),
                         unreadable, show);
    passed += found.count;
    isAtEnd = !query.limit || found.count == 0 || shown >= *query.limit;
  }
  return unreadable;
}

}  // namespace autonotify::host
