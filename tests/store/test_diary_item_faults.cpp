#include <functional>
#include <optional>

#include "store/DiaryItemTest.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

struct ItemOperation {
  const char* name;
  std::function<std::string(const Office&)> run;
  std::string defaultResult;
};
void PrintTo(const ItemOperation& operation, std::ostream* out) {
  *out << operation.name;
}

template <class Call>
ItemOperation operation(const char* name, std::string defaultResult, Call call) {
  return {name, [call](const Office& o) { return toText(call(o)); }, std::move(defaultResult)};
}
template <class Call>
ItemOperation action(const char* name, Call call) {
  return {name, [call](const Office& o) { return call(o), std::string{}; }, ""};
}

// The row with the id 1 is an email of the appointment with its bit set, and 2 one of the entry.
const ItemOperation itemOperations[] = {
    operation(
        "addEmail", "-1",
        [](auto& o) { return addNewApptEmailNotification(Appointments, o.appointment, reminder); }),
    operation(
        "addFax", "-1",
        [](auto& o) { return addNewApptFaxNotification(Appointments, o.appointment, reminder); }),
    operation("addLetter", "-1",
              [](auto& o) { return addNewApptLetterNotification(Dockets, o.docket, reminder); }),
    operation("update", "-1",
              [](auto& o) {
                return addNewApptEmailNotification(Appointments, o.appointment, reminder, 1);
              }),
    operation(
        "status", "False",
        [](auto& o) { return getApptNotificationStatus(Appointments, o.appointment, nt_Fax); }),
    operation("setBit", "True",
              [](auto& o) {
                return changeApptNotificationStatus(Appointments, nt_Phone, nt_AddStatus,
                                                    o.appointment);
              }),
    operation("text", "", [](auto& o) { return getAppointmentBodyText(Dockets, o.docket); }),
    action("delete",
           [](auto& o) { deleteApptNotification(Appointments, nt_Email, o.appointment); }),
    action("copy",
           [](auto& o) {
             copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(Appointments, 2,
                                                                         o.appointment);
           }),
    action("reset", [](auto& o) { resetApptNotificationBody(Dockets, 1, o.docket); }),
};

class ItemFaults : public testing::TestWithParam<ItemOperation> {};

TEST_P(ItemFaults, LeaveNothingHalfDone) {
  std::optional<Office> office;
  FaultWalk walk;
  walk.prepare = [&](TestHost& host) {
    Rows rows(*host.plainDatabase);
    office.emplace(rows);
    host.plainDatabase->connection().exec("UPDATE Appointments SET notifyType=3");
    for (const Id item : {office->appointment, noId}) {
      rows.addRow("ClientNotification",
                  {{"ApptIDNum", item}, {"NotificationType", 1}, {"Field2", "cc"}});
    }
  };
  walk.run = [&](TestHost&) { return GetParam().run(*office); };
  walk.defaultResult = GetParam().defaultResult;
  walk.written = [](TestHost& host) {
    return host.dumpWritten() +
           host.dump("SELECT notifyType, ClientNotifiedFlag FROM Appointments");
  };
  EXPECT_GT(walkFaults(walk).hostCalls, 4);
}

INSTANTIATE_TEST_SUITE_P(Operations, ItemFaults, testing::ValuesIn(itemOperations),
                         [](const auto& operation) { return std::string(operation.param.name); });

}  // namespace
}  // namespace autonotify::test
