#include <iostream>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include "bench/Firm.h"
#include "bulk/bulk_pass.h"
#include "channels/modChannelNotifications.h"
#include "contract/references.h"
#include "host/database/postgres/PostgresDatabase.h"
#include "host/services/HostProgressDialog.h"
#include "list/clsAutoNotifyFlexGrid.h"
#include "list/frmAutoNotifyList.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "store/modNotifyClients.h"

// Operations on a server in a program that has been at work: each has run once before. Tells how
// many they are. Each waits for a line of input, so that who stands between here and the server can
// count what passes, and answers with a line: its name, a tab, and the exchanges that it needs at
// least.
// Usage: exchanges URL.

namespace autonotify::bench {
namespace {

using host::PostgresConnection;
using host::ServerAddress;

/// Counts the calls that must have been answered by the server before the next call can come: a
/// statement may name what the one before has found, and a write must be durable. A recordset that
/// a row is added to asks for a key in place of rows. Reading rows that are there asks for nothing.
class CountingDatabase : public host::PostgresDatabase {
 public:
  using PostgresDatabase::PostgresDatabase;

  int takeCount() { return std::exchange(count_, 0); }

  RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock,
                                int reserved1, const std::string& reserved2, int reserved3,
                                bool reserved4) override {
    ++count_;
    return PostgresDatabase::openRecordset(sql, cursor, lock, reserved1, reserved2, reserved3,
                                           reserved4);
  }
  bool updateFieldValue(RecordsetHandle handle, const std::string& fieldName,
                        const std::string& value, bool reserved1, bool reserved2) override {
    ++count_;
    return PostgresDatabase::updateFieldValue(handle, fieldName, value, reserved1, reserved2);
  }
  bool saveNewRecord(RecordsetHandle handle) override {
    ++count_;
    return PostgresDatabase::saveNewRecord(handle);
  }
  bool deleteRecord(RecordsetHandle handle) override {
    ++count_;
    return PostgresDatabase::deleteRecord(handle);
  }

 private:
  int count_ = 0;
};

/// What the operations work on.
struct Subject {
  Id entry;
  Id company;
  Id kind;
  Id notification = noId;
};

Subject subjectOf(PostgresConnection& connection, int place) {
  const pqxx::result found = connection.execute(
      "SELECT s.ScheduleID, c.CompanyIDNum, t.ScheduleTypeID FROM Schedule s JOIN ClientData c ON "
      "c.ClientDataID = s.ClientNum JOIN ScheduleTypes t ON t.TotalNum = s.totalNum AND "
      "t.ScheduleNum = s.scheduleNum WHERE c.CompanyIDNum >= 0 AND NOT s.Closed AND "
      "s.notifyType = 0 AND s.Year = 2026 AND s.DueDate > DATE '2026-06-01' "
      "ORDER BY s.ScheduleID LIMIT 1 OFFSET " +
      std::to_string(100 * place));
  const pqxx::row row = found.front();
  return {row[0].as<Id>(), row[1].as<Id>(), row[2].as<Id>()};
}

void carryTemplate(Subject& on) {
  clsAutoNotifyTemplate kind;
  kind.openExistingScheduleType(on.kind);
  kind.resetNotificationComments();
}

void armYear(Subject& on) {
  BulkOrder order{{enumAutoNotifyCompany, on.company, noId}, 2026, {}, {}, {}, {}};
  order.choice.families.fill(true);
  order.choice.channels.fill(true);
  order.email.to = "office@birch.example";
  host::HostProgressDialog progress;
  scheduleAutoNotifications(order, progress);
}

void loadList(Subject&) {
  frmAutoNotifyList window;
  const auto controller = std::make_shared<clsAutoNotifyFlexGrid>(window);
  controller->put_flexGrid(&window.AutoNotifyFlexGrid);
  controller->searchNotificationSent = false;
  controller->requestPopulateInfo();
  controller->leaveWindow();
  window.unload();
}

struct Operation {
  const char* name;
  void (*run)(Subject& on);
};
constexpr Operation operations[] = {
    {"the day and the text of a notification",
     [](Subject& on) { generateClientAutoNotifyComment(on.entry); }},
    {"add an email",
     [](Subject& on) { on.notification = addNewEmailNotificationFromScheduleIDNum(on.entry); }},
    {"add a fax", [](Subject& on) { addNewFaxNotificationFromScheduleIDNum(on.entry); }},
    {"add a letter", [](Subject& on) { addNewLetterNotificationFromScheduleIDNum(on.entry); }},
    {"add a telephone call",
     [](Subject& on) { addNewPhoneNotificationFromScheduleIDNum(on.entry); }},
    {"tick a task's channel",
     [](Subject& on) { changeNotificationStatus(nt_Email, nt_AddStatus, on.entry); }},
    {"move a notification to another day",
     [](Subject& on) {
       changeNotificationNotifiedDate(on.notification, DateTime::of(2026, 5, 4));
     }},
    {"mark it sent",
     [](Subject& on) {
       changeNotificationToSent(on.notification, DateTime::of(2026, 4, 15), false);
     }},
    {"cancel it", [](Subject& on) { cancelNotification(on.notification); }},
    {"count what is unsent", [](Subject&) { getNumberOfUnsentNotifications(); }},
    {"carry a template into what is unsent", carryTemplate},
    {"arm a client's year by all channels", armYear},
    {"load the list of all notifications", loadList},
};

void runAll(const std::string& url) {
  auto counting = std::make_unique<CountingDatabase>(
      std::make_unique<host::PostgresDriver>(ServerAddress(url)));
  CountingDatabase& database = *counting;
  Subject former = subjectOf(database.connection(), 0);
  Subject counted = subjectOf(database.connection(), 1);
  FirmHost firm(std::move(counting));
  firm.attach();
  for (const Operation& operation : operations) operation.run(former);
  std::cout << std::size(operations) << std::endl;
  for (const Operation& operation : operations) {
    if (!std::cin.ignore(std::numeric_limits<std::streamsize>::max(), '\n')) return;
    database.takeCount();
    operation.run(counted);
    std::cout << operation.name << '\t' << database.takeCount() << std::endl;
  }
  firm.requireNoErrors();
}

}  // namespace
}  // namespace autonotify::bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: exchanges URL\n";
    return 2;
  }
  autonotify::bench::runAll(argv[1]);
  return 0;
}
