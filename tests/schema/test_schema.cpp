#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

#include "platform/text.h"
#include "schema/firm_in_memory.h"

namespace autonotify::host {
namespace {

/// Calls `check` with each text between double quotes on one line of the component's sources.
template <class Check>
void forEachSourceLiteral(Check check) {
  static const std::regex literal(R"re("((?:[^"\\]|\\.)*)")re");
  const std::filesystem::path root = std::filesystem::path(AUTONOTIFY_SOURCE_DIR) / "src";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
    std::ifstream stream(entry.path());
    for (std::string line; std::getline(stream, line);)
      for (std::sregex_iterator found(line.begin(), line.end(), literal), end; found != end;
           ++found)
        check((*found)[1].str());
  }
}

TEST(Schema, NamesAreUniqueInAnyCaseAndIndexesNameThem) {
  std::set<std::string> names;
  for (const TableDef& table : schemaTables()) {
    EXPECT_TRUE(names.insert(lowerCase(table.name)).second) << table.name;
    for (const ColumnDef& column : table.columns)
      EXPECT_TRUE(names.insert(lowerCase(table.name + '.' + column.name)).second)
          << table.name << '.' << column.name;
    EXPECT_EQ(std::ranges::count(table.columns, ColumnKind::Key, &ColumnDef::kind), 1)
        << table.name;
    EXPECT_EQ(table.columns.front().kind, ColumnKind::Key) << table.name;
    for (const auto& index : table.indexes)
      for (const std::string& column : index)
        EXPECT_NE(findColumn(table.name, column), nullptr) << table.name << '.' << column;
  }
}

TEST(Schema, ANewRowHasItsState) {
  const struct {
    std::string table;
    std::string columns;
    std::string values;
  } cases[] = {
      {"ClientNotification",
       "NotificationSent, NotificationSentStatus, SentTime, Field1, ScheduleIDNum, ApptIDNum, "
       "TaskIDNum, DocketIDNum, OperatingProcedureIDNum, CompanyIDNum, ContactIDNum",
       "0|1|NULL|NULL|-1|-1|-1|-1|-1|-1|-1|"},
      {"Schedule", "notifyType", "0|"},
      {"Appointments", "notifyType", "0|"},
      {"Dockets", "ClientNotifiedFlag", "0|"},
      {"ScheduleTypes", "NotificationPeriod", "15|"},
      {"Holidays", "HolidayType", "NULL|"},
      {"ClientScheduleAutoNotifications", "GSTNotifyType", "0|"},
      {"UserGeneralSettings", "ShowEmailPreview, ShowMVPreview", "1|0|"},
      {"UserGridSettings2", "autoNotifyGridColumnOrderStandAlone", "NULL|"},
  };
  Firm firm;
  for (const auto& [table, columns, values] : cases) {
    firm.database().exec("INSERT INTO " + table + " DEFAULT VALUES");
    EXPECT_EQ(firm.text("SELECT " + columns + " FROM " + table), values) << table;
  }
}

TEST(Schema, SqliteRefusesWrongTypesAndUsedKeys) {
  Firm firm;
  SQLite::Database& database = firm.database();
  EXPECT_THROW(database.exec("INSERT INTO Schedule (totalNum) VALUES ('x')"), SQLite::Exception);
  EXPECT_THROW(database.exec("INSERT INTO Schedule (Closed) VALUES (NULL)"), SQLite::Exception);
  database.exec("INSERT INTO ClientNotification (ClientNotificationID) VALUES (7)");
  database.exec("DELETE FROM ClientNotification");
  database.exec("INSERT INTO ClientNotification (Memo) VALUES ('')");
  EXPECT_EQ(database.getLastInsertRowid(), 8);
}

TEST(Schema, FrequentLookupsUseAnIndex) {
  const char* lookups[] = {
      "ClientNotification WHERE ScheduleIDNum = 5 AND NotificationType = 1",
      "ClientNotification WHERE NotificationDate <= '2026-01-01' AND NotificationSent=0",
      "ClientNotification WHERE DocketIDNum=5 AND NotificationType = 1",
      "Holidays WHERE HolidayDate = '2026-01-01'",
      "ScheduleTypes WHERE TotalNum=101 AND ScheduleNum=-1",
      "Schedule WHERE ClientNum = 3 AND Year = 2026 AND totalNum = 101 AND Closed=0",
      "Tasks WHERE ScheduleIDNum=3",
      "archiveSchedule WHERE oldScheduleID=3",
      "archiveTasks WHERE ScheduleIDNum=3",
      "Contacts INNER JOIN ContactLinks ON Contacts.ContactID = ContactLinks.ContactIDNum WHERE "
      "ContactLinks.CompanyNum = 3 AND ContactLinks.DefaultContact=1",
      "OperatingProcedures WHERE TaskIDNum =3 AND OpProcedureScopeType=2 ORDER BY OrderNum",
      "UserGeneralSettings WHERE UserIDNum=3",
  };
  Firm firm;
  for (const std::string lookup : lookups) {
    SQLite::Statement plan(firm.database(), "EXPLAIN QUERY PLAN SELECT * FROM " + lookup);
    while (plan.executeStep()) {
      const std::string step = plan.getColumn(3).getString();
      EXPECT_EQ(step.find("SCAN"), std::string::npos) << lookup << ": " << step;
      EXPECT_EQ(step.find("TEMP B-TREE"), std::string::npos) << lookup << ": " << step;
    }
  }
}

// The accounting fields of a merge are read by name from one wide join: a name that two of its
// tables hold would give the value of either.
TEST(Schema, AccountingFieldsStandInOneTableOfTheirJoin) {
  const std::vector<std::string> joins[] = {
      {"AccountingServices", "ClientData", "ClientOptions", "Companies", "CorpTaxInfo", "LawInfo",
       "OtherInfo", "WSIB_EHTInfo"},
      {"AccountingServices", "ClientData", "ClientOptions", "Companies", "ClientUSInfo"}};
  for (const auto& tables : joins) {
    std::set<std::string> columns;
    for (const std::string& table : tables)
      for (const ColumnDef& column : findTable(table)->columns) {
        const std::string name = lowerCase(column.name);
        const bool isLink = name == "companyidnum" || name == "companynum";
        EXPECT_TRUE(columns.insert(name).second || isLink) << table << '.' << name;
      }
  }
}

TEST(Schema, HoldsEveryTableAndColumnThatTheComponentNames) {
  static const std::regex qualified(R"((\w+)\.(\w+))");
  static const std::regex source(R"((?:FROM|From|JOIN) [( ]*(\w+))");
  static const std::regex statement("SELECT |WHERE ");
  int columns = 0;
  int tables = 0;
  forEachSourceLiteral([&](const std::string& text) {
    const auto forEachMatch = [&](const std::regex& pattern, auto check) {
      for (std::sregex_iterator found(text.begin(), text.end(), pattern), end; found != end;
           ++found)
        check(*found);
    };
    forEachMatch(qualified, [&](const std::smatch& name) {
      if (!findTable(name[1].str())) return;
      ++columns;
      EXPECT_NE(findColumn(name[1].str(), name[2].str()), nullptr) << text;
    });
    if (!std::regex_search(text, statement)) return;
    forEachMatch(source, [&](const std::smatch& name) {
      ++tables;
      EXPECT_NE(findTable(name[1].str()), nullptr) << text;
    });
  });
  EXPECT_GT(columns, 50);
  EXPECT_GT(tables, 20);
}

TEST(Schema, PostgresHasNothingOfSqlite) {
  for (const std::string& statement : schemaStatements(Engine::postgres))
    for (const char* foreign : {"STRICT", "BOOLEAN NOT NULL DEFAULT 0", "AUTOINCREMENT"})
      EXPECT_EQ(statement.find(foreign), std::string::npos) << statement;
}

}  // namespace
}  // namespace autonotify::host
