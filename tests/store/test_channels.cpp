#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/firm_rules.h"
#include "store/modNotifyClients.h"
#include "support/HostTest.h"
#include "support/told_rows.h"

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
    return addTold("Schedule",
                   "totalNum=103|scheduleNum=1|DueDate=2026-04-30|Custom2=4PAP|"
                   "scheduleName=GST Return|inHouseDueDate=2026-04-20|ClientNum=" +
                       std::to_string(clientNum) + "|ContactIDNum=" + std::to_string(contactID));
  }
  Id addItem() {
    return addRow("Dockets", {{"DateFrom", dueDate}, {"TimeFrom", dueDate}, {"TimeTo", dueDate}});
  }
  /// Adds a row of "column=text|column=text".
  Id addTold(const char* table, const std::string& columns) {
    return test::addTold(*this, split(std::string(table) + "|" + columns));
  }
  Id addCompanyEntry(const std::string& columns) {
    company = addTold("Companies", columns);
    return addEntry(addRow("ClientData", {{"CompanyIDNum", company}, {"ShowThisClient", "True"}}),
                    noId);
  }

  const std::vector<std::string> first = rowsOf("recipients_of_channels.txt", "recipients", 2)[0];
  const std::string maple = first[0], jo = first[1];
  Id company = noId;
};

TEST_F(Adding, GoesToTheRecipientsOfTheClient) {
  const auto expectRows = [&](const std::string* fields, Id email, Id fax, Id phone) {
    EXPECT_EQ(notification(email, "Field1"), fields[0] + "|\n");
    EXPECT_EQ(notification(fax, "Field1, Field4"), fields[1] + "|\n");
    EXPECT_EQ(notification(phone, "Field1, Field2"), fields[2] + "|\n");
  };
  // The company, its default contact or the contact alone, and what an email, a fax and a call say
  // about whom they go to, of an entry and of an item.
  for (const auto& row : rowsOf("recipients_of_channels.txt", "recipients", 8)) {
    SCOPED_TRACE(row[0] + " / " + row[1]);
    const bool isOfCompany = !row[0].empty();
    const Id contact = row[1].empty() ? noId : addTold("Contacts", row[1]);
    const Id entry = isOfCompany ? addCompanyEntry(row[0]) : addEntry(noId, contact);
    if (isOfCompany && contact != noId) linkDefaultContact(contact, company);
    const NotificationClient client{isOfCompany ? company : noId, isOfCompany ? noId : contact};
    expectRows(&row[2], addEmail(entry), addFax(entry), addPhone(entry));
    const ItemReminder reminder{Dockets, addItem(), dueDate, noId, client};
    expectRows(&row[5], addNewApptEmailNotification(reminder), addNewApptFaxNotification(reminder),
               addNewApptPhoneNotification(reminder));
  }
}

TEST_F(Adding, OfACompanysItemTheContactCountsThatReadsAsItsDefault) {
  addCompanyEntry(maple);
  linkDefaultContact(addTold("Contacts", jo), company);
  const ItemReminder item{Dockets, addItem(), dueDate, noId, {company, noId}};
  const auto add = [&] { return addNewApptEmailNotification(item); };
  callsOf("getFieldValue", add);
  const int read = callNumber("getFieldValue DefaultContact", 1);
  calls.reset();
  calls.failAt(read);
  errors.answer({error_choice::next});
  EXPECT_EQ(notification(add(), "Field1"), "office@m.example|\n");
}

TEST_F(Adding, ByNameTheEmailAddressComesFromTheClientList) {
  addCompanyEntry(maple);
  const Id person = addTold("Contacts", jo);
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
  const Id byName = addEmailByName({entry, {company, noId}, "GST Return", dueDate, ""});
  EXPECT_EQ(notification(byName, "Field4"), subject + "|\n");
  plainLocale.settings().firmCode = std::string(firmSpecificCode) + "x";
  EXPECT_EQ(notification(addEmail(entry), "Field4"), subject + "|\n");
}

constexpr DateTime reminder = DateTime::of(2026, 4, 9, 14, 30);

class DiaryItems : public HostTest {};

TEST_F(DiaryItems, ChangeOfABitRaisesTheFlagAndNeverLowersIt) {
  // The bits before, the bit, 1 to add or 2 to remove it, and what is written.
  for (const auto& [before, bit, choice, writes] :
       casesOf<int, notifyType, changeStatus, std::string>("store_cases.txt", "bits of items")) {
    const Id item = addRow("Dockets", {{"notifyType", before}});
    const auto change = [&, bit = bit, choice = choice] {
      EXPECT_TRUE(changeApptNotificationStatus(Dockets, bit, choice, item));
    };
    EXPECT_EQ(columnsWrittenBy(change), split(writes));
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
  editEmailNotification(getNotificationID(twin, nt_Email), {"old@x", "", "", "old subject", ""});
  const auto copy = [row = getNotificationID(entry, nt_Email), twinTask = task + 1] {
    copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(Tasks, row, twinTask);
  };
  EXPECT_EQ(columnsWrittenBy(copy), std::vector<std::string>{"Field1=old@x"});
  deleteApptNotification(Tasks, nt_Fax, task);
  EXPECT_EQ(getNotificationID(entry, nt_Fax), noId);
  EXPECT_EQ(rowCount("Schedule WHERE notifyType=15"), 1) << "the entry's bit stays";
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

TEST_F(DiaryItems, TextNamesDayTimeLengthAndSubjectAndWhatIsMissingIsAskedFor) {
  // When, from, to, about what, how many questions, and the text when the person goes on.
  for (const auto& row : rowsOf("diary_texts.txt", "texts", 6)) {
    const Id task = addRow(
        "Tasks",
        {{"DateFrom", row[0]}, {"TimeFrom", row[1]}, {"TimeTo", row[2]}, {"Subject", row[3]}});
    const int questions = std::stoi(row[4]);
    for (int i = 0; i < questions; ++i) errors.answer({error_choice::next});
    EXPECT_EQ(getAppointmentBodyText(Tasks, task), row[5]);
    if (questions == 0) continue;
    errors.answer({error_choice::quit, 9, error_choice::leave});
    EXPECT_EQ(getAppointmentBodyText(Tasks, task), "") << "no half a text";
    EXPECT_EQ(errors.recorded().back().number, error_number::invalidUseOfNull);
  }
  EXPECT_EQ(getAppointmentBodyText(Tasks, 4711), "");
}

}  // namespace
}  // namespace autonotify::test
