#include "control/contract/enumerations.h"
#include "control/contract/firm_rules.h"
#include "scheduling/modNotificationComments.h"
#include "store/channels/modChannelNotifications.h"
#include "store/store_fixture.h"

namespace autonotify::test {
namespace {

std::string text(Id id) {
  return std::to_string(id);
}

using AddFromId = Id (*)(Id);
using AddFromName = Id (*)(Id, Id, Id, Id, const std::string&, DateTime, const std::string&);

/// The two adds of a channel.
struct ChannelAdds {
  notifyType channel;
  AddFromId fromId;
  AddFromName fromName;
};
constexpr ChannelAdds emailAdds{nt_Email, addNewEmailNotificationFromScheduleIDNum,
                                addNewEmailNotificationFromScheduleNameAndDueDate};
constexpr ChannelAdds faxAdds{nt_Fax, addNewFaxNotificationFromScheduleIDNum,
                              addNewFaxNotificationFromScheduleNameAndDueDate};
constexpr ChannelAdds letterAdds{nt_Letter, addNewLetterNotificationFromScheduleIDNum,
                                 addNewLetterNotificationFromScheduleNameAndDueDate};
constexpr ChannelAdds phoneAdds{nt_Phone, addNewPhoneNotificationFromScheduleIDNum,
                                addNewPhoneNotificationFromScheduleNameAndDueDate};
constexpr ChannelAdds allAdds[] = {emailAdds, faxAdds, letterAdds, phoneAdds};

constexpr DateTime dueDate = DateTime::of(2026, 4, 30);
constexpr DateTime inHouseDate = DateTime::of(2026, 4, 20);
const std::string subject = "Your GST Return is due on Thursday, April 30 2026";

class Adding : public StoreTest {
 protected:
  Adding() {
    addTestRow("AccountantFirmInfo", "CompanyID",
               {{"CompanyName", "Fisher & Lind"}, {"FaxNumber", "555-0100"}});
    addTestRow(
        "ScheduleTypes", "ScheduleTypeID",
        {{"TotalNum", "103"},
         {"ScheduleNum", "1"},
         {"NotificationPeriod", "5"},
         {"NotificationComment", "{\\rtf1\\ansi Dear client, your return is due soon.\\par }"}});
  }

  Id addClient(const RowFields& company) {
    company_ = addTestRow("Companies", "CompanyID", company);
    return addTestRow("ClientData", "ClientDataID", {{"CompanyIDNum", text(company_)}});
  }
  Id addPerson(const RowFields& person) {
    contact_ = addTestRow("Contacts", "ContactID", person);
    return contact_;
  }
  void makeDefaultContact(Id contact, Id company) {
    addTestRow("ContactLinks", "ContactLinkID",
               {{"ContactIDNum", text(contact)},
                {"CompanyNum", text(company)},
                {"DefaultContact", "True"}});
  }
  Id addEntry(Id clientNum, Id contactId) {
    return addTestRow("Schedule", "ScheduleID",
                      {{"ClientNum", text(clientNum)},
                       {"ContactIDNum", text(contactId)},
                       {"totalNum", "103"},
                       {"scheduleNum", "1"},
                       {"scheduleName", "GST Return"},
                       {"Custom2", "4PAP"},
                       {"DueDate", toText(dueDate)},
                       {"inHouseDueDate", toText(inHouseDate)}});
  }

  /// The row's six fields, joined.
  std::string fieldsOf(Id row) {
    std::string all;
    for (const char* column : {"Field1", "Field2", "Field3", "Field4", "Field5", "Field6"}) {
      all += textOf(row, column) + "|";
    }
    all.pop_back();
    return all;
  }
  std::string textOf(Id row, const char* column) {
    const Value value = valueOf("ClientNotification", column, "ClientNotificationID=" + text(row));
    return value.isNull() ? "" : toText(value);
  }

  Id company_ = noId;
  Id contact_ = noId;
};

// The recipient, by channel.

struct RecipientCase {
  const char* name;
  RowFields company;  ///< none for a contact client
  RowFields person;   ///< none for a company without a default contact
  std::string email, fax, phone;
};

std::ostream& operator<<(std::ostream& out, const RecipientCase& recipient) {
  return out << recipient.name;
}

const std::string sender = "Fisher & Lind|555-0100|";
const std::string pages = "|1 (including cover page)|" + subject;

class Recipients : public Adding, public testing::WithParamInterface<RecipientCase> {};

TEST_P(Recipients, FromTheScheduleEntry) {
  const RecipientCase& c = GetParam();
  const bool isCompany = !c.company.empty();
  const Id client = isCompany ? addClient(c.company) : noId;
  if (!c.person.empty()) addPerson(c.person);
  if (isCompany && contact_ >= 0) makeDefaultContact(contact_, company_);
  const Id entry = addEntry(client, isCompany ? noId : contact_);

  const std::string emailFields = c.email + "|||" + subject + "||";
  const std::string expected[] = {emailFields, c.fax + pages, "|||||", c.phone + "||||"};
  for (int i = 0; i < 4; ++i) {
    SCOPED_TRACE(int{allAdds[i].channel});
    const Id row = allAdds[i].fromId(entry);
    EXPECT_EQ(fieldsOf(row), expected[i]);
    EXPECT_EQ(textOf(row, "NotificationType"), text(allAdds[i].channel));
    EXPECT_EQ(textOf(row, "CompanyIDNum"), text(isCompany ? company_ : noId));
    EXPECT_EQ(textOf(row, "ContactIDNum"), text(isCompany ? noId : contact_));
    EXPECT_EQ(textOf(row, "NotificationSent"), "False");
    EXPECT_EQ(textOf(row, "NotificationSentStatus"), "1");
  }
}

INSTANTIATE_TEST_SUITE_P(
    Clients, Recipients,
    testing::Values(
        RecipientCase{"FullCompany",
                      {{"CompanyName", "Maple Ltd"},
                       {"Email", "office@maple.example"},
                       {"FaxNumber", "555-0111"},
                       {"OfficeNumber", "555-0112"}},
                      {{"DisplayName", "Jo Park"},
                       {"BusinessEmail", "jo@maple.example"},
                       {"PersonalEmail", "jo@home.example"},
                       {"BusinessPhone_Fax", "555-0121"},
                       {"BusinessPhone_Main", "555-0122"}},
                      "jo@maple.example",
                      "Maple Ltd c/o Jo Park|" + sender + "555-0121",
                      "Jo Park|555-0122"},
        RecipientCase{"PersonWithoutNumbers",
                      {{"CompanyName", "Maple Ltd"},
                       {"Email", "office@maple.example"},
                       {"FaxNumber", "555-0111"},
                       {"OfficeNumber", "555-0112"}},
                      {{"DisplayName", "Jo Park"}, {"PersonalEmail", "jo@home.example"}},
                      "jo@home.example",
                      "Maple Ltd c/o Jo Park|" + sender + "555-0111",
                      "Jo Park|555-0112"},
        RecipientCase{"NamelessPerson",
                      {{"CompanyName", "Maple Ltd"}, {"Email", "office@maple.example"}},
                      {{"FirstName", "Jo"}},
                      "office@maple.example",
                      "Maple Ltd|" + sender,
                      "|"},
        RecipientCase{"NamelessCompany",
                      {{"ClientIDStr", "M1"}},
                      {{"DisplayName", "Jo Park"}},
                      "",
                      "Jo Park|" + sender,
                      "Jo Park|"},
        RecipientCase{"NoDefaultContact",
                      {{"CompanyName", "Maple Ltd"},
                       {"Email", "office@maple.example"},
                       {"FaxNumber", "555-0111"},
                       {"OfficeNumber", "555-0112"}},
                      {},
                      "office@maple.example",
                      "Maple Ltd|" + sender,
                      "|"},
        RecipientCase{"Contact",
                      {},
                      {{"DisplayName", "Jo Park"},
                       {"BusinessEmail", "jo@maple.example"},
                       {"BusinessPhone_Fax", "555-0121"},
                       {"BusinessPhone_Main", "555-0122"}},
                      "jo@maple.example",
                      "Jo Park|" + sender + "555-0121",
                      "Jo Park|555-0122"},
        RecipientCase{
            "BareContact", {}, {{"DisplayName", "Jo Park"}}, "", "Jo Park|" + sender, "Jo Park|"}),
    [](const auto& named) { return named.param.name; });

TEST_F(Adding, ByNameTheEmailAddressComesFromTheClientList) {
  const Id client = addClient({{"CompanyName", "Maple Ltd"}, {"Email", "office@maple.example"}});
  ASSERT_GE(client, 0);
  const Id company = company_;
  const Id person = addPerson({{"BusinessEmail", "jo@maple.example"}});
  struct Case {
    Id companyId;
    Id contactId;
    const char* to;
  };
  const Case cases[] = {{company, noId, "office@maple.example"},
                        {company, person, "office@maple.example"},
                        {noId, person, "jo@maple.example"},
                        {noId, noId, ""}};
  for (const Case& c : cases) {
    calls().reset();
    calls().record(true);
    const Id row =
        emailAdds.fromName(noId, 3, c.companyId, c.contactId, "GST Return", dueDate, "Hello");
    EXPECT_EQ(statementsOn("Contacts").size() + statementsOn("Companies").size(), 0u);
    EXPECT_EQ(fieldsOf(row), std::string(c.to) + "|||" + subject + "||");
    EXPECT_EQ(textOf(row, "Memo"), "Hello");
    EXPECT_EQ(textOf(row, "CompanyIDNum"), text(c.companyId));
    EXPECT_EQ(textOf(row, "ContactIDNum"), text(c.contactId)) << "as given, also both";
  }
  const Id named =
      addTestRow("Companies", "CompanyID",
                 {{"Email", "office@b.example"}, {"DefaultContactEmail", "d@b.example"}});
  const Id row = emailAdds.fromName(noId, noId, named, noId, "GST Return", dueDate, "Hello");
  EXPECT_EQ(textOf(row, "Field1"), "d@b.example");
}

TEST_F(Adding, ByNameFaxAndPhoneAskTheDatabase) {
  addClient({{"CompanyName", "Maple Ltd"}, {"FaxNumber", "555-0111"}});
  makeDefaultContact(addPerson({{"DisplayName", "Jo Park"}}), company_);
  const auto add = [&](const ChannelAdds& adds) {
    return fieldsOf(adds.fromName(noId, noId, company_, noId, "GST Return", dueDate, ""));
  };
  EXPECT_EQ(add(faxAdds), "Maple Ltd c/o Jo Park|" + sender + "555-0111" + pages);
  EXPECT_EQ(add(phoneAdds), "Jo Park|||||");
  EXPECT_EQ(add(letterAdds), "|||||");
}

TEST_F(Adding, ClientOfNobodyHandsOverAnEmptyStatement) {
  const Id entry = addEntry(noId, noId);
  for (const ChannelAdds& adds : {emailAdds, faxAdds, phoneAdds}) {
    SCOPED_TRACE(int{adds.channel});
    calls().reset();
    calls().record(true);
    errors().answer({error_choice::leave});
    EXPECT_EQ(adds.fromId(entry), noId);
    EXPECT_EQ(logged("openRecordset").back(), "1,1 ");
    // Going on past open, test and close of the empty statement adds the row.
    errors().answer({error_choice::next, error_choice::next, error_choice::next});
    const Id row = adds.fromId(entry);
    EXPECT_EQ(errors().answersLeft(), 0u);
    EXPECT_EQ(textOf(row, "CompanyIDNum"), "-1");
    EXPECT_EQ(textOf(row, "ContactIDNum"), "-1");
    EXPECT_EQ(textOf(row, "Field1"), "");
  }
  const Id row = letterAdds.fromId(entry);
  EXPECT_EQ(textOf(row, "NotificationType"), "4");
  EXPECT_EQ(textOf(row, "CompanyIDNum"), "-1");
}

// Statements and columns.

TEST_F(Adding, StatementsStandAsHostsKnowThem) {
  const Id companyEntry = addEntry(addClient({{"CompanyName", "Maple Ltd"}}), noId);
  const Id contactEntry = addEntry(noId, addPerson({{"DisplayName", "Jo Park"}}));
  const std::string ofCompany =
      ", ContactLinks.CompanyNum, ContactLinks.DefaultContact FROM Contacts INNER JOIN "
      "ContactLinks ON Contacts.ContactID = ContactLinks.ContactIDNum WHERE "
      "ContactLinks.CompanyNum = " +
      text(company_) + " AND ContactLinks.DefaultContact=True;";
  const std::string ofContact =
      ", Contacts.ContactID FROM Contacts WHERE Contacts.ContactID = " + text(contact_) + ";";
  struct Case {
    ChannelAdds adds;
    const char* people;
    const char* company;
    const char* entry;
  };
  const Case cases[] = {
      {emailAdds, "Contacts.BusinessEmail, Contacts.PersonalEmail", "Companies.Email",
       "scheduleName, Schedule.DueDate, Schedule.inHouseDueDate"},
      {faxAdds, "Contacts.DisplayName, Contacts.BusinessPhone_Fax",
       "Companies.FaxNumber, Companies.CompanyName", "scheduleName, Schedule.DueDate"},
      {phoneAdds, "Contacts.DisplayName, Contacts.BusinessPhone_Main", "Companies.OfficeNumber",
       nullptr},
      {letterAdds, nullptr, nullptr, nullptr},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(int{c.adds.channel});
    calls().reset();
    calls().record(true);
    c.adds.fromId(companyEntry);
    const auto opened = logged("openRecordset");
    if (c.people) {
      const std::string people = "1,1 SELECT " + std::string(c.people);
      EXPECT_THAT(opened, Contains(people + ofCompany));
      EXPECT_THAT(opened, Contains("1,1 SELECT Companies.CompanyID, " + std::string(c.company) +
                                   " From Companies WHERE CompanyID=" + text(company_) + ";"));
      calls().reset();
      calls().record(true);
      c.adds.fromId(contactEntry);
      EXPECT_THAT(logged("openRecordset"), Contains(people + ofContact));
    } else {
      EXPECT_THAT(opened, Not(Contains(HasSubstr("INNER JOIN ContactLinks"))));
    }
    if (c.entry) {
      EXPECT_THAT(opened,
                  Contains("1,1 SELECT Schedule.ScheduleID, Schedule." + std::string(c.entry) +
                           " FROM Schedule WHERE ScheduleID=" + text(companyEntry) + ";"));
    }
    EXPECT_EQ(logged("openRecordset").back(),
              "1,3 SELECT ClientNotification.* FROM ClientNotification;");
  }
}

TEST_F(Adding, ColumnsAreWrittenInOrderAndTheKeyReadBeforeSaving) {
  addClient({{"CompanyName", "Maple Ltd"}});
  struct Case {
    ChannelAdds adds;
    std::vector<std::string> fields;
  };
  const Case cases[] = {
      {emailAdds, {"Field1=", "Field4=" + subject}},
      {faxAdds,
       {"Field1=Maple Ltd", "Field2=Fisher & Lind", "Field3=555-0100",
        "Field4=", "Field5=1 (including cover page)", "Field6=" + subject}},
      {letterAdds, {}},
      {phoneAdds, {"Field1=", "Field2="}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(int{c.adds.channel});
    const Id entry = addEntry(noId, noId);
    calls().reset();
    calls().record(true);
    c.adds.fromName(entry, 3, company_, 44, "GST Return", dueDate, "Hello");
    std::vector<std::string> expected{"NotificationType=" + text(c.adds.channel),
                                      "ScheduleIDNum=" + text(entry),
                                      "NotificationDate=2026-04-23"};
    expected.insert(expected.end(), c.fields.begin(), c.fields.end());
    expected.insert(expected.end(), {"Memo=Hello", "CompanyIDNum=" + text(company_),
                                     "ContactIDNum=44", "DateCreated=" + nowText(),
                                     "CreatedByUserIDNum=" + std::to_string(currentUser)});
    EXPECT_EQ(logged("setFieldValue"), expected);
    const auto& log = calls().log();
    EXPECT_THAT(
        std::vector<std::string>(log.end() - 3, log.end()),
        ElementsAre("getFieldValue ClientNotificationID", "saveNewRecord", "closeRecordset"));
  }
}

TEST_F(Adding, DateComesFirstAndAClosedDatabaseAddsNothing) {
  const Id entry = addEntry(addClient({{"CompanyName", "Maple Ltd"}}), noId);
  for (const ChannelAdds& adds : allAdds) {
    closeDatabase();
    EXPECT_EQ(adds.fromId(entry), noId);
    EXPECT_EQ(adds.fromName(entry, noId, company_, noId, "x", dueDate, "y"), noId);
    openDatabase();
    EXPECT_EQ(rowCount("ClientNotification", "ClientNotificationID>0"), 0);
  }
}

TEST_F(Adding, NewRowSharesTheDateOfItsSiblings) {
  const Id entry = addEntry(addClient({{"CompanyName", "Maple Ltd"}}), noId);
  const Id letter = letterAdds.fromId(entry);
  EXPECT_EQ(textOf(letter, "NotificationDate"), "2026-04-23");
  addNotification(entry, nt_Email, DateTime::of(2026, 4, 11), true);
  EXPECT_EQ(textOf(faxAdds.fromId(entry), "NotificationDate"), "2026-04-10")
      << "a Saturday's sibling, moved to Friday";
}

TEST_F(Adding, FirmRuleNamesTheInHouseDateInTheEmailOfAnEntryAlone) {
  const Id entry = addEntry(addClient({{"CompanyName", "Maple Ltd"}}), noId);
  localeSettings().firmCode = firmSpecificCode;
  const std::string inHouse = "Your GST Return is due on Monday, April 20 2026";
  EXPECT_EQ(textOf(emailAdds.fromId(entry), "Field4"), inHouse);
  EXPECT_EQ(textOf(faxAdds.fromId(entry), "Field6"), subject);
  EXPECT_EQ(
      textOf(emailAdds.fromName(entry, -1, company_, -1, "GST Return", dueDate, ""), "Field4"),
      subject);
  localeSettings().firmCode = std::string(firmSpecificCode) + "x";
  EXPECT_EQ(textOf(emailAdds.fromId(entry), "Field4"), subject);
}

TEST_F(Adding, MemoIsTheMergedTemplateOfTheEntry) {
  const Id entry = addEntry(addClient({{"CompanyName", "Maple Ltd"}}), noId);
  for (const ChannelAdds& adds : allAdds) {
    const std::string memo = textOf(adds.fromId(entry), "Memo");
    EXPECT_THAT(memo, HasSubstr("Dear client"));
    EXPECT_EQ(memo, generateClientAutoNotifyComment(entry));
  }
}

TEST_F(Adding, ColumnSkippedAtTheDialogIsMissingInTheSavedRow) {
  const Id client = addClient({{"CompanyName", "Maple Ltd"}});
  int failed = 0;
  const auto add = [&] {
    const Id entry = addEntry(client, noId);
    calls().reset();
    calls().record(true);
    if (failed > 0) calls().failAt(failed);
    return faxAdds.fromName(entry, -1, company_, -1, "GST Return", dueDate, "Hello");
  };
  add();
  failed = callNumber("setFieldValue Field2", 1);
  errors().answer({error_choice::next});
  const Id row = add();
  EXPECT_EQ(fieldsOf(row), "Maple Ltd||555-0100|" + pages);
  EXPECT_EQ(textOf(row, "Memo"), "Hello");
}

}  // namespace
}  // namespace autonotify::test
