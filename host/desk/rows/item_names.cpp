#include "host/desk/rows/item_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace autonotify::host {
namespace {

/// Where the items of a link are found.
struct ItemTable {
  Id Notification::*link;
  const char* linkColumn;
  const char* table;
  const char* key;
  const char* name;
  const char* day;
  /// Who is assigned: by name or by id; null where nobody knows.
  const char* assigned;
  bool isUserId;
};
/// A notification is about the first of its links.
constexpr std::array<ItemTable, 4> itemTables{{
    {&Notification::scheduleId, "ScheduleIDNum", "Schedule", "ScheduleID", "scheduleName",
     "DueDate", "EmployeeAssigned", false},
    {&Notification::appointmentId, "ApptIDNum", "Appointments", "AppointmentID", "Subject",
     "DateFrom", "UserIDNum", true},
    {&Notification::taskId, "TaskIDNum", "Tasks", "TaskID", "Subject", "DateFrom", "UserIDNum",
     true},
    {&Notification::docketId, "DocketIDNum", "Dockets", "DocketID", "Subject", "DateFrom",
     "UserIDNum", true},
}};
/// Schedule entries that are done with.
constexpr ItemTable archivedEntries{&Notification::scheduleId,
                                    "ScheduleIDNum",
                                    "archiveSchedule",
                                    "oldScheduleID",
                                    "scheduleName",
                                    "DueDate",
                                    nullptr,
                                    false};

/// A row of an item's table.
struct FoundItem {
  Id id = noId;
  NotifiedItem item;
  /// Who is assigned, where the row has a user's id rather than a name.
  Id user = noId;
};

using ItemsById = std::unordered_map<Id, NotifiedItem>;

void readAssigned(const ItemTable& table, const Row& row, FoundItem& found) {
  if (!table.assigned) return;
  if (table.isUserId)
    found.user = row.id(table.assigned);
  else
    found.item.assigned = row.text(table.assigned);
}

/// No list loses a notification for the day of what it is about.
DateTime dayIn(const ItemTable& table, const Row& row) {
  try {
    return row.date(table.day);
  } catch (const UnreadableValue&) {
    return {};
  }
}

std::string selectItems(const ItemTable& table, std::vector<Id> ids) {
  const std::string assigned =
      table.assigned ? fmt::format(", {}.{}", table.table, table.assigned) : std::string();
  return fmt::format("SELECT {0}.{1}, {0}.{2}, {0}.{3}{4} FROM {0} WHERE {0}.{1} IN ({5});",
                     table.table, table.key, table.name, table.day, assigned,
                     idList(std::move(ids)));
}

/// The items of a table with these ids; of several with one id the first.
ItemsById readTable(Desk& desk, const ItemTable& table, std::vector<Id> ids,
                    UnreadableRows& unreadable) {
  if (ids.empty()) return {};
  std::vector<FoundItem> rows;
  forEachRow(desk.database(), selectItems(table, std::move(ids)), [&](const Row& row) {
    FoundItem& found = rows.emplace_back();
    found.id = row.id(table.key);
    found.item.name = row.text(table.name);
    found.item.day = dayIn(table, row);
    unreadable.orName([&] {
      readRow(table.table, row, [&](const Row& each) { readAssigned(table, each, found); });
    });
  });
  ItemsById items;
  for (FoundItem& row : rows) {
    if (row.user >= 0) row.item.assigned = desk.clients().getUserNameFromID(row.user);
    items.try_emplace(row.id, std::move(row.item));
  }
  return items;
}

/// The first of the notification's links that leads to an item; null for none.
const ItemTable* tableOf(const Notification& notification) {
  const auto* found = std::ranges::find_if(
      itemTables, [&](const ItemTable& table) { return notification.*table.link >= 0; });
  return found == itemTables.end() ? nullptr : found;
}

std::vector<Id> idsIn(const ItemTable& table, const std::vector<Notification>& notifications) {
  std::vector<Id> ids;
  for (const Notification& each : notifications)
    if (tableOf(each) == &table) ids.push_back(each.*table.link);
  return ids;
}

ItemsById readTasks(Desk& desk, const std::vector<Id>& ids, UnreadableRows& unreadable) {
  ItemsById items = readTable(desk, itemTables.front(), ids, unreadable);
  std::vector<Id> missing;
  std::ranges::copy_if(ids, std::back_inserter(missing),
                       [&](Id id) { return !items.contains(id); });
  items.merge(readTable(desk, archivedEntries, std::move(missing), unreadable));
  return items;
}

/// A column of the item of a row of ClientNotification.
std::string ofItem(const ItemTable& table, const std::string& column, const std::string& from) {
  return fmt::format("(SELECT {} FROM {} WHERE {}.{}=ClientNotification.{} LIMIT 1)", column, from,
                     table.table, table.key, table.linkColumn);
}

std::string nameOf(const ItemTable& table) {
  return ofItem(table, fmt::format("{}.{}", table.table, table.name), table.table);
}

/// Where the name of who is assigned stands.
struct AssignedName {
  std::string from;
  std::string column;
};

AssignedName assignedIn(const ItemTable& table) {
  if (!table.isUserId) return {table.table, fmt::format("{}.{}", table.table, table.assigned)};
  return {fmt::format("{0} INNER JOIN AccountantEmployeeInfo ON "
                      "{0}.{1}=AccountantEmployeeInfo.ContactID",
                      table.table, table.assigned),
          "AccountantEmployeeInfo.DisplayName"};
}

/// The name as the list of staff has it: engines know the capitals of A to Z alone.
std::string asStaffWrite(Desk& desk, const std::string& name) {
  const Id user = desk.clients().getUserIDFromName(name);
  return user >= 0 ? desk.clients().getUserNameFromID(user) : name;
}

}  // namespace

ItemsById readItems(Desk& desk, const std::vector<Notification>& notifications,
                    UnreadableRows& unreadable) {
  ItemsById items;
  for (const ItemTable& table : itemTables) {
    const std::vector<Id> ids = idsIn(table, notifications);
    const ItemsById found = table.link == archivedEntries.link
                                ? readTasks(desk, ids, unreadable)
                                : readTable(desk, table, ids, unreadable);
    for (const Notification& each : notifications) {
      if (tableOf(each) != &table) continue;
      if (const auto item = found.find(each.*table.link); item != found.end())
        items.emplace(each.id, item->second);
    }
  }
  return items;
}

std::string itemName(Desk& desk, const Notification& notification) {
  UnreadableRows unreadable;  // who is assigned is not asked for
  return readItems(desk, {notification}, unreadable)[notification.id].name;
}

std::string itemNameTerm() {
  std::string term = "LOWER(COALESCE(";
  for (const ItemTable& table : itemTables) term += nameOf(table) + ", ";
  return term + nameOf(archivedEntries) + ", ''))";
}

std::string assignedTerm() {
  std::string term = "LOWER(COALESCE(";
  for (const ItemTable& table : itemTables) {
    const AssignedName assigned = assignedIn(table);
    term += ofItem(table, assigned.column, assigned.from) + ", ";
  }
  return term + "''))";
}

std::string assignedCondition(Desk& desk, const std::string& name) {
  const std::string sought = desk.database().formatTextForSQL(asStaffWrite(desk, name));
  std::string condition;
  for (const ItemTable& table : itemTables) {
    const AssignedName assigned = assignedIn(table);
    condition +=
        fmt::format("{}ClientNotification.{} IN (SELECT {}.{} FROM {} WHERE LOWER({})=LOWER('{}'))",
                    condition.empty() ? "(" : " OR ", table.linkColumn, table.table, table.key,
                    assigned.from, assigned.column, sought);
  }
  return condition + ")";
}

}  // namespace autonotify::host
