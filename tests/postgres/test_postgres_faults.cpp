#include <functional>
#include <memory>
#include <string>

#include "channels/modChannelNotifications.h"
#include "host/database/schema/Schema.h"
#include "platform/text.h"
#include "store/DiaryItemTest.h"
#include "store/modNotifyClients.h"
#include "support/fault_walk.h"
#include "tests/postgres/PostgresSchema.h"

namespace autonotify::test {
namespace {

/// A desk and, behind its back, a connection that shows what it has stored.
struct Server {
  explicit Server(const host::PostgresSchema& schema)
      : desk(host::openPostgres(schema.url())), watcher(host::ServerAddress(schema.url())) {}
  std::unique_ptr<DatabaseReference> desk;
  host::PostgresConnection watcher;
};

class ServerHost : private Server, public TestHost {
 public:
  explicit ServerHost(const host::PostgresSchema& schema) : Server(schema), TestHost(*desk) {
    attach();
  }
  DatabaseReference& plain() { return *desk; }

  std::string dump(const std::string& sql) override {
    std::string text;
    for (const auto& row : watcher.execute(sql)) {
      for (const auto& field : row) (text += field.is_null() ? "NULL" : field.c_str()) += '|';
      text += '\n';
    }
    return text;
  }
};

/// An entry of a client with an email and a fax that is sent, and all that Office has.
struct BusyOffice : Office {
  explicit BusyOffice(Rows rows) : Office(rows) {
    rows.addKind(103, 1, 2, "{\\rtf1 Dear \\'abCompany Name\\'bb: soon.}");
    const Id client = 1;
    entry = rows.addSchedule(103, 1, day, {{"ClientNum", client}, {"scheduleName", "GST"}});
    rows.addTask(entry, "GST Return");
    unsent = rows.addNotification(entry, nt_Email, DateTime::of(2026, 4, 1));
    rows.addNotification(entry, nt_Fax, DateTime::of(2026, 4, 1), true);
  }
  Id entry, unsent;
};

struct Operation {
  const char* name;
  std::string leftAtOnce;  ///< the result when the first call fails and the person leaves
  std::function<std::string(const BusyOffice&)> run;
  int stride = 1;
};
void PrintTo(const Operation& operation, std::ostream* out) {
  *out << operation.name;
}

/// The first call is one of the date's own procedure: a row without it is added all the same.
template <class Call>
Operation adding(const char* name, Call call) {
  return {name, "3", [call](auto& office) { return toText(call(office)); }, 5};
}
template <class Call>
Operation acting(const char* name, Call call) {
  return {name, "", [call](auto& office) { return call(office), std::string{}; }};
}

const Operation operations[] = {
    adding("addEmail", [](auto& o) { return addNewEmailNotificationFromScheduleIDNum(o.entry); }),
    adding("addFax", [](auto& o) { return addNewFaxNotificationFromScheduleIDNum(o.entry); }),
    adding("addLetter", [](auto& o) { return addNewLetterNotificationFromScheduleIDNum(o.entry); }),
    adding("addPhone", [](auto& o) { return addNewPhoneNotificationFromScheduleIDNum(o.entry); }),
    {"addOfAppointment", "-1",
     [](auto& o) {
       return toText(addNewApptEmailNotification(Appointments, o.appointment, reminder));
     }},
    acting("editEmail",
           [](auto& o) { editEmailNotification(o.unsent, "a@b.example", "c", "d", "e", "f"); }),
    acting("editFax",
           [](auto& o) { editFaxNotification(o.unsent, "a", "b", "c", "d", "1", "e", "f"); }),
    acting("editLetter", [](auto& o) { editLetterNotification(o.unsent, "text"); }),
    acting("editPhone", [](auto& o) { editPhoneNotification(o.unsent, "a", "b", "c", "text"); }),
    acting("markSent", [](auto& o) { changeNotificationToSent(o.unsent, day, false); }),
    acting("cancel", [](auto& o) { cancelNotification(o.unsent); }),
    acting("move", [](auto& o) { changeNotificationNotifiedDate(o.unsent, day); }),
    {"setBit", "True",
     [](auto& o) { return toText(changeNotificationStatus(nt_Phone, nt_AddStatus, o.entry)); }},
};

class ServerFaults : public testing::TestWithParam<Operation> {
 protected:
  /// As a new database: no rows, and the keys begin anew.
  void empty() {
    std::string statements;
    for (const char* name :
         {"AccountantFirmInfo", "Companies", "ClientData", "Contacts", "ContactLinks",
          "Appointments", "Dockets", "ScheduleTypes", "Schedule", "Tasks", "ClientNotification"}) {
      const std::string table = lowerCase(name);
      statements += "DELETE FROM " + table + "; SELECT setval(pg_get_serial_sequence('" + table +
                    "', '" + lowerCase(host::findTable(name)->columns.front().name) +
                    "'), 1, false);";
    }
    server.execute(statements);
  }

  host::PostgresSchema schema;
  host::PostgresConnection server{host::ServerAddress(schema.url())};
};

TEST_P(ServerFaults, LeaveNothingHalfDone) {
  std::unique_ptr<BusyOffice> office;
  FaultWalk walk;
  walk.makeHost = [this] {
    empty();
    return std::make_unique<ServerHost>(schema);
  };
  walk.prepare = [&](TestHost& host) {
    office = std::make_unique<BusyOffice>(Rows(static_cast<ServerHost&>(host).plain()));
  };
  walk.run = [&](TestHost&) { return GetParam().run(*office); };
  walk.defaultResult = GetParam().leftAtOnce;
  walk.stride = GetParam().stride;
  EXPECT_GT(walkFaults(walk).hostCalls, 4);
}

INSTANTIATE_TEST_SUITE_P(Operations, ServerFaults, testing::ValuesIn(operations),
                         [](const auto& operation) { return std::string(operation.param.name); });

}  // namespace
}  // namespace autonotify::test
