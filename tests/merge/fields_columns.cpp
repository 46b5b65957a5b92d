#include <gmock/gmock.h>

#include "control/contract/references.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "support/TestHost.h"

namespace autonotify::test {
namespace {

constexpr Id onlyKey = 1;

/// One row in every table that a merge reads, all with the first key and linked to each other.
void insertOneOfEach(DatabaseReference& database) {
  struct Row {
    const char* table;
    std::vector<std::pair<const char*, const char*>> fields;
  };
  const Row rows[] = {
      {"Companies", {}},
      {"CompaniesNotes", {{"CompanyNum", "1"}}},
      {"Clients", {{"CompanyIDNum", "1"}}},
      {"ClientData", {{"CompanyIDNum", "1"}}},
      {"AccountingServices", {}},
      {"ClientOptions", {}},
      {"CorpTaxInfo", {}},
      {"LawInfo", {}},
      {"OtherInfo", {}},
      {"WSIB_EHTInfo", {}},
      {"ClientUSInfo", {}},
      {"SoftwareInfo", {{"CompanyIDNum", "1"}, {"CompanyID", "1"}, {"DefaultSoftware", "True"}}},
      {"Contacts", {}},
      {"ContactsNotes", {{"ContactNum", "1"}}},
      {"AccountantFirmInfo", {}},
      {"Appointments", {{"TimeFrom", "9:00"}, {"TimeTo", "10:30"}}},
      {"Schedule", {}},
      {"Tasks", {{"ScheduleIDNum", "1"}}},
      {"Dockets", {{"TimeFrom", "9:00"}, {"TimeTo", "9:31"}}},
  };
  for (const Row& row : rows) {
    const std::string table = row.table;
    const RecordsetHandle handle =
        database.openRecordset("SELECT " + table + ".* FROM " + table + ";", CursorMode::keyset,
                               LockMode::updatable, -1, "", -1, false);
    database.addNewRecord(handle);
    for (const auto& [column, value] : row.fields) database.setFieldValue(handle, column, value);
    database.saveNewRecord(handle);
    database.closeRecordset(handle);
  }
}

/// A field that names no column of its source would ask the person, which fails the test.
TEST(FieldColumns, EveryFieldReadsFromItsRecord) {
  TestHost host;
  insertOneOfEach(*host.plainDatabase);
  host.attach();
  std::size_t read = 0;
  for (const countryCode country : {countryCanada, countryUnitedStates}) {
    host.plainLocale.settings().country = country;
    for (const int listType : {5, 6, 8}) {
      for (const int use : {1, 3}) {
        clsInsertFieldsInRTB merge;
        for (Id* id : {&merge.companyID, &merge.contactID, &merge.firmID, &merge.appointmentID,
                       &merge.docketId, &merge.taskID})
          *id = onlyKey;
        merge.ListType = listType;
        merge.put_MergeFieldListUse(use);
        merge.initializeDataRecordsetsForSingleDocMerge();
        GridColumnList& list = *merge.get_FieldList();
        const int count = list.getEntryCount();
        for (int index = 1; index <= count; ++index, ++read) {
          merge.getDataFieldInfo(index, "");
          ASSERT_EQ(host.errors.dialogs(), 0)
              << toText(list.getItem(2)) << " reads " << toText(list.getItem(1)) << " of "
              << toText(list.getItem(3)) << " in " << country;
        }
      }
    }
  }
  EXPECT_GT(read, 2000U);
}

}  // namespace
}  // namespace autonotify::test
