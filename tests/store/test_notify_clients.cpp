#include "contract/AutoNotifyListForm.h"
#include "contract/enumerations.h"
#include "contract/recordsets.h"
#include "host/services/HostClientIDClass.h"
#include "platform/text.h"
#include "store/modItemLinks.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "support/HostTest.h"
#include "support/text_table.h"

namespace autonotify::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

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
  const auto names = split("None|Email|Fax|Email|Letter|Email|Fax|Email|Phone");
  for (std::uint8_t bits = 0; bits <= 8; ++bits)
    EXPECT_EQ(getNotificationTypeNameFromNotificationTypeNum(bits), names[bits]);
  EXPECT_EQ(getNotificationTypeNameFromNotificationTypeNum(240), "Unknown");
}

TEST_F(Status, ChangeOfABitWritesStampAndSumOrNothing) {
  for (const auto& [before, bit, choice, after] :
       casesOf<int, notifyType, changeStatus, int>("store_cases.txt", "bits of entries")) {
    const std::string writes =
        "ScheduleModifiedStamp=" + nowText() + "|notifyType=" + std::to_string(after);
    const auto change = [bit = bit, choice = choice, entry = addEntry(before)] {
      EXPECT_TRUE(changeNotificationStatus(bit, choice, entry));
    };
    EXPECT_EQ(columnsWrittenBy(change), split(before == after ? "" : writes))
        << before << ' ' << bit << ' ' << choice;
  }
  EXPECT_FALSE(changeNotificationStatus(nt_Email, nt_AddStatus, 999));
  const Id null = addRow("Schedule", {{"scheduleName", "T2"}});
  EXPECT_TRUE(changeNotificationStatus(nt_Fax, nt_AddStatus, null));
  EXPECT_EQ(rowCount("Schedule WHERE notifyType=2 AND scheduleName='T2'"), 1);
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

class Links : public HostTest {};

TEST_F(Links, ValidatorsJudgeTheForm) {
  for (const auto validator :
       {isValidNotificationID, validAppointmentID, validDocketID, validScheduleID, validTaskID}) {
    for (const auto& text : split("|0|-1|abc|12a|0.4")) EXPECT_FALSE(validator(text)) << text;
    for (const auto& text : split("1|2147483647|0.6| 7 ")) EXPECT_TRUE(validator(text)) << text;
    errors.answer({error_choice::leave});
    EXPECT_FALSE(validator("99999999999"));
    EXPECT_EQ(errors.recorded().back().number, error_number::overflow);
  }
}

struct NotedClient : host::HostClientIDClass {
  void put_clientDropDownCtrlReference(clientDropDownCtrlReference* it) override { list = it; }
  clientDropDownCtrlReference* list = nullptr;
};

TEST_F(Links, ClientObjectTakesTheClientList) {
  registry.registerClass<NotedClient>();
  const auto client = ClientIDClassInit();
  EXPECT_EQ(dynamic_cast<NotedClient&>(*client).list, &clients);
}

class Copying : public HostTest {
 protected:
  Id addMarked(Id schedule, int channel, const std::string& mark, const std::string& field1 = {}) {
    RowFields fields{
        {"ScheduleIDNum", schedule}, {"NotificationType", channel}, {"Field1", field1}};
    for (const char* name : {"Field2", "Field3", "Field4", "Field5", "Field6", "Memo"})
      fields.emplace_back(name, mark);
    return addRow("ClientNotification", fields);
  }
  std::string fieldsOf(Id row) {
    return notification(row, "Field1, Field2, Field3, Field4, Field5, Field6, Memo");
  }
};

TEST_F(Copying, ByScheduleKeepsSubjectTextAndEmptyOldFields) {
  const auto copy = copyOldNotificationInfoToNewNotificationByScheduleIDNum;
  for (const auto& [channel, expected] :
       casesOf<int, std::string>("store_cases.txt", "copied fields")) {
    addMarked(70, channel, "old");
    const Id row = addMarked(71, channel, "new", "new");
    EXPECT_THAT(columnsWrittenBy([&] { copy(row, 70); }),
                Not(Contains(HasSubstr("ClientNotificationModifiedStamp"))));
    EXPECT_EQ(fieldsOf(row), expected + "\n");
  }
  const Id lone = addMarked(71, nt_Letter, "new");
  copy(lone, 70);
  EXPECT_EQ(fieldsOf(lone), "|new|new|new|new|new|new|\n") << "no old row of the channel";
}

/// Reads the unfinished statement as a selection by key.
struct LenientDatabase : CountedDatabase {
  using CountedDatabase::CountedDatabase;
  RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock, int r1,
                                const std::string& r2, int r3, bool r4) override {
    const std::string finished =
        replaceAll(sql, "FROM ClientNotification Client", "FROM ClientNotification WHERE Client");
    return CountedDatabase::openRecordset(finished, cursor, lock, r1, r2, r3, r4);
  }
};

TEST_F(Copying, ByIdKeepsNothingBackForARowWithoutAChannel) {
  LenientDatabase lenient(*plainDatabase, calls);
  references().databaseReference = &lenient;
  const Id old = addMarked(70, nt_Email, "old", "to");
  const Id row = addMarked(71, 0, "new", "new");
  copyOldNotificationInfoToNewNotification(row, old);
  EXPECT_EQ(fieldsOf(row), "to|old|old|old|old|old|new|\n");
}

}  // namespace
}  // namespace autonotify::test
