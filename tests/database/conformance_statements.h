#pragma once

#include "host/database/dialect/DatabaseError.h"
#include "tests/database/conformance.h"

// The statements that the dialect takes, and those that it does not.
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

}  // namespace autonotify::host::conformance
