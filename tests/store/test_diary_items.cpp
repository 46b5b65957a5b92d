#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "store/modNotifyClients.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

constexpr DateTime day = DateTime::of(2026, 4, 30);
constexpr DateTime reminder = DateTime::of(2026, 4, 9, 14, 30);

class DiaryItems : public HostTest {};

TEST_F(DiaryItems, ChangeOfABitRaisesTheFlagAndNeverLowersIt) {
  struct Case {
    int before, channel, change;
    std::vector<std::string> writes;
  };
  const Case cases[] = {{0, 1, nt_AddStatus, {"notifyType=1", "ClientNotifiedFlag=True"}},
                        {5, 2, nt_AddStatus, {"notifyType=7", "ClientNotifiedFlag=True"}},
                        {4, 4, nt_AddStatus, {"ClientNotifiedFlag=True"}},
                        {12, 8, nt_RemoveStatus, {"notifyType=4"}},
                        {12, 1, nt_RemoveStatus, {}},
                        {8, 8, 7, {"notifyType=0"}},
                        {3, 3, nt_AddStatus, {}}};
  for (const Case& c : cases) {
    const Id item = addRow("Dockets", {{"notifyType", c.before}});
    const auto channel = static_cast<notifyType>(c.channel);
    const auto change = static_cast<changeStatus>(c.change);
    EXPECT_EQ(columnsWrittenBy([&] {
                EXPECT_TRUE(changeApptNotificationStatus(Dockets, channel, change, item));
              }),
              c.writes);
  }
  EXPECT_FALSE(changeApptNotificationStatus(Dockets, nt_Email, nt_AddStatus, 4711));
}

// A task is a door to its entry.

TEST_F(DiaryItems, TaskDoesWhatItsEntryDoes) {
  addKind(103, 1, 5, "{\\rtf1\\ansi Dear client.\\par }");
  const Id client = addClient("Maple Ltd", "Jo Park").clientNum;
  const auto newEntry = [&] {
    return addSchedule(103, 1, day, {{"ClientNum", client}, {"scheduleName", "GST"}});
  };
  const Id entry = newEntry(), twin = newEntry();
  const Id task = addTask(entry, "GST");
  addTask(twin, "GST");
  constexpr Id (*forEntry[])(Id) = {
      addNewEmailNotificationFromScheduleIDNum, addNewFaxNotificationFromScheduleIDNum,
      addNewLetterNotificationFromScheduleIDNum, addNewPhoneNotificationFromScheduleIDNum};
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

RowFields timed(DateTime from, DateTime to, const char* subject) {
  return {{"DateFrom", day}, {"TimeFrom", from}, {"TimeTo", to}, {"Subject", subject}};
}
DateTime at(int hour, int minute) {
  return DateTime::of(2026, 4, 30, hour, minute);
}

TEST_F(DiaryItems, TextNamesDayTimeLengthAndSubject) {
  struct Case {
    RowFields task;
    std::string text;
  };
  const Case cases[] = {{timed(at(9, 0), at(9, 45), "Year end"),
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
  struct Case {
    const char* missing;
    int questions;
    std::string goingOn;
  };
  const std::string about = "Task regarding Year end.  ";
  const Case cases[] = {{"DateFrom", 1, length(45) + about},
                        {"TimeFrom", 2, about},
                        {"TimeTo", 1, onTheDay + "9:00 am.  " + about}};
  for (const Case& c : cases) {
    RowFields fields = timed(at(9, 0), at(9, 45), "Year end");
    std::erase_if(fields, [&](const auto& field) { return field.first == std::string(c.missing); });
    const Id task = addRow("Tasks", fields);
    for (int i = 0; i < c.questions; ++i) errors.answer({error_choice::next});
    EXPECT_EQ(getAppointmentBodyText(Tasks, task), opening + c.goingOn);
    errors.answer({error_choice::quit, 9, error_choice::leave});
    EXPECT_EQ(getAppointmentBodyText(Tasks, task), "") << "no half a text";
    EXPECT_EQ(errors.recorded().back().number, error_number::invalidUseOfNull);
  }
}

}  // namespace
}  // namespace autonotify::test
