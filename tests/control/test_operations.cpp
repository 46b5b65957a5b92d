#include <gmock/gmock.h>

#include "component_host.h"
#include "contract/enumerations.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

constexpr DateTime dueDate = DateTime::of(2026, 4, 30);

// One office for all operations: a company with a default contact, an entry of it with an email and
// a fax (the fax sent), a stale bit for a letter, and an older entry with an email.
constexpr Id client = 1, company = 1, entry = 1, oldEntry = 2;
constexpr Id emailRow = 1, faxRow = 2, oldRow = 3, meetingRow = 4, nextRow = 5;
// And an appointment with an email, and its twin.
constexpr Id meeting = 1, twin = 2;

void fillOffice(ComponentHost& host) {
  Rows rows(*host.plainDatabase);
  rows.addRow("AccountantFirmInfo", {{"CompanyName", "Fisher & Lind"}});
  rows.addClient("Maple Ltd", "Jo Park");
  rows.addKind(103, 1, 1);
  for (const Id owner : {company, noId}) {
    rows.addRow("Appointments", {{"CompanyIDNum", owner},
                                 {"notifyType", 3},
                                 {"DateFrom", dueDate},
                                 {"TimeFrom", dueDate},
                                 {"TimeTo", dueDate}});
  }
  for (const int bits : {7, 1}) {
    rows.addSchedule(103, 1, dueDate,
                     {{"ClientNum", client}, {"scheduleName", "GST"}, {"notifyType", bits}});
  }
  for (const auto& [schedule, channel] : {std::pair{entry, 1}, {entry, 2}, {oldEntry, 1}}) {
    const Id row = rows.addNotification(schedule, channel, DateTime::of(2026, 4, 1), channel == 2);
    host.plainDatabase->connection().exec("UPDATE ClientNotification SET Field1='to " +
                                          std::to_string(schedule) + std::to_string(channel) +
                                          "' WHERE ClientNotificationID=" + std::to_string(row));
  }
  rows.addRow("ClientNotification", {{"ApptIDNum", meeting},
                                     {"NotificationType", 1},
                                     {"Field1", "to 1"},
                                     {"NotificationDate", dueDate}});
}

using Control = clsAutoNotifyCtrl;

/// An operation of the control, its result in the office, and what is left of it when the person
/// leaves at the very first host call.
struct Operation {
  const char* name;
  std::function<std::string(Control&)> run;
  std::string result;
  std::string atOnceLeft;
  int rowsAdded = 0;
};

void PrintTo(const Operation& operation, std::ostream* out) {
  *out << operation.name;
}

std::string text(bool flag) {
  return flag ? "True" : "False";
}
std::string text(int number) {
  return std::to_string(number);
}

/// An operation without a result: what it wrote tells.
template <class Call>
Operation action(const char* name, Call call) {
  return {name, [call](Control& control) { return call(control), std::string{}; }, "", ""};
}

// The first statement of an add belongs to the date, which is then the zero date; the row is added.
template <class Call>
Operation addition(const char* name, Call call) {
  return {name, [call](Control& control) { return text(call(control)); }, text(nextRow),
          text(nextRow), 1};
}

template <class Add>
Operation byName(const char* name, Add add) {
  return addition(name, [add](Control& control) {
    return (control.*add)(entry, -1, company, -1, "GST", dueDate, "Hello");
  });
}

template <class Add>
Operation meetingAdd(const char* name, Add add) {
  return {name,
          [add](Control& control) {
            return text((control.*add)(Appointments, twin, dueDate, noId, company, noId));
          },
          text(nextRow), text(noId), 1};
}

template <class Call>
Operation question(const char* name, std::string result, std::string atOnceLeft, Call call) {
  return {name, [call](Control& control) { return text(call(control)); }, std::move(result),
          std::move(atOnceLeft)};
}

const Operation operations[] = {
    question("doesClientHave", "True", "False",
             [](auto& c) { return c.cls_doesClientHaveAssociatedUnsentNotifications(client); }),
    question("getNotificationID", "2", "-1",
             [](auto& c) { return c.cls_getNotificationID(entry, nt_Fax); }),
    question("statusOfARow", "True", "False",
             [](auto& c) { return c.cls_getNotificationStatus(entry, nt_Fax); }),
    question("statusOfAStaleBit", "False", "False",
             [](auto& c) { return c.cls_getNotificationStatus(entry, nt_Letter); }),
    question("addStatus", "True", "True",
             [](auto& c) { return c.cls_changeNotificationStatus(nt_Phone, nt_AddStatus, entry); }),
    question("needToSend", "True", "False",
             [](auto& c) { return c.cls_needToSendAutoNotificationsToday(); }),
    question("period", "-1", "-15",
             [](auto& c) { return int{c.cls_getNotificationPeriod(103, 1)}; }),
    question("comment", "True", "False",
             [](auto& c) { return !c.cls_generateClientAutoNotifyComment(entry).empty(); }),
    addition("addEmail",
             [](auto& c) { return c.cls_addNewEmailNotificationFromScheduleIDNum(entry); }),
    addition("addFax", [](auto& c) { return c.cls_addNewFaxNotificationFromScheduleIDNum(entry); }),
    addition("addLetter",
             [](auto& c) { return c.cls_addNewLetterNotificationFromScheduleIDNum(entry); }),
    addition("addPhone",
             [](auto& c) { return c.cls_addNewPhoneNotificationFromScheduleIDNum(entry); }),
    byName("addEmailByName", &Control::cls_addNewEmailNotificationFromScheduleNameAndDueDate),
    byName("addFaxByName", &Control::cls_addNewFaxNotificationFromScheduleNameAndDueDate),
    byName("addLetterByName", &Control::cls_addNewLetterNotificationFromScheduleNameAndDueDate),
    byName("addPhoneByName", &Control::cls_addNewPhoneNotificationFromScheduleNameAndDueDate),
    action("editEmail",
           [](auto& c) { c.cls_editEmailNotification(emailRow, "a", "b", "c", "d", "e"); }),
    action("editFax",
           [](auto& c) { c.cls_editFaxNotification(faxRow, "a", "b", "c", "d", "e", "f", "g"); }),
    action("editLetter", [](auto& c) { c.cls_editLetterNotification(emailRow, ""); }),
    action("editPhone", [](auto& c) { c.cls_editPhoneNotification(emailRow, "a", "b", "c", "d"); }),
    action("cancelAll", [](auto& c) { c.cls_cancelAllUnsentNotificationsForClientID(client); }),
    action("changeDate", [](auto& c) { c.cls_ChangeNotificationNotifiedDate(emailRow, dueDate); }),
    action("refreshDate", [](auto& c) { c.cls_refreshNotificationDate(entry); }),
    action("delete", [](auto& c) { c.cls_deleteNotification(oldRow); }),
    action("copyBySchedule",
           [](auto& c) {
             c.cls_copyOldNotificationInfoToNewNotificationByScheduleIDNum(emailRow, oldEntry);
           }),
    meetingAdd("addMeetingEmail", &Control::cls_addNewApptEmailNotification),
    meetingAdd("addMeetingFax", &Control::cls_addNewApptFaxNotification),
    meetingAdd("addMeetingLetter", &Control::cls_addNewApptLetterNotification),
    meetingAdd("addMeetingPhone", &Control::cls_addNewApptPhoneNotification),
    question(
        "meetingStatus", "True", "False",
        [](auto& c) { return c.cls_getApptNotificationStatus(Appointments, meeting, nt_Email); }),
    question("meetingRow", "4", "-1",
             [](auto& c) { return c.cls_getApptNotificationID(Appointments, meeting, nt_Email); }),
    question("meetingDate", "True", "False",
             [](auto& c) { return c.cls_getApptNotificationDate(meetingRow) == dueDate; }),
    question("addMeetingStatus", "False", "True",
             [](auto& c) {
               return c.cls_changeApptNotificationStatus(Dockets, nt_Phone, nt_AddStatus, meeting);
             }),
    action("resetBody",
           [](auto& c) { c.cls_resetApptNotificationBody(Appointments, meetingRow, twin); }),
    action("copyMeeting",
           [](auto& c) {
             c.cls_copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(Appointments, oldRow,
                                                                               meeting);
           }),
};

const std::string& officeContent() {
  static const std::string content = [] {
    ComponentHost host;
    fillOffice(host);
    return host.snapshot();
  }();
  return content;
}

class Operations : public testing::TestWithParam<Operation> {};

TEST_P(Operations, GiveTheResultOfTheirProcedure) {
  ComponentHost host(&officeContent());
  const int before = host.notificationCount();
  EXPECT_EQ(GetParam().run(*host.control), GetParam().result);
  const bool deletes = std::string(GetParam().name) == "delete";
  EXPECT_EQ(host.notificationCount() - before, deletes ? -1 : GetParam().rowsAdded);
  EXPECT_EQ(host.errors.entered(), host.errors.left());
  EXPECT_GE(host.errors.entered(), 2) << "the operation's frame and the procedure's";
  EXPECT_EQ(host.errors.dialogs(), 0);
}

TEST_P(Operations, SurviveAFailureOfAnyHostCall) {
  FaultWalk walk;
  walk.makeHost = [] { return std::make_unique<ComponentHost>(&officeContent()); };
  walk.run = [](TestHost& host) {
    return GetParam().run(*static_cast<ComponentHost&>(host).control);
  };
  walk.defaultResult = GetParam().atOnceLeft;
  const FaultWalkReport report = walkFaults(walk);
  EXPECT_GT(report.hostCalls, 3);
  RecordProperty("hostCalls", report.hostCalls);
}

INSTANTIATE_TEST_SUITE_P(Control, Operations, testing::ValuesIn(operations),
                         [](const auto& operation) { return std::string(operation.param.name); });

TEST(OperationEffects, WriteTheRowsThatTheyName) {
  ComponentHost host(&officeContent());
  clsAutoNotifyCtrl& control = *host.control;
  control.cls_editEmailNotification(emailRow, "", "cc@maple.example");
  control.cls_editPhoneNotification(oldRow, "Jo", "", "mornings");
  control.cls_changeNotificationStatus(nt_Fax, nt_RemoveStatus, entry);
  control.cls_ChangeNotificationNotifiedDate(faxRow, dueDate);
  EXPECT_EQ(host.dump("SELECT Field1, Field2, Field3 FROM ClientNotification"),
            "to 11|cc@maple.example|NULL|\nto 12|NULL|NULL|\nJo|NULL|mornings|\nto 1|NULL|NULL|\n");
  EXPECT_EQ(host.dump("SELECT notifyType FROM Schedule"), "5|\n1|\n");
  for (const bool forDisplay : {true, false}) {
    EXPECT_EQ(control.cls_getNotificationPeriod(103, 1, forDisplay), forDisplay ? 1 : -1);
  }
  const bool selected[] = {control.cls_IsEmailSelected(1), control.cls_IsFaxSelected(2),
                           control.cls_IsLetterSelected(4), control.cls_IsPhoneSelected(8)};
  const bool cleared[] = {control.cls_IsEmailSelected(14), control.cls_IsFaxSelected(13),
                          control.cls_IsLetterSelected(11), control.cls_IsPhoneSelected(7)};
  EXPECT_THAT(selected, testing::Each(true));
  EXPECT_THAT(cleared, testing::Each(false));
}

TEST(OperationEffects, TellTheItemsOfADiaryApart) {
  ComponentHost host(&officeContent());
  clsAutoNotifyCtrl& control = *host.control;
  const auto stateOf = [&](const std::string& column) {
    return host.dump("SELECT " + column + " FROM ClientNotification WHERE ClientNotificationID=4") +
           host.dump("SELECT notifyType FROM Appointments");
  };
  control.cls_editApptEmailNotification(Dockets, meetingRow, "", "cc");
  control.cls_editApptFaxNotification(Tasks, meetingRow, "", "", "fax");
  control.cls_editApptPhoneNotification(Appointments, meetingRow, "to");
  control.cls_editApptLetterNotification(Appointments, meetingRow, "memo");
  EXPECT_EQ(stateOf("Field1, Field2, Field3, Memo"), "to|cc|fax|memo|\n3|\n3|\n");
  control.cls_deleteApptNotification(Dockets, nt_Email, meeting);
  control.cls_deleteApptNotification(Appointments, nt_Fax, meeting);
  EXPECT_EQ(stateOf("1"), "1|\n3|\n3|\n");
  control.cls_deleteApptNotification(Appointments, nt_Email, meeting);
  EXPECT_EQ(stateOf("1"), "2|\n3|\n");
}

TEST(OperationEffects, CopyByIdMeetsItsUnfinishedStatement) {
  ComponentHost host(&officeContent());
  host.errors.answer({error_choice::leave});
  host.control->cls_copyOldNotificationInfoToNewNotification(emailRow, oldRow);
  EXPECT_EQ(host.errors.dialogs(), 1);
  EXPECT_EQ(host.errors.entered(), host.errors.left());
}

// Frames.

TEST(Frames, PersistentFailureAsksAgainUntilThePersonLeaves) {
  ComponentHost host(&officeContent());
  host.calls.reset();
  host.calls.failAt(1, 100);
  host.errors.answer({error_choice::quit, 0, -4, 99, error_choice::leave});
  EXPECT_EQ(host.control->cls_getNotificationID(entry, nt_Fax), noId);
  EXPECT_EQ(host.errors.dialogs(), 5);
  EXPECT_EQ(host.calls.count(), 5) << "each retry repeats the statement";
  EXPECT_EQ(host.errors.left(), 2);
  EXPECT_EQ(host.errors.recorded().at(0).tag, "Morvane.exe-modNotifyClients-getNotificationID")
      << "the innermost procedure is on top";
}

TEST(Frames, SkippedStatementGoesOnWithTheNext) {
  const auto moveDate = [](int failedCall) {
    ComponentHost host(&officeContent());
    host.calls.reset();
    host.calls.record(true);
    if (failedCall > 0) {
      host.calls.failAt(failedCall);
      host.errors.answer({error_choice::next});
    }
    host.control->cls_ChangeNotificationNotifiedDate(emailRow, dueDate);
    const auto& log = host.calls.log();
    const auto stamp = std::find_if(log.begin(), log.end(), [](const std::string& line) {
      return line.starts_with("updateFieldValue ClientNotificationModifiedStamp");
    });
    return std::pair(static_cast<int>(stamp - log.begin()) + 1,
                     host.dump("SELECT ClientNotificationModifiedStamp IS NULL, NotificationDate "
                               "FROM ClientNotification WHERE ClientNotificationID=1"));
  };
  const auto [stampCall, clean] = moveDate(0);
  EXPECT_EQ(clean, "0|2026-04-30|\n");
  EXPECT_EQ(moveDate(stampCall).second, "1|2026-04-30|\n");
}

}  // namespace
}  // namespace autonotify::test
