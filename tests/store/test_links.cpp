#include "contract/enumerations.h"
#include "host/services/HostClientIDClass.h"
#include "platform/text.h"
#include "store/modItemLinks.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class Links : public HostTest {};

TEST_F(Links, ValidatorsJudgeTheForm) {
  const std::pair<const char*, bool> cases[] = {
      {"", false}, {"0", false},         {"-1", false},  {"abc", false}, {"12a", false},
      {"1", true}, {"2147483647", true}, {"0.4", false}, {"0.6", true},  {" 7 ", true}};
  for (const auto validator :
       {isValidNotificationID, validAppointmentID, validDocketID, validScheduleID, validTaskID}) {
    for (const auto& [text, valid] : cases) EXPECT_EQ(validator(text), valid) << text;
    errors.answer({error_choice::leave});
    EXPECT_FALSE(validator("99999999999"));
    EXPECT_EQ(errors.recorded().back().number, error_number::overflow);
  }
}

struct NotedClient : host::HostClientIDClass {
  void put_clientDropDownCtrlReference(clientDropDownCtrlReference* given) override {
    list = given;
  }
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
  const std::pair<int, const char*> cases[] = {{nt_Email, "new|old|old|new|old|old|new|\n"},
                                               {nt_Fax, "new|old|old|old|old|new|new|\n"},
                                               {nt_Phone, "new|old|old|old|old|old|new|\n"}};
  for (const auto& [channel, expected] : cases) {
    addMarked(70, channel, "old");
    const Id row = addMarked(71, channel, "new", "new");
    EXPECT_THAT(
        columnsWrittenBy([&] { copyOldNotificationInfoToNewNotificationByScheduleIDNum(row, 70); }),
        Not(Contains(HasSubstr("ClientNotificationModifiedStamp"))));
    EXPECT_EQ(fieldsOf(row), expected);
  }
  const Id lone = addMarked(71, nt_Letter, "new");
  copyOldNotificationInfoToNewNotificationByScheduleIDNum(lone, 70);
  EXPECT_EQ(fieldsOf(lone), "|new|new|new|new|new|new|\n") << "no old row of the channel";
}

/// Reads the unfinished statement as a selection by key.
class LenientDatabase : public CountedDatabase {
 public:
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
