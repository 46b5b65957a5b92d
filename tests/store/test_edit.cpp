#include <functional>

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/recordsets.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

class Editing : public HostTest {};

TEST_F(Editing, WritesTheStampThenWhatIsNotEmpty) {
  using Writes = std::vector<std::string>;
  struct Case {
    std::function<void(Id)> edit;
    Writes writes;
    const char* columns = "ClientNotification.*";
  };
  // The kind plays no part in an edit.
  constexpr auto noKind = static_cast<CurrentDayTimerType>(4);
  const Case cases[] = {
      {[](Id id) { editEmailNotification(id, "a", "b", "c", "d", "e"); },
       {"Field1=a", "Field2=b", "Field3=c", "Field4=d", "Memo=e"}},
      {[](Id id) { editEmailNotification(id, "", "", "", "d", ""); }, {"Field4=d"}},
      {[](Id id) { editEmailNotification(id, "", "", "", "", ""); }, {}},
      {[](Id id) { editFaxNotification(id, "a", "b", "c", "d", "e", "f", "g"); },
       {"Field1=a", "Field2=b", "Field3=c", "Field4=d", "Field5=e", "Field6=f", "Memo=g"}},
      {[](Id id) { editFaxNotification(id, "", "", "", "", "", "", "g"); }, {"Memo=g"}},
      {[](Id id) { editPhoneNotification(id, "a", "b", "c", "d"); },
       {"Field1=a", "Field2=b", "Field3=c", "Memo=d"}},
      {[](Id id) { editPhoneNotification(id, "", "", "c", ""); }, {"Field3=c"}},
      {[](Id id) { editLetterNotification(id, ""); }, {"Memo="}},
      {[](Id id) { editApptEmailNotification(noKind, id, "a", "b", "c", "d", "e"); },
       {"Field1=a", "Field2=b", "Field3=c", "Field4=d", "Memo=e"}},
      {[](Id id) { editApptFaxNotification(Tasks, id, "a", "b", "c", "d", "", "f", "g"); },
       {"Field1=a", "Field2=b", "Field3=c", "Field4=d", "Field6=f", "Memo=g"}},
      {[](Id id) { editApptPhoneNotification(Dockets, id, "a", "b", "c", ""); },
       {"Field1=a", "Field2=b", "Field3=c"}},
      {[](Id id) { editApptLetterNotification(noKind, id, ""); },
       {"Memo="},
       "ClientNotification.ClientNotificationID, "
       "ClientNotification.ClientNotificationModifiedStamp, ClientNotification.Memo"},
  };
  const Id row = addRow("ClientNotification", {});
  for (const Case& c : cases) {
    Writes expected{"ClientNotificationModifiedStamp=" + nowText()};
    expected.insert(expected.end(), c.writes.begin(), c.writes.end());
    EXPECT_EQ(columnsWrittenBy([&] { c.edit(row); }), expected);
    EXPECT_EQ(
        logged("openRecordset"),
        Writes{std::string("1,3 SELECT ") + c.columns +
               " FROM ClientNotification WHERE ClientNotificationID=" + std::to_string(row) + ";"});
    EXPECT_EQ(columnsWrittenBy([&] {
                c.edit(999);
                closeDatabase();
                c.edit(row);
                openDatabase();
              }),
              Writes{})
        << "no row, and no database";
  }
}

}  // namespace
}  // namespace autonotify::test
