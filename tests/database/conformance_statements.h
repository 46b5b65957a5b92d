#pragma once

#include "host/database/dialect/DatabaseError.h"
#include "tests/database/conformance.h"

// The statements that the dialect takes, and those that it does not.
namespace autonotify::host::conformance {

inline const std::vector<std::string>& dialectStatements() {
  static const std::string clients =
      "FROM ((((((Companies INNER JOIN ((ClientData INNER JOIN AccountingServices ON "
      "ClientData.ClientDataID = AccountingServices.AccountingServiceID) INNER JOIN ClientOptions "
      "ON ClientData.ClientDataID = ClientOptions.ClientOptionID) ON Companies.CompanyID = "
      "ClientData.CompanyIDNum) INNER JOIN CorpTaxInfo ON ClientData.ClientDataID = "
      "CorpTaxInfo.CorpTaxInfoID) INNER JOIN LawInfo ON ClientData.ClientDataID = "
      "LawInfo.LawInfoID) INNER JOIN OtherInfo ON ClientData.ClientDataID = "
      "OtherInfo.OtherInfoID) INNER JOIN WSIB_EHTInfo ON ClientData.ClientDataID = "
      "WSIB_EHTInfo.WSIB_EHTInfoID) INNER JOIN CompaniesNotes ON Companies.CompanyID = "
      "CompaniesNotes.CompanyNum) INNER JOIN Clients ON Companies.CompanyID = "
      "Clients.CompanyIDNum ";
  static const std::string clientColumns =
      "SELECT Clients.ClientID, AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, "
      "CorpTaxInfo.*, LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*, CompaniesNotes.BusinessNotes, "
      "CompaniesNotes.ContactNotes ";
  static const std::vector<std::string> statements = {
      clientColumns + clients + ";",
      clientColumns + clients +
          "WHERE ClientData.ShowThisClient = True AND NOT ClientData.ActiveStatus=1 AND "
          "ClientData.ClientDataID=7 ORDER BY Companies.ClientIDStr, Companies.CompanyName;",
      "SELECT Companies.*, Companies.Custom1 AS CompanyCustom1, Companies.Custom5 From Companies "
      "WHERE Companies.CompanyID=-1;",
      "SELECT Companies.CompanyID FROM ContactLinks INNER JOIN Companies ON "
      "ContactLinks.CompanyNum = Companies.CompanyID WHERE ContactLinks.ContactIDNum=1 AND Not "
      "ContactLinks.CompanyNum Is Null;",
      "select ScheduleTypes.* from ScheduleTypes where TotalNum=101 order by scheduleNum",
      "SELECT ClientNotification.* FROM ClientNotification WHERE CompanyIDNum = 3 AND "
      "NotificationDate>= #2026-01-01# AND NotificationDate<= #2026-12-31# AND "
      "(NotificationSentStatus = 1 OR NotificationSentStatus = 2) AND NotificationSent = False "
      "AND SentByUserIDNum = '7';",
      "SELECT NotificationType, COUNT(ClientNotificationID) AS Total FROM ClientNotification "
      "GROUP BY NotificationType HAVING COUNT(ClientNotificationID) > 1 ORDER BY 1;",
  };
  return statements;
}

TEST_P(Conformance, StatementsOfTheDialectRunInEveryMode) {
  for (const std::string& sql : dialectStatements())
    for (const CursorMode cursor : {CursorMode::keyset, CursorMode::forwardOnly})
      for (const LockMode lock : {LockMode::readOnly, LockMode::updatable}) {
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
  const int refused = database_error::statementRefused;
  const int failed = database_error::statementFailed;
  const std::vector<std::pair<std::string, int>> statements = {
      {"DELETE FROM ClientNotification;", refused},
      {"DROP TABLE ClientNotification;", refused},
      {"WITH x AS (SELECT 1) SELECT * FROM x;", refused},
      {"SELECT * INTO Copies FROM Holidays;", refused},
      {"SELECT * FROM Holidays FOR UPDATE;", refused},
      {"SELECT * FROM Holidays -- all", refused},
      {"SELECT * FROM Holidays /* all */;", refused},
      {"SELECT * FROM Holidays WHERE HolidayDate=#2026-02-30#;", refused},
      {"SELECT * FROM Contacts WHERE ContactID=?;", refused},
      {"SELECT set_config('a', 'b', False);", refused},
      {"SELECT ClientNotification.* FROM ClientNotification ClientNotificationID=5;", failed},
      {"SELECT Nothing.* FROM Nothing;", failed},
      {"SELECT Contacts.Nothing FROM Contacts;", failed},
      {"SELECT FROM WHERE;", failed},
  };
  for (const auto& [sql, error] : statements)
    EXPECT_EQ(errorOf([&, &text = sql] { open(desk, text); }), error) << sql;
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
  const std::vector<std::pair<std::string, std::vector<Value>>> conditions = {
      {"NotificationDate <= #" + today + "#", values({"a", "it's"})},
      {"NotificationDate=#" + today + "#", values({"it's"})},
      {"NotificationDate>= #4/30/2026 09:00# ", values({"c", "d"})},
      {"NotificationSent=TRUE", values({"c", "d"})},
      {"NOT NotificationSent = true", values({"a", "it's"})},
      {"SentByUserIDNum = '8'", values({"c"})},
      {"SentByUserIDNum=-1", values({"d"})},
      {"SentByUserIDNum > - 2 AND Not SentByUserIDNum Is Null", values({"it's", "c", "d"})},
      {"NOT SentByUserIDNum=7", values({"c", "d"})},
      {"Field1='" + desk.formatTextForSQL("it's") + "'", values({"it's"})},
      {"SentByUserIDNum IN (7, 8) AND (Field1='c' OR Field1='d')", values({"c"})},
      {"SentByUserIDNum Is Null", values({"a"})},
  };
  for (const auto& [condition, names] : conditions)
    EXPECT_EQ(column(desk,
                     "SELECT Field1 FROM ClientNotification WHERE " + condition +
                         " ORDER BY ClientNotificationID;",
                     "Field1"),
              names)
        << condition;
}

TEST_P(Conformance, OrderPutsNullFirstAndCountsAreNumbers) {
  for (const char* user : {"5", "", "-3", "5"}) addNotification(desk, {{"SentByUserIDNum", user}});
  const std::string sql = "SELECT SentByUserIDNum FROM ClientNotification ORDER BY SentByUserIDNum";
  EXPECT_EQ(column(desk, sql + ";", "SentByUserIDNum"), values({Null{}, -3, 5, 5}));
  EXPECT_EQ(column(desk, sql + " DESC;", "SentByUserIDNum"), values({5, 5, -3, Null{}}));
  EXPECT_EQ(column(desk,
                   "SELECT COUNT(ClientNotification.ClientNotificationID) AS Total FROM "
                   "ClientNotification WHERE SentByUserIDNum=5;",
                   "total"),
            values({2}));
  EXPECT_EQ(column(desk,
                   "SELECT SentByUserIDNum, COUNT(ClientNotificationID) AS Total FROM "
                   "ClientNotification GROUP BY SentByUserIDNum ORDER BY SentByUserIDNum;",
                   "Total"),
            values({1, 1, 2}));
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
  const std::string joined =
      " INNER JOIN ClientNotification ON Companies.CompanyID = ClientNotification.CompanyIDNum ";
  const std::vector<std::pair<std::string, std::vector<Value>>> cases = {
      {"ClientNotification", values({"1", "2", "3", "4", "5", "6"})},
      {"ClientNotification WHERE ScheduleIDNum > 1", values({"1", "2", "3", "4", "5"})},
      {"ClientNotification WHERE NotificationDate >= #2026-01-03# AND NotificationSent=False",
       values({"1", "2", "3", "4"})},
      {"ClientNotification WHERE CompanyIDNum = 3", values({"1", "3", "5"})},
      {"ClientNotification ORDER BY CompanyIDNum", values({"2", "4", "6", "1", "3", "5"})},
      {"ClientNotification ORDER BY CompanyIDNum DESC LIMIT 5", values({"1", "3", "5", "2", "4"})},
      {"Companies" + joined, values({"2", "4", "6", "1", "3", "5"})},
      {"Companies" + joined + "WHERE ScheduleIDNum < 6", values({"2", "4", "6", "3", "5"})},
      {"Companies" + joined + "ORDER BY SentByUserIDNum", values({"6", "3", "5", "2", "4", "1"})},
      {"Companies AS c LEFT JOIN ClientNotification AS n ON c.CompanyID = n.CompanyIDNum",
       values({"2", "4", "6", Null{}, "1", "3", "5"})},
  };
  for (const auto& [from, names] : cases)
    EXPECT_EQ(column(desk, "SELECT Field1 FROM " + from + ";", "Field1"), names) << from;
}

}  // namespace autonotify::host::conformance
