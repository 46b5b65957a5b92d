#include <gtest/gtest.h>

#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/scheduling_fixture.h"

namespace autonotify::test {
namespace {

constexpr DateTime dueDate = DateTime::of(2026, 11, 23);
const std::string comment =
    "{\\rtf1 \\'abContact Display Name\\'bb of \\'abCompany Name\\'bb: \\'abTask Name\\'bb}";

class NotificationComments : public SchedulingTest {
 protected:
  NotificationComments() { addKind(103, 1, 5, comment); }

  /// An entry named "GST Return" with its task.
  static Id addEntry(Id clientNum, Id contactID) {
    const Id entry = addSchedule(103, 1, dueDate,
                                 {{"scheduleName", "GST Return"},
                                  {"ClientNum", std::to_string(clientNum)},
                                  {"ContactIDNum", std::to_string(contactID)}});
    addTask(entry, "GST Return");
    return entry;
  }
};

TEST_F(NotificationComments, CompanyIsMergedWithItsDefaultContact) {
  const TestClient client = addClient("Acme Ltd.", "Jane Smith");
  EXPECT_EQ(generateClientAutoNotifyComment(addEntry(client.clientNum, 4711)),
            "{\\rtf1 Jane Smith of Acme Ltd.: GST Return}");
}

TEST_F(NotificationComments, ContactIsMergedWithoutACompany) {
  const TestClient client = addClient("Acme Ltd.", "Jane Smith");
  EXPECT_EQ(generateClientAutoNotifyComment(addEntry(noId, client.contactID)),
            "{\\rtf1 Jane Smith of : GST Return}");
}

TEST_F(NotificationComments, EntryWithoutAClientIsMergedWithoutNames) {
  EXPECT_EQ(generateClientAutoNotifyComment(addEntry(noId, noId)), "{\\rtf1  of : GST Return}");
}

TEST_F(NotificationComments, NothingToMergeGivesEmptyText) {
  EXPECT_EQ(generateClientAutoNotifyComment(4711), "");
  EXPECT_EQ(generateClientAutoNotifyComment(addSchedule(105, 1, dueDate)), "") << "no such kind";
  const Id entry = addEntry(noId, noId);
  closeDatabase();
  EXPECT_EQ(generateClientAutoNotifyComment(entry), "");
}

TEST_F(NotificationComments, TemplateComesByTheFallbacksOfItsKind) {
  addKind(101, 10, 5, "fallback");
  addKind(104, 1, 5);
  EXPECT_EQ(getNotificationComment(103, 1), comment);
  EXPECT_EQ(getNotificationComment(103, 0), comment);
  EXPECT_EQ(getNotificationComment(0, 0), "fallback");
  EXPECT_EQ(getNotificationComment(103, 2), "") << "a member that is not there";
  EXPECT_EQ(getNotificationComment(104, 1), clsAutoNotifyTemplate{}.getDefaultNotificationComment())
      << "a kind whose comment is empty";
}

/// The task given wins over the task of the schedule entry.
TEST_F(NotificationComments, TaskOfTheArgumentWins) {
  const Id entry = addEntry(noId, noId);
  const Id task = addTask(addSchedule(103, 1, dueDate), "Payroll");
  EXPECT_EQ(
      generateComment("{\\rtf1\\ansi\\deff0 It is \\'abTask Name\\'bb}", entry, task, noId, noId),
      "{\\rtf1\\ansi\\deff0 It is Payroll}");
  EXPECT_EQ(generateComment("", entry, task, noId, noId), "");
}

}  // namespace
}  // namespace autonotify::test
