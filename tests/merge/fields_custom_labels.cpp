#include <gmock/gmock.h>

#include "fields_host.h"

namespace autonotify::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

const std::string appointmentLabels =
    "SELECT CustomFields.ApptCustomName1, CustomFields.ApptCustomName2, "
    "CustomFields.ApptCustomName3, CustomFields.ApptCustomName4, CustomFields.ApptCustomName5 "
    "FROM CustomFields;";

const std::string addressLabels(const std::string& owner) {
  std::string sql = "SELECT ";
  for (int i = 1; i <= 5; ++i)
    sql += (i > 1 ? ", " : "") + ("CustomAddressFields." + owner + "Label" + std::to_string(i));
  return sql + " FROM CustomAddressFields;";
}

TEST_F(FieldsHost, LabelsNameTheCustomFields) {
  database.rows[appointmentLabels] = {{{"ApptCustomName1", "Room:"},
                                       {"ApptCustomName2", "Custom 2"},
                                       {"ApptCustomName3", "Custom 3:"},
                                       {"ApptCustomName4", "Custom 3"},
                                       {"ApptCustomName5", "Notes::"}}};
  const std::vector<std::string> names = build(5);
  EXPECT_THAT(
      std::vector(names.begin() + 6, names.begin() + 11),
      ElementsAre("Room", "Custom Appt Field 2", "Custom Appt Field 3", "Custom 3", "Notes:"));
  const std::vector<std::string> columns = column(databaseFieldColumn);
  EXPECT_THAT(
      std::vector(columns.begin() + 6, columns.begin() + 11),
      ElementsAre("ApptCustom1", "ApptCustom2", "ApptCustom3", "ApptCustom4", "ApptCustom5"));
}

TEST_F(FieldsHost, UnsetLabelsKeepTheDefaultNames) {
  database.rows[appointmentLabels] = {{{"ApptCustomName1", Value()},
                                       {"ApptCustomName2", ""},
                                       {"ApptCustomName3", ":"},
                                       {"ApptCustomName4", "custom 4"},
                                       {"ApptCustomName5", "Custom 5 "}}};
  const std::vector<std::string> names = build(5);
  EXPECT_THAT(std::vector(names.begin() + 6, names.begin() + 11),
              ElementsAre("Custom Appt Field 1", "Custom Appt Field 2", "Custom Appt Field 3",
                          "custom 4", "Custom 5 "));
}

TEST_F(FieldsHost, CompanyAndFirmShareTheirLabels) {
  StatementDatabase::Row labels;
  for (int i = 1; i <= 5; ++i) labels["CompanyLabel" + std::to_string(i)] = "Custom 9";
  labels["CompanyLabel4"] = "Region";
  database.rows[addressLabels("Company")] = {labels};
  build(1);
  GridColumnList& list = *merge->get_FieldList();
  std::vector<std::string> columns;
  for (list.moveFirst(); !list.isAtEnd(); list.moveNext()) {
    if (toText(list.getItem(displayNameColumn)) == "Region")
      columns.push_back(toText(list.getItem(databaseFieldColumn)));
  }
  EXPECT_THAT(columns, ElementsAre("CompanyCustom4", "FirmCustom4"));
}

TEST_F(FieldsHost, LabelsAreReadOncePerBlock) {
  build(8);
  EXPECT_THAT(database.opened.size(), 6U);
  EXPECT_EQ(database.closed, 6);
  for (const char* stem : {"RemittanceLabel", "TaskCustomName", "CustomName"}) {
    EXPECT_THAT(database.opened, Contains(testing::StartsWith("1,1 SELECT CustomFields." +
                                                              std::string(stem) + "1, ")));
  }
  EXPECT_EQ(database.opened[2], "1,1 " + addressLabels("Company"));
  EXPECT_EQ(database.opened[4], "1,1 " + addressLabels("Contact"));
  EXPECT_EQ(database.opened[5], "1,1 " + addressLabels("Company"));
  database.opened.clear();
  build(6);
  EXPECT_THAT(database.opened[0], testing::StartsWith("1,1 SELECT CustomFields.DocketCustomName1"));
}

TEST_F(FieldsHost, AClosedDatabaseGivesTheDefaultNames) {
  database.isOpen = false;
  const std::vector<std::string> names = build(6);
  EXPECT_TRUE(database.opened.empty());
  EXPECT_THAT(names, Contains("Custom Time Entry Field 5"));
  EXPECT_EQ(names.size(), 203U);
}

TEST_F(FieldsHost, AFailedReadOfLabelsGoesToThePerson) {
  // Leaving ends the block alone; the blocks after it are added.
  database.failingOpens = 1;
  errors.answer({error_choice::leave});
  const std::vector<std::string> names = build(5);
  EXPECT_THAT(names, Contains("Appointment Text"));
  EXPECT_THAT(names, Not(Contains("Custom Appt Field 1")));
  EXPECT_THAT(names, Contains("Company Name"));
  EXPECT_EQ(errors.recorded().at(0).tag,
            "Morvane.exe-clsInsertFieldsInRTB-createAppointmentInfoFieldListStructure");

  // A repeated statement reads them after all.
  database.rows[appointmentLabels] = {{{"ApptCustomName1", "Room"},
                                       {"ApptCustomName2", "Floor"},
                                       {"ApptCustomName3", "Desk"},
                                       {"ApptCustomName4", "Chair"},
                                       {"ApptCustomName5", "Lamp"}}};
  database.failingOpens = 2;
  errors.answer({error_choice::quit, 0});
  EXPECT_THAT(build(5), Contains("Lamp"));
}

}  // namespace
}  // namespace autonotify::test
