#include <initializer_list>
#include <utility>

#include "control/contract/references.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/modCodeTexts.h"
#include "support/fault_walk.h"

namespace autonotify::test {
namespace {

constexpr Id taskId = 17;

void insert(TestHost& host, const std::string& table,
            std::initializer_list<std::pair<const char*, const char*>> fields) {
  DatabaseReference& database = *host.plainDatabase;
  const RecordsetHandle handle =
      database.openRecordset("SELECT " + table + ".* FROM " + table + ";", CursorMode::keyset,
                             LockMode::updatable, -1, "", -1, false);
  database.addNewRecord(handle);
  for (const auto& [column, value] : fields) database.setFieldValue(handle, column, value);
  database.saveNewRecord(handle);
  database.closeRecordset(handle);
}

void prepareLabels(TestHost& host) {
  insert(host, "CustomFields", {{"ApptCustomName1", "Room:"}, {"ApptCustomName2", "Custom 2:"}});
  insert(host, "CustomAddressFields", {{"CompanyLabel3", "Region"}});
}

TEST(MergeFaults, TheFieldListSurvivesEachFailedCall) {
  const FaultWalkReport report = walkFaults({
      .prepare = prepareLabels,
      .run =
          [](TestHost&) {
            clsInsertFieldsInRTB merge;
            ListBox box;
            merge.listBox = &box;
            GridColumnList& list = *merge.get_FieldList();
            merge.createAppointmentInfoFieldListStructure(list, false);
            merge.createAccountantFieldListStructure(false, true);
            for (const ListBox::Entry& entry : box.entries())
              EXPECT_TRUE(list.selectEntry(entry.itemData)) << entry.text;
            return list.toText();
          },
      // Left at its first call, the appointment's block is missing and the firm's rows follow.
      .defaultResult =
          [] {
            TestHost host;
            prepareLabels(host);
            host.attach();
            clsInsertFieldsInRTB merge;
            merge.createAccountantFieldListStructure(false, true);
            return merge.get_FieldList()->toText();
          }(),
  });
  EXPECT_GT(report.hostCalls, 25);
}

TEST(MergeFaults, TheDocumentsListSurvivesEachFailedCall) {
  const FaultWalkReport report = walkFaults({
      .prepare =
          [](TestHost& host) {
            for (const auto& [order, type, name] :
                 {std::tuple{"2", "2", "Bank statements"}, {"1", "1", "Call first"}}) {
              insert(host, "OperatingProcedures",
                     {{"TaskIDNum", "17"},
                      {"OpProcedureScopeType", "2"},
                      {"OrderNum", order},
                      {"OpProcedureType", type},
                      {"OpProdedureName", name}});
            }
          },
      .run =
          [](TestHost&) {
            clsInsertFieldsInRTB merge;
            merge.taskID = taskId;
            return merge.getDocsAndInstructionsList();
          },
      .defaultResult = "",
  });
  EXPECT_GT(report.hostCalls, 8);
}

TEST(MergeFaults, RewritingSurvivesEachFailedCall) {
  const std::string text = "«WCB Number» and «State» of «Contact Full Name»";
  walkFaults({
      .run = [&](TestHost&) { return clsInsertFieldsInRTB().convertProvinceFields(text); },
      .defaultResult = "«WCB Number» and «State» of «Contact Display Name»",
  });
}

TEST(MergeFaults, ThePartnershipSurvivesEachFailedCall) {
  walkFaults({
      .run =
          [](TestHost&) {
            std::int16_t partnership = 3;
            return getCompanyTypeStringFromCompanyTypeNum(partnership);
          },
      .defaultResult = "Unknown",
  });
}

}  // namespace
}  // namespace autonotify::test
