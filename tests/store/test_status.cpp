#include "contract/AutoNotifyListForm.h"
#include "contract/recordsets.h"
#include "store/modNotifyClients.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

class Status : public HostTest {
 protected:
  Id addEntry(int bits, Id clientNum = noId) {
    return addRow("Schedule", {{"notifyType", bits}, {"ClientNum", clientNum}});
  }
  /// Whether sent, the status and the time of a row.
  std::string stateOf(Id row) {
    return notification(row, "NotificationSent, NotificationSentStatus, SentTime");
  }
};

TEST(ChannelBits, NameIsThatOfTheLowestBit) {
  const char* names[] = {"None",  "Email", "Fax",   "Email", "Letter",
                         "Email", "Fax",   "Email", "Phone"};
  for (std::uint8_t bits = 0; bits <= 8; ++bits) {
    EXPECT_EQ(getNotificationTypeNameFromNotificationTypeNum(bits), names[bits]);
  }
  EXPECT_EQ(getNotificationTypeNameFromNotificationTypeNum(240), "Unknown");
}

TEST_F(Status, ChangeOfABitWritesStampAndSumOrNothing) {
  struct Case {
    int before, channel, change, after;
  };
  const Case cases[] = {{0, 1, nt_AddStatus, 1},
                        {2, 1, nt_AddStatus, 3},
                        {1, 1, nt_AddStatus, 1},
                        {7, 8, nt_AddStatus, 15},
                        {16, 4, nt_AddStatus, 20},
                        {0, 3, nt_AddStatus, 0},
                        {3, 1, nt_RemoveStatus, 2},
                        {15, 8, nt_RemoveStatus, 7},
                        {2, 1, nt_RemoveStatus, 2},
                        {3, 3, nt_RemoveStatus, 3},
                        {12, 4, 7, 8},
                        {8, 16, nt_AddStatus, 8}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.before << " " << c.channel << " " << c.change);
    const Id entry = addEntry(c.before);
    const auto written = columnsWrittenBy([&] {
      EXPECT_TRUE(changeNotificationStatus(static_cast<notifyType>(c.channel),
                                           static_cast<changeStatus>(c.change), entry));
    });
    std::vector<std::string> expected{"ScheduleModifiedStamp=" + nowText(),
                                      "notifyType=" + std::to_string(c.after)};
    if (c.before == c.after) expected.clear();
    EXPECT_EQ(written, expected);
  }
  EXPECT_FALSE(changeNotificationStatus(nt_Email, nt_AddStatus, 999));
  const Id null = addRow("Schedule", {{"scheduleName", "T2"}});
  EXPECT_TRUE(changeNotificationStatus(nt_Fax, nt_AddStatus, null));
  EXPECT_EQ(rowCount("Schedule", "notifyType=2 AND scheduleName='T2'"), 1);
}

TEST_F(Status, UnsentNotificationsCountUpToMidnightOfToday) {
  const DateTime day = today();
  const std::pair<DateTime, int> cases[] = {{day.addDays(1), 0},
                                            {DateTime::fromSerial(day.days(), 36000), 0},
                                            {day, 1},
                                            {day.addDays(-9), 2}};
  addNotification(noId, nt_Email, day, true);
  for (const auto& [date, count] : cases) {
    addNotification(noId, nt_Email, date);
    EXPECT_EQ(getNumberOfUnsentNotifications(), count);
    EXPECT_EQ(needToSendAutoNotificationsToday(), count > 0);
  }
}

/// A host with one open window, the list.
struct OpenList : FormHost, Form, AutoNotifyListForm {
  OpenList() : Form(static_cast<FormHost&>(*this), "FRMAUTONOTIFYLIST") {}
  void refreshAutoNotificationRowByAutoNotificationID(Id id) override { refresh(id); }
  void pumpMessages() override {}
  std::function<void(Id)> refresh;
};

TEST_F(Status, OpenListIsRefreshedOnRequestAloneWithWhatIsWritten) {
  OpenList list;
  std::vector<std::string> seen;
  list.refresh = [&](Id id) { seen.push_back(std::to_string(id) + ": " + stateOf(id)); };
  references().platform.formHost = &list;
  const Id row = addNotification(addEntry(1), nt_Email, today());
  changeNotificationToSent(addNotification(noId, nt_Email, today()), std::nullopt, false);
  changeNotificationToSent(row, std::nullopt, true);
  changeNotificationToSent(999, std::nullopt, true);
  EXPECT_THAT(seen, ElementsAre(std::to_string(row) + ": 1|2|NULL|\n", "999: "));
}

TEST_F(Status, ClientsRowsAreCancelledWhateverTheirState) {
  const Id pending = addNotification(addEntry(1, 50), nt_Email, today());
  const Id sent = addNotification(addEntry(2, 50), nt_Fax, today(), true);
  const Id others = addNotification(addEntry(1, 51), nt_Email, today());
  const Id personal = addNotification(addEntry(1, noId), nt_Email, today());
  EXPECT_FALSE(doesClientHaveAssociatedUnsentNotifications(52));
  cancelAllUnsentNotificationsForClientID(50);
  cancelAllUnsentNotificationsForClientID(noId);
  for (const Id row : {pending, sent}) EXPECT_EQ(stateOf(row), "1|3|NULL|\n");
  for (const Id row : {others, personal}) EXPECT_EQ(stateOf(row), "0|1|NULL|\n");
  EXPECT_TRUE(doesClientHaveAssociatedUnsentNotifications(50)) << "a cancelled row counts too";
}

}  // namespace
}  // namespace autonotify::test
