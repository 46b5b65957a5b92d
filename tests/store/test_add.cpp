#include "channels/modChannelNotifications.h"
#include "contract/enumerations.h"
#include "contract/firm_rules.h"
#include "contract/recordsets.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::Contains;

/// The two adds of a channel.
struct ChannelAdds {
  notifyType channel;
  Id (*fromId)(Id);
  Id (*fromName)(Id, Id, Id, Id, const std::string&, DateTime, const std::string&);
};
constexpr ChannelAdds allAdds[] = {{nt_Email, addNewEmailNotificationFromScheduleIDNum,
                                    addNewEmailNotificationFromScheduleNameAndDueDate},
                                   {nt_Fax, addNewFaxNotificationFromScheduleIDNum,
                                    addNewFaxNotificationFromScheduleNameAndDueDate},
                                   {nt_Letter, addNewLetterNotificationFromScheduleIDNum,
                                    addNewLetterNotificationFromScheduleNameAndDueDate},
                                   {nt_Phone, addNewPhoneNotificationFromScheduleIDNum,
                                    addNewPhoneNotificationFromScheduleNameAndDueDate}};
constexpr ChannelAdds email = allAdds[0], fax = allAdds[1], letter = allAdds[2], phone = allAdds[3];

constexpr DateTime dueDate = DateTime::of(2026, 4, 30);
const std::string subject = "Your GST Return is due on Thursday, April 30 2026";
const std::string sender = "Fisher & Lind|555-0100|";
const std::string pages = "|1 (including cover page)|" + subject;

class Adding : public HostTest {
 protected:
  Adding() {
    addRow("AccountantFirmInfo", {{"CompanyName", "Fisher & Lind"}, {"FaxNumber", "555-0100"}});
    addKind(103, 1, 5, "{\\rtf1\\ansi Dear client, your return is due soon.\\par }");
  }
  Id addEntry(Id clientNum, Id contactID) {
    return addSchedule(103, 1, dueDate,
                       {{"ClientNum", clientNum},
                        {"ContactIDNum", contactID},
                        {"scheduleName", "GST Return"},
                        {"Custom2", "4PAP"},
                        {"inHouseDueDate", DateTime::of(2026, 4, 20)}});
  }
  Id addCompanyEntry(const RowFields& columns) {
    company = addRow("Companies", columns);
    return addEntry(addRow("ClientData", {{"CompanyIDNum", company}}), noId);
  }
  std::string textOf(Id row, const std::string& columns) {
    return dump("SELECT " + columns +
                " FROM ClientNotification WHERE ClientNotificationID=" + std::to_string(row));
  }
  std::string fieldsOf(Id row) {
    return textOf(row,
                  "COALESCE(Field1, ''), COALESCE(Field2, ''), COALESCE(Field3, ''), "
                  "COALESCE(Field4, ''), COALESCE(Field5, ''), COALESCE(Field6, '')");
  }

  Id company = noId;
};

struct Recipient {
  const char* name;
  RowFields company;  ///< none for a contact client
  RowFields person;   ///< none for a company without a default contact
  std::string email, fax, phone;
};

const RowFields maple{{"CompanyName", "Maple Ltd"},
                      {"Email", "office@m.example"},
                      {"FaxNumber", "555-0111"},
                      {"OfficeNumber", "555-0112"}};
const RowFields jo{{"DisplayName", "Jo Park"},
                   {"BusinessEmail", "jo@m.example"},
                   {"PersonalEmail", "jo@home.example"},
                   {"BusinessPhone_Fax", "555-0121"},
                   {"BusinessPhone_Main", "555-0122"}};
const std::string joNamed = "Jo Park|" + sender;

const Recipient recipients[] = {
    {"Company", maple, jo, "jo@m.example", "Maple Ltd c/o " + joNamed + "555-0121",
     "Jo Park|555-0122"},
    {"PersonWithoutNumbers",
     maple,
     {{"DisplayName", "Jo Park"}, {"PersonalEmail", "jo@home.example"}},
     "jo@home.example",
     "Maple Ltd c/o " + joNamed + "555-0111",
     "Jo Park|555-0112"},
    {"NamelessPerson",
     maple,
     {{"FirstName", "Jo"}},
     "office@m.example",
     "Maple Ltd|" + sender + "555-0111",
     "|555-0112"},
    {"NoDefaultContact", maple, {}, "office@m.example", "Maple Ltd|" + sender, "|"},
    {"Contact", {}, jo, "jo@m.example", joNamed + "555-0121", "Jo Park|555-0122"},
};
void PrintTo(const Recipient& recipient, std::ostream* out) {
  *out << recipient.name;
}

class Recipients : public Adding, public testing::WithParamInterface<Recipient> {};

TEST_P(Recipients, FromTheScheduleEntry) {
  const Recipient& c = GetParam();
  const bool isCompany = !c.company.empty();
  const Id contact = c.person.empty() ? noId : addRow("Contacts", c.person);
  const Id entry = isCompany ? addCompanyEntry(c.company) : addEntry(noId, contact);
  if (isCompany && contact != noId) linkDefaultContact(contact, company);
  const std::string expected[] = {c.email + "|||" + subject + "|||\n", c.fax + pages + "|\n",
                                  "||||||\n", c.phone + "|||||\n"};
  for (int i = 0; i < 4; ++i) {
    const Id row = allAdds[i].fromId(entry);
    EXPECT_EQ(fieldsOf(row), expected[i]);
    EXPECT_EQ(textOf(row, "NotificationType, CompanyIDNum, ContactIDNum, NotificationSentStatus"),
              std::to_string(allAdds[i].channel) + "|" + std::to_string(company) + "|" +
                  std::to_string(isCompany ? noId : contact) + "|1|\n");
  }
}

INSTANTIATE_TEST_SUITE_P(Clients, Recipients, testing::ValuesIn(recipients),
                         [](const auto& recipient) { return recipient.param.name; });

TEST_F(Adding, ByNameTheEmailAddressComesFromTheClientList) {
  addCompanyEntry(maple);
  const Id person = addRow("Contacts", jo);
  const Id named = addRow("Companies", {{"Email", "x"}, {"DefaultContactEmail", "d@b.example"}});
  struct Case {
    Id company, contact;
    const char* to;
  };
  const Case cases[] = {{company, noId, "office@m.example"},
                        {company, person, "office@m.example"},
                        {noId, person, "jo@m.example"},
                        {noId, noId, ""},
                        {named, noId, "d@b.example"}};
  for (const Case& c : cases) {
    const Id row = email.fromName(noId, 3, c.company, c.contact, "GST Return", dueDate, "Hello");
    EXPECT_EQ(fieldsOf(row), std::string(c.to) + "|||" + subject + "|||\n");
    EXPECT_EQ(textOf(row, "Memo, CompanyIDNum, ContactIDNum"),
              "Hello|" + std::to_string(c.company) + "|" + std::to_string(c.contact) + "|\n")
        << "as given, also both";
  }
}

TEST_F(Adding, ClientOfNobodyHandsOverAnEmptyStatement) {
  const Id entry = addEntry(noId, noId);
  for (const ChannelAdds& adds : {email, fax, phone}) {
    errors.answer({error_choice::leave});
    EXPECT_EQ(statementsOf([&] { EXPECT_EQ(adds.fromId(entry), noId); }).back(), "1,1 ");
    // Going on past open, test and close of the empty statement adds the row.
    errors.answer({error_choice::next, error_choice::next, error_choice::next});
    EXPECT_EQ(textOf(adds.fromId(entry), "CompanyIDNum, ContactIDNum, Field1"), "-1|-1||\n");
  }
  EXPECT_EQ(textOf(letter.fromId(entry), "CompanyIDNum, ContactIDNum"), "-1|-1|\n");
}

TEST_F(Adding, StatementsStandAsHostsKnowThem) {
  const Id ofCompany = addCompanyEntry(maple);
  const Id person = addRow("Contacts", jo);
  const Id ofContact = addEntry(noId, person);
  struct Case {
    ChannelAdds adds;
    std::string people, company, entry;
  };
  const Case cases[] = {
      {email, "Contacts.BusinessEmail, Contacts.PersonalEmail", "Companies.Email",
       "scheduleName, Schedule.DueDate, Schedule.inHouseDueDate"},
      {fax, "Contacts.DisplayName, Contacts.BusinessPhone_Fax",
       "Companies.FaxNumber, Companies.CompanyName", "scheduleName, Schedule.DueDate"},
      {phone, "Contacts.DisplayName, Contacts.BusinessPhone_Main", "Companies.OfficeNumber", ""},
  };
  for (const Case& c : cases) {
    const auto opened = statementsOf([&] { c.adds.fromId(ofCompany); });
    EXPECT_THAT(opened,
                Contains("1,1 SELECT " + c.people +
                         ", ContactLinks.CompanyNum, ContactLinks.DefaultContact FROM Contacts "
                         "INNER JOIN ContactLinks ON Contacts.ContactID = "
                         "ContactLinks.ContactIDNum WHERE ContactLinks.CompanyNum = " +
                         std::to_string(company) + " AND ContactLinks.DefaultContact=True;"));
    EXPECT_THAT(opened,
                Contains("1,1 SELECT Companies.CompanyID, " + c.company +
                         " From Companies WHERE CompanyID=" + std::to_string(company) + ";"));
    if (!c.entry.empty()) {
      EXPECT_THAT(opened,
                  Contains("1,1 SELECT Schedule.ScheduleID, Schedule." + c.entry +
                           " FROM Schedule WHERE ScheduleID=" + std::to_string(ofCompany) + ";"));
    }
    EXPECT_EQ(opened.back(), "1,3 SELECT ClientNotification.* FROM ClientNotification;");
    EXPECT_THAT(statementsOf([&] { c.adds.fromId(ofContact); }),
                Contains("1,1 SELECT " + c.people +
                         ", Contacts.ContactID FROM Contacts WHERE Contacts.ContactID = " +
                         std::to_string(person) + ";"));
  }
}

TEST_F(Adding, ColumnsAreWrittenInOrderAndTheKeyReadBeforeSaving) {
  addCompanyEntry({{"CompanyName", "Maple Ltd"}});
  const std::vector<std::string> fields[] = {
      {"Field1=", "Field4=" + subject},
      {"Field1=Maple Ltd", "Field2=Fisher & Lind", "Field3=555-0100",
       "Field4=", "Field5=1 (including cover page)", "Field6=" + subject},
      {},
      {"Field1=", "Field2="},
  };
  for (int i = 0; i < 4; ++i) {
    const Id entry = addEntry(noId, noId);
    const auto written = callsOf("setFieldValue", [&] {
      allAdds[i].fromName(entry, 3, company, 44, "GST Return", dueDate, "Hello");
    });
    std::vector<std::string> expected{"NotificationType=" + std::to_string(allAdds[i].channel),
                                      "ScheduleIDNum=" + std::to_string(entry),
                                      "NotificationDate=2026-04-23"};
    expected.insert(expected.end(), fields[i].begin(), fields[i].end());
    expected.insert(expected.end(),
                    {"Memo=Hello", "CompanyIDNum=" + std::to_string(company), "ContactIDNum=44",
                     "DateCreated=" + nowText(), "CreatedByUserIDNum=7"});
    EXPECT_EQ(written, expected);
    EXPECT_EQ(callNumber("getFieldValue ClientNotificationID", 1) + 1,
              callNumber("saveNewRecord", 1));
  }
}

TEST_F(Adding, SiblingsDateFirmRuleAndMemo) {
  const Id entry = addCompanyEntry(maple);
  EXPECT_EQ(textOf(letter.fromId(entry), "NotificationDate, Memo LIKE '%Dear client%'"),
            "2026-04-23|1|\n");
  addNotification(entry, nt_Email, DateTime::of(2026, 4, 11), true);
  EXPECT_EQ(textOf(fax.fromId(entry), "NotificationDate"), "2026-04-10|\n")
      << "a Saturday's sibling, moved to Friday";

  plainLocale.settings().firmCode = firmSpecificCode;
  EXPECT_EQ(textOf(email.fromId(entry), "Field4"),
            "Your GST Return is due on Monday, April 20 2026|\n");
  EXPECT_EQ(textOf(fax.fromId(entry), "Field6"), subject + "|\n");
  EXPECT_EQ(textOf(email.fromName(entry, -1, company, -1, "GST Return", dueDate, ""), "Field4"),
            subject + "|\n");
  plainLocale.settings().firmCode = std::string(firmSpecificCode) + "x";
  EXPECT_EQ(textOf(email.fromId(entry), "Field4"), subject + "|\n");
}

TEST_F(Adding, ClosedDatabaseAddsNothing) {
  const Id entry = addCompanyEntry(maple);
  closeDatabase();
  for (const ChannelAdds& adds : allAdds) {
    EXPECT_EQ(adds.fromId(entry), noId);
    EXPECT_EQ(adds.fromName(entry, noId, company, noId, "x", dueDate, "y"), noId);
  }
  EXPECT_EQ(notificationCount(), 0);
}

}  // namespace
}  // namespace autonotify::test
