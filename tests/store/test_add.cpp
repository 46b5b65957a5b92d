#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/firm_rules.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

constexpr auto addEmail = addNewEmailNotificationFromScheduleIDNum;
constexpr auto addFax = addNewFaxNotificationFromScheduleIDNum;
constexpr auto addLetter = addNewLetterNotificationFromScheduleIDNum;
constexpr auto addPhone = addNewPhoneNotificationFromScheduleIDNum;
constexpr auto addEmailByName = addNewEmailNotificationFromScheduleNameAndDueDate;

constexpr DateTime dueDate = DateTime::of(2026, 4, 30);
const std::string subject = "Your GST Return is due on Thursday, April 30 2026";
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
    return addEntry(addRow("ClientData", {{"CompanyIDNum", company}, {"ShowThisClient", "True"}}),
                    noId);
  }

  Id company = noId;
};

/// What an email, a fax and a call say about whom they go to.
struct Fields {
  std::string email, fax, phone;
};

struct Recipient {
  const char* name;
  RowFields company;  ///< none for a contact client
  RowFields person;   ///< none for a company without a default contact
  Fields ofEntry, ofItem;
};

const RowFields maple{{"CompanyName", "Maple Ltd"},
                      {"Email", "office@m.example"},
                      {"FaxNumber", "555-0111"},
                      {"OfficeNumber", "555-0112"}};
const RowFields atWork{{"DisplayName", "Jo Park"},
                       {"BusinessPhone_Fax", "555-0121"},
                       {"BusinessPhone_Main", "555-0122"}};
const RowFields jo{{"DisplayName", "Jo Park"},           {"BusinessEmail", "jo@m.example"},
                   {"PersonalEmail", "jo@home.example"}, {"BusinessPhone_Fax", "555-0121"},
                   {"BusinessPhone_Main", "555-0122"},   {"HomePhone_Fax", "555-0131"},
                   {"HomePhone_Main", "555-0132"}};
const Fields joOfMaple{"jo@m.example", "Maple Ltd c/o Jo Park|555-0121", "Jo Park|555-0122"};
const Fields joOfNoNumber{"jo@home.example", "Maple Ltd c/o Jo Park|555-0111", "Jo Park|555-0112"};
const Fields nameless{"office@m.example", "Maple Ltd|555-0111", "|555-0112"};
const Fields mapleAlone{"office@m.example", "Maple Ltd|", "|"};

const Recipient recipients[] = {
    {"Company", maple, jo, joOfMaple, joOfMaple},
    {"PersonWithoutNumbers",
     maple,
     {{"DisplayName", "Jo Park"}, {"PersonalEmail", "jo@home.example"}},
     joOfNoNumber,
     joOfNoNumber},
    {"NamelessPerson", maple, {{"FirstName", "Jo"}}, nameless, nameless},
    {"NoDefaultContact", maple, {}, mapleAlone, mapleAlone},
    {"ContactAtHome",
     {},
     jo,
     {"jo@m.example", "Jo Park|555-0121", "Jo Park|555-0122"},
     {"jo@m.example", "Jo Park|555-0131", "Jo Park|555-0132"}},
    {"ContactAtWork",
     {},
     atWork,
     {"", "Jo Park|555-0121", "Jo Park|555-0122"},
     {"", "Jo Park|", "Jo Park|555-0122"}},
};
void PrintTo(const Recipient& recipient, std::ostream* out) {
  *out << recipient.name;
}

class Recipients : public Adding, public testing::WithParamInterface<Recipient> {
 protected:
  Recipients() {
    const Recipient& c = GetParam();
    if (!c.person.empty()) contact = addRow("Contacts", c.person);
    if (c.company.empty()) {
      entry = addEntry(noId, contact);
      return;
    }
    entry = addCompanyEntry(c.company);
    if (contact != noId) linkDefaultContact(contact, company);
    contact = noId;
  }
  void expectRows(const Fields& expected, Id emailRow, Id faxRow, Id phoneRow) {
    EXPECT_EQ(notification(emailRow, "Field1"), expected.email + "|\n");
    EXPECT_EQ(notification(faxRow, "Field1, Field4"), expected.fax + "|\n");
    EXPECT_EQ(notification(phoneRow, "Field1, Field2"), expected.phone + "|\n");
  }
  Id entry = noId, contact = noId;
};

TEST_P(Recipients, AreThoseOfTheClient) {
  expectRows(GetParam().ofEntry, addEmail(entry), addFax(entry), addPhone(entry));
  const Id item =
      addRow("Dockets", {{"DateFrom", dueDate}, {"TimeFrom", dueDate}, {"TimeTo", dueDate}});
  const auto add = [&](auto adding) {
    return adding({Dockets, item, dueDate, noId, {company, contact}});
  };
  expectRows(GetParam().ofItem, add(addNewApptEmailNotification), add(addNewApptFaxNotification),
             add(addNewApptPhoneNotification));
}

INSTANTIATE_TEST_SUITE_P(Clients, Recipients, testing::ValuesIn(recipients),
                         [](const auto& recipient) { return recipient.param.name; });

TEST_F(Adding, OfACompanysItemTheContactCountsThatReadsAsItsDefault) {
  addCompanyEntry(maple);
  linkDefaultContact(addRow("Contacts", jo), company);
  const Id item =
      addRow("Dockets", {{"DateFrom", dueDate}, {"TimeFrom", dueDate}, {"TimeTo", dueDate}});
  const auto add = [&] {
    return addNewApptEmailNotification({Dockets, item, dueDate, noId, {company, noId}});
  };
  callsOf("getFieldValue", add);
  const int read = callNumber("getFieldValue DefaultContact", 1);
  calls.reset();
  calls.failAt(read);
  errors.answer({error_choice::next});
  EXPECT_EQ(notification(add(), "Field1"), "office@m.example|\n");
}

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
    const Id row = addEmailByName({noId, {c.company, c.contact}, "GST Return", dueDate, "Hello"});
    EXPECT_EQ(notification(row, "Field1, Field4, Memo, CompanyIDNum, ContactIDNum"),
              std::string(c.to) + "|" + subject + "|Hello|" + std::to_string(c.company) + "|" +
                  std::to_string(c.contact) + "|\n")
        << "as given, also both";
  }
}

TEST_F(Adding, SiblingsDateFirmRuleAndMemo) {
  const Id entry = addCompanyEntry(maple);
  EXPECT_EQ(notification(addLetter(entry), "NotificationDate, Memo LIKE '%Dear client%'"),
            "2026-04-23|1|\n");
  addNotification(entry, nt_Email, DateTime::of(2026, 4, 11), true);
  EXPECT_EQ(notification(addFax(entry), "NotificationDate"), "2026-04-10|\n")
      << "a Saturday's sibling, moved to Friday";

  plainLocale.settings().firmCode = firmSpecificCode;
  EXPECT_EQ(notification(addEmail(entry), "Field4"),
            "Your GST Return is due on Monday, April 20 2026|\n");
  EXPECT_EQ(notification(addFax(entry), "Field6"), subject + "|\n");
  EXPECT_EQ(
      notification(addEmailByName({entry, {company, noId}, "GST Return", dueDate, ""}), "Field4"),
      subject + "|\n");
  plainLocale.settings().firmCode = std::string(firmSpecificCode) + "x";
  EXPECT_EQ(notification(addEmail(entry), "Field4"), subject + "|\n");
}

}  // namespace
}  // namespace autonotify::test
