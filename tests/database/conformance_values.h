#pragma once

#include "host/database/dialect/DatabaseError.h"
#include "tests/database/conformance.h"

// What columns take and give, by their kind.
namespace autonotify::host::conformance {

TEST_P(Conformance, ValuesComeBackByTheKindOfTheirColumn) {
  struct Written {
    const char* column;
    std::string text;
    Value read;
  };
  const std::vector<Written> written = {
      {"ScheduleIDNum", "-1", -1},
      {"ScheduleIDNum", " 2147483647 ", 2147483647},
      {"SentByUserIDNum", "", Null{}},
      {"NotificationType", "8", 8},
      {"NotificationType", "-32768", -32768},
      {"NotificationSent", "True", true},
      {"NotificationSent", "FALSE", false},
      {"NotificationSent", "1", true},
      {"NotificationSent", "-1", true},
      {"NotificationSent", "0", false},
      {"NotificationDate", "2026-04-30", DateTime::of(2026, 4, 30)},
      {"NotificationDate", "April 30, 2026", DateTime::of(2026, 4, 30)},
      {"NotificationDate", "2026-04-30 14:05:09", DateTime::of(2026, 4, 30, 14, 5, 9)},
      {"NotificationDate", "14:05", DateTime::fromSerial(0, 14 * 3600 + 5 * 60)},
      {"SentTime", "", Null{}},
      {"Field1", "", ""},
      {"Field1", "it's \"quoted\"; -- # ? $1 %", "it's \"quoted\"; -- # ? $1 %"},
      {"Field1", "True", "True"},
      {"Field1", "2026-04-30", "2026-04-30"},
      {"Field2", "Zo\xC3\xAB \xE2\x82\xAC \xF0\x9F\x98\x80",
       "Zo\xC3\xAB \xE2\x82\xAC \xF0\x9F\x98\x80"},
      {"Memo", std::string(200000, 'm') + "\r\nend\t", std::string(200000, 'm') + "\r\nend\t"},
  };
  const Id id = addNotification(desk, {{"SentTime", "2026-01-01"}});
  for (const Written& row : written) {
    SCOPED_TRACE(std::string(row.column) + " = " + row.text.substr(0, 40));
    const RecordsetHandle rows = open(desk, notification(id));
    update(desk, rows, row.column, row.text);
    EXPECT_EQ(desk.getFieldValue(rows, row.column), row.read);
    desk.closeRecordset(rows);
    EXPECT_EQ(field(desk, id, row.column), row.read);
    const Id added = addNotification(desk, {{row.column, row.text}});
    EXPECT_EQ(field(desk, added, row.column), row.read);
  }
  add(desk, "Dockets", "DocketID", {{"TotalTimeReal", "1.75"}, {"BillingJobRate", "120"}});
  const std::string sql = "SELECT Dockets.* FROM Dockets;";
  EXPECT_EQ(column(desk, sql, "TotalTimeReal"), values({1.75}));
  EXPECT_EQ(column(desk, sql, "BillingJobRate"), values({120.0})) << "money is a double";
}

TEST_P(Conformance, ARefusedValueChangesNothing) {
  struct Refused {
    const char* column;
    std::string text;
    int error;
  };
  const std::vector<Refused> refused = {
      {"ScheduleIDNum", "many", error_number::typeMismatch},
      {"ScheduleIDNum", "2147483648", error_number::overflow},
      {"NotificationType", "32768", error_number::overflow},
      {"NotificationSent", "perhaps", error_number::typeMismatch},
      {"NotificationSent", "", error_number::typeMismatch},
      {"NotificationDate", "31 February 2026", error_number::typeMismatch},
      {"Field1", std::string("a\0b", 3), database_error::invalidText},
      {"Memo", "broken \xC3", database_error::invalidText},
      {"Field7", "x", database_error::unknownColumn},
      {"ClientNotificationID", "7", database_error::notUpdatable},
  };
  const Fields kept = {{"ScheduleIDNum", "5"}, {"Field1", "old"}, {"Memo", "old"}};
  const Id id = addNotification(desk, kept);
  const RecordsetHandle rows = open(desk, notification(id));
  for (const auto& [name, text, error] : refused)
    EXPECT_EQ(errorOf([&, &name = name, &text = text] { update(desk, rows, name, text); }), error)
        << name;
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
  const std::vector<std::pair<std::string, Value>> expected = {
      {"notifytype", 5},
      {"NotifyType", 5},
      {"bits", 5},
      {"Custom1", "of the schedule"},
      {"Tasks.Custom1", "of the task"},
      {"schedule.CUSTOM1", "of the schedule"},
      {"TaskCustom1", "of the task"},
  };
  for (const auto& [name, value] : expected)
    EXPECT_EQ(desk.getFieldValue(rows, name), value) << name;
  EXPECT_EQ(errorOf([&] { desk.getFieldValue(rows, "Custom6"); }), database_error::unknownColumn);
}

TEST_P(Conformance, ANewRowShowsItsDefaultsBeforeAndAfterItIsSaved) {
  const struct {
    std::string table;
    std::vector<std::string> columns;
    Value value;
  } defaults[] = {
      {"ClientNotification",
       {"ScheduleIDNum", "ApptIDNum", "TaskIDNum", "DocketIDNum", "OperatingProcedureIDNum",
        "CompanyIDNum", "ContactIDNum"},
       -1},
      {"ClientNotification", {"NotificationSent"}, false},
      {"ClientNotification", {"NotificationSentStatus"}, 1},
      {"ClientNotification", {"SentTime", "Field1"}, Null{}},
      {"Schedule", {"notifyType"}, 0},
      {"Appointments", {"notifyType"}, 0},
      {"Dockets", {"ClientNotifiedFlag"}, false},
      {"ScheduleTypes", {"NotificationPeriod"}, 15},
      {"Holidays", {"HolidayType"}, Null{}},
      {"ClientScheduleAutoNotifications", {"GSTNotifyType"}, 0},
      {"UserGeneralSettings", {"ShowEmailPreview"}, 1},
      {"UserGridSettings2", {"autoNotifyGridColumnOrderStandAlone"}, Null{}},
  };
  for (const auto& [table, columns, value] : defaults) {
    const RecordsetHandle rows = open(desk, "SELECT * FROM " + table + ";");
    desk.addNewRecord(rows);
    for (const bool saved : {false, true}) {
      if (saved) desk.saveNewRecord(rows);
      EXPECT_FALSE(desk.isEndOfRecordset(rows));
      for (const std::string& name : columns)
        EXPECT_EQ(desk.getFieldValue(rows, name), value) << table << '.' << name << saved;
    }
  }
}

}  // namespace autonotify::host::conformance
