#pragma once

#include <map>

#include "host/database/dialect/DatabaseError.h"
#include "tests/database/conformance.h"

// What columns take and give, by their kind.
namespace autonotify::host::conformance {

TEST_P(Conformance, ValuesComeBackByTheKindOfTheirColumn) {
  auto written = rowsOf("values", 3);
  const std::string text = std::string(200000, 'm') + "\r\nend\t";
  written.push_back({"Memo", text, "'" + text + "'"});
  const Id id = addNotification(desk, {{"SentTime", "2026-01-01"}});
  for (const auto& row : written) {
    SCOPED_TRACE(row[0] + " = " + row[1].substr(0, 40));
    const RecordsetHandle rows = open(desk, notification(id));
    update(desk, rows, row[0], row[1]);
    EXPECT_EQ(cellOf({desk.getFieldValue(rows, row[0])}), row[2]);
    desk.closeRecordset(rows);
    EXPECT_EQ(cellOf({field(desk, id, row[0])}), row[2]);
    const Id added = addNotification(desk, {{row[0], row[1]}});
    EXPECT_EQ(cellOf({field(desk, added, row[0])}), row[2]);
  }
  add(desk, "Dockets", "DocketID", {{"TotalTimeReal", "1.75"}, {"BillingJobRate", "120"}});
  const std::string sql = "SELECT Dockets.* FROM Dockets;";
  EXPECT_EQ(column(desk, sql, "TotalTimeReal"), values({1.75}));
  EXPECT_EQ(column(desk, sql, "BillingJobRate"), values({120.0})) << "money is a double";
}

TEST_P(Conformance, ARefusedValueChangesNothing) {
  const std::map<std::string, int> errors = {{"no such type", error_number::typeMismatch},
                                             {"too large", error_number::overflow},
                                             {"no text", database_error::invalidText},
                                             {"no column", database_error::unknownColumn},
                                             {"not updatable", database_error::notUpdatable}};
  const Fields kept = {{"ScheduleIDNum", "5"}, {"Field1", "old"}, {"Memo", "old"}};
  const Id id = addNotification(desk, kept);
  const RecordsetHandle rows = open(desk, notification(id));
  for (const auto& row : rowsOf("refused values", 3))
    EXPECT_EQ(errorOf([&] { update(desk, rows, row[0], row[1]); }), errors.at(row[2])) << row[0];
  for (const auto& [name, text] : kept) EXPECT_EQ(toText(field(desk, id, name)), text);
  update(desk, rows, "Field1", "new");
  EXPECT_EQ(field(desk, id, "Field1"), Value("new"));
}

TEST_P(Conformance, ColumnNamesMatchInAnyCaseAndByTheirTable) {
  const Id schedule =
      add(desk, "Schedule", "ScheduleID", {{"NOTIFYTYPE", "5"}, {"Custom1", "of the schedule"}});
  add(desk, "Tasks", "taskid",
      {{"ScheduleIDNum", std::to_string(schedule)}, {"Custom1", "of the task"}});
  const RecordsetHandle rows =
      open(desk,
           "SELECT Schedule.*, Tasks.*, Tasks.Custom1 AS TaskCustom1, Schedule.notifyType AS Bits "
           "FROM Schedule INNER JOIN Tasks ON Schedule.ScheduleID = Tasks.ScheduleIDNum;");
  for (const auto& row : rowsOf("column names", 2))
    EXPECT_EQ(cellOf({desk.getFieldValue(rows, row[0])}), row[1]) << row[0];
  EXPECT_EQ(errorOf([&] { desk.getFieldValue(rows, "Custom6"); }), database_error::unknownColumn);
}

TEST_P(Conformance, ANewRowShowsItsDefaultsBeforeAndAfterItIsSaved) {
  for (const auto& row : rowsOf("defaults", 3)) {
    const RecordsetHandle rows = open(desk, "SELECT * FROM " + row[0] + ";");
    desk.addNewRecord(rows);
    for (const bool saved : {false, true}) {
      if (saved) desk.saveNewRecord(rows);
      EXPECT_FALSE(desk.isEndOfRecordset(rows));
      for (const std::string& name : test::split(row[1]))
        EXPECT_EQ(cellOf({desk.getFieldValue(rows, name)}), row[2])
            << row[0] << '.' << name << saved;
    }
  }
}

}  // namespace autonotify::host::conformance
