#include "host/desk/unfinished_rows.h"

#include <fmt/format.h>

#include <algorithm>

#include "contract/enumerations.h"
#include "host/clients/record_rows.h"

namespace autonotify::host {
namespace {

constexpr const char* linkColumn = "DocketIDNum";
constexpr Id firstLinkOfSent = -2;

std::string unfinishedRows() {
  return fmt::format("ClientNotification WHERE ClientNotification.{}={}", linkColumn,
                     unfinishedLink);
}

/// Runs `act(handle)` where the row is there and unfinished.
template <class Act>
void changeUnfinished(DatabaseReference& database, Id id, Act&& act) {
  const OpenRows rows(
      database,
      fmt::format(
          "SELECT ClientNotification.* FROM {} AND ClientNotification.ClientNotificationID={};",
          unfinishedRows(), id),
      CursorMode::keyset, LockMode::updatable);
  if (database.hasRecords(rows.handle())) act(rows.handle());
}

void write(DatabaseReference& database, RecordsetHandle handle, const char* column, Id link) {
  database.updateFieldValue(handle, column, std::to_string(link), false, false);
}

/// Leaves as a document, which is shown before anyone knows what becomes of its row.
bool hasDocument(const Row& row) {
  return row.id("NotificationType", 0) & (nt_Fax | nt_Letter);
}

bool isSent(const Row& row) {
  return row.flag("NotificationSent") &&
         row.id("NotificationSentStatus") == enumNotificationSendStatus_Sent;
}

// The mark goes last, so that whoever is interrupted before is met again.
void keepAsRecord(DatabaseReference& database, RecordsetHandle handle) {
  const Id task = Row(database, handle).id("ScheduleIDNum");
  if (task >= 0) write(database, handle, "OperatingProcedureIDNum", linkOfSent(task));
  write(database, handle, "ScheduleIDNum", noId);
  write(database, handle, linkColumn, noId);
}

/// What became of the message of a row.
enum class Fate { unknown, unsent, inDoubt, out };

Fate fateOf(Desk& desk, const Row& row) {
  if (isSent(row)) return Fate::out;
  if (row.id("NotificationType", 0) != nt_Email) return Fate::unsent;
  if (!desk.hasOutbox()) return Fate::unknown;
  try {
    const auto sender = desk.newEmailSender();
    sender->setIdentity(desk.messageIdentity(row.id("ClientNotificationID")));
    if (sender->isDelivered()) return Fate::out;
    return sender->doubt().empty() ? Fate::unsent : Fate::inDoubt;
  } catch (const MailError&) {
    return Fate::unknown;
  }
}

/// Keeps an unfinished row of which something may be out.
Fate keepWhatIsOut(Desk& desk, RecordsetHandle handle) {
  const Row row(desk.database(), handle);
  const Fate fate = fateOf(desk, row);
  const Id id = row.id("ClientNotificationID");
  if (fate == Fate::out && !isSent(row)) desk.tools().changeNotificationToSent(id);
  if (fate == Fate::out || fate == Fate::inDoubt) keepAsRecord(desk.database(), handle);
  return fate;
}

/// Settles a row that nobody works on.
void settle(Desk& desk, Id id) {
  changeUnfinished(desk.database(), id, [&](RecordsetHandle handle) {
    if (keepWhatIsOut(desk, handle) == Fate::unsent) desk.database().deleteRecord(handle);
  });
}

}  // namespace

Id linkOfSent(Id scheduleId) {
  return firstLinkOfSent - scheduleId;
}

Id taskOfSent(Id link) {
  return link <= firstLinkOfSent ? firstLinkOfSent - link : noId;
}

UnfinishedRows::UnfinishedRows(Desk& desk) : desk_(desk) {
  removeUnfinished(desk);
  WriteWatch watch;
  watch.begun = [this](RecordsetHandle handle, const std::string& table, Id key) {
    if (table == "ClientNotification") mark(handle, key);
  };
  watch.stored = [this](RecordsetHandle handle, const std::string& column) {
    if (column == "NotificationDate") finish(handle);
  };
  watch.deleting = [this](RecordsetHandle handle) { return keepSent(handle); };
  desk.setWatch(std::move(watch));
}

UnfinishedRows::~UnfinishedRows() {
  desk_.setWatch({});
  claims_.clear();
  removeUnfinished(desk_);
}

// Claimed before it is there, so that no other desk takes it for one that was left.
void UnfinishedRows::mark(RecordsetHandle handle, Id key) {
  claims_.push_back(desk_.claims().tryTake(WorkItem::notification, key));
  ids_.push_back(key);
  desk_.database().setFieldValue(handle, linkColumn, std::to_string(unfinishedLink));
}

void UnfinishedRows::finish(RecordsetHandle handle) {
  DatabaseReference& database = desk_.database();
  changeUnfinished(database, Row(database, handle).id("ClientNotificationID"),
                   [&](RecordsetHandle row) { write(database, row, linkColumn, noId); });
}

bool UnfinishedRows::keepSent(RecordsetHandle handle) {
  DatabaseReference& database = desk_.database();
  const Id id = Row(database, handle).id("ClientNotificationID");
  bool isKept = false;
  changeUnfinished(database, id, [&](RecordsetHandle row) {
    isKept = hasDocument(Row(database, row)) || keepEmail(row);
  });
  return isKept;
}

bool UnfinishedRows::keepEmail(RecordsetHandle handle) {
  const Fate fate = keepWhatIsOut(desk_, handle);
  if (fate == Fate::out) desk_.noteSent(Row(desk_.database(), handle).id("ClientNotificationID"));
  return fate == Fate::out || fate == Fate::inDoubt;
}

void UnfinishedRows::markSent() {
  for (const Id id : ids_)
    changeUnfinished(desk_.database(), id,
                     [&](RecordsetHandle) { desk_.tools().changeNotificationToSent(id); });
}

bool UnfinishedRows::areLeft() const {
  return std::ranges::any_of(ids_, [&](Id id) {
    bool isLeft = false;
    changeUnfinished(desk_.database(), id, [&](RecordsetHandle) { isLeft = true; });
    return isLeft;
  });
}

void removeUnfinished(Desk& desk) try {
  std::vector<Id> ids;
  forEachRow(
      desk.database(),
      fmt::format("SELECT ClientNotification.ClientNotificationID FROM {};", unfinishedRows()),
      [&](const Row& row) { ids.push_back(row.id("ClientNotificationID")); });
  for (const Id id : ids)
    if (const auto claim = desk.claims().tryTake(WorkItem::notification, id)) settle(desk, id);
} catch (const PlatformError&) {
}

}  // namespace autonotify::host
