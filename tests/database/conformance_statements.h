#pragma once

#include "host/database/dialect/DatabaseError.h"
#include "tests/database/conformance.h"

// The statements that the dialect takes, those that it does not, and what columns hold.
namespace autonotify::host::conformance {

TEST_P(Conformance, StatementsOfTheDialectRunInEveryMode) {
  for (const auto& row : rowsOf("statements", 1))
    for (const CursorMode cursor : {CursorMode::keyset, CursorMode::forwardOnly})
      for (const LockMode lock : {LockMode::readOnly, LockMode::updatable}) {
        const std::string& sql = row[0];
        const RecordsetHandle rows = open(desk, sql, lock, cursor);
        EXPECT_FALSE(desk.hasRecords(rows)) << sql;
        EXPECT_TRUE(desk.isRecordsetEmpty(rows)) << sql;
        EXPECT_TRUE(desk.isEndOfRecordset(rows)) << sql;
        EXPECT_EQ(desk.getRecordCount(rows), 0) << sql;
        desk.closeRecordset(rows);
      }
}

TEST_P(Conformance, OtherStatementsAreRefusedAndHarmNothing) {
  const Id id = addNotification(desk, {{"Field1", "kept"}});
  for (const auto& row : rowsOf("other statements", 2))
    EXPECT_EQ(errorOf([&] { open(desk, row[0]); }), row[1] == "refused"
                                                        ? database_error::statementRefused
                                                        : database_error::statementFailed)
        << row[0];
  EXPECT_EQ(field(desk, id, "Field1"), Value("kept"));
}

TEST_P(Conformance, ConditionsSelectWhatTheySay) {
  const auto add = [&](const char* date, const char* sent, const char* user, const char* name) {
    addNotification(desk, {{"NotificationDate", date},
                           {"NotificationSent", sent},
                           {"SentByUserIDNum", user},
                           {"Field1", name}});
  };
  add("2026-04-29 23:59:59", "False", "", "a");
  add("2026-04-30", "False", "7", "it's");
  add("2026-04-30 09:00", "True", "8", "c");
  add("2026-05-01", "True", "-1", "d");
  const std::string today = desk.formatDateForSQL(DateTime::of(2026, 4, 30));
  for (const auto& row : rowsOf("conditions", 2)) {
    const std::string condition =
        replaceAll(replaceAll(row[0], "{today}", today), "{it's}", desk.formatTextForSQL("it's"));
    const std::string sql = "SELECT Field1 FROM ClientNotification WHERE " + condition +
                            " ORDER BY ClientNotificationID;";
    EXPECT_EQ(cellOf(column(desk, sql, "Field1")), row[1]) << condition;
  }
}

TEST_P(Conformance, OrderPutsNullFirstAndCountsAreNumbers) {
  for (const char* user : {"5", "", "-3", "5"}) addNotification(desk, {{"SentByUserIDNum", user}});
  for (const auto& row : rowsOf("columns of statements", 3))
    for (int run = 0; run < 6; ++run)
      EXPECT_EQ(cellOf(column(desk, row[1], row[0])), row[2]) << row[1];
}

/// Where a statement says nothing of it, rows stand in the order of the keys of its tables, from
/// left to right, whatever was written last and whichever index leads to them.
TEST_P(Conformance, RowsOfNoOrderStandInThatOfTheirKeys) {
  const std::vector<std::string> companies = {"b", "a", "b"};
  for (const std::string& name : companies)
    conformance::add(desk, "Companies", "CompanyID", {{"CompanyName", name}});
  for (int i = 1; i <= 6; ++i)
    addNotification(desk, {{"CompanyIDNum", std::to_string(i % 2 == 0 ? 1 : 3)},
                           {"ScheduleIDNum", std::to_string(7 - i)},
                           {"NotificationDate", "2026-01-0" + std::to_string(7 - i)},
                           {"Field1", std::to_string(i)}});
  for (const Id written : {1, 4, 2}) {
    const RecordsetHandle row = open(desk, notification(written));
    update(desk, row, "Memo", "written");
    update(desk, row, "SentByUserIDNum", "5");
    desk.closeRecordset(row);
  }
  for (const auto& row : rowsOf("rows of no order", 2))
    EXPECT_EQ(cellOf(column(desk, "SELECT Field1 FROM " + row[0] + ";", "Field1")), row[1])
        << row[0];
}

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
