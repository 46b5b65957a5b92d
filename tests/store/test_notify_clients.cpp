#include "contract/AutoNotifyListForm.h"
#include "host/services/HostClientIDClass.h"
#include "platform/controls/ComboBox.h"
#include "store/modItemLinks.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "support/FailingDrawing.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using testing::ElementsAre;

using Status = HostTest;

TEST_F(Status, ChannelsAreOfferedWithTheirBits) {
  Form form(screen, "frm");
  ComboBox combo(form, "cbo");
  for (int drawing = 1; drawing <= 6; ++drawing) {
    const FailingDrawing failing(combo, drawing);
    if (drawing <= 5) errors.answer({drawing % 2 ? error_choice::next : error_choice::quit});
    populateAutoNotificationSendTypesInComboBox(combo);
    EXPECT_THAT(combo.entries(),
                ElementsAre(ItemList::Entry{"Email", 1}, ItemList::Entry{"Fax", 2},
                            ItemList::Entry{"Letter", 4}, ItemList::Entry{"Phone", 8}));
    EXPECT_EQ(errors.answersLeft(), 0u);
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
  const char* const columns = "NotificationSent, NotificationSentStatus, SentTime";
  OpenList list;
  std::vector<std::string> seen;
  list.refresh = [&](Id id) {
    seen.push_back(std::to_string(id) + ": " + notification(id, columns));
  };
  references().platform.formHost = &list;
  const Id row = addNotification(addRow("Schedule", {}), nt_Email, today());
  changeNotificationToSent(addNotification(noId, nt_Email, today()), std::nullopt, false);
  changeNotificationToSent(row, std::nullopt, true);
  changeNotificationToSent(999, std::nullopt, true);
  EXPECT_THAT(seen, ElementsAre(std::to_string(row) + ": 1|2|NULL|\n", "999: "));
}

using Links = HostTest;

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

TEST_F(Links, ACopyByIdKeepsNothingBackForARowWithoutAChannel) {
  LenientDatabase lenient(*plainDatabase, calls);
  references().databaseReference = &lenient;
  for (const auto& [channel, text] : {std::pair{int{nt_Email}, "old"}, {0, "new"}})
    addRow("ClientNotification",
           {{"NotificationType", channel}, {"Field1", text}, {"Field4", text}, {"Memo", text}});
  copyOldNotificationInfoToNewNotification(2, 1);
  EXPECT_EQ(notification(2, "Field1, Field2, Field4, Memo"), "old|NULL|old|new|\n");
}

}  // namespace
}  // namespace autonotify::test
