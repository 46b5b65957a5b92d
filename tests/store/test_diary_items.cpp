#include "contract/recordsets.h"
#include "store/DiaryItemTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DiaryItems, ColumnsAreWrittenInTheOrderOfTheChannel) {
  const std::string company = "CompanyIDNum=" + std::to_string(office.company);
  const std::string contact = "ContactIDNum=" + std::to_string(office.contact);
  const std::string date = "NotificationDate=Apr 9 2026";
  for (const auto& [kind, table, key, link] : tables) {
    const bool isMeeting = kind == Appointments;
    const std::string linked = link + "=" + std::to_string(itemOf(kind));
    const std::string memo = "Memo=" + (isMeeting ? appointmentText : docketText);
    const std::string subject =
        std::string(isMeeting ? "You have an appointment on " : "You have a time entry due on ") +
        "Thursday, April 30 2026 with Fisher & Lind";
    const std::vector<std::string> expected[] = {
        {"NotificationType=1", linked, date, "Field1=jo@m.example", "Field4=" + subject, memo,
         company, contact},
        {"NotificationType=2", linked, company, contact, date, "Field1=Maple Ltd c/o Jo Park",
         "Field2=Fisher & Lind", "Field3=555-0100", "Field4=555-0121",
         "Field5=1 (including cover page)", "Field6=" + subject, memo},
        {"NotificationType=4", company, contact, linked, date, memo},
        {"NotificationType=8", company, contact, linked, date, "Field1=Jo Park", "Field2=555-0122",
         memo},
    };
    for (int i = 0; i < 4; ++i) {
      SCOPED_TRACE(table + " " + std::to_string(i));
      const Add add = allAdds[i].second;
      Id row = noId;
      EXPECT_EQ(callsOf("setFieldValue",
                        [&] {
                          row = add(kind, itemOf(kind), reminder, noId, office.company,
                                    office.contact);
                        }),
                expected[i]);
      EXPECT_EQ(logged("openRecordset").back(),
                "1,3 SELECT ClientNotification.* FROM ClientNotification;");
      EXPECT_EQ(callNumber("getFieldValue ClientNotificationID", 1) + 1,
                callNumber("saveNewRecord", 1));
      EXPECT_EQ(rowText(row, "NotificationDate, ScheduleIDNum, DateCreated, CreatedByUserIDNum"),
                "2026-04-09|-1|NULL|NULL|\n");
      // The same columns over a row that is there, without a stamp.
      EXPECT_EQ(columnsWrittenBy([&] {
                  EXPECT_EQ(add(kind, itemOf(kind), reminder, row, office.company, office.contact),
                            row);
                }),
                expected[i]);
      EXPECT_EQ(logged("openRecordset").back(),
                "1,3 SELECT ClientNotification.* FROM ClientNotification WHERE "
                "ClientNotificationID=" +
                    std::to_string(row) + ";");
      EXPECT_EQ(add(kind, itemOf(kind), reminder, 9999, office.company, office.contact), noId);
    }
  }
  EXPECT_EQ(notificationCount(), 8);
}

TEST_F(DiaryItems, ClientsThatAreNotGivenAreThoseOfTheAppointment) {
  // The number of the time entry is that of another appointment.
  const Id other = addRow("Contacts", {{"DisplayName", "Lee"}});
  const Id twin = addRow("Appointments", Office::withClients(noId, other));
  ASSERT_EQ(twin, office.docket);
  const std::string both = std::to_string(office.company) + "|" + std::to_string(office.contact);
  for (const auto& [channel, add] : allAdds) {
    const bool isLetter = channel == nt_Letter;
    const auto clientsOf = [&](CurrentDayTimerType kind, Id company, Id contact) {
      return rowText(add(kind, itemOf(kind), reminder, noId, company, contact),
                     "CompanyIDNum, ContactIDNum");
    };
    EXPECT_EQ(clientsOf(Appointments, noId, noId), (isLetter ? "-1|-1" : both) + "|\n");
    EXPECT_EQ(clientsOf(Dockets, noId, noId),
              isLetter ? "-1|-1|\n" : "-1|" + std::to_string(other) + "|\n");
    EXPECT_EQ(clientsOf(Appointments, 4711, noId),
              "4711|" + std::to_string(isLetter ? noId : office.contact) + "|\n");
  }
}

TEST_F(DiaryItems, RecipientIsTheFirstClientThatTheListKnows) {
  struct Case {
    const char* name;
    RowFields company, person;
    bool linked;
    std::string email, fax, phone;
  };
  const RowFields maple{
      {"CompanyName", "M"}, {"Email", "m@x"}, {"FaxNumber", "1"}, {"OfficeNumber", "2"}};
  const Case cases[] = {
      {"bare person",
       maple,
       {{"DisplayName", "P"}, {"HomePhone_Main", "9"}},
       true,
       "m@x",
       "M c/o P|1",
       "P|2"},
      {"personal email", maple, {{"PersonalEmail", "p@x"}}, true, "p@x", "M|1", "|2"},
      {"no default contact", maple, {{"DisplayName", "P"}}, false, "m@x", "M|", "|"},
      {"contact at home",
       {},
       {{"DisplayName", "P"},
        {"PersonalEmail", "p@x"},
        {"BusinessPhone_Fax", "3"},
        {"HomePhone_Fax", "4"},
        {"BusinessPhone_Main", "5"},
        {"HomePhone_Main", "6"}},
       false,
       "p@x",
       "P|4",
       "P|6"},
      {"contact at work",
       {},
       {{"BusinessPhone_Fax", "3"}, {"BusinessPhone_Main", "5"}},
       false,
       "",
       "|",
       "|5"},
      {"nobody", {}, {}, false, "", "|", "|"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Id company = 4711;
    if (!c.company.empty()) {
      company = addRow("Companies", c.company);
      addRow("ClientData", {{"CompanyIDNum", company}, {"ShowThisClient", "True"}});
    }
    const Id contact = c.person.empty() ? 4711 : addRow("Contacts", c.person);
    if (c.linked) linkDefaultContact(contact, company);
    // Of a company only its default contact counts.
    const Id given = c.company.empty() ? contact : noId;
    const auto fieldsOf = [&](Add add, const std::string& columns) {
      return rowText(add(Dockets, office.docket, reminder, noId, company, given), columns);
    };
    EXPECT_EQ(fieldsOf(addNewApptEmailNotification, "Field1"), c.email + "|\n");
    EXPECT_EQ(fieldsOf(addNewApptFaxNotification, "Field1, Field4"), c.fax + "|\n");
    EXPECT_EQ(fieldsOf(addNewApptPhoneNotification, "Field1, Field2"), c.phone + "|\n");
  }
}

TEST_F(DiaryItems, StatementsStandAsHostsKnowThem) {
  const std::string item = "SELECT Dockets.* FROM Dockets WHERE DocketID=";
  const std::string firm =
      "SELECT AccountantFirmInfo.CompanyName, AccountantFirmInfo.FaxNumber FROM "
      "AccountantFirmInfo;";
  const std::string newRow = "SELECT ClientNotification.* FROM ClientNotification;";
  struct Case {
    Add add;
    std::string people, company, contact;
    int itemReads;
  };
  const Case cases[] = {
      {addNewApptEmailNotification, "Contacts.BusinessEmail, Contacts.PersonalEmail", "",
       "Contacts.BusinessEmail, Contacts.PersonalEmail From", 2},
      {addNewApptFaxNotification, "Contacts.DisplayName, Contacts.BusinessPhone_Fax",
       "CompanyID, Companies.CompanyName, Companies.FaxNumber",
       "Contacts.DisplayName, Contacts.HomePhone_Fax FROM", 2},
      {addNewApptPhoneNotification, "Contacts.DisplayName, Contacts.BusinessPhone_Main",
       "companyID, Companies.OfficeNumber",
       "Contacts.DisplayName, Contacts.HomePhone_Main, Contacts.BusinessPhone_Main FROM", 1}};
  for (const Case& c : cases) {
    for (const bool isCompany : {true, false}) {
      std::vector<std::string> expected;
      if (c.add == addNewApptFaxNotification) expected = {firm};
      if (isCompany && !c.company.empty()) {
        expected.push_back("SELECT Companies." + c.company + " From Companies WHERE CompanyID=" +
                           std::to_string(office.company) + ";");
      }
      expected.push_back(
          isCompany ? "SELECT " + c.people +
                          ", ContactLinks.CompanyNum, ContactLinks.DefaultContact FROM Contacts "
                          "INNER JOIN ContactLinks ON Contacts.ContactID = "
                          "ContactLinks.ContactIDNum WHERE ContactLinks.CompanyNum = " +
                          std::to_string(office.company) + " AND ContactLinks.DefaultContact=True;"
                    : "SELECT Contacts.ContactID, " + c.contact +
                          " Contacts WHERE ContactID=" + std::to_string(office.contact) + ";");
      for (int i = 0; i < c.itemReads; ++i)
        expected.push_back(item + std::to_string(office.docket) + ";");
      for (std::string& sql : expected) sql = "1,1 " + sql;
      expected.push_back("1,3 " + newRow);
      EXPECT_EQ(statementsOf([&] {
                  c.add(Dockets, office.docket, reminder, noId, isCompany ? office.company : 4711,
                        office.contact);
                }),
                expected);
    }
  }
}

// Texts.

TEST_F(DiaryItems, TextNamesDayTimeLengthAndSubject) {
  EXPECT_EQ(getAppointmentBodyText(Appointments, office.appointment), appointmentText);
  EXPECT_EQ(getAppointmentBodyText(Dockets, office.docket), docketText);
  EXPECT_EQ(getAppointmentBodyText(Tasks, addRow("Tasks", meeting)), taskText);
  EXPECT_EQ(getAppointmentBodyText(Tasks, 4711), "");
  struct Case {
    DateTime from, to;
    const char* subject;
    const char* tail;
  };
  const Case cases[] = {
      {at(13, 5), at(13, 5), "", " at 1:05 pm.  We expect this task will take approximately 0 "},
      {at(0, 30), at(23, 30), "",
       " at 12:30 am.  We expect this task will take approximately 1380 "},
      {at(10, 0), at(9, 0), "", " at 10:00 am.  We expect this task will take approximately -60 "}};
  for (const Case& c : cases) {
    const Id task = addRow("Tasks", {{"DateFrom", day}, {"TimeFrom", c.from}, {"TimeTo", c.to}});
    EXPECT_EQ(getAppointmentBodyText(Tasks, task),
              greeting +
                  "This is a reminder that you have a task scheduled on Thursday, April 30 "
                  "2026" +
                  c.tail + "minutes to complete.\r\n\r\n");
  }
}

TEST_F(DiaryItems, MissingTimesAskAtTheErrorDialog) {
  struct Case {
    const char* missing;
    int questions;
    std::string goingOn;
  };
  const std::string start = greeting + "This is a reminder that you have a task scheduled";
  const std::string length =
      "We expect this task will take approximately 45 minutes to "
      "complete.\r\n\r\n";
  const std::string about = "Task regarding Year end.  ";
  const Case cases[] = {{"DateFrom", 1, start + length + about},
                        {"TimeFrom", 2, start + about},
                        {"TimeTo", 1, start + when + about}};
  for (const Case& c : cases) {
    RowFields fields = meeting;
    std::erase_if(fields, [&](const auto& field) { return field.first == std::string(c.missing); });
    const Id task = addRow("Tasks", fields);
    for (int i = 0; i < c.questions; ++i) errors.answer({error_choice::next});
    EXPECT_EQ(getAppointmentBodyText(Tasks, task), c.goingOn);
    errors.answer({error_choice::quit, 9, error_choice::leave});
    EXPECT_EQ(getAppointmentBodyText(Tasks, task), "") << "no half a text";
    EXPECT_EQ(errors.recorded().back().number, 94);
  }
}

TEST_F(DiaryItems, ResetWritesStampAndTextAndTakesAWiderKind) {
  const Id row = addLinked(tables[0], office.appointment, nt_Letter, {{"Memo", "old"}});
  EXPECT_THAT(columnsWrittenBy([&] { resetApptNotificationBody(Dockets, row, office.docket); }),
              ElementsAre("ClientNotificationModifiedStamp=" + nowText(), "Memo=" + docketText));
  EXPECT_EQ(logged("openRecordset").back(),
            "1,3 SELECT ClientNotification.ClientNotificationModifiedStamp, "
            "ClientNotification.ClientNotificationID, ClientNotification.Memo FROM "
            "ClientNotification WHERE ClientNotificationID=" +
                std::to_string(row) + ";");
  EXPECT_THAT(columnsWrittenBy([&] { resetApptNotificationBody(Dockets, 4711, office.docket); }),
              IsEmpty());
  errors.answer({error_choice::leave});
  resetApptNotificationBody(Dockets + (1 << 16), row, office.docket);
  EXPECT_EQ(errors.recorded().back().number, error_number::overflow);
}

}  // namespace
}  // namespace autonotify::test
