#include <functional>

#include "store/channels/modChannelNotifications.h"
#include "store/store_fixture.h"

namespace autonotify::test {
namespace {

class Editing : public StoreTest {
 protected:
  Id addRow() {
    RowFields fields;
    for (const char* column :
         {"Field1", "Field2", "Field3", "Field4", "Field5", "Field6", "Memo"}) {
      fields.emplace_back(column, "old");
    }
    return addTestRow("ClientNotification", "ClientNotificationID", fields);
  }
};

TEST_F(Editing, WritesTheStampThenWhatIsNotEmpty) {
  using Writes = std::vector<std::string>;
  struct Case {
    const char* name;
    std::function<void(Id)> edit;
    Writes writes;
  };
  const Case cases[] = {
      {"email",
       [](Id id) { editEmailNotification(id, "a", "b", "c", "d", "e"); },
       {"Field1=a", "Field2=b", "Field3=c", "Field4=d", "Memo=e"}},
      {"email subject",
       [](Id id) { editEmailNotification(id, "", "", "", "d", ""); },
       {"Field4=d"}},
      {"email nothing", [](Id id) { editEmailNotification(id, "", "", "", "", ""); }, {}},
      {"fax",
       [](Id id) { editFaxNotification(id, "a", "b", "c", "d", "e", "f", "g"); },
       {"Field1=a", "Field2=b", "Field3=c", "Field4=d", "Field5=e", "Field6=f", "Memo=g"}},
      {"fax memo", [](Id id) { editFaxNotification(id, "", "", "", "", "", "", "g"); }, {"Memo=g"}},
      {"phone",
       [](Id id) { editPhoneNotification(id, "a", "b", "c", "d"); },
       {"Field1=a", "Field2=b", "Field3=c", "Memo=d"}},
      {"phone times", [](Id id) { editPhoneNotification(id, "", "", "c", ""); }, {"Field3=c"}},
      {"letter", [](Id id) { editLetterNotification(id, "a"); }, {"Memo=a"}},
      {"letter cleared", [](Id id) { editLetterNotification(id, ""); }, {"Memo="}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Id row = addRow();
    calls().reset();
    calls().record(true);
    c.edit(row);
    Writes expected{"ClientNotificationModifiedStamp=" + nowText()};
    expected.insert(expected.end(), c.writes.begin(), c.writes.end());
    EXPECT_EQ(logged("updateFieldValue"), expected);
    EXPECT_EQ(logged("openRecordset"),
              Writes{"1,3 SELECT ClientNotification.* FROM ClientNotification WHERE "
                     "ClientNotificationID=" +
                     std::to_string(row) + ";"});

    calls().reset();
    calls().record(true);
    c.edit(999);
    closeDatabase();
    c.edit(row);
    openDatabase();
    EXPECT_TRUE(logged("updateFieldValue").empty()) << "no row, and no database";
  }
}

}  // namespace
}  // namespace autonotify::test
