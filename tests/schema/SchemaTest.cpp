#include "host/database/schema/Schema.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace autonotify::host {
namespace {

std::string lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

SQLite::Database makeDatabase() {
  SQLite::Database database(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  for (const std::string& statement : schemaStatements(Engine::sqlite)) database.exec(statement);
  return database;
}

struct Literal {
  std::string file;
  std::string text;
};

bool isNamePart(char letter) {
  return std::isalnum(static_cast<unsigned char>(letter)) || letter == '_';
}

/// The name that starts at a position.
std::string nameAt(std::string_view text, std::size_t start) {
  std::size_t end = start;
  while (end < text.size() && isNamePart(text[end])) ++end;
  return std::string(text.substr(start, end - start));
}

/// The name that ends before a position.
std::string nameBefore(std::string_view text, std::size_t end) {
  std::size_t start = end;
  while (start > 0 && isNamePart(text[start - 1])) --start;
  return std::string(text.substr(start, end - start));
}

/// The texts between double quotes on one line.
std::vector<std::string> literalsOf(const std::string& line) {
  std::vector<std::string> result;
  bool inside = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') {
      inside = !inside;
      if (inside) result.emplace_back();
    } else if (inside) {
      result.back() += line[i];
      if (line[i] == '\\') ++i;
    }
  }
  return result;
}

/// The literals in the sources of the component.
std::vector<Literal> sourceLiterals() {
  std::vector<Literal> result;
  const std::filesystem::path root = std::filesystem::path(AUTONOTIFY_SOURCE_DIR) / "src";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
    std::ifstream stream(entry.path());
    for (std::string line; std::getline(stream, line);)
      for (std::string& text : literalsOf(line))
        result.push_back({entry.path().string(), std::move(text)});
  }
  return result;
}

TEST(Schema, NamesAreUniqueInAnyCase) {
  std::set<std::string> tables;
  for (const TableDef& table : schemaTables()) {
    EXPECT_TRUE(tables.insert(lower(table.name)).second) << table.name;
    std::set<std::string> columns;
    for (const ColumnDef& column : table.columns)
      EXPECT_TRUE(columns.insert(lower(column.name)).second) << table.name << '.' << column.name;
  }
}

TEST(Schema, EveryTableStartsWithItsOnlyKey) {
  for (const TableDef& table : schemaTables()) {
    const auto keys = std::ranges::count(table.columns, ColumnKind::Key, &ColumnDef::kind);
    EXPECT_EQ(keys, 1) << table.name;
    EXPECT_EQ(table.columns.front().kind, ColumnKind::Key) << table.name;
  }
}

TEST(Schema, IndexesNameColumnsOfTheirTable) {
  for (const TableDef& table : schemaTables())
    for (const auto& index : table.indexes)
      for (const std::string& column : index)
        EXPECT_NE(findColumn(table.name, column), nullptr) << table.name << '.' << column;
}

TEST(Schema, LookupIgnoresCase) {
  EXPECT_EQ(findColumn("schedule", "TOTALNUM"), findColumn("Schedule", "totalNum"));
  ASSERT_NE(findColumn("Schedule", "notifytype"), nullptr);
  EXPECT_EQ(findColumn("Schedule", "notifytype")->kind, ColumnKind::SmallInteger);
  EXPECT_EQ(findColumn("Schedule", "nothing"), nullptr);
  EXPECT_EQ(findColumn("Nothing", "ScheduleID"), nullptr);
  EXPECT_EQ(findTable("wsib_ehtinfo"), findTable("WSIB_EHTInfo"));
}

TEST(Schema, SqliteTakesTheStatementsAndKnowsEveryColumn) {
  SQLite::Database database = makeDatabase();
  for (const TableDef& table : schemaTables())
    EXPECT_EQ(SQLite::Statement(database, "SELECT * FROM " + table.name).getColumnCount(),
              static_cast<int>(table.columns.size()))
        << table.name;
}

TEST(Schema, ANewRowHasItsState) {
  struct Expected {
    const char* table;
    const char* column;
    const char* value;  // nullptr for NULL
  };
  const Expected cases[] = {
      {"ClientNotification", "NotificationSent", "0"},
      {"ClientNotification", "NotificationSentStatus", "1"},
      {"ClientNotification", "SentTime", nullptr},
      {"ClientNotification", "Field1", nullptr},
      {"ClientNotification", "ScheduleIDNum", "-1"},
      {"ClientNotification", "ApptIDNum", "-1"},
      {"ClientNotification", "TaskIDNum", "-1"},
      {"ClientNotification", "DocketIDNum", "-1"},
      {"ClientNotification", "OperatingProcedureIDNum", "-1"},
      {"ClientNotification", "CompanyIDNum", "-1"},
      {"ClientNotification", "ContactIDNum", "-1"},
      {"Schedule", "notifyType", "0"},
      {"Appointments", "notifyType", "0"},
      {"Dockets", "ClientNotifiedFlag", "0"},
      {"ScheduleTypes", "NotificationPeriod", "15"},
      {"Holidays", "HolidayType", nullptr},
      {"ClientScheduleAutoNotifications", "GSTNotifyType", "0"},
      {"UserGeneralSettings", "ShowEmailPreview", "1"},
      {"UserGeneralSettings", "ShowMVPreview", "0"},
      {"UserGridSettings2", "autoNotifyGridColumnOrderStandAlone", nullptr},
  };
  SQLite::Database database = makeDatabase();
  std::set<std::string> added;
  for (const Expected& each : cases) {
    if (added.insert(each.table).second)
      database.exec(std::string("INSERT INTO ") + each.table + " DEFAULT VALUES");
    SQLite::Statement row(database, std::string("SELECT ") + each.column + " FROM " + each.table);
    ASSERT_TRUE(row.executeStep());
    EXPECT_EQ(row.getColumn(0).isNull(), each.value == nullptr) << each.table << each.column;
    if (each.value) {
      EXPECT_EQ(row.getColumn(0).getString(), each.value) << each.column;
    }
  }
}

TEST(Schema, SqliteRefusesTextInANumberAndNullInAFlag) {
  SQLite::Database database = makeDatabase();
  EXPECT_THROW(database.exec("INSERT INTO Schedule (totalNum) VALUES ('x')"), SQLite::Exception);
  EXPECT_THROW(database.exec("INSERT INTO Schedule (Closed) VALUES (NULL)"), SQLite::Exception);
}

TEST(Schema, AKeyIsNeverUsedTwice) {
  SQLite::Database database = makeDatabase();
  database.exec("INSERT INTO ClientNotification (ClientNotificationID) VALUES (7)");
  database.exec("DELETE FROM ClientNotification");
  database.exec("INSERT INTO ClientNotification (Memo) VALUES ('')");
  EXPECT_EQ(database.getLastInsertRowid(), 8);
}

TEST(Schema, FrequentLookupsUseAnIndex) {
  const char* statements[] = {
      "SELECT * FROM ClientNotification WHERE ScheduleIDNum = 5 AND NotificationType = 1",
      "SELECT * FROM ClientNotification WHERE NotificationDate <= '2026-01-01' AND "
      "NotificationSent=0",
      "SELECT * FROM ClientNotification WHERE DocketIDNum=5 AND NotificationType = 1",
      "SELECT * FROM Holidays WHERE HolidayDate = '2026-01-01'",
      "SELECT * FROM ScheduleTypes WHERE TotalNum=101 AND ScheduleNum=-1",
      "SELECT * FROM Schedule WHERE ClientNum = 3 AND Year = 2026 AND totalNum = 101 AND Closed=0",
      "SELECT * FROM Tasks WHERE ScheduleIDNum=3",
      "SELECT * FROM archiveSchedule WHERE oldScheduleID=3",
      "SELECT * FROM archiveTasks WHERE ScheduleIDNum=3",
      "SELECT * FROM Contacts INNER JOIN ContactLinks ON Contacts.ContactID = "
      "ContactLinks.ContactIDNum WHERE ContactLinks.CompanyNum = 3 AND "
      "ContactLinks.DefaultContact=1",
      "SELECT * FROM OperatingProcedures WHERE TaskIDNum =3 AND OpProcedureScopeType=2 ORDER BY "
      "OrderNum",
      "SELECT * FROM UserGeneralSettings WHERE UserIDNum=3",
  };
  SQLite::Database database = makeDatabase();
  for (const char* statement : statements) {
    SQLite::Statement plan(database, std::string("EXPLAIN QUERY PLAN ") + statement);
    while (plan.executeStep()) {
      const std::string step = plan.getColumn(3).getString();
      EXPECT_EQ(step.find("SCAN"), std::string::npos) << statement << ": " << step;
      EXPECT_EQ(step.find("TEMP B-TREE"), std::string::npos) << statement << ": " << step;
    }
  }
}

// The accounting fields of a merge are read by name from one wide join: a name that two of its
// tables hold would give the value of either.
TEST(Schema, AccountingFieldsStandInOneTableOfTheirJoin) {
  const std::map<std::string, std::vector<std::string>> joins = {
      {"Canada",
       {"AccountingServices", "ClientData", "ClientOptions", "Companies", "CorpTaxInfo", "LawInfo",
        "OtherInfo", "WSIB_EHTInfo"}},
      {"elsewhere",
       {"AccountingServices", "ClientData", "ClientOptions", "Companies", "ClientUSInfo"}}};
  const std::set<std::string> linksOnly = {"companyidnum", "companynum"};
  for (const auto& [country, tables] : joins) {
    std::map<std::string, int> holders;
    for (const std::string& table : tables) {
      ASSERT_NE(findTable(table), nullptr) << table;
      for (const ColumnDef& column : findTable(table)->columns) ++holders[lower(column.name)];
    }
    for (const auto& [column, count] : holders)
      EXPECT_TRUE(count == 1 || linksOnly.contains(column)) << country << ": " << column;
  }
}

TEST(Schema, HoldsEveryColumnThatTheComponentNames) {
  int checked = 0;
  for (const auto& [file, text] : sourceLiterals())
    for (std::size_t dot = text.find('.'); dot != text.npos; dot = text.find('.', dot + 1)) {
      const std::string table = nameBefore(text, dot);
      const std::string column = nameAt(text, dot + 1);
      if (column.empty() || !findTable(table)) continue;
      ++checked;
      EXPECT_NE(findColumn(table, column), nullptr) << file << ": " << table << '.' << column;
    }
  EXPECT_GT(checked, 50);
}

TEST(Schema, HoldsEveryTableThatTheComponentSelectsFrom) {
  int checked = 0;
  for (const auto& [file, text] : sourceLiterals())
    for (std::string_view word : {"FROM ", "From ", "JOIN "}) {
      const std::size_t found = text.find(word);
      const bool isStatement =
          text.find("SELECT ") != text.npos || text.find("WHERE ") != text.npos;
      if (!isStatement || found == text.npos) continue;
      const std::size_t start = text.find_first_not_of("( ", found + word.size());
      if (start == text.npos) continue;
      ++checked;
      EXPECT_NE(findTable(nameAt(text, start)), nullptr) << file << ": " << text;
    }
  EXPECT_GT(checked, 20);
}

TEST(Schema, PostgresHasATypeForEveryKindAndFlagsOfItsOwn) {
  for (const std::string& statement : schemaStatements(Engine::postgres)) {
    EXPECT_EQ(statement.find("STRICT"), std::string::npos);
    EXPECT_EQ(statement.find("BOOLEAN NOT NULL DEFAULT 0"), std::string::npos) << statement;
    EXPECT_EQ(statement.find("AUTOINCREMENT"), std::string::npos);
  }
}

}  // namespace
}  // namespace autonotify::host
