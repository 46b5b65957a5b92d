#include "platform/text.h"
#include "scheduling/clsAutoNotifyTemplate.h"
#include "scheduling/modNotificationComments.h"
#include "support/HostTest.h"
#include "support/golden_file.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

const std::string comment =
    "{\\rtf1 \\'abContact Display Name\\'bb of \\'abCompany Name\\'bb: \\'abTask Name\\'bb}";

class NotificationComments : public HostTest {
 protected:
  NotificationComments() { addKind(103, 1, 5, comment); }
  Id addEntry(Id clientNum, Id contactID) {
    const Id entry =
        addSchedule(103, 1, today(), {{"ClientNum", clientNum}, {"ContactIDNum", contactID}});
    addTask(entry, "GST Return");
    return entry;
  }
};

TEST_F(NotificationComments, ClientOfTheEntryIsMerged) {
  const TestClient client = addClient("Acme Ltd.", "Jane Smith");
  const Id entry = addEntry(client.clientNum, 4711);
  const auto merged = generateClientAutoNotifyComment;
  EXPECT_EQ(merged(entry), "{\\rtf1 Jane Smith of Acme Ltd.: GST Return}");
  EXPECT_EQ(merged(addEntry(noId, client.contactID)), "{\\rtf1 Jane Smith of : GST Return}");
  EXPECT_EQ(merged(addEntry(noId, noId)), "{\\rtf1  of : GST Return}");
  EXPECT_EQ(merged(4711), "");
  EXPECT_EQ(merged(addSchedule(105, 1, today())), "") << "no such kind";
}

/// The firm itself may be a client, and has the number 0.
TEST_F(NotificationComments, ClientNumberedZeroIsAClient) {
  addAllTold(*this, "scheduling_cases.txt", "rows numbered zero");
  for (const auto& [clientNum, contactID, named] :
       casesOf<Id, Id, std::string>("scheduling_cases.txt", "clients numbered zero"))
    EXPECT_EQ(generateClientAutoNotifyComment(addEntry(clientNum, contactID)),
              "{\\rtf1 " + named + ": GST Return}");
}

TEST_F(NotificationComments, DefaultCommentReadsAsALetter) {
  addKind(101, 10, 5);
  const Id entry = addSchedule(101, 10, DateTime::of(2026, 4, 30),
                               {{"ClientNum", addClient("Acme Ltd.", "Jane Smith").clientNum},
                                {"PeriodDescription", "1st Quarter"},
                                {"InfoDeadlineDate", DateTime::of(2026, 4, 20)}});
  addTask(entry, "GST Return");
  const auto text = createHostObject<RichTextUtility>();
  expectGolden(AUTONOTIFY_TEST_FOLDER "default_letter.txt",
               replaceAll(text->toPlainText(generateClientAutoNotifyComment(entry)), "\r\n", "\n"));
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

TEST_F(NotificationComments, TaskOfTheArgumentWins) {
  const std::string text = "{\\rtf1\\ansi\\deff0 It is \\b\\'abTask Name\\'bb}";
  const Id entry = addEntry(noId, noId);
  const Id task = addTask(addSchedule(103, 1, today()), "Pay\r\nroll");
  EXPECT_EQ(generateComment(text, entry, task, noId, noId),
            "{\\rtf1\\ansi\\deff0 It is \\b Pay\\par \r\nroll}");
  EXPECT_EQ(generateCommentFromTemplate(text, entry), "{\\rtf1\\ansi\\deff0 It is \\b GST Return}");
  EXPECT_EQ(generateComment("", entry, task, noId, noId), "");
}

}  // namespace
}  // namespace autonotify::test
