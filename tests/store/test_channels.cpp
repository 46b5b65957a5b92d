#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/firm_rules.h"
#include "store/modNotifyClients.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

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
  const std::tuple<Id, Id, const char*> cases[] = {{company, noId, "office@m.example"},
                                                   {company, person, "office@m.example"},
                                                   {noId, person, "jo@m.example"},
                                                   {noId, noId, ""},
                                                   {named, noId, "d@b.example"}};
  for (const auto& [companyId, contactId, to] : cases) {
    const Id row = addEmailByName({noId, {companyId, contactId}, "GST Return", dueDate, "Hello"});
    EXPECT_EQ(notification(row, "Field1, Field4, Memo, CompanyIDNum, ContactIDNum"),
              std::string(to) + "|" + subject + "|Hello|" + std::to_string(companyId) + "|" +
                  std::to_string(contactId) + "|\n")
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

constexpr DateTime reminder = DateTime::of(2026, 4, 9, 14, 30);

class DiaryItems : public HostTest {};

TEST_F(DiaryItems, ChangeOfABitRaisesTheFlagAndNeverLowersIt) {
  const std::tuple<int, int, int, std::vector<std::string>> cases[] = {
      {0, 1, nt_AddStatus, {"notifyType=1", "ClientNotifiedFlag=True"}},
      {5, 2, nt_AddStatus, {"notifyType=7", "ClientNotifiedFlag=True"}},
      {4, 4, nt_AddStatus, {"ClientNotifiedFlag=True"}},
      {12, 8, nt_RemoveStatus, {"notifyType=4"}},
      {12, 1, nt_RemoveStatus, {}},
      {8, 8, 7, {"notifyType=0"}},
      {3, 3, nt_AddStatus, {}}};
  for (const auto& [before, bit, choice, writes] : cases) {
    const Id item = addRow("Dockets", {{"notifyType", before}});
    const auto channel = static_cast<notifyType>(bit);
    const auto change = static_cast<changeStatus>(choice);
    EXPECT_EQ(columnsWrittenBy([&] {
                EXPECT_TRUE(changeApptNotificationStatus(Dockets, channel, change, item));
              }),
              writes);
  }
  EXPECT_FALSE(changeApptNotificationStatus(Dockets, nt_Email, nt_AddStatus, 4711));
}

// A task is a door to its entry.

TEST_F(DiaryItems, TaskDoesWhatItsEntryDoes) {
  addKind(103, 1, 5, "{\\rtf1\\ansi Dear client.\\par }");
  const Id client = addClient("Maple Ltd", "Jo Park").clientNum;
  const auto newEntry = [&] {
    return addSchedule(103, 1, dueDate, {{"ClientNum", client}, {"scheduleName", "GST"}});
  };
  const Id entry = newEntry(), twin = newEntry();
  const Id task = addTask(entry, "GST");
  addTask(twin, "GST");
  constexpr Id (*forEntry[])(Id) = {addEmail, addFax, addLetter, addPhone};
  constexpr Id (*forTask[])(const ItemReminder&) = {
      addNewApptEmailNotification, addNewApptFaxNotification, addNewApptLetterNotification,
      addNewApptPhoneNotification};
  for (int i = 0; i < 4; ++i) {
    const notifyType channel = allNotifyTypes[i];
    const Id row = forTask[i]({Tasks, task, reminder});
    const std::string columns = "NotificationType, NotificationDate, Field1, Field4, Field6, Memo";
    EXPECT_EQ(notification(row, columns), notification(forEntry[i](twin), columns));
    EXPECT_EQ(notification(row, "ScheduleIDNum, TaskIDNum"), std::to_string(entry) + "|-1|\n");
    EXPECT_EQ(getApptNotificationID(Tasks, task, channel), row);
    EXPECT_FALSE(getApptNotificationStatus(Tasks, task, channel));
    EXPECT_TRUE(changeApptNotificationStatus(Tasks, channel, nt_AddStatus, task));
    EXPECT_TRUE(getApptNotificationStatus(Tasks, task, channel));
  }
  const Id old = getNotificationID(twin, nt_Email);
  editEmailNotification(old, {"old@x", "", "", "old subject", ""});
  const Id row = getNotificationID(entry, nt_Email);
  EXPECT_THAT(columnsWrittenBy([&] {
                copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(Tasks, row, task + 1);
              }),
              ElementsAre("Field1=old@x"));
  deleteApptNotification(Tasks, nt_Fax, task);
  EXPECT_EQ(getNotificationID(entry, nt_Fax), noId);
  EXPECT_EQ(rowCount("Schedule", "notifyType=15"), 1) << "the entry's bit stays";
}

TEST_F(DiaryItems, TaskWithoutAnEntryGivesTheDefaults) {
  const Id task = addTask(noId, "Filing");
  EXPECT_FALSE(getApptNotificationStatus(Tasks, task, nt_Email));
  EXPECT_FALSE(changeApptNotificationStatus(Tasks, nt_Email, nt_AddStatus, task));
  EXPECT_EQ(getApptNotificationID(Tasks, task, nt_Email), noId);
  deleteApptNotification(Tasks, nt_Email, task);
  errors.answer({error_choice::leave});
  EXPECT_EQ(addNewApptEmailNotification({Tasks, task, reminder}), noId) << "nobody to write to";
}

// Texts.

const std::string opening = "Hi,\r\n\r\nThis is a reminder that you have a task scheduled";
const std::string onTheDay = " on Thursday, April 30 2026 at ";

std::string length(int minutes) {
  return "We expect this task will take approximately " + std::to_string(minutes) +
         " minutes to complete.\r\n\r\n";
}

RowFields timed(DateTime from, DateTime to, const char* about) {
  return {{"DateFrom", dueDate}, {"TimeFrom", from}, {"TimeTo", to}, {"Subject", about}};
}
DateTime at(int hour, int minute) {
  return DateTime::of(2026, 4, 30, hour, minute);
}

TEST_F(DiaryItems, TextNamesDayTimeLengthAndSubject) {
  const std::pair<RowFields, std::string> cases[] = {
      {timed(at(9, 0), at(9, 45), "Year end"),
       "9:00 am.  " + length(45) + "Task regarding Year end.  "},
      {timed(at(13, 5), at(13, 5), ""), "1:05 pm.  " + length(0)},
      {timed(at(0, 30), at(23, 30), ""), "12:30 am.  " + length(1380)},
      {timed(at(10, 0), at(9, 0), ""), "10:00 am.  " + length(-60)}};
  for (const auto& [task, text] : cases) {
    EXPECT_EQ(getAppointmentBodyText(Tasks, addRow("Tasks", task)), opening + onTheDay + text);
  }
  EXPECT_EQ(getAppointmentBodyText(Tasks, 4711), "");
}

TEST_F(DiaryItems, MissingTimesAskAtTheErrorDialog) {
  const std::string about = "Task regarding Year end.  ";
  const std::tuple<std::string, int, std::string> cases[] = {
      {"DateFrom", 1, length(45) + about},
      {"TimeFrom", 2, about},
      {"TimeTo", 1, onTheDay + "9:00 am.  " + about}};
  for (const auto& [missing, questions, goingOn] : cases) {
    RowFields fields = timed(at(9, 0), at(9, 45), "Year end");
    std::erase_if(fields, [&name = missing](const auto& field) { return field.first == name; });
    const Id task = addRow("Tasks", fields);
    for (int i = 0; i < questions; ++i) errors.answer({error_choice::next});
    EXPECT_EQ(getAppointmentBodyText(Tasks, task), opening + goingOn);
    errors.answer({error_choice::quit, 9, error_choice::leave});
    EXPECT_EQ(getAppointmentBodyText(Tasks, task), "") << "no half a text";
    EXPECT_EQ(errors.recorded().back().number, error_number::invalidUseOfNull);
  }
}

}  // namespace
}  // namespace autonotify::test
